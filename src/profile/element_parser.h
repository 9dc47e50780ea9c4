// `CProfile`: reads the elements of a displayed profile.
#pragma once

#include "display/families.h"
#include "framework/access.h"
#include "profile/element_lists.h"
#include "vantro/interfaces.h"
#include "vantro/registry.h"

#include <array>
#include <cstdint>
#include <memory>

namespace vantro {

class CProfile final : public ProfileObject, public IProfileGet {
public:
    CProfile(Terminal& terminal, const TransErrors& errors);

    IProfileGet* profileGet() override { return this; }

    /// Reads a family's elements out of the display into the family's lists and gives their count. Raises the
    /// family's number with "An error has occurred while verifying the profile."; the lists then hold what was
    /// stored up to the failure.
    std::int16_t count(Family family, TextView display);

    const ElementLists& lists(Family family) const { return listsOf(family); }

    /// The lists by the names that the terminal knows: "strPPRText", "strServiceRequestCode", ...
    const TextList* list(TextView name) const override;
    const FlagList* flagList(TextView name) const override;

private:
    CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                              SelectionSource& selection) override;

    std::int16_t refill(Family family, TextView display);
    ElementLists& listsOf(Family family) const;

    Terminal& terminal_;
    // Most objects are asked for few families: lists are made when they are first asked for.
    mutable std::array<std::unique_ptr<ElementLists>, familyCount> lists_;
};

/// The count properties of `CProfile`, for the class table.
extern const std::array<CountProperty, familyCount + 1> profileCounts;

}  // namespace vantro
