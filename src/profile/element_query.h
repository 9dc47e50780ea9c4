// A query of a profile display: reads the prefix from the request and adds the answer to the same collection.
#pragma once

#include "framework/access.h"
#include "profile/element_lists.h"
#include "vantro/families.h"
#include "vantro/interfaces.h"

namespace vantro {

/// The query that a prefix selects, or null. No prefix matches the words of two queries.
const QueryFacts* queryFor(TextView prefix) noexcept;

/// One call of `ProfileElements`.
class ProfileQuery {
public:
    ProfileQuery(ProfileLists& lists, Terminal& terminal, const CollectionPtr& collection, SelectionSource& selection)
        : lists_(lists),
          terminal_(terminal),
          collection_(collection),
          request_(terminal, collection),
          selection_(selection) {}

    /// Returns null for a known prefix, the request's collection for an unknown one. Raises 5065 for an empty prefix;
    /// every other failure passes unchanged.
    CollectionPtr answer(TextView display);

private:
    void add(const QueryFacts& query);
    void addFamily(const FamilyFacts& family);
    void addOther(OtherQuery query);

    void addWholeLists(Family family);
    void addElementAndLists(const FamilyFacts& family);
    void addElement(const FamilyFacts& family);
    void addParts(const FamilyFacts& family, std::size_t entry);

    ProfileLists& lists_;
    Terminal& terminal_;
    const CollectionPtr& collection_;
    Parameters request_;
    SelectionSource& selection_;
    TextView display_;
};

}  // namespace vantro
