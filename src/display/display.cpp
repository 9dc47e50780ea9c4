#include "display/display.h"

#include "display/rules.h"

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

void ReadLines::beginRun(std::size_t index) {
    begin_ = index;
    run_.resize(expected_ - index);
}

const DisplayLine& ReadLines::add(std::size_t index, TextView text) {
    if (count_ == 0 && index < expected_) beginRun(index);
    const bool continuesRun = count_ < run_.size() && index == begin_ + count_;
    if (!continuesRun) return apart_.try_emplace(index, text).first->second;
    DisplayLine* const line = &run_[count_].line;
    if (text.size() == screenWidth) {
        makeLines(text.data(), 1, line);
    } else {
        std::construct_at(line, text);
    }
    ++count_;
    return *line;
}

std::size_t ReadLines::addUpToMark(TextView display, std::size_t first, std::size_t last) {
    if (count_ == 0) beginRun(first);
    if (first != begin_ + count_) return first;
    const std::size_t made = makeLines(display.data() + first * screenWidth, last - first, &run_[count_].line);
    count_ += made;
    return first + made;
}

const DisplayLine* ReadLines::findApart(std::size_t index) const {
    const auto found = apart_.find(index);
    return found != apart_.end() ? &found->second : nullptr;
}

Display::Display(Terminal& terminal, TextView text)
    : screen_(terminal, text),
      size_(lengthOf(screen_)),
      lines_(std::min(size_, text.size() / screenWidth + 1), scratchMemory()),
      marked_(scratchMemory()) {
    constexpr std::size_t usualMarks = 32;  // ten section headers, a prompt, the end text, and a reserve
    marked_.reserve(usualMarks);
}

const DisplayLine& Display::readLine(std::size_t index) {
    static const DisplayLine emptyLine;
    if (index >= size_) return emptyLine;
    const TextView text = screen_.line(static_cast<std::int16_t>(index));
    const DisplayLine& line = lines_.add(index, text);
    if (screen_.linesAreSlices() && index == swept_) noteSwept(line.marks());
    return line;
}

void Display::readAhead(Counter from, ReadTo end) {
    if (!screen_.linesAreSlices() || static_cast<std::size_t>(from.value()) != swept_) return;
    const std::size_t wholeLines = std::min(text().size() / screenWidth, size_);
    while (swept_ < wholeLines) {
        const std::size_t readTo = lines_.addUpToMark(text(), swept_, wholeLines);
        if (readTo == swept_) return;
        swept_ = readTo - 1;
        const DisplayLine& last = *lines_.find(swept_);
        noteSwept(last.marks());
        if (last.isEndOfDisplay() || (end == ReadTo::SectionEnd && last.isSectionEnd())) return;
    }
}

// Sweeps up to and including the next line that passes the pre-filter.
void Display::sweepNext() {
    swept_ = std::min(nextLineThatMayContainMark(text(), swept_), size_);
    if (swept_ < size_) noteSwept(marksOf(screen_.line(static_cast<std::int16_t>(swept_))));
}

/// The index in the list of all marked lines of the first one at or after line `from`. That line may be swept only
/// later. All lines before it are swept: readers search from a line that they read or found.
std::size_t Display::nextMarkedIndex(Counter from) {
    const auto found = std::ranges::lower_bound(marked_, from, {}, &MarkedLine::number);
    return static_cast<std::size_t>(found - marked_.begin());
}

/// The marked line at this index, or null when the display has fewer.
const Display::MarkedLine* Display::markedAt(std::size_t index) {
    while (index >= marked_.size()) {
        if (swept_ >= size_) return nullptr;
        sweepNext();
    }
    return &marked_[index];
}

std::bitset<sectionCount> Display::sectionsRead() const {
    std::bitset<sectionCount> sections;
    for (const MarkedLine& line : marked_) {
        sections |= line.marks.headers();
        if (line.marks.isEndOfDisplay()) break;
    }
    return sections;
}

void Display::saySearched(Section section, Counter from, const std::optional<MarkedLine>& found) {
    const bool isShown = found && found->marks.containsHeader(section);
    const int last = found ? found->number.value() : static_cast<int>(size_) - 1;
    watch().searched(sectionHeaders[indexOf(section)], MarkSearch::InLine, from.value(), last,
                     isShown ? headerIn(section, found->number) : TextView{});
    if (!found) {
        watch().decided(rule::displayHasNoEnd);
    } else {
        watch().decided(found->marks.isEndOfDisplay() ? rule::displayEnds : rule::sectionBegins, found->number);
    }
}

void Display::runOut(Counter number) const {
    watch().decided(rule::displayHasNoEnd, number);
    fail(Failure::Overflow);
}

template <class Wanted>
Display::MarkedLine Display::nextFetched(Counter from, Wanted wanted) {
    for (Counter number = from;; ++number) {
        const LineMarks marks = line(number).marks();
        if (wanted(marks)) return {number, marks};
    }
}

std::optional<Display::MarkedLine> Display::nextMarked(Counter from) {
    if (!screen_.linesAreSlices()) return nextFetched(from, [](LineMarks marks) { return marks.any(); });
    const MarkedLine* const marked = markedAt(nextMarkedIndex(from));
    return marked != nullptr ? std::optional(*marked) : std::nullopt;
}

std::optional<Display::MarkedLine> Display::nextHeaderOrEnd(Section section, Counter from) {
    const auto isWanted = [section](LineMarks marks) {
        return marks.containsHeader(section) || marks.isEndOfDisplay();
    };
    if (!screen_.linesAreSlices()) return nextFetched(from, isWanted);
    const bool isFirst = swept_ == 0;
    if (isFirst)
        swept_ = std::min(nextLineWithHeaderOrEnd(section, text(), static_cast<std::size_t>(from.value())), size_);
    for (std::size_t index = isFirst ? 0 : nextMarkedIndex(from);; ++index) {
        const MarkedLine* const marked = markedAt(index);
        if (marked == nullptr) return std::nullopt;
        if (isWanted(marked->marks)) return *marked;
    }
}

}  // namespace vantro
