// The hand-written contender for one family of a display: the title of its section is searched with vector compares,
// then only that section is read.
#pragma once

#include "common/host_format.h"

#include <string>
#include <vector>

namespace vantro::bench {

struct FamilyRules {
    Family family;
    View count;  ///< the name of the count property
    View title;  ///< with its rule
    const char16_t* tag;
    Kind kind;

    View prefix() const { return {tag, 3}; }  ///< the text under "strKeyPrefix"
};

/// The families that are measured: all but the transferable ones.
const std::array<FamilyRules, 22>& familyRules();

/// Number and text, views of the display or of a joined text.
struct FamilyItem {
    View number, text;
};

struct FamilyItems {
    std::vector<FamilyItem> items;
    std::u16string joined;  ///< texts joined from several lines, one after the other

    /// Clears everything but keeps the memory, for a display of at most this many characters.
    void prepare(std::size_t displaySize) {
        items.clear();
        joined.clear();
        joined.reserve(displaySize);
    }
};

/// The result must be prepared for this display.
template <Depth depth>
void scanFamily(const FamilyRules& rules, View display, FamilyItems& result);

}  // namespace vantro::bench
