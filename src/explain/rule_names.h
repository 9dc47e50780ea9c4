// The rules that explanations themselves need to tell apart, by their names.
#pragma once

#include "vantro/explanation.h"

#include <algorithm>
#include <array>

namespace vantro {

/// They see a mark of the display in their line.
inline constexpr std::array<std::string_view, 4> rulesOfMarks{"displayEnds", "sectionEndsAtRule",
                                                              "sectionEndsAtEndText", "sectionEndsAtPrompt"};

/// An element begins in their line, also one without text and number.
inline constexpr std::array<std::string_view, 4> rulesOfElements{"elementWithPrefix", "elementWithoutPrefix",
                                                                 "elementOfWholeSection", "unprefixedElement"};

template <class Names>
bool isOneOf(const ReadingRule& rule, const Names& names) {
    return std::ranges::find(names, rule.name) != names.end();
}

}  // namespace vantro
