// The tags by which the hand-written contenders recognise a line's family.
#pragma once

#include "common/units.h"
#include "vantro/profile.h"

#include <array>

namespace vantro::bench {

inline constexpr std::uint8_t noFamily = familyCount;

/// A set of families.
using FamilyBits = std::uint32_t;

constexpr FamilyBits bit(Family family) { return FamilyBits{1} << indexOf(family); }
constexpr FamilyBits bit(std::uint8_t family) { return FamilyBits{1} << family; }

/// Finds a family by two letters of its tag and checks all four units of it.
class TagTable {
public:
    constexpr TagTable() {
        families_.fill(noFamily);
        for (std::uint8_t i = 0; i < familyCount; ++i) {
            const char16_t* const tag = tags[i];
            families_[slot(tag[1], tag[2])] = i;
            keys_[i] = std::bit_cast<std::uint64_t>(std::array{tag[0], tag[1], tag[2], tag[3]});
        }
    }

    /// The family of a tag of four units: "PHI/" of a numbered line, " RM " of a transferable one.
    std::uint8_t familyAt(const char16_t* tag) const {
        const std::uint8_t family = families_[slot(tag[1], tag[2])];
        return keys_[family] == fourUnits(tag) ? family : noFamily;
    }

private:
    static constexpr const char16_t* tags[familyCount] = {
        u"PPR/", u"PGL/", u"PPS/", u"PHI/", u"PCI/", u"PPC/", u"PPH/", u"PPA/", u"PPK/", u"PPI/",
        u"PXC/", u"PXA/", u"PXK/", u"PSH/", u"PSC/", u"PPT/", u"PXT/", u" RM ", u" AP ", u" OS ",
        u" FFN", u" SR ", u" ST ", u" RC ", u"PAS/", u"PIV/", u"PCE/", u"PID/", u"PFO/"};
    static constexpr std::size_t slot(char16_t a, char16_t b) { return (a & 31U) << 5 | (b & 31U); }

    std::array<std::uint8_t, 1024> families_{};
    std::array<std::uint64_t, familyCount + 1> keys_{};  // none for `noFamily`: no tag is four zeros
};

inline constexpr TagTable tagTable;

}  // namespace vantro::bench
