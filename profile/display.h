// A profile display whose lines are each looked at once: what a line holds is found out when the line is first
// asked for, and every reader of the display shares it.
#pragma once

#include "framework/line_bits.h"
#include "framework/screen.h"
#include "profile/sections.h"

#include <cstdint>
#include <vector>

namespace vantro {

/// A line of a display.
class DisplayLine {
public:
    constexpr DisplayLine() : blanks_(LineBits::from(0)) {}
    explicit DisplayLine(TextView text);

    /// The line as read.
    TextView text() const { return text_; }

    TextView trimmed() const { return text_.substr(contentBegin_, contentEnd_ - contentBegin_); }
    TextView rightTrimmed() const { return text_.substr(0, contentEnd_); }
    bool isBlank() const { return contentBegin_ == contentEnd_; }

    /// True when the line holds any mark that ends or opens something.
    bool isMarked() const { return marks_ != 0; }

    bool holdsPrompt() const { return (marks_ & promptMark) != 0; }
    bool holdsEndText() const { return (marks_ & endTextMark) != 0; }
    bool holdsHeader(Section section) const { return (marks_ & headerMark(section)) != 0; }

    /// The prompt or the end text anywhere, as the searches for a section's header stop at it.
    bool isEndOfDisplay() const { return (marks_ & (promptMark | endTextMark)) != 0; }

    /// The end of a prefixed family's section: a prompt in the first place, seven hyphens as any section's header
    /// has them, or the end text.
    bool isSectionEnd() const { return isMarked() && ((marks_ & ~promptMark) != 0 || text_[contentBegin_] == u'>'); }

    /// True when the first `width` (1 to 63) characters are blank, a line that ends before them included.
    bool beginsBlank(Width width) const;

    bool holdsSlash() const { return !fitsBits() || slashes_.any(); }

    /// True when the trimmed line holds the prefix (letters and "/") at or after a column.
    bool holdsPrefix(TextView prefix, Column from) const;

    /// True when the right-trimmed line holds the code (letters between two blanks) at or after a column.
    bool holdsCode(TextView code, Column from) const;

private:
    static constexpr std::uint16_t promptMark = 1;
    static constexpr std::uint16_t endTextMark = 2;
    static constexpr std::uint16_t ruleMark = 4;
    static constexpr std::uint16_t headerMark(Section section) {
        return static_cast<std::uint16_t>(8U << static_cast<unsigned>(section));
    }
    static_assert(sectionHeaders.size() <= 13, "the marks of a line have sixteen bits");

    bool fitsBits() const { return text_.size() <= LineBits::capacity; }
    void mark(const LineMarks& marks);
    std::uint16_t headerMarks(LineBits rules) const;

    TextView text_;
    LineBits blanks_;
    LineBits slashes_;
    std::size_t contentBegin_ = 0;
    std::size_t contentEnd_ = 0;
    std::uint16_t marks_ = 0;
};

/// The display that one operation reads. Line numbers past the end give empty lines.
class Display {
public:
    Display(Terminal& terminal, TextView text);

    /// A line; the reference lives as long as the display.
    const DisplayLine& line(Counter number) {
        const auto index = static_cast<std::size_t>(number.value());
        return index < lines_.size() ? lines_[index] : lookAt(index);
    }

    /// The first line at or after `from` that holds a mark. Raises 6 when there is none.
    Counter nextMarked(Counter from);

    Screen& screen() { return screen_; }
    TextView text() { return screen_.text(); }

private:
    const DisplayLine& lookAt(std::size_t index);
    void lookAtNext();

    Screen screen_;
    std::size_t knownLength_;  // lines after these are known to be empty
    std::vector<DisplayLine> lines_;
    std::vector<std::int16_t> marked_;
};

}  // namespace vantro
