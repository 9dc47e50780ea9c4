// A profile display whose lines are each looked at once. Where lines are slices of the text, a sweep finds the few
// lines that hold a mark; what else a line holds is found out when it is first asked for; and every reader of the
// display shares both. A terminal that makes its lines itself is asked for the lines that a reader needs, in the
// reader's order.
#pragma once

#include "display/join_rule.h"
#include "display/line_store.h"
#include "display/text_arena.h"
#include "framework/screen.h"

#include <cstdint>
#include <vector>

namespace vantro {

/// An element's line and the lines that go on with it. The text is a view of the display or of the display's own
/// store of joined texts.
struct JoinedLine {
    TextView text;
    Counter last;
};

/// The display that one operation reads. Line numbers past the end give empty lines.
class Display {
public:
    Display(Terminal& terminal, TextView text);

    /// A line; the reference lives as long as the display.
    const DisplayLine& line(Counter number) {
        const auto index = static_cast<std::size_t>(number.value());
        const DisplayLine* const known = lines_.find(index);
        return known != nullptr ? *known : lookAt(index);
    }

    /// Looks at all lines up to the display's end in one go, for a reader that asks for most of them. Lines have to be
    /// slices of the text.
    void lookAhead();

    /// True for a line that is known to be empty, as all after it: it has no place in the store.
    bool isPastEnd(Counter number) const { return static_cast<std::size_t>(number.value()) >= lines_.size(); }

    /// A line for a search that only a mark or a text ends: raises 6 at once for a line past the end, where the
    /// 16-bit line counter would run on over nothing but empty lines until it overflows.
    const DisplayLine& expectedLine(Counter number) {
        if (isPastEnd(number)) fail(Failure::Overflow);
        return line(number);
    }

    /// A line that holds a mark, and its marks.
    struct MarkedLine {
        Counter number;
        LineMarks marks;
    };

    /// The first line at or after `from` that holds a mark. Raises 6 when there is none.
    MarkedLine nextMarked(Counter from);

    /// The first line at or after `from` that opens the section or ends the display. Raises 6 when there is none.
    MarkedLine nextHeaderOrEnd(Section section, Counter from);

    /// An element from its first line on, which the caller has at hand. The first two rules give the lines trimmed, the
    /// other two keep what stands in front of the first line. Raises 6 when the line number below would overflow.
    JoinedLine joined(const DisplayLine& first, Counter number, JoinRule rule) {
        const bool keepsFront = rule == JoinRule::OneBelow || rule == JoinRule::TwoBelow;
        const DisplayLine& below = line(number + 1);
        if (below.beginsBlank(keepsFront ? transferableIndent : elementIndent))
            return joinedWithBelow(first, number, rule);
        return {keepsFront ? first.rightTrimmed() : first.trimmed(), number};
    }

    Screen& screen() { return screen_; }
    TextView text() { return screen_.text(); }

    /// Hands over what the views of joined lines point into.
    TextArena takeJoinedTexts() { return std::move(joinedTexts_); }

private:
    static constexpr Width elementIndent{9};
    static constexpr Width transferableIndent{17};

    const DisplayLine& lookAt(std::size_t index);
    void sweepNext();
    void addSwept(LineMarks marks) {
        if (marks.any()) marked_.push_back({Counter(static_cast<std::int16_t>(swept_)), marks});
        ++swept_;
    }
    template <class Wanted>
    MarkedLine nextFetched(Counter from, Wanted wanted);
    std::size_t placeOfNextMarked(Counter from);
    const MarkedLine& markedAt(std::size_t place);
    JoinedLine joinedWithBelow(const DisplayLine& first, Counter number, JoinRule rule);
    JoinedLine join(Counter number, JoinRule rule);
    JoinedLine joinAllBelow(Counter number, JoinRule rule);
    JoinedLine joinOneBelow(Counter number);
    JoinedLine joinTwoBelow(Counter number);

    Screen screen_;
    LineStore lines_;
    std::size_t swept_ = 0;           // so many lines, from 0 on, were swept for marks
    std::vector<MarkedLine> marked_;  // those of them that have any
    std::vector<JoinedLine> knownJoins_;
    TextArena joinedTexts_;
    Text joining_;  // the text of the join that is being made
};

}  // namespace vantro
