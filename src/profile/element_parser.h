// `CProfile`: reads the elements of a displayed profile.
#pragma once

#include "profile/element_lists.h"
#include "vantro/interfaces.h"
#include "vantro/registry.h"

#include <array>
#include <cstdint>

namespace vantro {

class CProfile final : public ProfileObject, public IProfileGet {
public:
    CProfile(Terminal& terminal, const TransErrors& errors);

    IProfileGet* profileGet() override { return this; }

    /// Reads a family's elements from the display into the family's lists and returns their count. Raises the family's
    /// number; see `ProfileLists::refill`.
    std::int16_t count(Family family, TextView display);

    /// The lists under the names that the terminal knows: "strPPRText", "strServiceRequestCode", ...
    const TextList* list(TextView name) const override { return lists_.texts(name); }
    const FlagList* flagList(TextView name) const override { return lists_.flags(name); }

private:
    CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                              SelectionSource& selection) override;

    Terminal& terminal_;
    ProfileLists lists_;
};

/// The count properties of `CProfile`, for the class table: one per family, and a retired one.
extern const std::array<CountProperty, familyCount + 1> profileCounts;

}  // namespace vantro
