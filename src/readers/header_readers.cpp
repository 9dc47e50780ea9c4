//   ....+....1....+....2....+....3....+....4
// 0 PDRT/ABC123
// 1 *T* SMITH/JOHN MR ...                  ABC123    record locator: the last six characters
// 2 -----------------------------------  NCEVN0900    office: the last nine characters of the line after the mark
// 3   1 PCN/ ACME TRADING                             company name; its continuation lines begin with 14 blanks
// 4   2 NM SMITH/JOHN MR                              name
// 5   3 PIN/ 123456
#include "readers/header_readers.h"

#include "framework/constants.h"

namespace vantro {

namespace {

constexpr TextView blank = u" ";
constexpr TextView rule = u"-----";
constexpr TextView nameTag = u" NM ";
constexpr TextView companyNameTag = u"PCN/ ";
static_assert(companyNameTag.starts_with(companyNamePrefix));
constexpr Width companyNameWidth{35};
constexpr Column companyNameColumn{4};
constexpr Width recordLocatorWidth{6};
constexpr Width officeWidth{9};
constexpr Width lineNumberWidth{2};
constexpr Width pslNumberWidth{9};
constexpr Width continuationIndent{14};
constexpr std::size_t fullLineLength = 64;  // a company-name line of this length breaks inside a word
constexpr Column tagAreaColumn{3};          // every line has a margin of two columns

TextView companyMarkName(Display& display) {
    for (std::int16_t number = 1; number <= 10; ++number) {
        const TextView line = display.line(Counter(number)).rightTrimmed();
        if (contains(line, mark::companyProfile)) return trimmed(mid(line, companyNameColumn, companyNameWidth));
    }
    return {};
}

TextView lastSix(TextView line) { return trimmed(right(line, recordLocatorWidth)); }

/// The first line from `from` on that contains the tag from column 3 on; nothing when the search ends first. The tag
/// begins with the prefix, so that lines without the prefix need no search.
std::optional<Counter> seekTag(Display& display, Counter from, SearchEnd end, Prefix prefix, TextView tag) {
    for (Counter number = from; number != end; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) return std::nullopt;
        const bool mayContainTag = line.containsPrefix(prefix, PrefixFrom::Column1);
        if (mayContainTag && contains(trimmed(mid(line.rightTrimmed(), tagAreaColumn)), tag)) return number;
    }
    return std::nullopt;
}

/// A line and the column of its first "/".
struct TaggedLine {
    TextView whole;
    Column slash;

    TextView element() const { return trimmed(mid(whole, slash + 1)); }
    TextView number(Width width) const { return trimmed(left(whole, width)); }
};

TaggedLine tagged(TextView line) { return {line, find(line, u'/')}; }

}  // namespace

TextView readName(Display& display) {
    for (std::int16_t number = 1; number <= 20; ++number) {
        const DisplayLine& line = display.line(Counter(number));
        const Column tag = line.findWord(nameTag);
        if (tag == Column{0}) continue;
        const TextView name = trimmed(mid(line.rightTrimmed(), tag + static_cast<int>(nameTag.size())));
        return name.empty() ? companyMarkName(display) : name;
    }
    return companyMarkName(display);
}

TextView readRecordLocator(Display& display) {
    const TextView line = display.line(Counter(1)).trimmed();
    // Meant: a host line is recognised by these texts anywhere in it, for all queries by the texts that begin it.
    const bool isHostLine = contains(line, u"PF24 REQST UMSG") || contains(line, u"4505");
    if (!line.empty() && !isHostLine) return lastSix(line);
    return lastSix(display.line(Counter(2)).trimmed());
}

TextView readOfficeIdentifier(Display& display) {
    for (std::int16_t number = 1; number <= 6; ++number) {
        const TextView mark = display.screen().textField(display.line(Counter(number)).trimmed(), 1, blank);
        if (mark != mark::companyProfile && mark != mark::travellerProfile) continue;
        const TextView below = display.line(Counter(number) + 1).trimmed();
        if (!beginsWith(below, rule)) continue;
        const TextView office = trimmed(right(below, officeWidth));
        return onlyIf(office.size() == static_cast<std::size_t>(officeWidth.value), office);
    }
    return {};
}

namespace {

/// The company-name line as one text: number, blank, name. The number is "X" when the line has none. Empty when there
/// is no such line.
Text companyNameText(Display& display, SearchEnd end) {
    // Meant: this reader begins at line 1, the PIN and PSL readers at line 0.
    const std::optional<Counter> first = seekTag(display, Counter(1), end, Prefix::companyName, companyNameTag);
    if (!first) return {};
    const TextView raw = display.line(*first).rightTrimmed();
    const TaggedLine line = tagged(trimmed(mid(raw, tagAreaColumn)));

    // Only the first line's length says whether the name breaks inside a word. The slash's column is counted without
    // the margin, but applied to the continuation lines with their margin.
    const TextView separator = onlyIf(raw.size() != fullLineLength, u" ");
    Text name(line.element());
    for (Counter below = *first + 1;; ++below) {
        const DisplayLine& continuation = display.expectedLine(below);
        if (!continuation.beginsBlank(continuationIndent)) break;
        name.append(separator).append(trimmed(mid(continuation.rightTrimmed(), line.slash + 1)));
    }
    const TextView number = line.slash > Column{4} ? line.number(lineNumberWidth) : TextView(u"X");
    return Text(trimmed(concat({number, u" ", name})));
}

}  // namespace

CompanyNameLine readCompanyName(Display& display, SearchEnd end) {
    const Text line = companyNameText(display, end);
    const TextView number = display.screen().textField(line, 1, blank);
    // Cut from column 3, as if the number were always one character and a blank.
    CompanyNameLine company{Text(trimmed(mid(line, Column{3}))), std::nullopt};
    if (number != u"X") company.number = number;
    return company;
}

NumberedText readPin(Display& display, SearchEnd end) {
    const std::optional<Counter> found = seekTag(display, Counter(0), end, Prefix::pin, pinPrefix);
    if (!found) return {};
    const TaggedLine line = tagged(trimmed(mid(display.line(*found).rightTrimmed(), tagAreaColumn)));
    return {onlyIf(line.slash >= Column{5}, line.number(lineNumberWidth)), line.element()};
}

std::optional<NumberedText> readPsl(Display& display, SearchEnd end) {
    if (display.text().empty()) return std::nullopt;
    for (Counter number; number != end; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) return std::nullopt;
        if (!line.containsPrefix(Prefix::psl, PrefixFrom::Column1)) continue;
        const TaggedLine element = tagged(line.rightTrimmed());  // with its margin, unlike the other lines
        return NumberedText{element.number(pslNumberWidth), element.element()};
    }
    return std::nullopt;
}

}  // namespace vantro
