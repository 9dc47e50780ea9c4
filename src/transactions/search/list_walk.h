// Reads a list screen line by line. A block of entries begins with a column header, the entries have a number in
// columns 3 and 4, and an empty line or the prompt ends the list.
#pragma once

#include "framework/bytes.h"
#include "framework/constants.h"
#include "framework/screen.h"
#include "transactions/rules.h"

namespace vantro {

/// The list number of an entry, trimmed.
inline TextView listNumber(TextView line) { return trimmed(mid(line, Column{3}, Width{2})); }

inline bool hasListNumber(TextView line) { return isNumeric(listNumber(line)); }

/// False for a line of the usual length without the characters of the prompt and of the hyphen in the mark of the end
/// of a block. Most lines of a list contain neither.
inline bool mayEndList(TextView line) {
    static_assert(screenWidth % Bytes::count == 0);
    if (line.size() != screenWidth) return true;
    const auto ends = [line](std::size_t begin) {
        const Bytes characters = Bytes::narrow(line.data() + begin);
        return characters.equal('>') | characters.equal('-');
    };
    Bytes found = ends(0);
    for (std::size_t begin = Bytes::count; begin < screenWidth; begin += Bytes::count) found = found | ends(begin);
    return found.bits() != 0;
}

/// The column where the text of an entry begins.
inline constexpr Column entryTextColumn{6};

/// A position in a list: the current line and the number of the line fetched last. One look at a line finds out that it
/// cannot end the list, as most lines cannot.
class ListWalk {
public:
    /// `line` is the current line, which may be from anywhere on the screen; the first step fetches line `number` + 1.
    ListWalk(Screen& screen, std::int16_t number, TextView line) : screen_(screen), number_(number) { moveTo(line); }

    TextView line() const { return line_; }

    /// For what the readers of the list decide.
    const Watch& watch() const { return screen_.watch(); }

    /// Says a rule about the current line, whose number must be known.
    void decided(const ReadingRule& rule) const { watch().decided(rule, number_); }

    /// The number of the current line, from 0, unless it is the one from which the walk began.
    std::int16_t number() const { return number_.value(); }

    /// True when the line can belong to a list: not empty and without a prompt.
    bool isUsable() const { return !line_.empty() && !(mayEndList_ && contains(line_, mark::prompt)); }

    /// The rule by which a line that is not usable ends the entries.
    const ReadingRule& endOfUnusable() const { return line_.empty() ? rule::listEmptyLine : rule::listPrompt; }

    /// True when the line contains the host's mark for the end of a block.
    bool isEndOfBlock() const { return mayEndList_ && contains(line_, mark::endOfBlock); }

    /// Says why the current line ends the entries. To be called only if the call is observed.
    void sayBlockEnd(const ReadingRule& reason) const;

    /// The same for a reader that searches for the end of the block, from line `first` on.
    void sayBlockEnd(const ReadingRule& reason, Counter first) const;

    /// Moves to the next line and returns it. Raises 6 after line 32767.
    TextView next() {
        ++number_;
        moveTo(screen_.line(number_));
        return line_;
    }

    /// Moves the number back by one, so that the next step fetches the same line again, or an earlier one.
    void stepBack() { --number_; }

    /// Moves to the next line that contains the header's mark. False when the list ends first, at a line that is not
    /// usable; the current line only has to be usable.
    bool findHeader(TextView headerMark) {
        const Counter above = number_;
        bool isFound = false;
        while (!isFound && isUsable()) isFound = contains(next(), headerMark) && isUsable();
        if (watch()) sayHeader(headerMark, above, isFound);
        return isFound;
    }

    /// The number of the line that the next step fetches.
    Counter nextNumber() const { return number_ + 1; }

private:
    void sayHeader(TextView headerMark, Counter above, bool isFound) const;

    void moveTo(TextView line) {
        line_ = line;
        mayEndList_ = mayEndList(line);
    }

    Screen& screen_;
    Counter number_;
    TextView line_;
    bool mayEndList_ = false;
};

/// A line from which a header can be searched.
inline constexpr TextView blankLine{u" "};

/// The header mark for a continuation screen, which has no header: every usable line contains it.
inline constexpr TextView anyLine{};

}  // namespace vantro
