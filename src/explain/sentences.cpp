// Steps as sentences: a row per kind of step and per search for a mark.
#include "explain/words.h"
#include "framework/text_ops.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr std::size_t indexOf(StepKind kind) { return static_cast<std::size_t>(kind); }
constexpr std::size_t indexOf(MarkSearch search) { return static_cast<std::size_t>(search); }

Text familyInWords(const KeptStep& step) { return step.family ? concat({factsOf(*step.family).word, u": "}) : Text(); }

/// " ends", or " fails with" and the error.
Text endInWords(const KeptStep& step) {
    if (!step.error) return u" ends";
    return concat({u" fails with ", errorInWords(*step.error)});
}

/// ", from line 3, columns 6 to 20"; empty for a value that is not on the screen.
Text originInWords(const KeptStep& step) {
    const Text places = placesInWords(step.pieces);
    return places.empty() ? places : concat({u", from ", places});
}

/// The key of a list with the index of an entry: "strKeyElement(2)".
Text entryInWords(const KeptStep& step) {
    TextView key = step.name;
    if (key.ends_with(u"()")) key.remove_suffix(2);
    return concat({key, u"(", numberInWords(step.index), u")"});
}

// Marks

struct SearchRow {
    MarkSearch search;
    TextView found;
    TextView notFound;
    TextView inNoLine;  // of several lines; empty for a search in the whole screen
};

// clang-format off
constexpr auto searches = std::to_array<SearchRow>({
    {MarkSearch::StartsLine, u"the line begins with ", u"the line does not begin with ",  u"no line begins with "},
    {MarkSearch::InLine,     u"the line contains ",    u"the line does not contain ",     u"no line contains "},
    {MarkSearch::OnScreen,   u"the screen contains ",  u"the screen does not contain ",   {}},
    {MarkSearch::Terminal,   u"the terminal finds ",   u"the terminal does not find ",    {}},
});
// clang-format on

static_assert(std::ranges::all_of(searches, [next = std::size_t{0}](const SearchRow& row) mutable {
    return indexOf(row.search) == next++;
}));

/// The lines above the one with the mark, which were searched before it.
Text linesWithoutMark(const KeptStep& step) {
    const auto found =
        std::ranges::find_if(step.pieces, [](const KeptPiece& piece) { return piece.place.has_value(); });
    if (step.line == noLine || found == step.pieces.end() || found->place->line <= step.line) return {};
    const std::int32_t last = found->place->line - 1;
    return concat({u"; ", linesInWords(step.line, last), last == step.line ? u" does not" : u" do not"});
}

/// Without a place on the screen, the mark is in the last line that was searched.
Text markFound(const KeptStep& step, const SearchRow& row) {
    Text places = placesInWords(step.pieces);
    if (places.empty() && step.line != noLine) places = linesInWords(step.lastLine, step.lastLine);
    return concat({places, onlyIf(!places.empty(), u": "), familyInWords(step), row.found, quoted(step.text),
                   linesWithoutMark(step)});
}

/// The host's rules may begin a search below the last line.
Text searchedLines(const KeptStep& step) {
    if (step.lastLine >= step.line) return linesInWords(step.line, step.lastLine);
    return concat({u"from line ", numberInWords(step.line), u" on"});
}

Text markNotFound(const KeptStep& step, const SearchRow& row) {
    if (step.line == noLine || row.inNoLine.empty()) {
        return concat({familyInWords(step), row.notFound, quoted(step.text)});
    }
    const bool isOneLine = step.line == step.lastLine;
    return concat(
        {searchedLines(step), u": ", familyInWords(step), isOneLine ? row.notFound : row.inNoLine, quoted(step.text)});
}

// The kinds of steps

Text callBegins(const KeptStep& step) { return concat({step.name, u" begins"}); }

Text callEnds(const KeptStep& step) { return concat({step.name, endInWords(step)}); }

Text queryBegins(const KeptStep& step) { return concat({u"query ", step.name, u" begins"}); }

Text queryEnds(const KeptStep& step) { return concat({u"query ", step.name, endInWords(step)}); }

Text keyRead(const KeptStep& step) {
    if (step.text.empty()) return concat({u"read ", step.name, u": absent or empty"});
    const bool isNumber = step.name.starts_with(u"int") && isNumeric(step.text);
    const bool isUnquoted = isNumber || step.name.starts_with(u"bln");
    return concat({u"read ", step.name, u" = ", isUnquoted ? step.text : quoted(step.text)});
}

Text markSearched(const KeptStep& step) {
    const SearchRow& row = searches[indexOf(step.search)];
    return step.pieces.empty() ? markNotFound(step, row) : markFound(step, row);
}

Text decided(const KeptStep& step) {
    Text lines;
    if (step.line != noLine) lines = linesInWords(step.line, step.lastLine) + u": ";
    return concat({lines, familyInWords(step), onlyIf(step.lastLine > step.line, u"each: "), step.rule->meaning});
}

Text valueRead(const KeptStep& step) {
    Text index;
    if (step.index > 0) index = concat({u"element ", numberInWords(step.index), u": "});
    return concat({familyInWords(step), index, step.name, u" = ", quoted(step.text), originInWords(step)});
}

Text keyAdded(const KeptStep& step) { return concat({step.name, u" = ", valueInWords(step), originInWords(step)}); }

Text entryAdded(const KeptStep& step) {
    return concat({entryInWords(step), u" = ", quoted(step.text), originInWords(step)});
}

Text reported(const KeptStep& step) { return concat({u"reported and not raised: error ", errorInWords(*step.error)}); }

struct SentenceRow {
    StepKind kind;
    Text (*sentence)(const KeptStep&);
};

constexpr auto sentences = std::to_array<SentenceRow>({
    {StepKind::CallBegins, callBegins},
    {StepKind::CallEnds, callEnds},
    {StepKind::QueryBegins, queryBegins},
    {StepKind::QueryEnds, queryEnds},
    {StepKind::KeyRead, keyRead},
    {StepKind::MarkSearched, markSearched},
    {StepKind::Decided, decided},
    {StepKind::ValueRead, valueRead},
    {StepKind::KeyAdded, keyAdded},
    {StepKind::EntryAdded, entryAdded},
    {StepKind::Reported, reported},
});

static_assert(std::ranges::all_of(sentences, [next = std::size_t{0}](const SentenceRow& row) mutable {
    return indexOf(row.kind) == next++;
}));

}  // namespace

Text sentenceOf(const KeptStep& step) { return sentences[indexOf(step.kind)].sentence(step); }

}  // namespace vantro
