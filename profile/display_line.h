// One line of a profile display and what stands in it.
#pragma once

#include "framework/line_bits.h"
#include "framework/text_ops.h"
#include "profile/mentions.h"
#include "profile/sections.h"

#include <array>
#include <cstdint>

namespace vantro {

class DisplayLine {
public:
    constexpr DisplayLine() = default;
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

    /// True when the first `width` characters are blank, a line that ends before them included.
    bool beginsBlank(Width width) const {
        return contentBegin_ >= static_cast<std::uint32_t>(width.value) || isBlank();
    }

    /// The families whose prefix or code stands anywhere in the line.
    FamilySet mentioned() const {
        if (!mentionsKnown_) lookForMentions();
        return mentioned_;
    }

    bool holdsSlash() const { return !fitsBits() || slashes_.any(); }

    /// True when the trimmed line holds the prefix (letters and "/") at or after a column.
    bool holdsPrefix(TextView prefix, Column from) const;

    /// The family's own prefix, the same.
    bool holdsPrefixOf(Family family, TextView prefix, Column from) const {
        return mentioned().holds(family) && holdsPrefix(prefix, from);
    }

private:
    static constexpr std::uint16_t promptMark = 1;
    static constexpr std::uint16_t endTextMark = 2;
    static constexpr std::uint16_t ruleMark = 4;
    static constexpr std::uint16_t headerMark(Section section) {
        return static_cast<std::uint16_t>(8U << static_cast<unsigned>(section));
    }
    static_assert(sectionHeaders.size() <= 13, "the marks of a line have sixteen bits");

    void lookForMentions() const;
    bool fitsBits() const { return text_.size() <= LineBits::capacity; }
    void takeMarks(const LineMarks& marks);
    void searchMarks();
    std::uint16_t headerMarks(LineBits rules) const;

    TextView text_;
    LineBits blanks_;
    LineBits slashes_;
    std::uint32_t contentBegin_ = 0;
    std::uint32_t contentEnd_ = 0;
    std::uint16_t marks_ = 0;
    mutable bool mentionsKnown_ = false;
    mutable FamilySet mentioned_;

    friend class Display;
    std::array<std::uint32_t, 4> knownJoins_{};  // the display's notes: its joins that begin here, from 1, by rule
};

}  // namespace vantro
