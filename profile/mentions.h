// Which families' tags and codes occur in a text at all: a quick answer that spares most searches.
#pragma once

#include "framework/line_bits.h"
#include "profile/families.h"

#include <cstdint>

namespace vantro {

/// A set of families.
class FamilySet {
public:
    constexpr FamilySet() = default;

    constexpr void add(Family family) { bits_ |= bit(family); }
    constexpr void add(FamilySet others) { bits_ |= others.bits_; }
    constexpr bool holds(Family family) const { return (bits_ & bit(family)) != 0; }

private:
    static constexpr std::uint32_t bit(Family family) { return std::uint32_t{1} << indexOf(family); }
    static_assert(familyCount <= 32);

    std::uint32_t bits_ = 0;
};

/// The families whose prefix, or whose code between blanks, stands anywhere in the text. Contacts, whose code has
/// a fixed place, are never in it.
FamilySet mentionedIn(TextView text);

/// The families that come about where two texts are joined, the last characters of one and the first of the other.
FamilySet mentionedAcross(TextView before, TextView after);

/// The same as the first for a line whose blanks and slashes are known.
FamilySet mentionedIn(TextView line, LineBits blanks, LineBits slashes);

}  // namespace vantro
