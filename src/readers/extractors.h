// The extractors: each finds the elements of families in a display.
#pragma once

#include "display/joiner.h"

#include <vector>

namespace vantro {

// Columns of elements. Those of prefixed families and documents count in the trimmed line.
inline constexpr Field elementNumber{Column{1}, Width{2}};
inline constexpr Column tagColumn{3};
inline constexpr Column elementTextColumn{8};
inline constexpr Field transferableNumber{Column{6}, Width{3}};
inline constexpr Column transferableTextColumn{14};

// Meant: only in the unprefixed global-search lines the text begins one column earlier.
inline constexpr Column unprefixedTextColumn{7};
inline constexpr int mostUnprefixed = 10;

/// A transferable section ends at a line that begins with this, those of documents at one that, trimmed, begins with
/// it.
inline constexpr TextView transferableBoundary = u"------";
inline constexpr TextView documentBoundary = u"-----";

/// An element as an extractor finds it: a line, or several that are joined, and where in them its number and its text
/// are. A view of the display or of the joiner's texts.
class FoundElement {
public:
    /// The number is in the columns of the family's numbers, the text in those from `textColumn` on.
    FoundElement(Family family, Column textColumn, TextView line)
        : FoundElement(family, line, cut(line, isTransferable(family) ? transferableNumber : elementNumber),
                       cut(line, {textColumn})) {}

    /// Positions count from 0; the text ends with the line.
    FoundElement(Family family, TextView line, std::size_t numberBegin, std::size_t numberEnd, std::size_t textBegin)
        : line_(line),
          textBegin_(static_cast<std::uint32_t>(textBegin)),
          numberBegin_(static_cast<std::uint8_t>(numberBegin)),
          numberEnd_(static_cast<std::uint8_t>(numberEnd)),
          family_(family) {}

    Family family() const { return family_; }
    TextView line() const { return line_; }
    TextView number() const {
        return {line_.data() + numberBegin_, static_cast<std::size_t>(numberEnd_ - numberBegin_)};
    }
    TextView text() const { return {line_.data() + textBegin_, line_.size() - textBegin_}; }

private:
    FoundElement(Family family, TextView line, TextView number, TextView text)
        : FoundElement(family, line, static_cast<std::size_t>(number.data() - line.data()),
                       static_cast<std::size_t>(number.data() + number.size() - line.data()),
                       line.size() - text.size()) {}

    TextView line_;
    std::uint32_t textBegin_;
    std::uint8_t numberBegin_;
    std::uint8_t numberEnd_;
    Family family_;
};

/// The elements found so far; those of each family are in the order of the display.
using FoundElements = std::pmr::vector<FoundElement>;

/// Few families have more elements.
inline constexpr std::size_t usualElements = 32;

namespace detail {

inline constexpr auto familiesOfSections = [] {
    std::array<FamilySet, sectionHeaders.size()> families;
    for (std::size_t index = 0; index < familyCount; ++index) {
        const auto family = static_cast<Family>(index);
        const Section section = withRow(family, [](const auto& row) { return sectionOf(row); });
        families[static_cast<std::size_t>(section)].add(family);
    }
    return families;
}();

}  // namespace detail

/// The families of a section; those of the notes are empty.
constexpr FamilySet familiesOf(Section section) {
    return detail::familiesOfSections[static_cast<std::size_t>(section)];
}

/// The families with this rule: their elements may continue on one or on two lines.
constexpr FamilySet familiesJoinedBy(JoinRule rule) {
    FamilySet families;
    for (const TransferableFamily& row : transferableFamilies) {
        if (row.join == rule) families.add(row.family);
    }
    return families;
}

inline constexpr FamilySet oneLineJoiners = familiesJoinedBy(JoinRule::OneBelow);
inline constexpr FamilySet twoLineJoiners = familiesJoinedBy(JoinRule::TwoBelow);

/// Cuts out the parts that a transferable family has beside number and text; they are empty before.
void splitFurther(const FoundElement& found, Element& element);

/// The element with its parts.
inline Element split(const FoundElement& found) {
    Element element{.number = found.number(), .text = found.text()};
    if (isTransferable(found.family())) splitFurther(found, element);
    return element;
}

// The families that fail are returned: the display ends before their search does, and beyond its end the 16-bit line
// counter would overflow. What was found of them before stays found. A search that reaches the counter's end itself, in
// a display of that length or with a terminal that makes its own lines, raises 6.

/// Extracts families of one section: prefixed ones one after the other, documents in one pass over its lines.
FamilySet extractPrefixed(FamilySet families, Joiner& joiner, FoundElements& found);
FamilySet extractDocuments(FamilySet families, Joiner& joiner, FoundElements& found);

/// Extracts transferable families in one pass over their lines.
FamilySet extractTransferable(FamilySet families, Joiner& joiner, FoundElements& found);

/// Extracts families of one section, of any kind.
inline FamilySet extract(FamilySet families, Joiner& joiner, FoundElements& found) {
    const std::size_t first = indexOf(families.first());
    if (first < firstTransferable) return extractPrefixed(families, joiner, found);
    if (first < firstDocument) return extractTransferable(families, joiner, found);
    return extractDocuments(families, joiner, found);
}

}  // namespace vantro
