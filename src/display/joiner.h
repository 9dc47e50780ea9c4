// Joins the lines of an element.
#pragma once

#include "display/display.h"
#include "framework/joined_text.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace vantro {

/// Keeps many short texts with few allocations.
class TextArena {
public:
    /// The first texts are kept in this memory, if there is any.
    explicit TextArena(std::span<char16_t> first = {}) : next_(first.data()), left_(first.size()) {}

    /// Returns a copy of the text that is valid as long as the first memory and the arena, or the one that it was moved
    /// to.
    TextView keep(TextView text) {
        if (text.size() > left_) open(std::max(text.size(), blockSize));
        char16_t* const copy = next_;
        TextView::traits_type::copy(copy, text.data(), text.size());
        next_ += text.size();
        left_ -= text.size();
        return {copy, text.size()};
    }

private:
    static constexpr std::size_t blockSize = 2048;

    void open(std::size_t size) {
        blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(size));
        next_ = blocks_.back().get();
        left_ = size;
    }

    std::vector<std::unique_ptr<char16_t[]>> blocks_;
    char16_t* next_;
    std::size_t left_;
};

/// The blanks that a line begins with when it continues an element of a prefixed family, of a transferable one.
inline constexpr Width elementIndent{9};
inline constexpr Width transferableIndent{17};

/// True for a continuation line that is joined after a blank: it has a colon in column 3.
inline bool isColonLine(TextView continuation) { return continuation.size() > 2 && continuation[2] == u':'; }

/// The text of an element and the number of its last line. A joined text is valid until the next one is joined.
struct JoinedLine {
    TextView text;
    Counter last;
    bool isEndless = false;  ///< true if all lines up to the display's last one continue the element: the search fails
};

/// Joins the lines of the elements of one display.
class Joiner {
public:
    /// The first joined texts are kept in `memory`.
    explicit Joiner(Display& display, std::span<char16_t> memory = {})
        : display_(display), memory_(memory), texts_(memory), joining_(display.watch()) {}

    /// Begins the next operation. Texts that were joined before are not valid any more.
    void startAgain() { texts_ = TextArena(memory_); }

    Display& display() { return display_; }

    /// The element that begins with this line, by `Directly` or `ColonAfterBlank`. Raises 6 when the next line number
    /// would overflow.
    JoinedLine join(const DisplayLine& first, Counter number, JoinRule rule) {
        if (!isContinued(number, rule)) return {first.trimmed(), number};
        return joinAllBelow(first, number, rule);
    }

    /// The text of an element that the next line continues, by `OneBelow` or `TwoBelow`; valid until the next one is
    /// joined. The leading blanks of the first line are kept; all other blanks around lines are trimmed. Raises 6 as
    /// `join` does.
    TextView joinContinued(const DisplayLine& first, Counter number, JoinRule rule);

    /// True when the line after this one continues an element.
    bool isContinued(Counter number, JoinRule rule) {
        return display_.line(number + 1).beginsBlank(keepsIndent(rule) ? transferableIndent : elementIndent);
    }

    /// A copy of a joined text that is valid as long as the arena. Most joined elements are another family's and are
    /// not kept.
    TextView keep(TextView joined) {
        const TextView kept = texts_.keep(joined);
        display_.watch().copied(kept, joined);
        return kept;
    }

    /// Moves the arena out; views of joined texts stay valid as long as the result, and the first memory if there is
    /// any.
    TextArena takeTexts() { return std::move(texts_); }

private:
    static constexpr bool keepsIndent(JoinRule rule) {
        return rule == JoinRule::OneBelow || rule == JoinRule::TwoBelow;
    }

    JoinedLine joinAllBelow(const DisplayLine& first, Counter number, JoinRule rule);

    Display& display_;
    std::span<char16_t> memory_;
    TextArena texts_;
    JoinedText joining_;  // the element being joined; reused to save allocations
};

}  // namespace vantro
