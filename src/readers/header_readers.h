// The readers of header values. Lines count from 0.
#pragma once

#include "display/display.h"
#include "framework/joined_text.h"

#include <optional>

namespace vantro {

/// The number and text of a line; views of the display.
struct NumberedText {
    TextView number;
    TextView text;
};

/// The line before which a search for a header line ends, if it is known; otherwise the display's end ends it.
using SearchEnd = std::optional<Counter>;

/// The company-name line, with its continuation lines joined. Raises 6 for a display without an end.
class CompanyNameLine {
public:
    explicit CompanyNameLine(Display& display, SearchEnd end = {});
    CompanyNameLine(const CompanyNameLine&) = delete;
    CompanyNameLine& operator=(const CompanyNameLine&) = delete;

    /// Empty without such a line; valid as long as this object.
    TextView name() const { return name_; }

    /// Nothing when the line has no number; valid as long as this object and the display.
    std::optional<TextView> number() const { return number_; }

private:
    JoinedText line_;
    TextView name_;
    std::optional<TextView> number_;
};

/// The name after " NM " in lines 1 to 20, or else the company's name in the "*C*" line in lines 1 to 10; empty when
/// there is neither.
TextView readName(Display& display);

/// The last six characters of line 1, or of line 2 when line 1 is a host line or empty; trimmed.
TextView readRecordLocator(Display& display);

/// The nine characters at the end of the rule after the "*C*" or "*T*" line in lines 1 to 6; otherwise empty.
TextView readOfficeIdentifier(Display& display);

/// The PIN line; both texts empty when there is none. Raises 6 for a display without an end.
NumberedText readPin(Display& display, SearchEnd end = {});

/// The PSL line, or nothing. Raises 6 for a display without an end.
std::optional<NumberedText> readPsl(Display& display, SearchEnd end = {});

}  // namespace vantro
