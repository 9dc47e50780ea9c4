//   ....+....1....+....2....+....3....+....4
// n ------- DOCUMENTS                              header, never on line 0
//    1 PAS/ 12345678 XX 01JAN30                    the family's first element
//    2      87654321 YY 31DEC28                    an element of the run: five blanks after its number
//    3 PIV/ VISA 998877                            another family ends the run
//   ------- FOLLOW UP                              the next section
#include "profile/display_lines.h"
#include "profile/extractors.h"

namespace vantro {

namespace {

constexpr Width numberWidth{2};
constexpr TextView indent = u"     ";
constexpr Width indentWidth{5};

/// An unprefixed line under an element with a one-digit or a two-digit number.
bool isIndented(TextView trimmedLine) {
    return mid(trimmedLine, Column{2}, indentWidth) == indent || mid(trimmedLine, Column{3}, indentWidth) == indent;
}

TextView elementText(TextView line, TextView prefix) {
    const TextView before = holds(line, prefix) ? TextView(u"/") : indent;
    return trimmed(mid(line, find(line, before) + 1));
}

/// Only the first run of the family counts; its lines are not tested for an end.
std::int16_t collectRun(const DocumentFamily& row, Screen& display, Counter number, ElementSink& sink) {
    Counter count;
    TextView line = trimmed(display.line(number));
    do {
        ++count;
        sink.store(count.value(), {.number = trimmed(left(line, numberWidth)), .text = elementText(line, row.prefix)});
        ++number;
        line = trimmed(display.line(number));
    } while (isIndented(line));
    return count.value();
}

/// The section under its header: the run under the first line with the prefix, or nothing at the section's end.
std::int16_t collectSection(const DocumentFamily& row, Screen& display, Counter number, ElementSink& sink) {
    // Meant: a header line that holds an end mark too still has the one line under it looked at.
    bool isLast = isEndOfDisplay(display.line(number));
    do {
        ++number;
        const TextView line = trimmed(display.line(number));
        if (holds(line, row.prefix)) return collectRun(row, display, number, sink);
        isLast = isLast || line.starts_with(u"-----") || isEndOfDisplay(line);
    } while (!isLast);
    return 0;
}

}  // namespace

std::int16_t extract(const DocumentFamily& row, Screen& display, ElementSink& sink) {
    for (Counter number(1);; ++number) {
        const TextView line = display.line(number);
        if (holds(line, row.header)) return collectSection(row, display, number, sink);
        if (isEndOfDisplay(line)) return 0;
    }
}

std::int16_t extract(Family family, Screen& display, ElementSink& sink) {
    const std::size_t index = indexOf(family);
    if (index < firstTransferable) return extract(prefixedFamilies[index], display, sink);
    if (index < firstDocument) return extract(transferableFamilies[index - firstTransferable], display, sink);
    return extract(documentFamilies[index - firstDocument], display, sink);
}

}  // namespace vantro
