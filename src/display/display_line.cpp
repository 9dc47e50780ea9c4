// What a line contains. Each fact is found in two ways, which follow each other here: from the line's bits, and by
// plain search for a line of more than 128 characters. No host prints such a line, but a terminal may return one.
#include "display/display_line.h"

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

// Pre-filter: every mark is the prompt or contains one of these pairs at an even position of the line, whatever column
// the mark begins in.
constexpr std::array<TextView, 1> rulePairs{u"--"};
constexpr std::array<TextView, 2> endTextPairs{u"SP", u"PL"};

template <std::size_t N>
constexpr bool passes(TextView mark, const std::array<TextView, N>& pairs) {
    bool passesAt[2] = {false, false};  // if the mark begins at an even, at an odd position
    for (std::size_t at = 0; at + 2 <= mark.size(); ++at) {
        if (std::ranges::find(pairs, mark.substr(at, 2)) != pairs.end()) passesAt[at % 2] = true;
    }
    return passesAt[0] && passesAt[1];
}

static_assert(mark::prompt == u">");
static_assert(passes(mark::endOfDisplay, endTextPairs));
static_assert(passes(sectionRule, rulePairs), "headers begin with the rule, so they pass too");

template <std::size_t N>
Bytes anyPair(Bytes bytes, const std::array<TextView, N>& pairs) {
    Bytes found = bytes.equalPairs(static_cast<char>(pairs[0][0]), static_cast<char>(pairs[0][1]));
    for (std::size_t pair = 1; pair < N; ++pair) {
        found = found | bytes.equalPairs(static_cast<char>(pairs[pair][0]), static_cast<char>(pairs[pair][1]));
    }
    return found;
}

/// The prompts, and the pairs of which every other mark contains one.
Bytes pairsInMarks(Bytes bytes) { return bytes.equal('>') | anyPair(bytes, rulePairs) | anyPair(bytes, endTextPairs); }

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

LineMarks marksOf(TextView line) {
    return withCharacters(line, [&](const auto& characters) { return marksByBits(line, characters); });
}

// Prefixes.

namespace {

constexpr Column column3{3};
constexpr std::size_t prefixLength = 4;

struct HeaderPrefix {
    TextView text;
    Prefix prefix;
};

constexpr HeaderPrefix headerPrefixes[] = {
    {companyNamePrefix, Prefix::companyName},
    {pinPrefix, Prefix::pin},
    {pslPrefix, Prefix::psl},
};

template <class Take>
constexpr void forEachPrefix(Take take) {
    for (const PrefixedFamily& row : prefixedFamilies) take(row.prefix, Prefix(row.family));
    for (const DocumentFamily& row : documentFamilies) take(row.prefix, Prefix(row.family));
    for (const HeaderPrefix& row : headerPrefixes) take(row.text, row.prefix);
}

constexpr bool isCapital(char16_t character) { return character >= u'A' && character <= u'Z'; }

/// The prefixes by their second and third letters, which are unique.
class PrefixTable {
public:
    constexpr PrefixTable() {
        forEachPrefix([this](TextView text, Prefix prefix) { rows_[indexFor(text[1], text[2])] = prefix; });
    }

    constexpr std::optional<Prefix> find(TextView text) const {
        if (text[0] != u'P' || !isCapital(text[1]) || !isCapital(text[2])) return std::nullopt;
        return rows_[indexFor(text[1], text[2])];
    }

private:
    static constexpr std::size_t letters = 26;

    static constexpr std::size_t indexFor(char16_t second, char16_t third) {
        return (second - std::size_t{u'A'}) * letters + (third - std::size_t{u'A'});
    }

    std::array<std::optional<Prefix>, letters * letters> rows_;
};

constexpr PrefixTable prefixTable;

constexpr bool isEveryPrefixFound() {
    bool isFound = true;
    forEachPrefix([&](TextView text, Prefix prefix) {
        isFound = isFound && text.size() == prefixLength && text.back() == u'/' && prefixTable.find(text) == prefix;
    });
    return isFound;
}

static_assert(isEveryPrefixFound(), "no two prefixes share their letters");

/// One pass over the slashes of the line finds all prefixes.
LinePrefixes prefixesIn(TextView line, LineBits slashes, std::size_t contentBegin) {
    LinePrefixes found;
    for (; slashes.any(); slashes.removeLowest()) {
        const std::size_t slash = slashes.lowest();
        if (slash + 1 < prefixLength) continue;
        const std::size_t begin = slash + 1 - prefixLength;
        const std::optional<Prefix> prefix = prefixTable.find(line.substr(begin, prefixLength));
        if (!prefix) continue;
        found.anywhere.add(*prefix);
        if (begin >= contentBegin + static_cast<std::size_t>(column3.value - 1)) found.fromColumn3.add(*prefix);
    }
    return found;
}

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

/// What one pass over the characters of a line finds.
struct LineLook {
    LineBits blanks;
    LineBits slashes;
    bool mayContainMark;
};

template <std::size_t Length>
LineLook look(const char16_t* text) {
    std::uint64_t blanks[2] = {0, 0};
    std::uint64_t slashes[2] = {0, 0};
    Bytes inMarks = pairsInMarks(Bytes::narrow(text));
    for (std::size_t group = 0; group < Length / Bytes::count; ++group) {
        const Bytes bytes = Bytes::narrow(text + group * Bytes::count);
        const std::size_t shift = group % 4 * Bytes::count;
        blanks[group / 4] |= std::uint64_t{bytes.equal(' ').bits()} << shift;
        slashes[group / 4] |= std::uint64_t{bytes.equal('/').bits()} << shift;
        inMarks = inMarks | pairsInMarks(bytes);
    }
    return {LineBits(blanks[0], blanks[1]) | LineBits::from(Length), {slashes[0], slashes[1]}, inMarks.bits() != 0};
}

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

FamilySet codesByBits(TextView text, LineBits blanks) {
    FamilySet set = fixedCodesIn(text);
    const LineBits searched = LineBits::from(static_cast<std::size_t>(codeSearchColumn.value - 1));
    for (LineBits words = blanks.beforeWords(2) & searched; words.any(); words.removeLowest()) {
        const TextView word = text.substr(words.lowest());
        for (const TransferableFamily& row : transferableFamilies) {
            const bool isSearched = row.test == CodeTest::FromColumn13;
            set.add(isSearched && beginsWith(word, row.code) ? FamilySet(row.family) : FamilySet());
        }
    }
    return set;
}

FamilySet codesBySearch(TextView text) {
    FamilySet set = fixedCodesIn(text);
    for (const TransferableFamily& row : transferableFamilies) {
        const bool isSearched = row.test == CodeTest::FromColumn13;
        if (isSearched && containsFrom(text, row.code, codeSearchColumn)) set.add(row.family);
    }
    return set;
}

}  // namespace

FamilySet DisplayLine::codes() const {
    return fitsBits() ? codesByBits(rightTrimmed(), facts_.blanks) : codesBySearch(rightTrimmed());
}

FamilySet codesIn(TextView text) {
    if (text.size() > LineBits::capacity) return codesBySearch(text);
    return withCharacters(text, [&](const auto& characters) { return codesByBits(text, characters.blanks()); });
}

}  // namespace vantro
