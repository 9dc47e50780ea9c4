//   ....+....1....+....2....+....3....+....4
// 0 PDRT/ABC123
// 1 *T* SMITH/JOHN MR ...                  ABC123    record locator: the last six characters
// 2 -----------------------------------  NCEVN0900    office: the last nine characters of the line after the mark
// 3   1 PCN/ ACME TRADING                             company name; its continuation lines begin with 14 blanks
// 4   2 NM SMITH/JOHN MR                              name
// 5   3 PIN/ 123456
#include "readers/header_readers.h"

#include "display/rules.h"
#include "framework/constants.h"

namespace vantro {

namespace {

constexpr TextView blank = u" ";
constexpr TextView officeRule = u"-----";
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
constexpr TextView noNumber = u"X";
constexpr std::size_t fullLineLength = 64;  // a company-name line of this length breaks inside a word
constexpr Column tagAreaColumn{3};          // every line has a margin of two columns

Width widthOf(TextView mark) { return Width{static_cast<int>(mark.size())}; }

TextView companyMarkName(Display& display) {
    constexpr std::int16_t last = 10;
    const Watch& watch = display.watch();
    for (std::int16_t number = 1; number <= last; ++number) {
        const TextView line = display.line(Counter(number)).rightTrimmed();
        const Column found = find(line, mark::companyProfile);
        if (found == Column{0}) continue;
        watch.searched(mark::companyProfile, MarkSearch::InLine, 1, number,
                       mid(line, found, widthOf(mark::companyProfile)));
        watch.decided(rule::companyFound, Counter(number));
        return trimmed(mid(line, companyNameColumn, companyNameWidth));
    }
    watch.searched(mark::companyProfile, MarkSearch::InLine, 1, last, {});
    return {};
}

/// The name after its mark; empty without the mark or the name.
TextView nameAfterTag(Display& display) {
    constexpr std::int16_t last = 20;
    const Watch& watch = display.watch();
    for (std::int16_t number = 1; number <= last; ++number) {
        const DisplayLine& line = display.line(Counter(number));
        const Column tag = line.findWord(nameTag);
        if (tag == Column{0}) continue;
        const TextView name = trimmed(mid(line.rightTrimmed(), tag + static_cast<int>(nameTag.size())));
        watch.searched(nameTag, MarkSearch::InLine, 1, number, mid(line.text(), tag, widthOf(nameTag)));
        watch.decided(name.empty() ? rule::nameEmpty : rule::nameFound, Counter(number));
        return name;
    }
    watch.searched(nameTag, MarkSearch::InLine, 1, last, {});
    return {};
}

TextView locatorIn(Display& display) {
    const Watch& watch = display.watch();
    const TextView line = display.line(Counter(1)).trimmed();
    // Meant: a host line is recognised by these texts anywhere in it, for all queries by the texts that begin it.
    const bool isHostLine = contains(line, u"PF24 REQST UMSG") || contains(line, u"4505");
    const bool isBelow = line.empty() || isHostLine;
    if (isBelow) watch.decided(isHostLine ? rule::locatorBelowHostLine : rule::locatorBelowEmptyLine, Counter(1));
    const Counter number(isBelow ? 2 : 1);
    watch.decided(rule::locatorAtEnd, number);
    return trimmed(right(display.line(number).trimmed(), recordLocatorWidth));
}

/// The identifier in the line below a mark; nothing if that line is no rule.
std::optional<TextView> officeIn(Display& display, Counter number) {
    const Watch& watch = display.watch();
    const TextView line = display.line(number).trimmed();
    if (!beginsWith(line, officeRule)) {
        watch.decided(rule::officeWithoutRule, number);
        return std::nullopt;
    }
    const TextView office = trimmed(right(line, officeWidth));
    const bool isWhole = office.size() == static_cast<std::size_t>(officeWidth.value);
    watch.decided(isWhole ? rule::officeAtEnd : rule::officeTooShort, number);
    return onlyIf(isWhole, office);
}

TextView officeBelowMark(Display& display) {
    const Watch& watch = display.watch();
    for (std::int16_t number = 1; number <= 6; ++number) {
        const TextView mark = display.screen().textField(display.line(Counter(number)).trimmed(), 1, blank);
        if (mark != mark::companyProfile && mark != mark::travellerProfile) continue;
        watch.decided(rule::officeMark, Counter(number));
        if (const std::optional<TextView> office = officeIn(display, Counter(number) + 1)) return *office;
    }
    watch.decided(rule::officeMarkMissing);
    return {};
}

void sayTagFound(const Watch& watch, TextView tag, Counter from, Counter number) {
    watch.searched(tag, MarkSearch::InLine, from.value(), number.value(), tag);
    watch.decided(rule::tagFound, number);
}

/// The lines from `from` on and above `number` do not contain the tag; the rule decides about line `number`.
void sayTagMissing(const Watch& watch, TextView tag, Counter from, Counter number, const ReadingRule& decision) {
    if (number > from) watch.searched(tag, MarkSearch::InLine, from.value(), number.value() - 1, {});
    watch.decided(decision, number);
}

/// The first line from `from` on that contains the tag from column 3 on; nothing when the search ends first. The tag
/// begins with the prefix, so that lines without the prefix need no search.
std::optional<Counter> seekTag(Display& display, Counter from, SearchEnd end, Prefix prefix, TextView tag) {
    for (Counter number = from; number != end; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) {
            sayTagMissing(display.watch(), tag, from, number, rule::tagSearchEnds);
            return std::nullopt;
        }
        if (!line.containsPrefix(prefix, PrefixFrom::Column1)) continue;
        const TextView area = trimmed(mid(line.rightTrimmed(), tagAreaColumn));
        const Column found = find(area, tag);
        if (found > Column{0}) {
            sayTagFound(display.watch(), mid(area, found, widthOf(tag)), from, number);
            return number;
        }
        sayTagMissing(display.watch(), tag, from, number,
                      contains(area, trimmed(tag)) ? rule::tagWithoutName : rule::tagInMargin);
        from = number + 1;
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

void sayRead(const Watch& watch, const NumberedText& line) {
    watch.read(u"number", line.number);
    watch.read(u"text", line.text);
}

}  // namespace

TextView readName(Display& display) {
    TextView name = nameAfterTag(display);
    if (name.empty()) name = companyMarkName(display);
    display.watch().read(u"name", name);
    return name;
}

TextView readRecordLocator(Display& display) {
    const TextView locator = locatorIn(display);
    display.watch().read(u"recordLocator", locator);
    return locator;
}

TextView readOfficeIdentifier(Display& display) {
    const TextView office = officeBelowMark(display);
    display.watch().read(u"officeIdentifier", office);
    return office;
}

namespace {

/// The company-name line as one text: number, blank, name. The number is "X" when the line has none. Empty when there
/// is no such line.
JoinedText companyNameText(Display& display, SearchEnd end) {
    // Meant: this reader begins at line 1, the PIN and PSL readers at line 0.
    const std::optional<Counter> first = seekTag(display, Counter(1), end, Prefix::companyName, companyNameTag);
    if (!first) return JoinedText(display.watch());
    const TextView raw = display.line(*first).rightTrimmed();
    const TaggedLine line = tagged(trimmed(mid(raw, tagAreaColumn)));

    const Watch& watch = display.watch();
    JoinedText text(watch);
    if (line.slash > Column{4}) {
        text.append(line.number(lineNumberWidth));
    } else {
        text.insert(noNumber);
        watch.decided(rule::numberMissing, *first);
    }
    text.insert(blank);
    text.append(line.element());
    // Only the first line's length says whether the name breaks inside a word. The slash's column is counted without
    // the margin, but applied to the continuation lines with their margin.
    const bool isFull = raw.size() == fullLineLength;
    for (Counter below = *first + 1;; ++below) {
        const DisplayLine& continuation = display.expectedLine(below);
        if (!continuation.beginsBlank(continuationIndent)) break;
        watch.decided(isFull ? rule::nameContinuesWord : rule::nameContinues, below);
        if (!isFull) text.insert(blank);
        text.append(trimmed(mid(continuation.rightTrimmed(), line.slash + 1)));
    }
    text.trim();
    return text;
}

}  // namespace

CompanyNameLine::CompanyNameLine(Display& display, SearchEnd end) : line_(companyNameText(display, end)) {
    const TextView number = display.screen().textField(line_.text(), 1, blank);
    // Cut from column 3, as if the number were always one character and a blank.
    name_ = trimmed(mid(line_.view(), Column{3}));
    display.watch().read(u"text", name_);
    if (number == noNumber) return;
    number_ = number;
    display.watch().read(u"number", number);
}

NumberedText readPin(Display& display, SearchEnd end) {
    const std::optional<Counter> found = seekTag(display, Counter(0), end, Prefix::pin, pinPrefix);
    if (!found) return {};
    const TaggedLine line = tagged(trimmed(mid(display.line(*found).rightTrimmed(), tagAreaColumn)));
    if (line.slash < Column{5}) display.watch().decided(rule::numberMissing, *found);
    const NumberedText pin{onlyIf(line.slash >= Column{5}, line.number(lineNumberWidth)), line.element()};
    sayRead(display.watch(), pin);
    return pin;
}

std::optional<NumberedText> readPsl(Display& display, SearchEnd end) {
    const Watch& watch = display.watch();
    if (display.text().empty()) {
        watch.decided(rule::displayIsEmpty);
        return std::nullopt;
    }
    for (Counter number; number != end; ++number) {
        const DisplayLine& line = display.expectedLine(number);
        if (line.isEndOfDisplay()) {
            sayTagMissing(watch, pslPrefix, Counter(0), number, rule::tagSearchEnds);
            return std::nullopt;
        }
        if (!line.containsPrefix(Prefix::psl, PrefixFrom::Column1)) continue;
        const TaggedLine element = tagged(line.rightTrimmed());  // with its margin, unlike the other lines
        sayTagFound(watch, mid(element.whole, find(element.whole, pslPrefix), widthOf(pslPrefix)), Counter(0), number);
        const NumberedText psl{element.number(pslNumberWidth), element.element()};
        sayRead(watch, psl);
        return psl;
    }
    return std::nullopt;
}

}  // namespace vantro
