// Every kind of step and every search for a mark in words.
#include "tests/explain/story.h"
#include "tests/support/text.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

constexpr ReadingRule otherTag{"otherTag", u"the tag columns are not blank"};

const std::vector<KeptPiece> nowhere;
const std::vector<KeptPiece> inLine3{{u"*T*", Place{3, 1, 3}}};
const std::vector<KeptPiece> twoNames{{u"KESTRELLO TOOLS", Place{3, 6, 15}}, {u",", {}}, {u"Q", Place{4, 6, 1}}};

struct Row {
    KeptStep step;
    std::string sentence;
};

KeptStep search(MarkSearch how, std::int32_t first, std::int32_t last, const std::vector<KeptPiece>& found) {
    return {.kind = StepKind::MarkSearched,
            .line = first,
            .lastLine = last,
            .search = how,
            .text = u"*T*",
            .pieces = found};
}

void expectSentences(const std::vector<Row>& rows) {
    for (const Row& row : rows) EXPECT_EQ(utf8(sentenceOf(row.step)), row.sentence);
}

TEST(Sentences, OfSearchesForAMark) {
    using enum MarkSearch;
    expectSentences({
        {search(StartsLine, 1, 3, inLine3),
         R"(line 3, columns 1 to 3: the line begins with "*T*"; lines 1 to 2 do not)"},
        {search(StartsLine, 2, 3, inLine3), R"(line 3, columns 1 to 3: the line begins with "*T*"; line 2 does not)"},
        {search(StartsLine, 3, 3, inLine3), R"(line 3, columns 1 to 3: the line begins with "*T*")"},
        {search(StartsLine, 1, 9, nowhere), R"(lines 1 to 9: no line begins with "*T*")"},
        {search(StartsLine, 1, 1, nowhere), R"(line 1: the line does not begin with "*T*")"},
        {search(InLine, 0, 3, inLine3), R"(line 3, columns 1 to 3: the line contains "*T*"; lines 0 to 2 do not)"},
        {search(InLine, 0, 9, nowhere), R"(lines 0 to 9: no line contains "*T*")"},
        {search(InLine, 4, 4, nowhere), R"(line 4: the line does not contain "*T*")"},
        {search(InLine, 1, 3, {{u"*T*", {}}}), R"(line 3: the line contains "*T*")"},
        {search(InLine, 10, 9, nowhere), R"(from line 10 on: no line contains "*T*")"},
        {search(OnScreen, noLine, noLine, inLine3), R"(line 3, columns 1 to 3: the screen contains "*T*")"},
        {search(OnScreen, noLine, noLine, nowhere), R"(the screen does not contain "*T*")"},
        {search(OnScreen, 0, 5, nowhere), R"(the screen does not contain "*T*")"},
        {search(Terminal, noLine, noLine, inLine3), R"(line 3, columns 1 to 3: the terminal finds "*T*")"},
        {search(Terminal, noLine, noLine, {{u"*T*", {}}}), R"(the terminal finds "*T*")"},
        {search(Terminal, noLine, noLine, nowhere), R"(the terminal does not find "*T*")"},
    });
}

TEST(Sentences, OfCallsAndQueries) {
    const Error failed(5272, u"VantroProfileUtils", u"An error has occurred.");
    expectSentences({
        {{.kind = StepKind::CallBegins, .name = u"VerifyResponse"}, "VerifyResponse begins"},
        {{.kind = StepKind::CallEnds, .name = u"VerifyResponse"}, "VerifyResponse ends"},
        {{.kind = StepKind::CallEnds, .name = u"VerifyResponse", .error = failed},
         "VerifyResponse fails with 5272: An error has occurred"},
        {{.kind = StepKind::QueryBegins, .family = Family::PHI, .name = u"PHI"}, "query PHI begins"},
        {{.kind = StepKind::QueryEnds, .family = Family::PHI, .name = u"PHI"}, "query PHI ends"},
        {{.kind = StepKind::QueryEnds, .name = u"NM", .error = Error(6, u"", u"")}, "query NM fails with 6"},
        {{.kind = StepKind::Reported, .error = Error(6, u"", u"Overflow\n")},
         R"(reported and not raised: error 6: Overflow\u000A)"},
    });
}

TEST(Sentences, OfDecisions) {
    const auto decided = [](std::int32_t line, std::int32_t last, std::optional<Family> family) -> KeptStep {
        return {.kind = StepKind::Decided, .line = line, .lastLine = last, .family = family, .rule = &otherTag};
    };
    expectSentences({
        {decided(12, noLine, Family::PHI), "line 12: PHI: the tag columns are not blank"},
        {decided(12, 14, Family::PHI), "lines 12 to 14: PHI: each: the tag columns are not blank"},
        {decided(12, noLine, {}), "line 12: the tag columns are not blank"},
        {decided(noLine, noLine, {}), "the tag columns are not blank"},
        {decided(noLine, noLine, Family::Remark), "RM: the tag columns are not blank"},
    });
}

TEST(Sentences, OfKeysThatAreRead) {
    const auto read = [](TextView key, TextView value) -> KeptStep {
        return {.kind = StepKind::KeyRead, .name = Text(key), .text = Text(value)};
    };
    expectSentences({
        {read(u"strKeyName", u"SMITH"), R"(read strKeyName = "SMITH")"},
        {read(u"strKeyName", u""), "read strKeyName: absent or empty"},
        {read(u"strKeyItemNr", u"2"), R"(read strKeyItemNr = "2")"},
        {read(u"intKeyIndex", u"2"), "read intKeyIndex = 2"},
        {read(u"intKeyIndex", u"2\n"), R"(read intKeyIndex = "2\u000A")"},
        {read(u"blnKeyFromPNR", u"True"), "read blnKeyFromPNR = True"},
    });
}

TEST(Sentences, OfValues) {
    const std::vector<KeptPiece> number{{u"5", Place{8, 4, 1}}};
    expectSentences({
        {{.kind = StepKind::ValueRead,
          .family = Family::PPR,
          .name = u"number",
          .text = u"5",
          .index = 2,
          .pieces = number},
         R"(PPR: element 2: number = "5", from line 8, column 4)"},
        {{.kind = StepKind::ValueRead, .name = u"name", .text = u"\u00C9\x7F\x85"},
         "name = \"\xC3\x89\\u007F\\u0085\""},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyCoNames", .text = u"KESTRELLO TOOLS,Q", .pieces = twoNames},
         R"(strKeyCoNames = "KESTRELLO TOOLS,Q", from line 3, columns 6 to 20; line 4, column 6)"},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyCoNames"}, R"(strKeyCoNames = "")"},
        {{.kind = StepKind::KeyAdded, .name = u"blnKeyEndOfBlock", .value = true}, "blnKeyEndOfBlock = True"},
        {{.kind = StepKind::KeyAdded, .name = u"blnKeyEndOfBlock", .value = false}, "blnKeyEndOfBlock = False"},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyRecLocPos", .value = std::int16_t{38}}, "strKeyRecLocPos = 38"},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyName", .value = Text(u"A")}, R"(strKeyName = "A")"},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyElement()", .value = TextList{u"", u"A"}},
         "strKeyElement() = a list of 2 entries"},
        {{.kind = StepKind::KeyAdded, .name = u"strKeyElement()", .value = TextList{u""}},
         "strKeyElement() = a list of 1 entry"},
        {{.kind = StepKind::EntryAdded, .name = u"strKeyElement()", .text = u"5", .index = 1, .pieces = number},
         R"(strKeyElement(1) = "5", from line 8, column 4)"},
        {{.kind = StepKind::EntryAdded, .name = u"strKeyElement"}, R"(strKeyElement(0) = "")"},
    });
}

// What sentences say about lines is what the lines contain: a mark is in the line, and in no line above in the range.

TextView lineOf(const Explanation& explanation, std::int32_t line) {
    const std::size_t begin = static_cast<std::size_t>(line) * screenWidth;
    return begin < explanation.screen().size() ? TextView(explanation.screen()).substr(begin, screenWidth) : TextView();
}

void expectTrueSearches(const Explanation& explanation) {
    for (const KeptStep& step : explanation.steps()) {
        if (step.kind != StepKind::MarkSearched || step.line == noLine) continue;
        const bool isFound = step.isPlaced();
        const std::int32_t last = isFound ? step.pieces.front().place->line : step.lastLine;
        for (std::int32_t line = step.line; line <= last; ++line) {
            const TextView text = lineOf(explanation, line);
            const bool isThere = step.search == MarkSearch::StartsLine ? text.starts_with(step.text)
                                                                       : text.find(step.text) != TextView::npos;
            EXPECT_EQ(isThere, isFound && line == last) << utf8(sentenceOf(step)) << " in line " << line;
        }
    }
}

TEST(Sentences, OfSearchesInTheSampleDisplaysAreTrue) {
    for (const std::string& name : sampleNames()) {
        SCOPED_TRACE(name);
        expectTrueSearches(explained(sampleDisplay(name)));
    }
}

TEST(Sentences, OfSearchesOnTheSampleScreensAreTrue) {
    for (const SampleScreen& sample : sampleScreens()) {
        SCOPED_TRACE(sample.name);
        expectTrueSearches(explained(sample));
    }
}

}  // namespace
}  // namespace vantro::test
