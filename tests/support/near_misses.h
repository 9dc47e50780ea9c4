// Texts that differ slightly from a screen: a character changed, lost or doubled, a line lost, doubled, moved or cut
// short, a mark in another column. A reader that tests one column or line too many, or one character too few, reads one
// of them wrongly.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantro::test {

/// How a screen is varied.
struct Variation {
    std::size_t width = 80;          ///< of a line
    std::vector<Text> planted = {};  ///< marks that are written over each line, at each column
    std::size_t wholeLines = 0;      ///< this many lines at the end are kept, so that a search finds its end
    std::size_t every = 1;           ///< one of this many texts is visited
    std::size_t offset = 0;          ///< index of the first one visited
};

/// Calls `visit` with each of these texts until it returns false. Returns the number of texts visited.
std::size_t forEachNearMiss(const Text& screen, const Variation& variation,
                            const std::function<bool(const Text&)>& visit);

}  // namespace vantro::test
