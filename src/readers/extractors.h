// The extractors: each finds the elements of families in a display.
#pragma once

#include "display/joiner.h"

#include <vector>

namespace vantro {

/// An element as an extractor finds it: its text, from which its parts are cut later.
struct FoundElement {
    Family family;
    Column textColumn;  ///< where the element's own text begins, after its number and tag
    TextView text;      ///< a view of the display or of the joiner's texts
};

/// The elements found so far; those of each family are in the order of the display.
using FoundElements = std::pmr::vector<FoundElement>;

/// Cuts an element into its parts. Those that its family does not have stay as they are.
void split(const FoundElement& found, Element& element);

// The families that fail are returned: the display ends before their search does, and beyond its end the 16-bit line
// counter would overflow. What was found of them before stays found. A search that reaches the counter's end itself, in
// a display of that length or with a terminal that makes its own lines, raises 6.

/// Extracts families of one section in one pass over its lines.
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
