#include "profile/line_marks.h"

#include "framework/constants.h"
#include "framework/line_bits.h"
#include "framework/screen.h"
#include "framework/text_ops.h"

#include <array>

namespace vantro {

namespace {

// The end text is looked for around its "F": rare, and far enough from its ends.
constexpr std::size_t placeOfF = mark::endOfDisplay.find(u'F');
static_assert(placeOfF != TextView::npos);

// No mark is without one of these.
constexpr std::array<char16_t, 3> markLetters{u'>', u'-', u'F'};

bool isEndTextAroundF(TextView line, std::size_t place) {
    return place >= placeOfF && line.substr(place - placeOfF).starts_with(mark::endOfDisplay);
}

void addHeaders(LineMarks& marks, TextView fromRule) {
    marks.addRule();
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (fromRule.starts_with(sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
    }
}

// No host prints so long a line, but a terminal of its own ways may hand one over.
LineMarks searchMarks(TextView line) {
    LineMarks marks;
    if (holds(line, mark::prompt)) marks.addPrompt();
    if (holds(line, mark::endOfDisplay)) marks.addEndText();
    if (holds(line, sectionRule)) marks.addRule();
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (holds(line, sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
    }
    return marks;
}

}  // namespace

LineMarks marksOf(TextView line) {
    if (line.size() > LineBits::capacity) return searchMarks(line);
    LineMarks marks;
    for (LineBits places = placesOfAny(line, markLetters[0], markLetters[1], markLetters[2]); places.any();
         places.removeLowest()) {
        const std::size_t place = places.lowest();
        switch (line[place]) {
            case u'>': marks.addPrompt(); break;
            case u'F':
                if (isEndTextAroundF(line, place)) marks.addEndText();
                break;
            default:
                if (const TextView rest = line.substr(place); rest.starts_with(sectionRule)) addHeaders(marks, rest);
        }
    }
    return marks;
}

std::size_t nextLineThatMayBeMarked(TextView display, std::size_t from) {
    return nextLineWithAny(display, screenWidth, from, markLetters[0], markLetters[1], markLetters[2]);
}

}  // namespace vantro
