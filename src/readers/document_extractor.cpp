//   ....+....1....+....2....+....3....+....4
// n ------- DOCUMENTS                              the section's header; line 0 is not searched
//    1 PAS/ 12345678 XX 01JAN30                    the family's first element
//    2      87654321 YY 31DEC28                    the next element of its run: five blanks after the number
//    3 PIV/ VISA 998877                            another family ends the run
//   ------- FOLLOW UP                              the next section
#include "readers/extractors.h"

namespace vantro {

namespace {

constexpr Field numberField{Column{1}, Width{2}};
constexpr TextView indent = u"     ";
constexpr Width indentWidth{5};

/// An element without a prefix: five blanks after a number of one or two digits.
bool isIndented(TextView trimmedLine) {
    return mid(trimmedLine, Column{2}, indentWidth) == indent || mid(trimmedLine, Column{3}, indentWidth) == indent;
}

TextView elementText(const DocumentFamily& row, const DisplayLine& line) {
    const TextView before = line.containsPrefix(Prefix(row.family), PrefixFrom::Column1) ? TextView(u"/") : indent;
    return cut(line.trimmed(), {find(line.trimmed(), before) + 1});
}

/// Stores the family's first run, which is all that is read. Its lines are not tested for an end mark.
std::int16_t collectRun(const DocumentFamily& row, Display& display, Counter number, ElementSink& sink) {
    Counter count;
    do {
        const DisplayLine& line = display.line(number);
        ++count;
        sink.store(row.family, count.value(),
                   {.number = cut(line.trimmed(), numberField), .text = elementText(row, line)});
        ++number;
    } while (isIndented(display.line(number).trimmed()));
    return count.value();
}

/// Stores the run that begins with the first prefixed line after the header. Returns 0 when the section ends first.
std::int16_t collectSection(const DocumentFamily& row, Display& display, const Display::MarkedLine& header,
                            ElementSink& sink) {
    // Meant: after a header line that also contains an end mark, one more line is read.
    bool isLast = header.marks.isEndOfDisplay();
    Counter number = header.number;
    do {
        ++number;
        const DisplayLine& line = isLast ? display.line(number) : display.expectedLine(number);
        if (line.containsPrefix(Prefix(row.family), PrefixFrom::Column1)) return collectRun(row, display, number, sink);
        isLast = isLast || line.trimmed().starts_with(u"-----") || line.isEndOfDisplay();
    } while (!isLast);
    return 0;
}

}  // namespace

std::int16_t extract(const DocumentFamily& row, Joiner& joiner, ElementSink& sink) {
    Display& display = joiner.display();
    const Display::MarkedLine header = display.nextHeaderOrEnd(row.section, Counter(1));
    if (!header.marks.containsHeader(row.section)) return 0;
    return collectSection(row, display, header, sink);
}

std::int16_t extract(Family family, Joiner& joiner, ElementSink& sink) {
    return withRow(family, [&](const auto& row) { return extract(row, joiner, sink); });
}

}  // namespace vantro
