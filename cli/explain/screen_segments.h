// The lines of a screen, cut where values, marks and tags begin and end.
#pragma once

#include "cli/explain/page_model.h"
#include "vantro/text.h"

#include <cstddef>
#include <vector>

namespace vantro {

/// Characters of a line that the same values contain.
struct ScreenSegment {
    TextView text;
    std::size_t column = 1;           ///< of its first character
    std::vector<std::size_t> values;  ///< in `PageModel::values`, the shortest first
    bool isMark = false;              ///< a mark was found here
    bool isLookAlike = false;         ///< the tag of a line that looks like an element
};

struct ScreenLine {
    std::vector<ScreenSegment> segments;
    bool isBlank = true;
    bool isRead = false;  ///< a value or a mark was found in it
    bool looksAlike = false;

    /// Whether there is something in it, and nothing was read.
    bool isUnread() const { return !isRead && !isBlank; }
};

/// The lines of the model's screen. The segments are views of it; a place outside the screen is ignored.
std::vector<ScreenLine> screenLines(const PageModel& model);

}  // namespace vantro
