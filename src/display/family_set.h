// Sets of element families, and of the prefixes that identify elements and header lines.
#pragma once

#include "vantro/profile.h"
#include "vantro/text.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace vantro {

/// A set of element families.
class FamilySet {
public:
    constexpr FamilySet() = default;
    constexpr explicit FamilySet(Family family) : bits_(bit(family)) {}

    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool contains(Family family) const { return (bits_ & bit(family)) != 0; }

    constexpr void add(Family family) { bits_ |= bit(family); }
    constexpr void remove(Family family) { bits_ &= ~bit(family); }
    constexpr void add(FamilySet families) { bits_ |= families.bits_; }
    constexpr void remove(FamilySet families) { bits_ &= ~families.bits_; }

    friend constexpr FamilySet operator&(FamilySet a, FamilySet b) { return FamilySet(a.bits_ & b.bits_); }
    friend constexpr FamilySet operator|(FamilySet a, FamilySet b) { return FamilySet(a.bits_ | b.bits_); }
    friend constexpr FamilySet operator-(FamilySet a, FamilySet b) { return FamilySet(a.bits_ & ~b.bits_); }

    /// The first family in the order of the enumeration; the set must not be empty.
    constexpr Family first() const { return static_cast<Family>(std::countr_zero(bits_)); }

    /// Calls a function for each family, in the order of the enumeration.
    template <class Use>
    constexpr void forEach(Use use) const {
        for (FamilySet rest = *this; !rest.empty(); rest.remove(rest.first())) use(rest.first());
    }

private:
    friend class PrefixSet;
    constexpr explicit FamilySet(std::uint64_t bits) : bits_(bits) {}

    static constexpr std::uint64_t bit(Family family) { return std::uint64_t{1} << indexOf(family); }
    static_assert(familyCount <= 64);

    std::uint64_t bits_ = 0;
};

/// The tag of an element ("PPR/") or of a header line ("PIN/"): "P", two capitals and a slash.
class Prefix {
public:
    /// The prefix of a family; the family must have one.
    constexpr explicit Prefix(Family family) : Prefix(indexOf(family)) {}

    friend constexpr bool operator==(Prefix, Prefix) = default;

    static const Prefix companyName;  ///< "PCN/"
    static const Prefix pin;          ///< "PIN/"
    static const Prefix psl;          ///< "PSL/"

private:
    constexpr explicit Prefix(std::size_t index) : index_(static_cast<std::uint8_t>(index)) {}

    friend class PrefixSet;
    std::uint8_t index_;
};

/// The header lines' prefixes as the host prints them.
inline constexpr TextView companyNamePrefix = u"PCN/";
inline constexpr TextView pinPrefix = u"PIN/";
inline constexpr TextView pslPrefix = u"PSL/";

inline constexpr Prefix Prefix::companyName{familyCount};
inline constexpr Prefix Prefix::pin{familyCount + 1};
inline constexpr Prefix Prefix::psl{familyCount + 2};

class PrefixSet {
public:
    constexpr void add(Prefix prefix) { bits_ |= bit(prefix); }
    constexpr bool contains(Prefix prefix) const { return (bits_ & bit(prefix)) != 0; }

    /// The families among these whose prefix is in the set.
    constexpr FamilySet among(FamilySet families) const { return families & FamilySet(bits_); }

private:
    static constexpr std::uint64_t bit(Prefix prefix) { return std::uint64_t{1} << prefix.index_; }
    static_assert(familyCount + 3 <= 64);

    std::uint64_t bits_ = 0;
};

}  // namespace vantro
