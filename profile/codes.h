// Which transferable families' codes stand in a line at all: one look instead of a search for each.
#pragma once

#include "framework/line_bits.h"
#include "profile/families.h"

#include <cstdint>

namespace vantro {

/// A set of families.
class FamilySet {
public:
    static constexpr FamilySet all() { return FamilySet(~std::uint32_t{0}); }

    constexpr FamilySet() = default;

    constexpr void add(Family family) { bits_ |= bit(family); }
    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool holds(Family family) const { return (bits_ & bit(family)) != 0; }

private:
    constexpr explicit FamilySet(std::uint32_t bits) : bits_(bits) {}

    static constexpr std::uint32_t bit(Family family) { return std::uint32_t{1} << indexOf(family); }
    static_assert(familyCount <= 32);

    std::uint32_t bits_ = 0;
};

/// The families whose code stands between blanks anywhere in the text, and possibly more. Contacts, whose code has
/// a fixed place, are not looked for.
FamilySet codesIn(TextView text);

/// The same for a line whose blanks are known.
FamilySet codesIn(TextView line, LineBits blanks);

}  // namespace vantro
