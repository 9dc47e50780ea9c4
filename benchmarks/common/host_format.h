// What the hand-written contenders know of the host's displays. They rely on what the host prints: tags and numbers in
// their columns, each section once, an end in every display.
#pragma once

#include "common/units.h"
#include "vantro/profile.h"

#include <array>

namespace vantro::bench {

/// How much a hand-written contender does.
enum class Depth : bool {
    /// The floor: the numbers and texts of the elements, and nothing that costs time and does not matter here. No
    /// header
    /// values, no parts of elements; an end text is seen only at the beginning of a line.
    Elements,
    /// The exact one: everything that the library returns for such displays.
    Everything,
};

/// Which lines of a section are elements, and how wrapped ones are joined.
enum class Kind : std::uint8_t {
    Whole,    ///< every line after the first tagged one
    Colon,    ///< the same; a blank before a continuation line with a colon as third character
    Policy,   ///< the lines of several families; joined like `Colon`
    Global,   ///< at most eleven lines, not joined
    Separate  ///< each family's lines once, not joined
};

inline constexpr auto fourBlanks = std::bit_cast<std::uint64_t>(std::array{u' ', u' ', u' ', u' '});
inline constexpr auto fourHyphens = std::bit_cast<std::uint64_t>(std::array{u'-', u'-', u'-', u'-'});
inline constexpr View endOfDisplay = u"END OF DISPLAY";

/// The number of an element in columns 3 and 4.
inline View numberOf(const char16_t* line) {
    const std::size_t digits = line[2] == u' ' ? 1 : 2;
    return {line + 4 - digits, digits};
}

/// The text of an element, from the eighth unit after the blanks before its number.
inline View textOf(const char16_t* line, const char16_t* end) {
    return leftTrimmed(line + (line[2] == u' ' ? 10 : 9), end);
}

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
