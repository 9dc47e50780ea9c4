#include "display/joiner.h"

#include "framework/constants.h"

namespace vantro {

TextView Joiner::joinContinued(const DisplayLine& first, Counter number, JoinRule rule) {
    joining_.assign(first.rightTrimmed());
    joining_.append(display_.line(number + 1).trimmed());
    if (rule == JoinRule::OneBelow || !isContinued(number + 1, rule)) return joining_.text();
    joining_.append(display_.line(number + 2).trimmed());
    return joining_.text();
}

JoinedLine Joiner::joinAllBelow(const DisplayLine& first, Counter number, JoinRule rule) {
    joining_.assign(first.trimmed());
    bool isComplete = first.marks().containsEndText();
    Counter last = number;
    for (;;) {
        const DisplayLine& below = display_.line(last + 1);
        if (!below.beginsBlank(elementIndent) || isComplete) break;
        ++last;
        // Only empty lines follow, which continue the element up to the line counter's end.
        if (display_.isPastEnd(last)) return {.text = joining_.text(), .last = last, .isEndless = true};
        if (below.isBlank()) continue;
        // The end text can arise across the boundary of two joined lines, within its own length of it.
        const std::size_t unseen = joining_.size() - std::min(joining_.size(), mark::endOfDisplay.size());
        const TextView continuation = below.trimmed();
        if (rule == JoinRule::ColonAfterBlank && isColonLine(continuation)) joining_.insert(u" ");
        joining_.append(continuation);
        // An element that begins with blank lines can begin with a prompt that is indented.
        isComplete =
            joining_.view().starts_with(mark::prompt) || contains(joining_.view().substr(unseen), mark::endOfDisplay);
    }
    return {joining_.text(), last};
}

}  // namespace vantro
