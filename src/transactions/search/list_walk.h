// A list screen read line by line: the host heads a block of entries with a column header, numbers the entries in
// columns 3 and 4, and ends the list with an empty line or the prompt.
#pragma once

#include "framework/constants.h"
#include "framework/screen.h"

namespace vantro {

/// True for a line that can belong to a list: it is not empty and holds no prompt.
inline bool isUsable(TextView line) { return !line.empty() && !contains(line, mark::prompt); }

/// The list number of an entry, trimmed.
inline TextView listNumber(TextView line) { return trimmed(mid(line, Column{3}, Width{2})); }

inline bool hasListNumber(TextView line) { return isNumeric(listNumber(line)); }

/// Where the text of an entry begins.
inline constexpr Column entryTextColumn{6};

/// The walk down a list. It keeps the line that it stands on and the number of the line fetched last.
class ListWalk {
public:
    /// Starts on a line that was found anywhere on the screen; the first step fetches line `number` + 1.
    ListWalk(Screen& screen, std::int16_t number, TextView line) : screen_(screen), number_(number), line_(line) {}

    TextView line() const { return line_; }

    /// Steps to the next line and gives it. Raises 6 past line 32767.
    TextView next() {
        ++number_;
        line_ = screen_.line(number_);
        return line_;
    }

    /// Lets the next step fetch the same line again, or earlier ones.
    void stepBack() { --number_; }

    /// Steps on until a line holds the header's mark. False when a line that is not usable ends the list before
    /// that; the line that the walk starts from is tested for usability only.
    bool findHeader(TextView headerMark) {
        while (isUsable(line_) && isUsable(next())) {
            if (contains(line_, headerMark)) return true;
        }
        return false;
    }

private:
    Screen& screen_;
    Counter number_;
    TextView line_;
};

/// The header mark of a continuation screen, which has no header to look for: every usable line holds it.
inline constexpr TextView anyLine{};

}  // namespace vantro
