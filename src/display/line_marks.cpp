#include "display/line_marks.h"

#include "display/line_groups.h"
#include "display/mark_signs.h"
#include "framework/constants.h"
#include "framework/text_ops.h"

namespace vantro {

namespace {

// The end text is looked for around its "F": rare, and far enough from its ends.
constexpr std::size_t placeOfF = mark::endOfDisplay.find(u'F');
static_assert(mark::endOfDisplay.substr(placeOfF - 1, 3) == u"OF ");

bool isEndTextAroundF(TextView line, std::size_t place) {
    // Its neighbour is looked at first: few that stand behind an "O" belong to anything else.
    return place >= placeOfF && line[place - 1] == u'O' &&
           beginsWith(line.substr(place - placeOfF), mark::endOfDisplay);
}

/// The headers begin alike: their last letters tell them apart sooner.
bool beginsWithHeader(TextView text, TextView header) {
    return text.size() >= header.size() && text[header.size() - 1] == header.back() && beginsWith(text, header);
}

void addHeaders(LineMarks& marks, TextView fromRule) {
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (beginsWithHeader(fromRule, sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
    }
}

void addRules(LineMarks& marks, TextView line, LineBits hyphens) {
    for (LineBits rules = hyphens.runs(sectionRule.size()); rules.any(); rules.removeLowest()) {
        marks.addRule();
        addHeaders(marks, line.substr(rules.lowest()));
    }
}

// No host prints so long a line, but a terminal of its own ways may hand one over.
LineMarks searchMarks(TextView line) {
    LineMarks marks;
    if (contains(line, mark::prompt)) marks.addPrompt();
    if (contains(line, mark::endOfDisplay)) marks.addEndText();
    if (contains(line, sectionRule)) marks.addRule();
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (contains(line, sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
    }
    return marks;
}

}  // namespace

LineMarks marksOf(TextView line) {
    if (line.size() > LineBits::capacity) return searchMarks(line);
    LineMarks marks;
    lookAtGroups(line, [&](const auto& groups) {
        if (groups.contains(u'>')) marks.addPrompt();
        if (groups.contains(u'-')) addRules(marks, line, groups.where(u'-'));
        for (LineBits letters = groups.where(u'F'); letters.any(); letters.removeLowest()) {
            if (isEndTextAroundF(line, letters.lowest())) marks.addEndText();
        }
    });
    return marks;
}

std::size_t nextLineThatMayBeMarked(TextView display, std::size_t from) {
    const std::size_t wholeLines = display.size() / screenWidth;
    std::size_t line = from;
    while (line < wholeLines && !mayBeMarked(DisplayLineGroups(display.data() + line * screenWidth))) ++line;
    return line;
}

}  // namespace vantro
