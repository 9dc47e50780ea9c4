// A profile display: its lines, each read once, and the marks among them.
#pragma once

#include "display/display_line.h"
#include "framework/screen.h"

#include <cstdint>
#include <vector>

namespace vantro {

/// The display that one operation reads. The operation's readers share it, so that each line is read once. Lines count
/// from 0; lines after the end are empty.
///
/// If lines are slices of the text, a sweep finds the few lines with marks. Otherwise the terminal is asked only for
/// the lines that a reader needs, in the reader's order.
class Display {
public:
    Display(Terminal& terminal, TextView text);

    /// A line; the reference is valid as long as the display.
    const DisplayLine& line(Counter number) {
        const auto index = static_cast<std::size_t>(number.value());
        const std::size_t position = index < positions_.size() ? positions_[index] : 0;
        return position != 0 ? lines_[position - 1] : readLine(index);
    }

    /// Reads all lines up to the display's end in one pass, for a reader that needs most of them. Lines must be slices
    /// of the text.
    void readAhead();

    /// True for a line that is known to be empty; all lines after it are empty too.
    bool isPastEnd(Counter number) const { return static_cast<std::size_t>(number.value()) >= size(); }

    /// A line in a search that only a mark or a text ends. Raises 6 for a line after the end: only empty lines follow,
    /// and the 16-bit line counter would overflow.
    const DisplayLine& expectedLine(Counter number) {
        if (isPastEnd(number)) fail(Failure::Overflow);
        return line(number);
    }

    /// A line with marks.
    struct MarkedLine {
        Counter number;
        LineMarks marks;
    };

    /// The first line at or after `from` that contains a mark. Raises 6 when there is none.
    MarkedLine nextMarked(Counter from);

    /// The first line at or after `from` that contains the section's header or ends the display. Raises 6 when there
    /// is none.
    MarkedLine nextHeaderOrEnd(Section section, Counter from);

    /// The number of lines that can be non-empty.
    std::size_t size() const { return positions_.size(); }

    Screen& screen() { return screen_; }
    TextView text() const { return screen_.text(); }

private:
    const DisplayLine& readLine(std::size_t index);
    const DisplayLine& keepLine(std::size_t index, TextView text, const LineMarks* marks);
    LineMarks sweptMarksOf(std::size_t index);
    void sweepNext();
    void noteSwept(LineMarks marks) {
        if (marks.any()) marked_.push_back({Counter(static_cast<std::int16_t>(swept_)), marks});
        ++swept_;
    }
    std::size_t nextMarkedIndex(Counter from);
    const MarkedLine& markedAt(std::size_t index);
    template <class Wanted>
    MarkedLine nextFetched(Counter from, Wanted wanted);

    Screen screen_;
    std::vector<DisplayLine> lines_;        // the lines read so far, in the order of reading; never reallocated
    std::vector<std::uint16_t> positions_;  // position in `lines_`, from 1, of each line; 0 for a line not read yet
    std::size_t swept_ = 0;                 // the number of lines, from line 0, that were swept for marks
    std::vector<MarkedLine> marked_;        // the swept lines that contain marks
};

}  // namespace vantro
