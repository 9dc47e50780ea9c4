// The queries of a profile display and what their answers mean: the element families, the other queries, and the parts
// of an element. All texts and lists here are static.
#pragma once

#include "vantro/export.h"
#include "vantro/profile.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vantro {

// The parts of an element

/// The parts into which elements are split.
enum class ElementPart : std::uint8_t {
    WholeText,
    Number,
    Code,
    Airline,
    FrequentFlyerNumber,
    FreeText,
    Detail,
    Asterisk
};

inline constexpr std::size_t elementPartCount = 8;

constexpr std::size_t indexOf(ElementPart part) { return static_cast<std::size_t>(part); }

/// The meaning of a part and its names in every kind of output.
struct PartFacts {
    ElementPart part = {};
    TextView meaning = {};        ///< "airline of the frequent flyer number"
    TextView key = {};            ///< collection key for one element: "strKeyAirline"
    TextView listKey = {};        ///< collection key for the whole list: "strKeyElement()"; empty when there is none
    TextView listEnding = {};     ///< end of its list names in `CProfile`: "Carrier" in "strFrequentFlyerCarrier"
    std::string_view json = {};   ///< name in the JSON object of an element: "airline"
    std::string_view label = {};  ///< label in printed tables; empty when they have no column for it
    TextView Element::*value = nullptr;  ///< member of `Element`; null for the asterisk, which is a boolean
};

VANTRO_EXPORT const PartFacts& factsOf(ElementPart part) noexcept;

// Queries

/// How a query's word is compared with the text under "strKeyPrefix".
enum class WordMatch : std::uint8_t {
    Whole,       ///< the text equals the word
    FirstThree,  ///< the text's first three characters equal the word: "PHI", "PHI/" and "PHIX" are the same query
};

/// The queries for something other than a family: header values, the numbers of transferable elements, and the notes.
enum class OtherQuery : std::uint8_t {
    Name,
    RecordLocator,
    OfficeIdentifier,
    CompanyName,
    Pin,
    Psl,
    TransferableNumbers,
    Notes,
};

inline constexpr std::size_t otherQueryCount = 8;

constexpr std::size_t indexOf(OtherQuery query) { return static_cast<std::size_t>(query); }

/// A query that `ProfileElements` answers: either `family` or `other` is set.
struct QueryFacts {
    TextView word = {};  ///< the text under "strKeyPrefix" that selects it: "PHI", "NM"
    WordMatch match = {};
    TextView meaning = {};                ///< a noun phrase: "record locator of the profile"
    std::span<const TextView> keys = {};  ///< the keys that an answer adds, in this order; an answer may omit some
    std::string_view json = {};           ///< name in the JSON object of a whole profile: "recordLocator"; empty for
                                          ///< families, which are in "elements" under their words
    std::optional<Family> family = {};
    std::optional<OtherQuery> other = {};
};

/// The queries of `CProfile` in the order in which their words are compared. The first match is answered.
VANTRO_EXPORT std::span<const QueryFacts> profileQueries() noexcept;

/// The facts of one of the other queries. `CProfileNotes` answers the one for notes and ignores blanks around its word.
VANTRO_EXPORT const QueryFacts& factsOf(OtherQuery query) noexcept;

// Families

/// What a query for a family returns.
enum class ElementOutput : std::uint8_t {
    Lists,            ///< the lists of all texts and numbers
    ElementAndLists,  ///< the element at "intKeyIndex" (from 1) if that is present and above 0, then the lists
    Element,          ///< the element at "intKeyIndex" (from 1), which is required
};

/// A family of elements: its query, how the host prints it, its parts and its names.
struct FamilyFacts : QueryFacts {
    TextView tag = {};      ///< what the host prints in its lines: "PHI/", " SR "
    TextView section = {};  ///< the header of its section: "------- TRAVEL POLICIES - HOTEL"
    Section inSection = {};
    TextView sample = {};   ///< an invented line of that section, without trailing blanks
    TextView lines = {};    ///< which lines of the section are its elements; sentences
    TextView joining = {};  ///< which lines continue an element, and how they are appended; sentences
    ElementOutput output = {};
    std::span<const ElementPart> parts = {};  ///< text, number, then the further parts
    TextView countProperty = {};              ///< its property of `CProfile`: "PHIElementsCount"
    std::size_t firstIndex = {};  ///< index of the first element in its lists: 1 after an empty entry 0, or 0
    int countError = {};          ///< raised when its elements cannot be read, by property or query
    int indexError = {};          ///< raised for an index beyond the count; 0 for `Lists`

    /// The parts other than text and number.
    std::span<const ElementPart> furtherParts() const { return parts.subspan(2); }
};

VANTRO_EXPORT const FamilyFacts& factsOf(Family family) noexcept;

/// The title of a section: "TRAVEL POLICIES - HOTEL".
VANTRO_EXPORT TextView titleOf(Section section) noexcept;

/// All families in the order of the enumeration.
VANTRO_EXPORT std::span<const FamilyFacts> families() noexcept;

}  // namespace vantro
