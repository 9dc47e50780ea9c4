#include "profile/display_line.h"

#include "framework/constants.h"

#include <algorithm>

namespace vantro {

namespace {

/// Where seven hyphens in a row begin.
LineBits ruleBegins(LineBits dashes) {
    const LineBits two = dashes & dashes.down(1);
    const LineBits four = two & two.down(2);
    return four & four.down(3);
}

constexpr std::size_t placeOfF = mark::endOfDisplay.find(u'F');

bool holdsEndTextAround(TextView text, LineBits letterF) {
    for (; letterF.any(); letterF.removeLowest()) {
        const std::size_t place = letterF.lowest();
        if (place >= placeOfF && text.substr(place - placeOfF).starts_with(mark::endOfDisplay)) return true;
    }
    return false;
}

}  // namespace

DisplayLine::DisplayLine(TextView text) : text_(text) {
    if (fitsBits()) {
        takeMarks(marksOf(text));
    } else {
        searchMarks();
    }
}

void DisplayLine::takeMarks(const LineMarks& marks) {
    blanks_ = marks.blanks;
    slashes_ = marks.slashes;
    const LineBits content = ~marks.blanks;
    contentEnd_ = static_cast<std::uint32_t>(content.end());
    contentBegin_ = std::min(static_cast<std::uint32_t>(content.lowest()), contentEnd_);
    if (marks.prompts.any()) marks_ |= promptMark;
    if (holdsEndTextAround(text_, marks.letterF)) marks_ |= endTextMark;
    if (!marks.dashes.any()) return;
    const LineBits rules = ruleBegins(marks.dashes);
    if (rules.any()) marks_ = static_cast<std::uint16_t>(marks_ | ruleMark | headerMarks(rules));
}

// No host prints such a long line, but a terminal of its own ways may hand one over.
void DisplayLine::searchMarks() {
    contentEnd_ = static_cast<std::uint32_t>(vantro::rightTrimmed(text_).size());
    contentBegin_ = contentEnd_ - static_cast<std::uint32_t>(vantro::trimmed(text_).size());
    if (holds(text_, mark::prompt)) marks_ |= promptMark;
    if (holds(text_, mark::endOfDisplay)) marks_ |= endTextMark;
    if (holds(text_, sectionRule)) marks_ |= ruleMark;
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (holds(text_, sectionHeaders[section])) marks_ |= headerMark(static_cast<Section>(section));
    }
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

void DisplayLine::lookForMentions() const {
    mentioned_ = fitsBits() ? mentionedIn(text_, blanks_, slashes_) : mentionedIn(text_);
    mentionsKnown_ = true;
}

bool DisplayLine::holdsPrefix(TextView prefix, Column from) const {
    if (!fitsBits()) return holdsFrom(trimmed(), prefix, from);
    const std::size_t letters = prefix.size() - 1;
    const std::size_t firstSlash = contentBegin_ + static_cast<std::size_t>(from.value - 1) + letters;
    for (LineBits slashes = slashes_ & LineBits::from(firstSlash); slashes.any(); slashes.removeLowest()) {
        if (text_.substr(slashes.lowest() - letters).starts_with(prefix)) return true;
    }
    return false;
}

}  // namespace vantro
