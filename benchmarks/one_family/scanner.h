// Hand-written code for one family of a display: the 17 prefixed families and the five of documents and follow-up.
#pragma once

#include "vantro/profile.h"

#include <array>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

enum class FamilyKind : std::uint8_t { Plain, ColonJoining, GlobalSearch, Policy, Document };

struct FamilyRules {
    Family family;
    std::u16string_view count;  ///< the count property's name
    std::u16string_view header;
    std::u16string_view prefix;
    FamilyKind kind;
    std::size_t searchFrom = 0;  ///< index in a trimmed line
    std::size_t tagWidth = 0;
};

/// The 22 families that are measured.
const std::array<FamilyRules, 22>& familyRules();

/// Number and text, views of the display or of a joined line.
struct FamilyItem {
    std::u16string_view number, text;
};

struct FamilyItems {
    std::vector<FamilyItem> items;
    std::forward_list<std::u16string> joined;

    void clear() {
        items.clear();
        joined.clear();
    }
};

/// Written for speed: marks are searched across lines, and only lines that matter are cut.
void scanFamily(const FamilyRules& rules, std::u16string_view display, FamilyItems& result);

struct OwnedItem {
    std::u16string number, text;
};

/// Written step by step, with a new string for each line.
std::vector<OwnedItem> scanLineByLine(const FamilyRules& rules, const std::u16string& display);

}  // namespace vantro::bench
