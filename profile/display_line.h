// One line of a profile display and what stands in it.
#pragma once

#include "framework/line_bits.h"
#include "framework/text_ops.h"
#include "profile/line_marks.h"

#include <array>
#include <cstdint>

namespace vantro {

class DisplayLine {
public:
    constexpr DisplayLine() = default;
    DisplayLine(TextView text, LineMarks marks);

    /// The line as read.
    TextView text() const { return text_; }

    TextView trimmed() const { return text_.substr(contentBegin_, contentEnd_ - contentBegin_); }
    TextView rightTrimmed() const { return text_.substr(0, contentEnd_); }
    bool isBlank() const { return contentBegin_ == contentEnd_; }

    LineMarks marks() const { return marks_; }

    /// The prompt or the end text anywhere, as the searches for a section's header stop at it.
    bool isEndOfDisplay() const { return marks_.holdsPrompt() || marks_.holdsEndText(); }

    /// The end of a prefixed family's section: a prompt in the first place, a rule, or the end text.
    bool isSectionEnd() const { return marks_.any() && (marks_.holdsRuleOrEndText() || text_[contentBegin_] == u'>'); }

    /// True when the first `width` characters are blank, a line that ends before them included.
    bool beginsBlank(Width width) const {
        return contentBegin_ >= static_cast<std::uint32_t>(width.value) || isBlank();
    }

    bool holdsSlash() const { return !fitsBits() || slashes_.any(); }

    /// True when the trimmed line holds the prefix (letters and "/") at or after a column.
    bool holdsPrefix(TextView prefix, Column from) const;

    /// True for a line whose characters have their bits.
    bool fitsBits() const { return text_.size() <= LineBits::capacity; }

    /// Where blanks stand, in a line that `fitsBits()`; places past the line's end count as blanks.
    LineBits blanks() const { return blanks_; }

private:
    TextView text_;
    LineBits blanks_;
    LineBits slashes_;
    std::uint32_t contentBegin_ = 0;
    std::uint32_t contentEnd_ = 0;
    LineMarks marks_;

    friend class Display;
    std::array<std::uint32_t, 4> knownJoins_{};  // the display's notes: its joins that begin here, from 1, by rule
};

}  // namespace vantro
