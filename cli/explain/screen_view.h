// A screen with the values that were read from it.
#pragma once

#include "vantro/explanation.h"
#include "vantro/registry.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

/// How a screen is shown.
struct ScreenLook {
    std::size_t width = 0;  ///< the columns for it; 0 for as many as it needs
    bool hasColor = false;  ///< values are coloured; otherwise letters below them name them
};

/// A line as it is printed, and how many columns it takes.
struct ShownLine {
    std::string text;
    std::size_t width = 0;
};

/// The columns that a screen with this many lines takes.
std::size_t neededColumns(std::size_t lines);

/// The lines of the explanation's screen between two rulers, then what the colours or letters mean. A screen line that
/// is wider than the look allows continues in the next line. The row may be null.
std::vector<ShownLine> screenView(const Explanation& explanation, const ClassRow* row, const ScreenLook& look);

}  // namespace vantro
