#include "display/display.h"

#include "display/mark_signs.h"
#include "framework/constants.h"

#include <algorithm>
#include <limits>

namespace vantro {

namespace {

/// How many lines may hold anything.
std::size_t lengthOf(const Screen& screen) {
    constexpr std::size_t allLines = std::numeric_limits<std::int16_t>::max() + std::size_t{1};
    const std::size_t printed = (screen.text().size() + screenWidth - 1) / screenWidth;
    return screen.linesAreSlices() ? std::min(printed, allLines) : allLines;
}

}  // namespace

Display::Display(Terminal& terminal, TextView text) : screen_(terminal, text), lines_(lengthOf(screen_)) {
    constexpr std::size_t usualMarks = 32;  // ten sections, a prompt and the end text, with room
    marked_.reserve(usualMarks);
}

// Lines without any sign of a mark are passed at once.
void Display::sweepNext() {
    swept_ = std::min(nextLineThatMayBeMarked(screen_.text(), swept_), lines_.size());
    if (swept_ == lines_.size()) return;
    addSwept(marksOf(screen_.line(static_cast<std::int16_t>(swept_))));
}

void Display::lookAhead() {
    const std::size_t wholeLines = std::min(screen_.text().size() / screenWidth, lines_.size());
    while (swept_ < wholeLines) {
        const std::size_t index = swept_;
        const TextView line = screen_.text().substr(index * screenWidth, screenWidth);
        const DisplayLineGroups groups(line.data());
        const LineMarks marks = mayBeMarked(groups) ? marksOf(line) : LineMarks();
        lines_.make(index, line, groups, marks);
        addSwept(marks);
        if (marks.isEndOfDisplay()) return;
    }
}

const DisplayLine& Display::lookAt(std::size_t index) {
    static const DisplayLine emptyLine;
    if (index >= lines_.size()) return emptyLine;
    const Counter number(static_cast<std::int16_t>(index));
    if (!screen_.linesAreSlices()) {
        const TextView text = screen_.line(number);
        return lines_.make(index, text, marksOf(text));
    }
    while (swept_ <= index) sweepNext();
    const auto marked = std::ranges::lower_bound(marked_, number, {}, &MarkedLine::number);
    const bool isMarked = marked != marked_.end() && marked->number == number;
    return lines_.make(index, screen_.line(number), isMarked ? marked->marks : LineMarks());
}

/// The place among all marked lines, swept or not, of the first one at or after a line.
std::size_t Display::placeOfNextMarked(Counter from) {
    while (swept_ < static_cast<std::size_t>(from.value()) && swept_ < lines_.size()) sweepNext();
    const auto place = std::ranges::lower_bound(marked_, from, {}, &MarkedLine::number);
    return static_cast<std::size_t>(place - marked_.begin());
}

const Display::MarkedLine& Display::markedAt(std::size_t place) {
    while (place >= marked_.size()) {
        if (swept_ >= lines_.size()) fail(Failure::Overflow);  // nothing but empty lines up to the counter's end
        sweepNext();
    }
    return marked_[place];
}

// A terminal that makes its lines itself is asked for one line after the other, and for none that is not needed.
template <class Wanted>
Display::MarkedLine Display::nextFetched(Counter from, Wanted wanted) {
    for (Counter number = from;; ++number) {
        const LineMarks marks = line(number).marks();
        if (wanted(marks)) return {number, marks};
    }
}

Display::MarkedLine Display::nextMarked(Counter from) {
    if (!screen_.linesAreSlices()) return nextFetched(from, [](LineMarks marks) { return marks.any(); });
    return markedAt(placeOfNextMarked(from));
}

Display::MarkedLine Display::nextHeaderOrEnd(Section section, Counter from) {
    const auto isWanted = [section](LineMarks marks) {
        return marks.containsHeader(section) || marks.isEndOfDisplay();
    };
    if (!screen_.linesAreSlices()) return nextFetched(from, isWanted);
    for (std::size_t place = placeOfNextMarked(from);; ++place) {
        const MarkedLine& marked = markedAt(place);
        if (isWanted(marked.marks)) return marked;
    }
}

// Several families ask for the same joined line: it is made once.
JoinedLine Display::joinedWithBelow(const DisplayLine& first, Counter number, JoinRule rule) {
    const auto slot = static_cast<std::size_t>(rule);
    if (first.knownJoins_[slot] != 0) return knownJoins_[first.knownJoins_[slot] - std::size_t{1}];

    constexpr std::size_t usualJoins = 32;
    if (knownJoins_.empty()) knownJoins_.reserve(usualJoins);
    const JoinedLine joined = join(number, rule);
    knownJoins_.push_back(joined);
    // The caller has the line, so it is in the store.
    DisplayLine& noted = *lines_.find(static_cast<std::size_t>(number.value()));
    noted.knownJoins_[slot] = static_cast<std::uint32_t>(knownJoins_.size());
    return joined;
}

JoinedLine Display::join(Counter number, JoinRule rule) {
    if (rule == JoinRule::OneBelow) return joinOneBelow(number);
    if (rule == JoinRule::TwoBelow) return joinTwoBelow(number);
    return joinAllBelow(number, rule);
}

JoinedLine Display::joinAllBelow(Counter number, JoinRule rule) {
    const DisplayLine& first = line(number);
    joining_ = first.trimmed();
    bool containsEndText = first.marks().containsEndText();
    Counter last = number;
    for (;;) {
        const DisplayLine& below = line(last + 1);
        if (!below.beginsBlank(elementIndent) || containsEndText) break;
        ++last;
        if (isPastEnd(last)) fail(Failure::Overflow);  // empty lines would go on with the element for ever
        if (below.isBlank()) continue;
        // The end text can come about across a seam, but not from further back than its own length.
        const std::size_t unseen = joining_.size() - std::min(joining_.size(), mark::endOfDisplay.size());
        const TextView continuation = below.trimmed();
        const bool isColonLine = mid(continuation, Column{3}, Width{1}) == u":";
        if (rule == JoinRule::ColonAfterBlank && isColonLine) joining_ += u' ';
        joining_ += continuation;
        containsEndText = contains(TextView(joining_).substr(unseen), mark::endOfDisplay);
    }
    return {joinedTexts_.keep(joining_), last};
}

JoinedLine Display::joinOneBelow(Counter number) {
    joining_ = line(number).rightTrimmed();
    joining_ += line(number + 1).trimmed();
    return {joinedTexts_.keep(joining_), number + 1};
}

JoinedLine Display::joinTwoBelow(Counter number) {
    const JoinedLine one = joined(line(number), number, JoinRule::OneBelow);
    const DisplayLine& below = line(number + 2);
    if (!below.beginsBlank(transferableIndent)) return one;
    joining_ = one.text;
    joining_ += below.trimmed();
    return {joinedTexts_.keep(joining_), number + 2};
}

}  // namespace vantro
