//   ....+....1....+....2....+....3....+....4
// 0 PDRT/ABC123
// 1 *T* SMITH/JOHN MR ...                  ABC123    record locator: the line's last six characters
// 2 -----------------------------------  NCEVN0900    office: the last nine characters under a mark line
// 3   1 PCN/ ACME TRADING                             company name; continuation lines begin with 14 blanks
// 4   2 NM SMITH/JOHN MR                              name
// 5   3 PIN/ 123456
#include "readers/header_readers.h"

#include "framework/constants.h"

namespace vantro {

namespace {

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
constexpr std::size_t fullLineLength = 64;  // a company-name line of this length broke a word at its end
constexpr Column tagAreaColumn{3};          // numbered lines keep two columns in front of them

TextView companyMarkName(Display& display) {
    for (std::int16_t number = 1; number <= 10; ++number) {
        const TextView line = display.line(Counter(number)).text();
        if (contains(line, mark::companyProfile)) return trimmed(mid(line, companyNameColumn, companyNameWidth));
    }
    return {};
}

TextView lastSix(TextView line) { return trimmed(right(line, recordLocatorWidth)); }

/// Where the first line from `from` on stands that holds the tag, its first two columns aside; nothing at the
/// end of the display. The tag begins with the prefix, so that lines without the one are passed.
std::optional<Counter> seekTag(Display& display, Counter from, Prefix prefix, TextView tag) {
    for (Counter number = from;; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) return std::nullopt;
        const bool mayHoldTag = line.containsPrefix(prefix, PrefixFrom::Column1);
        if (mayHoldTag && contains(trimmed(mid(line.text(), tagAreaColumn)), tag)) return number;
    }
}

/// A line up to and after its first "/".
struct TaggedLine {
    TextView whole;
    Column slash;

    TextView element() const { return trimmed(mid(whole, slash + 1)); }
    TextView number(Width width) const { return trimmed(left(whole, width)); }
};

TaggedLine tagged(TextView line) { return {line, find(line, u"/")}; }

}  // namespace

TextView readName(Display& display) {
    for (std::int16_t number = 1; number <= 20; ++number) {
        const DisplayLine& line = display.line(Counter(number));
        const Column tag = line.findWord(nameTag);
        if (tag == Column{0}) continue;
        const TextView name = trimmed(mid(line.text(), tag + static_cast<int>(nameTag.size())));
        return name.empty() ? companyMarkName(display) : name;
    }
    return companyMarkName(display);
}

TextView readRecordLocator(Display& display) {
    const TextView line = display.line(Counter(1)).trimmed();
    const bool isHostLine = contains(line, u"PF24 REQST UMSG") || contains(line, u"4505");
    if (!line.empty() && !isHostLine) return lastSix(line);
    return lastSix(display.line(Counter(2)).trimmed());
}

TextView readOfficeIdentifier(Display& display) {
    for (std::int16_t number = 1; number <= 6; ++number) {
        const TextView mark = display.screen().textField(display.line(Counter(number)).trimmed(), 1, u" ");
        if (mark != mark::companyProfile && mark != mark::travellerProfile) continue;
        const TextView rule = display.line(Counter(number) + 1).trimmed();
        if (!rule.starts_with(u"-----")) continue;
        const TextView office = trimmed(right(rule, officeWidth));
        return onlyIf(office.size() == static_cast<std::size_t>(officeWidth.value), office);
    }
    return {};
}

namespace {

/// Number, blank and name of the company-name line in one text; the number is "X" when the line has none. Empty
/// when there is no such line.
Text companyNameText(Display& display) {
    // Meant: this reader begins at line 1, the PIN and PSL readers at line 0.
    const std::optional<Counter> place = seekTag(display, Counter(1), Prefix::companyName, companyNameTag);
    if (!place) return {};
    const TextView raw = display.line(*place).text();
    const TaggedLine line = tagged(trimmed(mid(raw, tagAreaColumn)));

    // The first line alone says whether the name broke inside a word. The slash's column, counted without the
    // line's margin, is where the name is cut from its continuation lines, margin and all.
    const TextView separator = onlyIf(rightTrimmed(raw).size() != fullLineLength, u" ");
    Text name(line.element());
    for (Counter below = *place + 1;; ++below) {
        const DisplayLine& continuation = display.expectedLine(below);
        if (!continuation.beginsBlank(continuationIndent)) break;
        name.append(separator).append(trimmed(mid(continuation.text(), line.slash + 1)));
    }
    const TextView number = line.slash > Column{4} ? line.number(lineNumberWidth) : TextView(u"X");
    return Text(trimmed(concat({number, u" ", name})));
}

}  // namespace

CompanyNameLine readCompanyName(Display& display) {
    const Text line = companyNameText(display);
    const TextView number = display.screen().textField(line, 1, u" ");
    // The number counts as one character and a blank, whatever its length.
    CompanyNameLine company{Text(trimmed(mid(line, Column{3}))), std::nullopt};
    if (number != u"X") company.number = number;
    return company;
}

NumberedText readPin(Display& display) {
    const std::optional<Counter> place = seekTag(display, Counter(0), Prefix::pin, pinPrefix);
    if (!place) return {};
    const TaggedLine line = tagged(trimmed(mid(display.line(*place).text(), tagAreaColumn)));
    return {onlyIf(line.slash >= Column{5}, line.number(lineNumberWidth)), line.element()};
}

std::optional<NumberedText> readPsl(Display& display) {
    if (display.text().empty()) return std::nullopt;
    for (Counter number;; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) return std::nullopt;
        if (!line.containsPrefix(Prefix::psl, PrefixFrom::Column1)) continue;
        const TaggedLine element = tagged(line.rightTrimmed());  // this line keeps its front, number area and all
        return NumberedText{element.number(pslNumberWidth), element.element()};
    }
}

}  // namespace vantro
