#include "profile/display.h"

#include "framework/constants.h"

#include <algorithm>
#include <limits>

namespace vantro {

namespace {

/// Where the end text may stand: two words of three and two letters and one of at least seven.
LineBits endTextCandidates(LineBits blanks) {
    const LineBits letters = ~blanks;
    const LineBits twoLetters = letters & letters.down(1);
    const LineBits gaps = blanks.down(3) & blanks.down(6);
    if (!gaps.any()) return {};
    const LineBits words = twoLetters & letters.down(2) & twoLetters.down(4);
    const LineBits fourLetters = twoLetters & twoLetters.down(2);
    return gaps & words & fourLetters.down(7) & fourLetters.down(10);
}

/// Where seven hyphens in a row begin.
LineBits ruleBegins(LineBits dashes) {
    const LineBits two = dashes & dashes.down(1);
    const LineBits four = two & two.down(2);
    return four & four.down(3);
}

bool standsAt(TextView text, std::size_t place, TextView wanted) { return text.substr(place).starts_with(wanted); }

}  // namespace

DisplayLine::DisplayLine(TextView text) : text_(text) {
    if (fitsBits()) {
        mark(marksOf(text));
        return;
    }
    // No host prints such a line, but a terminal of its own ways may hand one over.
    contentBegin_ = std::min(text.find_first_not_of(u' '), text.size());
    contentEnd_ = vantro::rightTrimmed(text).size();
    contentBegin_ = std::min(contentBegin_, contentEnd_);
    if (holds(text, mark::prompt)) marks_ |= promptMark;
    if (holds(text, mark::endOfDisplay)) marks_ |= endTextMark;
    if (holds(text, sectionRule)) marks_ |= ruleMark;
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (holds(text, sectionHeaders[section])) marks_ |= headerMark(static_cast<Section>(section));
    }
}

void DisplayLine::mark(const LineMarks& marks) {
    blanks_ = marks.blanks;
    slashes_ = marks.slashes;
    const LineBits content = ~marks.blanks;
    contentEnd_ = content.end();
    contentBegin_ = content.any() ? content.lowest() : 0;
    if (marks.prompts.any()) marks_ |= promptMark;
    for (LineBits places = endTextCandidates(blanks_); places.any(); places.removeLowest()) {
        if (standsAt(text_, places.lowest(), mark::endOfDisplay)) marks_ |= endTextMark;
    }
    if (!marks.dashes.any()) return;
    const LineBits rules = ruleBegins(marks.dashes);
    if (rules.any()) marks_ = static_cast<std::uint16_t>(marks_ | ruleMark | headerMarks(rules));
}

std::uint16_t DisplayLine::headerMarks(LineBits rules) const {
    unsigned found = 0;
    for (; rules.any(); rules.removeLowest()) {
        const TextView rest = text_.substr(rules.lowest());
        if (rest.size() <= sectionRule.size() || rest[sectionRule.size()] != u' ') continue;
        for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
            if (rest.starts_with(sectionHeaders[section])) found |= headerMark(static_cast<Section>(section));
        }
    }
    return static_cast<std::uint16_t>(found);
}

bool DisplayLine::beginsBlank(Width width) const {
    return fitsBits() ? blanks_.holdsFirst(static_cast<unsigned>(width.value)) : vantro::isBlank(left(text_, width));
}

bool DisplayLine::holdsPrefix(TextView prefix, Column from) const {
    if (!fitsBits()) return holdsFrom(trimmed(), prefix, from);
    const std::size_t letters = prefix.size() - 1;
    const std::size_t firstSlash = contentBegin_ + static_cast<std::size_t>(from.value - 1) + letters;
    for (LineBits slashes = slashes_ & LineBits::from(firstSlash); slashes.any(); slashes.removeLowest()) {
        if (standsAt(text_, slashes.lowest() - letters, prefix)) return true;
    }
    return false;
}

bool DisplayLine::holdsCode(TextView code, Column from) const {
    if (!fitsBits()) return holdsFrom(rightTrimmed(), code, from);
    const auto last = static_cast<unsigned>(code.size() - 1);
    LineBits places = blanks_ & blanks_.down(last) & LineBits::from(static_cast<std::size_t>(from.value - 1));
    for (; places.any(); places.removeLowest()) {
        const std::size_t place = places.lowest();
        if (place + last >= contentEnd_) return false;
        if (standsAt(text_, place, code)) return true;
    }
    return false;
}

Display::Display(Terminal& terminal, TextView text) : screen_(terminal, text) {
    constexpr std::size_t allLines = std::numeric_limits<std::int16_t>::max() + std::size_t{1};
    const std::size_t printed = (text.size() + screenWidth - 1) / screenWidth;
    knownLength_ = screen_.linesAreSlices() ? std::min(printed, allLines) : allLines;
    lines_.reserve(knownLength_);  // so that references to lines stay good
}

void Display::lookAtNext() {
    const auto number = static_cast<std::int16_t>(lines_.size());
    if (lines_.emplace_back(screen_.line(number)).isMarked()) marked_.push_back(number);
}

const DisplayLine& Display::lookAt(std::size_t index) {
    static constexpr DisplayLine emptyLine;
    if (index >= knownLength_) return emptyLine;
    while (lines_.size() <= index) lookAtNext();
    return lines_[index];
}

Counter Display::nextMarked(Counter from) {
    const auto known = std::ranges::lower_bound(marked_, from.value());
    if (known != marked_.end()) return Counter(*known);
    while (lines_.size() < knownLength_) {
        lookAtNext();
        if (!marked_.empty() && marked_.back() >= from.value()) return Counter(marked_.back());
    }
    fail(Failure::Overflow);  // the 16-bit line counter would run on over nothing but empty lines
}

}  // namespace vantro
