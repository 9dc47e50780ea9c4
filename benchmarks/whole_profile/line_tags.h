// The titles and prefixes that the hand-written scanner recognises.
#pragma once

#include "common/lines.h"
#include "vantro/profile.h"

#include <cstdint>

namespace vantro::bench {

using FamilyBits = std::uint32_t;

constexpr FamilyBits bit(Family family) { return FamilyBits{1} << indexOf(family); }

inline constexpr FamilyBits hotelFamilies = bit(Family::PHI) | bit(Family::PPH) | bit(Family::PSH);
inline constexpr FamilyBits carFamilies = bit(Family::PCI) | bit(Family::PPC) | bit(Family::PXC) | bit(Family::PSC);
inline constexpr FamilyBits airFamilies = bit(Family::PPA) | bit(Family::PPK) | bit(Family::PPI) | bit(Family::PXA) |
                                          bit(Family::PXK) | bit(Family::PPT) | bit(Family::PXT);
inline constexpr FamilyBits documentFamilies =
    bit(Family::PAS) | bit(Family::PIV) | bit(Family::PCE) | bit(Family::PID);

enum class SectionKind : std::uint8_t { Head, Whole, Global, Policy, Transferable, Documents, Notes };

struct SectionTitle {
    View header;  ///< after the seven hyphens
    SectionKind kind;
    FamilyBits families;
};

inline constexpr SectionTitle titles[] = {
    {u"PRIORITY", SectionKind::Whole, bit(Family::PPR)},
    {u"GLOBAL SEARCH", SectionKind::Global, bit(Family::PGL)},
    {u"PRE-STORED ENTRIES", SectionKind::Whole, bit(Family::PPS)},
    {u"TRAVEL POLICIES - HOTEL", SectionKind::Policy, hotelFamilies},
    {u"TRAVEL POLICIES - CAR", SectionKind::Policy, carFamilies},
    {u"TRAVEL POLICIES - AIR", SectionKind::Policy, airFamilies},
    {u"PNR TRANSFERABLE DATA", SectionKind::Transferable, 0},
    {u"DOCUMENTS", SectionKind::Documents, documentFamilies},
    {u"FOLLOW UP", SectionKind::Documents, bit(Family::PFO)},
    {u"PROFILE NOTES", SectionKind::Notes, 0},
};

/// Three letters as one number.
constexpr std::uint64_t tag(char16_t a, char16_t b, char16_t c) {
    return (std::uint64_t{a} << 32) | (std::uint64_t{b} << 16) | c;
}

inline FamilyBits familyOfTag(View letters) {
    switch (tag(letters[0], letters[1], letters[2])) {
        case tag(u'P', u'P', u'R'): return bit(Family::PPR);
        case tag(u'P', u'G', u'L'): return bit(Family::PGL);
        case tag(u'P', u'P', u'S'): return bit(Family::PPS);
        case tag(u'P', u'H', u'I'): return bit(Family::PHI);
        case tag(u'P', u'P', u'H'): return bit(Family::PPH);
        case tag(u'P', u'S', u'H'): return bit(Family::PSH);
        case tag(u'P', u'C', u'I'): return bit(Family::PCI);
        case tag(u'P', u'P', u'C'): return bit(Family::PPC);
        case tag(u'P', u'X', u'C'): return bit(Family::PXC);
        case tag(u'P', u'S', u'C'): return bit(Family::PSC);
        case tag(u'P', u'P', u'A'): return bit(Family::PPA);
        case tag(u'P', u'P', u'K'): return bit(Family::PPK);
        case tag(u'P', u'P', u'I'): return bit(Family::PPI);
        case tag(u'P', u'X', u'A'): return bit(Family::PXA);
        case tag(u'P', u'X', u'K'): return bit(Family::PXK);
        case tag(u'P', u'P', u'T'): return bit(Family::PPT);
        case tag(u'P', u'X', u'T'): return bit(Family::PXT);
        case tag(u'P', u'A', u'S'): return bit(Family::PAS);
        case tag(u'P', u'I', u'V'): return bit(Family::PIV);
        case tag(u'P', u'C', u'E'): return bit(Family::PCE);
        case tag(u'P', u'I', u'D'): return bit(Family::PID);
        case tag(u'P', u'F', u'O'): return bit(Family::PFO);
        default: return 0;
    }
}

/// The families whose prefix is in a line without its leading blanks: anywhere, and from the third character.
struct Tags {
    FamilyBits anywhere = 0;
    FamilyBits fromThird = 0;

    void add(View line, std::size_t slash) {
        if (slash < 3 || line[slash - 3] != u'P') return;
        const FamilyBits family = familyOfTag(slice(line, slash - 3, 3));
        anywhere |= family;
        if (slash >= 5) fromThird |= family;
    }
};

inline Tags tagsOf(View line) {
    Tags tags;
    for (std::size_t slash = findUnit(line, u'/'); slash != View::npos; slash = findUnit(line, u'/', slash + 1)) {
        tags.add(line, slash);
    }
    return tags;
}

}  // namespace vantro::bench
