// What a line contains. Each fact is found in two ways, which follow each other here: from the line's bits, and by
// plain search for a line of more than 128 characters. No host prints such a line, but a terminal may return one.
#include "display/display_line.h"

#include "display/line_look.h"
#include "framework/constants.h"
#include "framework/screen.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>

namespace vantro {

// Where the text begins and ends.

namespace {

using Content = LineFacts::Content;

Content contentOf(LineBits blanks) {
    const LineBits characters = ~blanks;
    return {static_cast<std::uint32_t>(std::min(characters.lowest(), characters.end())),
            static_cast<std::uint32_t>(characters.end())};
}

Content contentOf(TextView line) {
    const auto end = static_cast<std::uint32_t>(rightTrimmed(line).size());
    return {end - static_cast<std::uint32_t>(trimmed(line).size()), end};
}

}  // namespace

// Marks.

namespace {

template <std::size_t Length>
bool mayContainMark(const char16_t* text) {
    return LineCharacters<Length>(text).any(pairsInMarks);
}

/// Compares the last letter first, because all headers begin alike.
bool beginsWithHeader(TextView text, TextView header) {
    return text.size() >= header.size() && text[header.size() - 1] == header.back() && beginsWith(text, header);
}

void addHeaders(LineMarks& marks, TextView line, LineBits hyphens) {
    // A header has a blank after its seven hyphens: in a longer run only the last seven can begin one.
    constexpr auto ruleLength = static_cast<unsigned>(sectionRule.size());
    static_assert(sectionRule.find_first_not_of(u'-') == TextView::npos);
    for (LineBits rules = hyphens.runs(ruleLength) & ~hyphens.down(ruleLength); rules.any(); rules.removeLowest()) {
        marks.addRule();
        const TextView fromRule = line.substr(rules.lowest());
        for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
            if (beginsWithHeader(fromRule, sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
        }
    }
}

/// Tests for the end text around its "F", the rarest of its letters.
bool isEndTextAroundF(TextView line, std::size_t position) {
    constexpr std::size_t lettersBefore = mark::endOfDisplay.find(u'F');
    static_assert(lettersBefore != TextView::npos);
    return position >= lettersBefore && beginsWith(line.substr(position - lettersBefore), mark::endOfDisplay);
}

template <class Characters>
LineMarks marksByBits(TextView line, const Characters& characters) {
    LineMarks marks;
    if (characters.any([](Bytes bytes) { return bytes.equal('>'); })) marks.addPrompt();
    if (characters.any([](Bytes bytes) { return anyPair(bytes, rulePairs); })) {
        addHeaders(marks, line, characters.where('-'));
    }
    for (LineBits letters = characters.where('F'); letters.any(); letters.removeLowest()) {
        if (isEndTextAroundF(line, letters.lowest())) marks.addEndText();
    }
    return marks;
}

LineMarks marksBySearch(TextView line) {
    LineMarks marks;
    if (contains(line, mark::prompt)) marks.addPrompt();
    if (contains(line, sectionRule)) marks.addRule();
    for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
        if (contains(line, sectionHeaders[section])) marks.addHeader(static_cast<Section>(section));
    }
    if (contains(line, mark::endOfDisplay)) marks.addEndText();
    return marks;
}

}  // namespace

std::size_t nextLineThatMayContainMark(TextView display, std::size_t from) {
    const std::size_t wholeLines = display.size() / screenWidth;
    std::size_t line = from;
    while (line < wholeLines && !mayContainMark<screenWidth>(display.data() + line * screenWidth)) ++line;
    return line;
}

namespace {

/// True when the text begins at a position, which may be outside the line.
bool containsAt(TextView line, std::size_t position, TextView text) {
    return position < line.size() && beginsWithHeader(line.substr(position), text);
}

/// True when the first match of the pre-filter belongs to the header or ends the display.
bool isHeaderOrEndAt(TextView line, LineBits matches, TextView header) {
    constexpr std::size_t endPair = mark::endOfDisplay.find(endTextPairs[0]);
    static_assert(mark::endOfDisplay.find(endTextPairs[1]) == endPair + 1);
    const std::size_t position = matches.lowest();
    switch (line[position]) {
        case u'>': return true;
        case u'-':
            // The last pair in a rule contains its last hyphen but one, whichever column the rule begins in.
            return !matches.contains(position + 2) && containsAt(line, position - (sectionRule.size() - 2), header);
        case u'S': return containsAt(line, position - endPair, mark::endOfDisplay);
        case u'P': return containsAt(line, position - (endPair + 1), mark::endOfDisplay);
    }
    return false;
}

}  // namespace

std::size_t nextLineWithHeaderOrEnd(Section section, TextView display, std::size_t from) {
    const TextView header = sectionHeaders[indexOf(section)];
    const std::size_t wholeLines = display.size() / screenWidth;
    std::size_t number = from;
    for (; number < wholeLines; ++number) {
        const TextView line(display.data() + number * screenWidth, screenWidth);
        prefetchAhead(line.data(), wholeLines - number - 1);
        const LineCharacters<screenWidth> characters(line.data());
        if (!characters.any(pairsInMarks)) continue;
        for (LineBits matches = characters.matches(pairsInMarks); matches.any(); matches.removeLowest()) {
            if (isHeaderOrEndAt(line, matches, header)) return number;
        }
    }
    return number;
}

LineMarks marksOf(TextView line) {
    return withCharacters(line, [&](const auto& characters) { return marksByBits(line, characters); });
}

// Prefixes.

namespace {

LinePrefixes prefixesIn(TextView line) {
    LinePrefixes found;
    forEachPrefix([&, content = trimmed(line)](TextView text, Prefix prefix) {
        if (contains(content, text)) found.anywhere.add(prefix);
        if (containsFrom(content, text, column3)) found.fromColumn3.add(prefix);
    });
    return found;
}

}  // namespace

// The line as a whole.

namespace {

/// `characters` are those of the line, padded to `Length`.
template <std::size_t Length>
LineFacts factsByBits(TextView line, const char16_t* characters) {
    const auto [blanks, slashes, mayContainMark] = look<Length>(characters);
    const LineFacts::Content content = contentOf(blanks);
    return {.blanks = blanks,
            .content = content,
            .marks = mayContainMark ? marksOf(line) : LineMarks(),
            .prefixes = slashes.any() ? prefixesIn(line, slashes, content.begin) : LinePrefixes()};
}

LineFacts factsOf(TextView line) {
    if (line.size() <= LineBits::capacity) return factsByBits<LineBits::capacity>(line, padded(line).data());
    return {.content = contentOf(line), .marks = marksBySearch(line), .prefixes = prefixesIn(line)};
}

}  // namespace

DisplayLine::DisplayLine(TextView text) : text_(text), facts_(factsOf(text)) {}

DisplayLine::DisplayLine(const char16_t* characters)
    : text_(characters, screenWidth), facts_(factsByBits<screenWidth>(text_, characters)) {}

std::size_t makeLines(const char16_t* text, std::size_t count, DisplayLine* lines) {
    for (std::size_t made = 0; made < count; ++made) {
        void* const memory = &lines[made];
        const DisplayLine& line = *::new (memory) DisplayLine(text + made * screenWidth);  // Not covered: never null
        if (line.marks().any()) return made + 1;
    }
    return count;
}

// Words and blanks.

Column DisplayLine::findWord(TextView word) const {
    if (!fitsBits()) return find(text_, word);
    const auto letters = static_cast<unsigned>(word.size() - 2);
    for (LineBits words = facts_.blanks.beforeWords(letters); words.any(); words.removeLowest()) {
        if (beginsWith(text_.substr(words.lowest()), word)) return Column{static_cast<int>(words.lowest()) + 1};
    }
    return Column{0};
}

bool DisplayLine::isBlankInText(Column column, Width width) const {
    return vantro::isBlank(mid(trimmed(), column, width));
}

// Codes of the transferable families.

namespace {

constexpr Column contactCodeColumn{12};
constexpr Column codeSearchColumn{13};
constexpr std::size_t shortestCode = 4;

static_assert(std::ranges::all_of(transferableFamilies, [](const TransferableFamily& row) {
    const bool isWord = row.code.front() == u' ' && row.code.back() == u' ';
    const bool isShort = row.code.size() == 4 || row.code.size() == 5;
    return row.test == CodeTest::AtColumn12 || (isWord && isShort);
}));

constexpr const TransferableFamily& contact =
    *std::ranges::find(transferableFamilies, CodeTest::AtColumn12, &TransferableFamily::test);
static_assert(std::ranges::count(transferableFamilies, contact.test, &TransferableFamily::test) == 1);

FamilySet fixedCodesIn(TextView text) {
    FamilySet set;
    if (beginsWith(mid(text, contactCodeColumn), contact.code)) set.add(contact.family);
    return set;
}

/// The families that are searched, by the two letters after the blank of their codes, which are unique.
class CodeTable {
public:
    constexpr CodeTable() {
        for (const TransferableFamily& row : transferableFamilies) {
            if (row.test == CodeTest::FromColumn13) rows_[indexFor(row.code)] = &row;
        }
    }

    /// The family of the word that begins after the text's first character; the text has four characters or more.
    FamilySet find(TextView text) const {
        const TransferableFamily* const row = rows_[indexFor(text)];
        if (row == nullptr || !beginsWith(text, row->code.substr(0, shortestCode))) return {};
        return FamilySet(row->family).onlyIf(beginsWith(text.substr(shortestCode), row->code.substr(shortestCode)));
    }

    static constexpr std::size_t indexFor(TextView text) { return (text[1] & 31U) << 5 | (text[2] & 31U); }

private:
    static constexpr std::size_t letters = 32;

    std::array<const TransferableFamily*, letters * letters> rows_{};
};

constexpr CodeTable codeTable;

FamilySet codesBySearch(TextView text) {
    FamilySet set = fixedCodesIn(text);
    for (const TransferableFamily& row : transferableFamilies) {
        const bool isSearched = row.test == CodeTest::FromColumn13;
        if (isSearched && containsFrom(text, row.code, codeSearchColumn)) set.add(row.family);
    }
    return set;
}

}  // namespace

FamilySet codesIn(TextView text, LineBits blanks) {
    FamilySet set = fixedCodesIn(text);
    const LineBits searched = LineBits::from(static_cast<std::size_t>(codeSearchColumn.value - 1));
    for (LineBits words = blanks.beforeWords(2) & searched; words.any(); words.removeLowest()) {
        const TextView word = text.substr(words.lowest());
        if (word.size() >= shortestCode) set.add(codeTable.find(word));
    }
    return set;
}

FamilySet DisplayLine::codes() const {
    return fitsBits() ? codesIn(rightTrimmed(), facts_.blanks) : codesBySearch(rightTrimmed());
}

FamilySet codesIn(TextView text) {
    if (text.size() > LineBits::capacity) return codesBySearch(text);
    return withCharacters(text, [&](const auto& characters) { return codesIn(text, characters.blanks()); });
}

}  // namespace vantro
