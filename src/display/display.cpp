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

void ReadLines::makeRoom() {
    if (!isRead_.empty()) return;
    slots_.resize(expected_);
    isRead_.resize(expected_);
}

const DisplayLine& ReadLines::add(std::size_t index, TextView text) {
    makeRoom();
    if (index >= slots_.size()) return apart_.try_emplace(index, text).first->second;
    DisplayLine* const line = &slots_[index].line;
    if (text.size() == screenWidth) {
        makeLines(text.data(), 1, line);
    } else {
        std::construct_at(line, text);
    }
    isRead_[index] = 1;
    return *line;
}

std::size_t ReadLines::addUpToMark(TextView display, std::size_t first, std::size_t last) {
    makeRoom();
    const std::size_t made = makeLines(display.data() + first * screenWidth, last - first, &slots_[first].line);
    std::fill_n(isRead_.begin() + static_cast<std::ptrdiff_t>(first), made, std::uint8_t{1});
    return first + made;
}

const DisplayLine* ReadLines::findApart(std::size_t index) const {
    const auto found = apart_.find(index);
    return found != apart_.end() ? &found->second : nullptr;
}

Display::Display(Terminal& terminal, TextView text, KnownText* known)
    : screen_(terminal, text),
      known_(screen_.linesAreSlices() ? known : nullptr),
      size_(lengthOf(screen_)),
      lines_(std::min(size_, text.size() / screenWidth + 1), scratchMemory()),
      confirmed_(known_ != nullptr ? 0 : std::numeric_limits<std::size_t>::max()),
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
    auto next = static_cast<std::size_t>(from.value());
    if (!screen_.linesAreSlices()) return;
    const std::size_t wholeLines = std::min(text().size() / screenWidth, size_);
    while (next < wholeLines && lines_.find(next) == nullptr) {
        next = lines_.addUpToMark(text(), next, wholeLines);
        const DisplayLine& last = *lines_.find(next - 1);
        if (next > swept_) {
            swept_ = next - 1;
            noteSwept(last.marks());
        }
        if (next > confirmed_ && !confirm(next - 1)) return;
        if (last.isEndOfDisplay() || (end == ReadTo::SectionEnd && last.isSectionEnd())) return;
    }
}

// Sweeps up to and including the next line that passes the pre-filter.
void Display::sweepNext() {
    swept_ = std::min(nextLineThatMayContainMark(text(), swept_), size_);
    if (swept_ < size_) noteSwept(marksOf(screen_.line(static_cast<std::int16_t>(swept_))));
}

/// The index in the list of all marked lines of the first one at or after line `from`. Lines that are swept only later
/// are added after it.
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

/// The first line that is wanted among those with marks at or after `from`.
template <class Wanted>
std::optional<Display::MarkedLine> Display::nextSwept(Counter from, Wanted wanted) {
    for (;;) {
        std::size_t index = nextMarkedIndex(from);
        const MarkedLine* marked = markedAt(index);
        while (marked != nullptr && (marked->number < from || !wanted(marked->marks))) marked = markedAt(++index);
        const std::size_t last = marked != nullptr ? static_cast<std::size_t>(marked->number.value()) : size_ - 1;
        const bool isConfirmed = last < confirmed_ || confirm(last);
        if (isConfirmed) return marked != nullptr ? std::optional(*marked) : std::nullopt;
    }
}

std::optional<Display::MarkedLine> Display::nextMarked(Counter from) {
    const auto isMarked = [](LineMarks marks) { return marks.any(); };
    return screen_.linesAreSlices() ? nextSwept(from, isMarked) : nextFetched(from, isMarked);
}

std::optional<Display::MarkedLine> Display::nextHeaderOrEnd(Section section, Counter from) {
    const auto isWanted = [section](LineMarks marks) {
        return marks.containsHeader(section) || marks.isEndOfDisplay();
    };
    if (!screen_.linesAreSlices()) return nextFetched(from, isWanted);
    if (swept_ == 0 && known_ == nullptr) {
        swept_ = std::min(nextLineWithHeaderOrEnd(section, text(), static_cast<std::size_t>(from.value())), size_);
        from = Counter(0);  // no mark before that line is known
    }
    return nextSwept(from, isWanted);
}

/// Compares the known lines up to this one, and some after it, with the text. Forgets what is known from the first one
/// on that has changed, and returns false. The lines up to this one are known afterwards.
bool Display::confirm(std::size_t index) {
    constexpr std::size_t some = 24;  // few sections have more lines
    if (index >= size_) return true;  // an empty line, also of an empty text, of which nothing is known
    const std::size_t known = known_->size();
    const std::size_t last = std::min(index + some, known);
    const std::size_t changed = known_->firstChanged(text(), confirmed_, last);
    if (changed < last) forgetFrom(changed);
    known_->add(text(), index + 1);
    confirmed_ = std::max(index + 1, changed < last ? 0 : last);
    return changed >= last;
}

void Display::forgetFrom(std::size_t line) {
    known_->cutTo(line);
    lines_.forgetFrom(line);
    swept_ = std::min(swept_, line);
    marked_.erase(std::ranges::lower_bound(marked_, Counter(static_cast<std::int16_t>(line)), {}, &MarkedLine::number),
                  marked_.end());
}

}  // namespace vantro
