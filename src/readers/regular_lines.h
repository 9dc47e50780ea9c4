// The lines of a regular display, one after the other, with what the pass over them needs to know.
#pragma once

#include "display/joiner.h"
#include "display/line_look.h"
#include "framework/constants.h"
#include "readers/extractors.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <optional>

namespace vantro {

inline constexpr std::size_t lineLength = screenWidth;

/// The position of a column, from 0.
constexpr std::size_t positionOf(Column column) { return static_cast<std::size_t>(column.value - 1); }

/// True when a line of 80 characters begins with this many blanks.
template <std::size_t Count>
bool beginsWithBlanks(TextView line) {
    static_assert(Count <= Bytes::count + 1);
    if (line.empty()) return false;
    constexpr unsigned wanted = (1U << std::min(Count, Bytes::count)) - 1;
    const unsigned blanks = Bytes::narrow(line.data()).equal(' ').bits();
    return (blanks & wanted) == wanted && (Count <= Bytes::count || line[Bytes::count] == u' ');
}

inline constexpr auto continuesElement = beginsWithBlanks<elementIndent.value>;
inline constexpr auto continuesTransferable = beginsWithBlanks<transferableIndent.value>;

/// A line of 80 characters without the blanks around its text.
inline TextView trimmedLine(TextView line) {
    const LineBits printed = ~LineCharacters<lineLength>(line.data()).blanks();
    const std::size_t end = printed.end();
    const std::size_t begin = std::min(printed.lowest(), end);
    return {line.data() + begin, end - begin};
}

/// The current line. Positions count from 0 in the line, columns from 1 in the trimmed line.
struct PassedLine {
    const char16_t* characters = nullptr;
    LineBits printed;       ///< the characters that are not blank
    std::size_t begin = 0;  ///< of the trimmed line
    std::size_t end = 0;
    LinePrefixes prefixes;

    bool isBlank() const { return end == 0; }
    TextView whole() const { return {characters, lineLength}; }
    TextView rightTrimmed() const { return {characters, end}; }
    TextView trimmed() const { return {characters + begin, end - begin}; }
    bool beginsWith(TextView start) const { return vantro::beginsWith(whole(), start); }

    /// The number of blanks from a column on; columns after the line's end count as blank.
    std::size_t blanksFrom(Column column) const {
        const std::size_t position = begin + positionOf(column);
        return (printed & LineBits::from(position)).lowest() - position;
    }

    /// True for five blanks that other characters follow.
    bool containsGapAt(Column column) const {
        const std::size_t count = blanksFrom(column);
        return count >= 5 && begin + positionOf(column) + count < end;
    }

    /// The position of the first character at or after this position that is not blank, or the end.
    std::size_t textFrom(std::size_t position) const {
        return std::min((printed & LineBits::from(position)).lowest(), end);
    }

    FoundElement transferable(Family family) const {
        const LineBits number = printed & LineBits::range(positionOf(transferableNumber.from),
                                                          static_cast<std::size_t>(transferableNumber.width.value));
        const std::size_t numberEnd = number.end();
        return {family, rightTrimmed(), std::min(number.lowest(), numberEnd), numberEnd,
                textFrom(positionOf(transferableTextColumn))};
    }

    /// The element with the number in columns 1 and 2 and the text from a column on.
    FoundElement element(Family family, Column textColumn) const {
        const std::size_t numberEnd = begin + (printed.contains(begin + 1) ? 2 : 1);
        return {family, rightTrimmed(), begin, numberEnd, textFrom(begin + positionOf(textColumn))};
    }
};

/// Moves from line to line as long as the display is regular. "readers/forward_pass.h" says when it is.
class RegularLines {
public:
    explicit RegularLines(TextView text)
        : text_(text), next_(text.data()), wholeLinesEnd_(next_ + text.size() / lineLength * lineLength) {}

    /// The line that was reached last.
    const PassedLine& line() const { return line_; }
    std::size_t number() const { return static_cast<std::size_t>(line_.characters - text_.data()) / lineLength; }

    /// The next line, if it has 80 characters; otherwise empty.
    TextView next() const { return wholeLine(next_); }

    /// The line after `next`, which must not be empty.
    TextView nextButOne() const { return wholeLine(next_ + lineLength); }
    std::size_t linesLeft() const { return static_cast<std::size_t>(wholeLinesEnd_ - next_) / lineLength; }

    bool isAtRule() const { return state_ == State::AtRule; }
    bool isAtEnd() const { return state_ == State::AtEnd; }

    /// The section whose header the rule contains, if any.
    std::optional<Section> header() const { return header_; }

    /// The sections whose headers were passed.
    std::bitset<sectionCount> sections() const { return opened_; }

    /// True after a rule that ends the search for confidential remarks.
    bool isRuled() const { return isRuled_; }

    /// True if a line after line 0 was blank.
    bool containsBlankLine() const { return containsBlankLine_; }

    /// Moves to the next line. Returns false if it is a rule, the end, or irregular.
    bool advance() {
        if (next_ == wholeLinesEnd_) return stop(stateOfLastPiece());
        prefetchAhead(next_, linesLeft() - 1);
        const LineLook seen = look<lineLength>(next_);
        line_.characters = next_;
        line_.printed = ~seen.blanks;
        line_.end = line_.printed.end();
        line_.begin = std::min(line_.printed.lowest(), line_.end);
        line_.prefixes = LinePrefixes();
        next_ += lineLength;
        if (seen.mayContainMark) {
            const LineMarks marks = marksOf(line_.whole());
            if (marks.any()) return stop(stateOf(marks, seen.slashes.any()));
        }
        if (seen.slashes.any()) {
            line_.prefixes = prefixesIn(line_.whole(), seen.slashes, line_.begin);
            if (opened_.any() && line_.prefixes.anywhere.containsAny(headPrefixes)) return refuse();
        }
        containsBlankLine_ |= line_.isBlank() && line_.characters != text_.data();
        return true;
    }

    /// The display is irregular. Returns false.
    bool refuse() { return stop(State::Irregular); }

private:
    /// Of the line that `advance` stopped at.
    enum class State : std::uint8_t { AtRule, AtEnd, Irregular };

    bool stop(State state) {
        state_ = state;
        return false;
    }

    TextView wholeLine(const char16_t* line) const {
        return line != wholeLinesEnd_ ? TextView(line, lineLength) : TextView();
    }

    /// The text from the next line on.
    TextView rest() const { return text_.substr(static_cast<std::size_t>(next_ - text_.data())); }

    /// The last line, if it has less than 80 characters.
    State stateOfLastPiece() {
        const TextView piece = rest();
        next_ += piece.size();
        return stateOfEnd(rightTrimmed(piece), marksOf(piece));
    }

    State stateOfEnd(TextView line, LineMarks marks) const {
        const bool isPrompt =
            line == mark::prompt && (!isOpened(Section::Notes) || isBlank(rest().substr(0, lineLength)));
        const bool isEndText = beginsWith(line, mark::endOfDisplay) && marks.headers().none() && !contains(line, u"/");
        return isPrompt || isEndText ? State::AtEnd : State::Irregular;
    }

    State stateOf(LineMarks marks, bool containsSlash) {
        if (marks.isEndOfDisplay()) return stateOfEnd(line_.rightTrimmed(), marks);
        const std::bitset<sectionCount> headers = marks.headers();
        const bool isAgain = (headers & opened_).any() || isOpened(Section::Notes);
        if (number() == 0 || !line_.beginsWith(sectionRule) || isAgain || headers.count() > 1) return State::Irregular;
        opened_ |= headers;
        if (opened_.any() && containsSlash) return State::Irregular;
        header_ =
            headers.any() ? std::optional(static_cast<Section>(std::countr_zero(headers.to_ulong()))) : std::nullopt;
        isRuled_ = isRuled_ || header_ != Section::Transferable;
        return State::AtRule;
    }

    bool isOpened(Section section) const { return opened_.test(static_cast<std::size_t>(section)); }

    const TextView text_;
    const char16_t* next_;
    const char16_t* const wholeLinesEnd_;
    PassedLine line_;
    State state_ = State::Irregular;
    std::optional<Section> header_;
    std::bitset<sectionCount> opened_;  ///< the sections whose headers were passed
    bool isRuled_ = false;
    bool containsBlankLine_ = false;
};

}  // namespace vantro
