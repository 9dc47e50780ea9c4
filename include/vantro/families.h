// What can be asked of a profile display, and what each answer means: the element families, the other queries, and the
// parts of an element. All texts and lists here live as long as the program.
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

/// The parts of an element that have names of their own.
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

/// What a part means and what it is called, wherever it is returned.
struct PartFacts {
    ElementPart part = {};
    TextView meaning = {};        ///< "airline of the frequent flyer number"
    TextView key = {};            ///< of a single element in a collection: "strKeyAirline"
    TextView listKey = {};        ///< of a whole list in a collection: "strKeyElement()"; empty when there is none
    TextView listEnding = {};     ///< of the name of its lists in `CProfile`: "Carrier" in "strFrequentFlyerCarrier"
    std::string_view json = {};   ///< in the JSON object of an element: "airline"
    std::string_view label = {};  ///< in a table for people; empty when tables do not show it beside the element
    TextView Element::*value = nullptr;  ///< in a whole profile; null for the asterisk, which is a boolean
};

VANTRO_EXPORT const PartFacts& factsOf(ElementPart part) noexcept;

// Queries

/// How the word of a query is compared with the text under "strKeyPrefix".
enum class WordMatch : std::uint8_t {
    Whole,       ///< the text is the word
    FirstThree,  ///< the text's first three characters are the word: "PHI", "PHI/" and "PHIX" ask for the same
};

/// The queries that are no families: values of the header lines, the numbers of transferable elements, and the notes.
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

/// A query that `ProfileElements` answers. It asks for a family or for something else.
struct QueryFacts {
    TextView word = {};  ///< what it is asked by, under "strKeyPrefix": "PHI", "NM"
    WordMatch match = {};
    TextView meaning = {};                ///< a noun phrase: "record locator of the profile"
    std::span<const TextView> keys = {};  ///< the keys that an answer adds, in this order; not every answer adds all
    std::string_view json = {};           ///< of its value in the JSON object of a whole profile: "recordLocator";
                                          ///< empty for families, which are in "elements" under their words
    std::optional<Family> family = {};
    std::optional<OtherQuery> other = {};
};

/// The queries of `CProfile` in the order in which it compares their words with the text. The first that matches is
/// answered.
VANTRO_EXPORT std::span<const QueryFacts> profileQueries() noexcept;

/// A query that asks for no family. The notes are answered by `CProfileNotes`, which ignores blanks around their word.
VANTRO_EXPORT const QueryFacts& factsOf(OtherQuery query) noexcept;

// Families

/// What the answer to a query for a family is.
enum class ElementOutput : std::uint8_t {
    Lists,            ///< the lists of all texts and numbers
    ElementAndLists,  ///< the element at "intKeyIndex" (from 1) when an index above 0 is there, then the lists
    Element,          ///< the element at "intKeyIndex" (from 1), which has to be there
};

/// A family of elements: how it is asked for, how the host prints it, what it is split into, and its names.
struct FamilyFacts : QueryFacts {
    TextView tag = {};      ///< in a line, as the host prints it: "PHI/", " SR "
    TextView section = {};  ///< the header of its section: "------- TRAVEL POLICIES - HOTEL"
    TextView sample = {};   ///< a line under that header, trailing blanks left out; invented
    ElementOutput output = {};
    std::span<const ElementPart> parts = {};  ///< text, number, and what else it is split into
    TextView countProperty = {};              ///< in `CProfile`: "PHIElementsCount"
    std::size_t firstIndex = {};              ///< of its elements in its lists: 1 under an empty entry 0, or 0
    int countError = {};                      ///< raised by the count property and by a query that fails with it
    int indexError = {};                      ///< raised for an index beyond the count; 0 for `Lists`

    /// The parts beside text and number.
    std::span<const ElementPart> furtherParts() const { return parts.subspan(2); }
};

VANTRO_EXPORT const FamilyFacts& factsOf(Family family) noexcept;

/// All families in the order of the enumeration.
VANTRO_EXPORT std::span<const FamilyFacts> families() noexcept;

}  // namespace vantro
