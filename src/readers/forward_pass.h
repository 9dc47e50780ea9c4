// All sections of a regular display, read in one pass from its first line to its end. The host prints regular displays.
//
// A display is regular under these conditions; the extractors and the scanner for notes read any other one:
//
// 1. It has fewer than 32,000 lines, a header, and an end below it: a line that is ">" alone, or one that begins with
//    "END OF DISPLAY" and contains neither a header nor a slash. If ">" ends the notes, the line after it is blank.
// 2. No line above the end contains a prompt or the end text, and none arises where lines are joined.
// 3. A section rule begins in column 1, but not in line 0. Its line contains at most one header and, from the first
//    header on, no slash. Each header occurs at most once, and that of the notes after all other rules.
// 4. No blank line is above the notes; line 0 may be blank.
// 5. Above the first rule no line contains " RC " from column 13 on, begins with six hyphens, or begins with 17 blanks
//    and is not blank: the search for confidential remarks begins in line 0 and ends at a rule.
// 6. The prefixes of header values occur only above the first header.
// 7. A line that continues an element of a prefixed family contains no prefix and no slash in its first three
//    characters.
// 8. The line after the header of the global search is not the end, and a section of priorities or pre-stored entries
//    without an element is not the last one.
#pragma once

#include "display/joiner.h"
#include "readers/extractors.h"
#include "vantro/profile.h"

#include <bitset>
#include <optional>
#include <vector>

namespace vantro {

/// What a pass finds beside elements and notes.
struct PassedProfile {
    Counter firstHeader;                 ///< the line of the first header: the header values are above it
    std::bitset<sectionCount> sections;  ///< whose headers are shown
};

/// Reads the sections of a regular display. Returns nothing for any other display; what was found in it does not count.
/// The lines must be slices of the text.
std::optional<PassedProfile> passForward(Joiner& joiner, FoundElements& found, std::vector<Note>& notes);

}  // namespace vantro
