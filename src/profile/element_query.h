// A query for one element family: from the prefix in the request to the elements in the same collection.
#pragma once

#include "display/display.h"
#include "framework/access.h"
#include "profile/element_parser.h"

namespace vantro {

/// One call of `ProfileElements`. A row of the dispatch table names the member that answers it.
class ProfileQuery {
public:
    ProfileQuery(CProfile& profile, Terminal& terminal, const CollectionPtr& collection, SelectionSource& selection)
        : profile_(profile),
          terminal_(terminal),
          collection_(collection),
          request_(terminal, collection),
          selection_(selection) {}

    /// Null when a row answered the prefix, the request's collection when none did. Raises 5065 for an empty
    /// prefix; every other failure passes unchanged.
    CollectionPtr answer(TextView display);

    // The answers, in three kinds: header values read here and now, whole lists, and the element at an index.
    void addName(Family family);
    void addRecordLocator(Family family);
    void addOfficeIdentifier(Family family);
    void addCompanyName(Family family);
    void addPin(Family family);
    void addPsl(Family family);
    void addTransferableNumbers(Family family);
    void addLists(Family family);
    void addIndexedWithLists(Family family);
    void addIndexed(Family family);

private:
    void addWholeLists(Family family);
    void addFurtherKeys(Family family, std::size_t index);

    CProfile& profile_;
    Terminal& terminal_;
    const CollectionPtr& collection_;
    Parameters request_;
    SelectionSource& selection_;
    TextView display_;
};

}  // namespace vantro
