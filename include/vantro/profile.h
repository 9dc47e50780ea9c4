// A complete profile display, read in one call.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vantro {

/// The element families of a profile display. vantro/families.h says what each one means.
enum class Family : std::uint8_t {
    // clang-format off
    // Lines tagged with a prefix
    PPR, PGL, PPS, PHI, PCI, PPC, PPH, PPA, PPK, PPI, PXC, PXA, PXK, PSH, PSC, PPT, PXT,
    // Elements that the host copies into a PNR
    Remark, Contact, OtherService, FrequentFlyer, ServiceRequest, Seat, RemarkConf,
    // Documents and follow-up
    PAS, PIV, PCE, PID, PFO,
    // clang-format on
};

constexpr std::size_t indexOf(Family family) { return static_cast<std::size_t>(family); }

inline constexpr std::size_t familyCount = indexOf(Family::PFO) + 1;

/// The sections of a profile display. `titleOf` in vantro/families.h returns what the host prints above each.
enum class Section : std::uint8_t {
    Priority,
    GlobalSearch,
    PreStored,
    Hotel,
    Car,
    Air,
    Transferable,
    Documents,
    FollowUp,
    Notes,
};

constexpr std::size_t indexOf(Section section) { return static_cast<std::size_t>(section); }

inline constexpr std::size_t sectionCount = indexOf(Section::Notes) + 1;

/// A family and its prefix for `ProfileElements` ("PPR", "RM").
struct FamilyName {
    Family family;
    TextView prefix;
};

/// All families in the order in which `ProfileElements` tests their prefixes.
VANTRO_EXPORT std::span<const FamilyName> familyNames();

/// One element. Parts that its family does not have are empty.
struct Element {
    TextView number;                    ///< as printed, trimmed
    TextView text;                      ///< trimmed, with continuation lines joined
    TextView code = {};                 ///< service requests
    TextView airline = {};              ///< frequent flyers and service requests
    TextView frequentFlyerNumber = {};  ///< frequent flyers and service requests
    TextView freeText = {};             ///< service requests and confidential remarks
    bool asterisk = false;              ///< service requests; no display sets it
    char16_t kind = 0;                  ///< transferable elements: u'S' or u'A', from column 1 of the line; else 0
};

/// The company name; without a number when its line has none.
struct CompanyName {
    std::optional<TextView> number;
    TextView text;
};

/// One line of the notes.
struct Note {
    std::int16_t number;  ///< position of the line below the notes header, from 1
    TextView qualifier;   ///< the line's first two characters
    TextView text;        ///< the rest of the line, trimmed
};

/// A query that failed; its value in the profile is empty.
struct Problem {
    TextView query;    ///< its prefix; "ProfileNotes" for the notes
    int number;        ///< the error number that the single query raises
    Text description;  ///< the description of that error
};

/// The section in which the host prints the elements of a family.
VANTRO_EXPORT Section sectionOf(Family family);

/// All values of a display. Each value equals the result of the single query for it. All texts are views that stay
/// valid as long as this object or the one that it was moved to.
struct Profile {
    TextView name;
    TextView recordLocator;
    TextView officeIdentifier;
    CompanyName companyName;
    Element pin;
    std::optional<Element> psl;
    std::array<std::span<const Element>, familyCount> families;
    std::span<const Note> notes;
    std::vector<Problem> problems;
    std::bitset<sectionCount> sections;  ///< those whose header is in the display, by `indexOf`

    /// A family's elements in the order of the display; element k is at index k - 1.
    std::span<const Element> elements(Family family) const { return families[indexOf(family)]; }

    /// True if the display shows the section. Otherwise nothing is known about what belongs in it.
    bool isShown(Section section) const { return sections[indexOf(section)]; }

    /// True if the display shows the family's section, or an element of the family outside it. A family that is shown
    /// and has no elements has none in the profile, unless its query is one of the problems.
    bool isShown(Family family) const { return isShown(sectionOf(family)) || !elements(family).empty(); }

    /// The memory that the views point into.
    struct Storage;
    std::shared_ptr<const Storage> storage;
};

/// Reads a complete display: lines of 80 characters joined without separators. No content of the display raises an
/// error: a query that fails is listed in `problems`, and the others are answered.
VANTRO_EXPORT Profile parseProfile(Text display);

}  // namespace vantro
