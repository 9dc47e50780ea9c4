//   ....+....1....+....2....+....3....+....4
// n ------- DOCUMENTS                              the section's header; line 0 is not searched
//    1 PAS/ 12345678 XX 01JAN30                    the family's first element
//    2      87654321 YY 31DEC28                    the next element of its run: five blanks after the number
//    3 PIV/ VISA 998877                            another family ends the run
//   ------- FOLLOW UP                              the next section
#include "display/rules.h"
#include "readers/extractors.h"

namespace vantro {

namespace {

constexpr TextView indent = u"     ";

/// Where the five blanks begin in an element without a prefix, after a number of one or two digits; Column{0} in any
/// other line.
Column indentColumn(const DisplayLine& line) {
    for (const Column column : {Column{2}, Column{3}}) {
        if (beginsWith(mid(line.trimmed(), column), indent)) return column;
    }
    return Column{0};
}

bool isIndented(const DisplayLine& line) { return indentColumn(line) > Column{0}; }

Column textColumnIn(const DisplayLine& line, Family family) {
    const bool isPrefixed = line.containsPrefix(Prefix(family), PrefixFrom::Column1);
    return (isPrefixed ? find(line.trimmed(), u'/') : indentColumn(line)) + 1;
}

/// Collects the family's first run, which is all that is read. Its lines are not tested for an end mark.
void collectRun(Family family, Display& display, Counter number, FoundElements& found) {
    const Watch& watch = display.watch();
    watch.decided(rule::firstOfRun, number, family);
    for (;;) {
        const DisplayLine& line = display.line(number);
        found.push_back({family, textColumnIn(line, family), line.trimmed()});
        ++number;
        if (!isIndented(display.line(number))) break;
        watch.decided(rule::nextOfRun, number, family);
    }
    watch.decided(rule::runEnds, number, family);
}

/// `families` are those whose runs have not begun.
void sayNotBegun(const Watch& watch, FamilySet families, Counter number) {
    families.forEach([&](Family family) { watch.decided(rule::aboveFirstElement, number, family); });
}

void saySectionEnd(const Watch& watch, const DisplayLine& line, Counter number) {
    const bool isRule = beginsWith(line.trimmed(), documentBoundary);
    watch.decided(isRule                  ? rule::documentsEndAtRule
                  : line.isEndOfDisplay() ? rule::documentsEndAtMark
                                          : rule::documentsEndBelowHeader,
                  number);
}

/// Collects the runs of the families; each begins with the first line after the header that contains the prefix.
FamilySet collectSection(FamilySet families, Display& display, const Display::MarkedLine& header,
                         FoundElements& found) {
    // Meant: after a header line that also contains an end mark, one more line is read.
    bool isLast = header.marks.isEndOfDisplay();
    const Watch& watch = display.watch();
    if (isLast) watch.decided(rule::headerEndsDisplay, header.number);
    Counter number = header.number;
    do {
        ++number;
        if (display.isPastEnd(number) && !isLast) {
            watch.decided(rule::displayHasNoEnd, number);
            return families;
        }
        const DisplayLine& line = display.line(number);
        const FamilySet begun = line.prefixed(families);
        begun.forEach([&](Family family) { collectRun(family, display, number, found); });
        families.remove(begun);
        if (watch) sayNotBegun(watch, families, number);
        isLast = isLast || beginsWith(line.trimmed(), documentBoundary) || line.isEndOfDisplay();
        if (watch && isLast && !families.empty()) saySectionEnd(watch, line, number);
    } while (!isLast && !families.empty());
    return {};
}

}  // namespace

FamilySet extractDocuments(FamilySet families, Joiner& joiner, FoundElements& found) {
    Display& display = joiner.display();
    const Section section = documentFamilies[indexOf(families.first()) - firstDocument].section;
    const std::optional<Display::MarkedLine> header = display.seekHeader(section, Counter(1));
    if (!header) return families;
    if (!header->marks.containsHeader(section)) return {};
    return collectSection(families, display, *header, found);
}

}  // namespace vantro
