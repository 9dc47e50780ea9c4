// The readers of single values in a profile display. Lines count from 0.
#pragma once

#include "display/display.h"

#include <optional>

namespace vantro {

/// An element line with its number; views of the display.
struct NumberedText {
    TextView number;
    TextView text;
};

/// What the company-name line gives. Without such a line both texts are empty; a line without a number of its
/// own has none. The texts are the reader's own, since the name may be joined from several lines.
struct CompanyNameLine {
    Text name;
    std::optional<Text> number;
};

/// The name after " NM " in lines 1 to 20, or else the company's in the "*C*" line of lines 1 to 10; empty when
/// there is neither.
TextView readName(Display& display);

/// The last six characters of line 1, or of line 2 under a host line; trimmed.
TextView readRecordLocator(Display& display);

/// The nine characters at the end of the rule under the "*C*" or "*T*" line of lines 1 to 6; otherwise empty.
TextView readOfficeIdentifier(Display& display);

/// The company-name line, its continuation lines joined. Raises 6 for a display without an end.
CompanyNameLine readCompanyName(Display& display);

/// The PIN line; both texts empty when there is none. Raises 6 for a display without an end.
NumberedText readPin(Display& display);

/// The PSL line, or nothing. Raises 6 for a display without an end.
std::optional<NumberedText> readPsl(Display& display);

}  // namespace vantro
