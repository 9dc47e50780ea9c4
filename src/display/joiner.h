// Puts the lines of one element together.
#pragma once

#include "display/display.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace vantro {

/// Keeps many short texts with few allocations.
class TextArena {
public:
    /// A copy of the text that lives as long as the arena, moves of the arena included.
    TextView keep(TextView text) {
        if (text.size() > left_) open(std::max(text.size(), blockSize));
        char16_t* const copy = next_;
        std::ranges::copy(text, copy);
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
    char16_t* next_ = nullptr;
    std::size_t left_ = 0;
};

/// The text of an element and the number of its last line. The text is a view of the display or of the joiner's texts.
struct JoinedLine {
    TextView text;
    Counter last;
};

/// Joins the lines of the elements of one display.
class Joiner {
public:
    explicit Joiner(Display& display) : display_(display) {}

    Display& display() { return display_; }

    /// The element that begins with this line. The first two rules trim each line, the other two keep the blanks before
    /// the first. Raises 6 when the line number after it would overflow.
    JoinedLine join(const DisplayLine& first, Counter number, JoinRule rule) {
        if (isContinued(number, rule)) return joinContinued(first, number, rule);
        return {keepsIndent(rule) ? first.rightTrimmed() : first.trimmed(), number};
    }

    /// True when the line after this one continues an element.
    bool isContinued(Counter number, JoinRule rule) {
        return display_.line(number + 1).beginsBlank(keepsIndent(rule) ? transferableIndent : elementIndent);
    }

    /// Moves out what the views of joined texts point into.
    TextArena takeTexts() { return std::move(texts_); }

private:
    static constexpr Width elementIndent{9};
    static constexpr Width transferableIndent{17};

    static constexpr bool keepsIndent(JoinRule rule) {
        return rule == JoinRule::OneBelow || rule == JoinRule::TwoBelow;
    }

    JoinedLine joinContinued(const DisplayLine& first, Counter number, JoinRule rule);
    JoinedLine joinAllBelow(const DisplayLine& first, Counter number, JoinRule rule);

    Display& display_;
    TextArena texts_;
    Text joining_;  // the text that is being joined
};

}  // namespace vantro
