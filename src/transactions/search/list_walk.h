// Reads a list screen line by line. A block of entries begins with a column header, the entries have a number in
// columns 3 and 4, and an empty line or the prompt ends the list.
#pragma once

#include "framework/constants.h"
#include "framework/screen.h"

namespace vantro {

/// True for a line that can belong to a list: not empty and without a prompt.
inline bool isUsable(TextView line) { return !line.empty() && !contains(line, mark::prompt); }

/// The list number of an entry, trimmed.
inline TextView listNumber(TextView line) { return trimmed(mid(line, Column{3}, Width{2})); }

inline bool hasListNumber(TextView line) { return isNumeric(listNumber(line)); }

/// The column where the text of an entry begins.
inline constexpr Column entryTextColumn{6};

/// A position in a list: the current line and the number of the line fetched last.
class ListWalk {
public:
    /// `line` is the current line, which may be from anywhere on the screen; the first step fetches line `number` + 1.
    ListWalk(Screen& screen, std::int16_t number, TextView line) : screen_(screen), number_(number), line_(line) {}

    TextView line() const { return line_; }

    /// Moves to the next line and returns it. Raises 6 after line 32767.
    TextView next() {
        ++number_;
        line_ = screen_.line(number_);
        return line_;
    }

    /// Moves the number back by one, so that the next step fetches the same line again, or an earlier one.
    void stepBack() { --number_; }

    /// Moves to the next line that contains the header's mark. False when the list ends first, at a line that is not
    /// usable; the current line only has to be usable.
    bool findHeader(TextView headerMark) {
        if (!isUsable(line_)) return false;
        while (isUsable(next())) {
            if (contains(line_, headerMark)) return true;
        }
        return false;
    }

private:
    Screen& screen_;
    Counter number_;
    TextView line_;
};

/// The header mark for a continuation screen, which has no header: every usable line contains it.
inline constexpr TextView anyLine{};

}  // namespace vantro
