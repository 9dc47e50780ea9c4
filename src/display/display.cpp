#include "display/display.h"

#include <algorithm>
#include <limits>

namespace vantro {

namespace {

/// The number of lines that can be non-empty.
std::size_t lengthOf(const Screen& screen) {
    constexpr std::size_t allLines = std::numeric_limits<std::int16_t>::max() + std::size_t{1};
    const std::size_t printed = (screen.text().size() + screenWidth - 1) / screenWidth;
    return screen.linesAreSlices() ? std::min(printed, allLines) : allLines;
}

}  // namespace

Display::Display(Terminal& terminal, TextView text) : screen_(terminal, text), positions_(lengthOf(screen_)) {
    constexpr std::size_t usualMarks = 32;  // ten section headers, a prompt, the end text, and a reserve
    lines_.reserve(positions_.size());
    marked_.reserve(usualMarks);
}

const DisplayLine& Display::keepLine(std::size_t index, TextView text, const LineMarks* marks) {
    lines_.emplace_back(text, marks);
    positions_[index] = static_cast<std::uint16_t>(lines_.size());
    return lines_.back();
}

const DisplayLine& Display::readLine(std::size_t index) {
    static const DisplayLine emptyLine;
    if (isPastEnd(Counter(static_cast<std::int16_t>(index)))) return emptyLine;
    const TextView text = screen_.line(static_cast<std::int16_t>(index));
    if (!screen_.linesAreSlices()) return keepLine(index, text, nullptr);
    const LineMarks marks = sweptMarksOf(index);
    return keepLine(index, text, &marks);
}

void Display::readAhead() {
    const TextView display = text();
    const std::size_t wholeLines = std::min(display.size() / screenWidth, size());
    while (swept_ < wholeLines) {
        const TextView line(display.data() + swept_ * screenWidth, screenWidth);
        const LineMarks marks = keepLine(swept_, line, nullptr).marks();
        noteSwept(marks);
        if (marks.isEndOfDisplay()) return;
    }
}

// Sweeps up to and including the next line that passes the pre-filter.
void Display::sweepNext() {
    swept_ = std::min(nextLineThatMayContainMark(text(), swept_), size());
    if (swept_ == size()) return;
    noteSwept(marksOf(screen_.line(static_cast<std::int16_t>(swept_))));
}

LineMarks Display::sweptMarksOf(std::size_t index) {
    while (swept_ <= index) sweepNext();
    const Counter number(static_cast<std::int16_t>(index));
    const auto found = std::ranges::lower_bound(marked_, number, {}, &MarkedLine::number);
    return found != marked_.end() && found->number == number ? found->marks : LineMarks();
}

/// The index in the list of all marked lines of the first one at or after line `from`. That line may be swept only
/// later.
std::size_t Display::nextMarkedIndex(Counter from) {
    while (swept_ < static_cast<std::size_t>(from.value()) && swept_ < size()) sweepNext();
    const auto found = std::ranges::lower_bound(marked_, from, {}, &MarkedLine::number);
    return static_cast<std::size_t>(found - marked_.begin());
}

const Display::MarkedLine& Display::markedAt(std::size_t index) {
    while (index >= marked_.size()) {
        if (swept_ >= size()) fail(Failure::Overflow);  // only empty lines follow, up to the counter's end
        sweepNext();
    }
    return marked_[index];
}

template <class Wanted>
Display::MarkedLine Display::nextFetched(Counter from, Wanted wanted) {
    for (Counter number = from;; ++number) {
        const LineMarks marks = line(number).marks();
        if (wanted(marks)) return {number, marks};
    }
}

Display::MarkedLine Display::nextMarked(Counter from) {
    if (!screen_.linesAreSlices()) return nextFetched(from, [](LineMarks marks) { return marks.any(); });
    return markedAt(nextMarkedIndex(from));
}

Display::MarkedLine Display::nextHeaderOrEnd(Section section, Counter from) {
    const auto isWanted = [section](LineMarks marks) {
        return marks.containsHeader(section) || marks.isEndOfDisplay();
    };
    if (!screen_.linesAreSlices()) return nextFetched(from, isWanted);
    for (std::size_t index = nextMarkedIndex(from);; ++index) {
        const MarkedLine& marked = markedAt(index);
        if (isWanted(marked.marks)) return marked;
    }
}

}  // namespace vantro
