// A set of element families, in one machine word.
#pragma once

#include "vantro/profile.h"

#include <cstdint>

namespace vantro {

class FamilySet {
public:
    constexpr FamilySet() = default;

    constexpr void add(Family family) { bits_ |= bit(family); }
    constexpr void remove(Family family) { bits_ &= ~bit(family); }
    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool contains(Family family) const { return (bits_ & bit(family)) != 0; }

    friend constexpr FamilySet operator&(FamilySet a, FamilySet b) { return FamilySet(a.bits_ & b.bits_); }

private:
    constexpr explicit FamilySet(std::uint64_t bits) : bits_(bits) {}

    static constexpr std::uint64_t bit(Family family) { return std::uint64_t{1} << indexOf(family); }
    static_assert(familyCount <= 64);

    std::uint64_t bits_ = 0;
};

}  // namespace vantro
