// One line of a profile display and what stands in it.
#pragma once

#include "display/line_groups.h"
#include "display/line_marks.h"
#include "display/prefixes.h"
#include "framework/text_ops.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vantro {

class DisplayLine {
public:
    constexpr DisplayLine() = default;
    DisplayLine(TextView text, LineMarks marks);

    /// A line whose characters stand ready in groups.
    template <std::size_t Count>
    DisplayLine(TextView text, const LineGroups<Count>& groups, LineMarks marks) : text_(text), marks_(marks) {
        lookAt(groups);
    }

    /// The line as read.
    TextView text() const { return text_; }

    TextView trimmed() const { return text_.substr(contentBegin_, contentEnd_ - contentBegin_); }
    TextView rightTrimmed() const { return text_.substr(0, contentEnd_); }
    bool isBlank() const { return contentBegin_ == contentEnd_; }

    LineMarks marks() const { return marks_; }

    /// The prompt or the end text anywhere, as the searches for a section's header stop at it.
    bool isEndOfDisplay() const { return marks_.isEndOfDisplay(); }

    /// The end of a prefixed family's section: a prompt in the first place, a rule, or the end text.
    bool isSectionEnd() const {
        return marks_.any() && (marks_.containsRuleOrEndText() || text_[contentBegin_] == u'>');
    }

    /// True when the first `width` characters are blank, a line that ends before them included.
    bool beginsBlank(Width width) const {
        return contentBegin_ >= static_cast<std::uint32_t>(width.value) || isBlank();
    }

    /// True when the trimmed line holds the prefix at or after a column.
    bool containsPrefix(Prefix prefix, PrefixFrom from) const {
        return (from == PrefixFrom::Column1 ? prefixes_.anywhere : prefixes_.fromColumn3).contains(prefix);
    }

    /// Where a word of the line first stands, from 1, or Column{0}. The word comes with its blanks.
    Column findWord(TextView word) const;

    /// True when these characters of the trimmed line are blank, those past its end included.
    bool isBlankAt(Column column, Width width) const {
        if (!fitsBits()) return vantro::isBlank(mid(trimmed(), column, width));
        const std::size_t begin = contentBegin_ + static_cast<std::size_t>(column.value - 1);
        return !(LineBits::range(begin, static_cast<std::size_t>(width.value)) & ~blanks_).any();
    }

    /// True for a line whose characters have their bits.
    bool fitsBits() const { return text_.size() <= LineBits::capacity; }

    /// Where blanks stand, in a line that `fitsBits()`; places past the line's end count as blanks.
    LineBits blanks() const { return blanks_; }

private:
    template <std::size_t Count>
    void lookAt(const LineGroups<Count>& groups) {
        blanks_ = groups.blanks();
        const LineBits content = ~blanks_;
        contentEnd_ = static_cast<std::uint32_t>(content.end());
        contentBegin_ = std::min(static_cast<std::uint32_t>(content.lowest()), contentEnd_);
        const LineBits slashes = groups.where(u'/');
        if (slashes.any()) prefixes_ = prefixesIn(text_, slashes, contentBegin_);
    }

    TextView text_;
    LineBits blanks_;
    std::uint32_t contentBegin_ = 0;
    std::uint32_t contentEnd_ = 0;
    LineMarks marks_;
    LinePrefixes prefixes_;

    friend class Display;
    std::array<std::uint32_t, 4> knownJoins_{};  // the display's notes: its joins that begin here, from 1, by rule
};

}  // namespace vantro
