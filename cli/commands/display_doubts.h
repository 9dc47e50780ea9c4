// What makes it doubtful that a display was captured and read as its user meant.
#pragma once

#include "cli/io/displays.h"
#include "vantro/profile.h"
#include "vantro/text.h"

#include <cstddef>
#include <vector>

namespace vantro {

/// Lines are counted from 1 in the chunk; 0 stands for none.
struct DisplayDoubts {
    std::size_t line = 0;            ///< the display's first line
    bool beginsLikeDisplay = false;  ///< see `beginsLikeDisplay`
    bool isProfile = false;          ///< has a profile's mark, a section or an element
    DisplayEnd end = DisplayEnd::None;
    std::vector<std::size_t> controlLines = {};  ///< with tabs or other control characters
    std::vector<std::size_t> cutLines = {};      ///< too long, cut
    std::vector<std::size_t> mendedLines = {};   ///< with bytes that are not UTF-8, replaced
    std::size_t moveDown = 0;                    ///< the first line inside the display that moves to its next page
    std::size_t secondHead = 0;                  ///< where a second display seems to begin: its mark, or the echo above
    std::vector<std::size_t> unread = {};        ///< lines of sections that nothing was read from
    bool areUnreadRemarks = false;               ///< all of these are confidential remarks
};

/// True if the text begins as the host begins an answer: one of its lines 0 to 6 begins with the mark "*T*" or "*C*",
/// or its first line that is not blank is the echo of a command other than PDMD: a word of two to four letters that
/// begins with P or is RLP, then "/", "*", "-", a digit or the end of the line.
bool beginsLikeDisplay(TextView display);

/// Examines a display of which nothing is read yet. The display's text may have been moved; `text` is that text.
DisplayDoubts doubtsOf(const FoundDisplay& display, TextView text);

/// A display with elements is a profile.
void addElements(const Profile& profile, DisplayDoubts& doubts);

/// Adds the lines from which the profile was not read. In a display without an end hardly any query has an answer, and
/// its unread lines are not listed.
void addUnread(const Profile& profile, const FoundDisplay& display, TextView text, DisplayDoubts& doubts);

}  // namespace vantro
