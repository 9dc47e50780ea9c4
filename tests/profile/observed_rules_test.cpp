// Every rule of the display readers: a display that leads to it, and the lines about which it decides.
#include "display/rules.h"
#include "tests/profile/observed.h"
#include "tests/support/own_lines_terminal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>

namespace vantro {
namespace {

/// The line of a decision about a search.
constexpr int wholeSearch = noLine;

struct Row {
    const ReadingRule* rule;
    std::string word;
    Lines lines;
    std::vector<int> decided;  // all lines about which the rule decides, in this order
    TextList selection = {};   // for "ALL"
    Text qualifier = {};       // for "ALL" and the notes
    Text searchString = {};    // for the notes
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.rule->name << " for " << row.word; }

Lines below(Lines lines) { return lines + Lines{"END OF DISPLAY", ">"}; }

const std::string priority = "------- PRIORITY";
const std::string hotel = "------- TRAVEL POLICIES - HOTEL";
const std::string globalSearch = "------- GLOBAL SEARCH";
const std::string transferableData = "------- PNR TRANSFERABLE DATA";
const std::string documents = "------- DOCUMENTS";
const std::string notes = "------- PROFILE NOTES";

const Lines policies = below({hotel, "   1 PPH/ A", "   2 PHI/ B", "   3 PPH/ C", "   4      D"});
const Lines global = below({globalSearch, "   1 PGL/ A", "   2      B", "   3 X"});
const Lines elevenMore = below(Lines{globalSearch, "   1 PGL/ A"} + Lines(11, "   2      B"));
const Lines remark = below({transferableData, transferable('S', "1", "RM A"), from(18, "B"), from(18, "C")});
const Lines run = below({"", documents, "   1 PIV/ A", "   2 PAS/ B", "   3      C", "   4 PIV/ D"});
const Lines endingHeader = below({"", documents + " >", "   1 PIV/ A"});
const Lines twoNotes = below({"", notes, "A CALL", "B PREFERS AISLE"});

std::vector<Row> prefixedRows() {
    return {
        {&rule::sectionBegins, "PPR", below({"", priority, "   1 PPR/ A"}), {1}},
        {&rule::displayEnds, "PPR", below({"", "   1 PPR/ A"}), {2}},
        {&rule::displayEnds, "PPR", {"A > B", priority}, {0}},
        {&rule::displayHasNoEnd, "PPR", {"A"}, {wholeSearch}},
        {&rule::displayHasNoEnd, "PPR", {priority, "A"}, {2}},
        {&rule::displayHasNoEnd, "RM", {"A"}, {wholeSearch}},
        {&rule::displayHasNoEnd, "RM", {transferableData}, {1}},
        {&rule::displayHasNoEnd, "PAS", {"", documents}, {2}},
        {&rule::displayHasNoEnd, "ALL", {transferableData}, {1}},
        {&rule::displayHasNoEnd, "PIN", {"A"}, {1}},
        {&rule::displayHasNoEnd, "ProfileNotes", {"", notes, "A"}, {3}},
        {&rule::aboveFirstElement, "PHI", policies, {1, 4}},
        {&rule::aboveFirstElement, "PAS", run, {2}},
        {&rule::sectionEndsAtRule, "PPR", below({priority, "   1 PPR/ A", "-------"}), {2}},
        {&rule::sectionEndsAtEndText, "PPR", below({priority, "   1 PPR/ A"}), {2}},
        {&rule::sectionEndsAtPrompt, "PPR", below({priority, "   1 PPR/ A > B", "  > C"}), {2}},
        {&rule::sectionMayComeAgain, "PPR", below({priority, "   1 PPS/ A", "-------"}), {2}},
        {&rule::elementWithPrefix, "PPR", below({priority, "   1 PPR/ A", "   2 B"}), {1}},
        {&rule::elementWithPrefix, "PGL", global, {1}},
        {&rule::elementWithoutPrefix, "PHI", below({hotel, "   1 PHI/ A", "   2      B"}), {2}},
        {&rule::elementWithJoinedPrefix, "PHI", below({hotel, "   1 PHI/ A", "   2 ABC PH", from(10, "I/ C")}), {2}},
        {&rule::elementOfWholeSection, "PPR", below({priority, "   1 PPR/ A", "   2 X/ B"}), {2}},
        {&rule::otherTag, "PHI", policies, {3}},
        {&rule::continuesElement, "PPR", below({priority, "   1 PPR/ A", from(10, "B")}), {2}},
        {&rule::continuesUpToEnd, "PPR", {priority, "   1 PPR/ A"}, {1}},
        {&rule::noPrefixBelowHeader, "PGL", below({globalSearch, "   1 PPR/ A"}), {1}},
        {&rule::unprefixedElement, "PGL", global, {2}},
        {&rule::unprefixedEnd, "PGL", global, {3}},
        {&rule::unprefixedLimit, "PGL", elevenMore, {11}},
    };
}

std::vector<Row> transferableRows() {
    const Lines contactWithPrompt = below({transferableData, transferable('A', "1", "AP  > B")});
    return {
        {&rule::sectionBegins, "RM", below({"", transferableData}), {1}},
        {&rule::scanFromFirstLine, "RC", below({"", transferableData}), {0}},
        {&rule::ownHeader, "RC", below({"", transferableData}), {1}},
        {&rule::ownHeader, "RM", below({"", transferableData, transferableData}), {2}},
        {&rule::promptInsideLine, "AP", contactWithPrompt, {1}},
        {&rule::promptInsideLine, "AP", below({"A > B"}), {0}},
        {&rule::scanEndsAtEndText, "RM", below({transferableData}), {1}},
        {&rule::scanEndsAtEndText, "RC", below({""}), {1}},
        {&rule::scanEndsAtPrompt, "RM", below({"A > B", transferableData}), {0}},
        {&rule::scanEndsAtPrompt, "RM", contactWithPrompt, {1}},
        {&rule::scanEndsAtPromptLine, "AP", below({transferableData, ">"}), {1}},
        {&rule::scanEndsAtHeader, "RM", below({priority, transferableData, "------ X"}), {2}},
        {&rule::scanEndsAtHeader, "RC", below({"", priority, transferableData, transferable('S', "1", "RC  A")}), {1}},
        {&rule::joinedToLineAbove, "RM", remark, {2, 3}},
        {&rule::joinedToLineAbove,
         "OS",
         below({transferableData, from(14, "OS A"), from(18, "B"), from(18, "C")}),
         {2}},
        {&rule::joinedToLineAbove, "RM", below({transferableData, from(14, "RM A"), from(18, "B")}), {2}},
        {&rule::codeFound, "RM", remark, {1}},
        {&rule::codeInJoinedText,
         "RM",
         below({transferableData, transferable('S', "1", "AP A"), from(18, "B RM C")}),
         {1}},
        {&rule::codeFound, "AP", below({transferableData, transferable('S', "1", " AP  A"), from(12, "  AP  B")}), {2}},
        {&rule::codeOutsideColumns, "RM", below({transferableData, "S RM A"}), {1}},
        {&rule::codeMissing, "RM", below({transferableData, transferable('S', "1", "RMA")}), {0, 1}},
    };
}

std::vector<Row> selectionRows() {
    return {
        {&rule::selectionEndsAtMark, "ALL", remark, {4}},
        {&rule::selectionEndsAtHyphens, "ALL", below({transferableData, "------ A"}), {1}},
        {&rule::kindMissing, "ALL", below({transferableData, "A", "B"}), {2}},
        {&rule::continuesSelected, "ALL", remark, {2, 3}},
        {&rule::otherKind, "ALL", remark, {1}, {u"A  RM"}},
        {&rule::otherQualifier, "ALL", remark, {1}, {u"RM"}, u"AP"},
        {&rule::otherText, "ALL", remark, {1}, {u"AP"}},
        {&rule::otherText, "ALL", remark, {1}},
        {&rule::selected, "ALL", remark, {1}, {u"rm a"}, u"RM"},
    };
}

std::vector<Row> documentRows() {
    return {
        {&rule::headerEndsDisplay, "PAS", endingHeader, {1}},
        {&rule::firstOfRun, "PAS", run, {3}},
        {&rule::nextOfRun, "PAS", run, {4}},
        {&rule::runEnds, "PAS", run, {5}},
        {&rule::documentsEndAtRule, "PAS", below({"", documents, " -----"}), {2}},
        {&rule::documentsEndAtMark, "PAS", below({"", documents}), {2}},
        {&rule::documentsEndBelowHeader, "PAS", endingHeader, {2}},
    };
}

std::vector<Row> noteRows() {
    const std::string word = "ProfileNotes";
    return {
        {&rule::sectionBegins, word, below({"A", priority, notes, ">", "A", notes}), {2, 5}},
        {&rule::blankAboveNotes, word, below({"A", "", notes}), {1}},
        {&rule::promptAboveNotes, word, below({"A", "> B"}), {1}},
        {&rule::promptAboveNotes, word, below({"A", notes + " >"}), {1}},
        {&rule::endTextAboveNotes, word, below({"A"}), {1}},
        {&rule::notesEnd, word, twoNotes, {4}},
        {&rule::notesEnd, word, below({"A", notes, "A CALL"}), {3}},
        {&rule::notesPause, word, below({"A", notes, "A CALL", ">"}), {3}},
        {&rule::note, word, below({"A", notes, "A CALL", ""}), {2, 3}},
        {&rule::noteFits, word, below({"A", notes, "A CALL", "B"}), {2}, {}, u"A"},
        {&rule::noteFits, word, below({"A", notes, "A CALL", "B"}), {2}, {}, u"", u"CALL"},
        {&rule::otherNoteQualifier, word, below({"A", notes, "A CALL", "B"}), {3}, {}, u"A"},
        {&rule::otherNoteQualifier, word, below({"A", notes, "A CALL", "B"}), {2, 3}, {}, u"A "},
        {&rule::otherNoteText, word, below({"A", notes, "A CALL", "B"}), {3}, {}, u"", u"CALL"},
    };
}

std::vector<Row> headerRows() {
    return {
        {&rule::nameFound, "NM", {"", "  1 NM A/B"}, {1}},
        {&rule::nameEmpty, "NM", {"", "  1 NM ", "*C*ACME"}, {1}},
        {&rule::companyFound, "NM", {"", "  1 NM ", "*C*ACME"}, {2}},
        {&rule::companyFound, "NM", {"", "A *C* B"}, {1}},
        {&rule::locatorAtEnd, "RECLOC", {"", "ABC123"}, {1}},
        {&rule::locatorAtEnd, "RECLOC", {"", "", "ABC123"}, {2}},
        {&rule::locatorBelowHostLine, "RECLOC", {"", "A 4505", "ABC123"}, {1}},
        {&rule::locatorBelowEmptyLine, "RECLOC", {"", "", "ABC123"}, {1}},
        {&rule::officeMark, "OFFID", {"", "*T* A", "A", "*C*", "----- NCEVN0900"}, {1, 3}},
        {&rule::officeWithoutRule, "OFFID", {"", "*T* A", "A", "*C*", "----- NCEVN0900"}, {2}},
        {&rule::officeAtEnd, "OFFID", {"", "*T* A", "A", "*C*", "----- NCEVN0900"}, {4}},
        {&rule::officeTooShort, "OFFID", {"", "*T* A", "-----"}, {2}},
        {&rule::officeMarkMissing, "OFFID", {"", "A *T*"}, {wholeSearch}},
        {&rule::tagFound, "PIN", below({"  1 PIN/ A"}), {0}},
        {&rule::tagFound, "PCN", below({"", "  1 PCN/ A"}), {1}},
        {&rule::tagFound, "PSL", below({"", "PSL/ A"}), {1}},
        {&rule::tagInMargin, "PIN", below({"PIN/ A"}), {0}},
        {&rule::tagInMargin, "PCN", below({"", " PCN/ A"}), {1}},
        {&rule::tagWithoutName, "PCN", below({"", "  1 PCN/A", "  2 PCN/"}), {1, 2}},
        {&rule::tagSearchEnds, "PIN", below({"A"}), {1}},
        {&rule::tagSearchEnds, "PIN", {">"}, {0}},
        {&rule::tagSearchEnds, "PSL", below({"A"}), {1}},
        {&rule::numberMissing, "PIN", below({"  PIN/ A"}), {0}},
        {&rule::numberMissing, "PCN", below({"", "  PCN/ A"}), {1}},
        {&rule::nameContinues, "PCN", below({"", "  1 PCN/ A", from(15, "B")}), {2}},
        {&rule::nameContinuesWord, "PCN", below({"", "  1 PCN/ " + std::string(55, 'A'), from(15, "B")}), {2}},
        {&rule::displayIsEmpty, "PSL", {}, {wholeSearch}},
        {&rule::hostLine, "NM", {"", "PF24 REQST", "", "  1 NM A/B"}, {1}},
        {&rule::hostLine, "ProfileNotes", {"", " 4505", "A", notes}, {1}},
        // What is read below the host's line counts from the screen's first line.
        {&rule::nameFound, "NM", {"", "PF24 REQST", "  1 NM A/B"}, {2}},
    };
}

std::vector<Row> allRows() {
    std::vector<Row> all;
    for (const std::vector<Row>& rows :
         {prefixedRows(), transferableRows(), selectionRows(), documentRows(), noteRows(), headerRows()}) {
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

/// Keeps the lines about which each rule decides.
class Decisions final : public ReadingObserver {
public:
    void observe(const ReadingStep& step) override {
        if (step.kind == StepKind::Decided) decided.emplace_back(step.rule, step.line);
    }

    std::vector<int> linesOf(const ReadingRule& rule) const {
        std::vector<int> lines;
        for (const auto& [said, line] : decided) {
            if (said->name == rule.name) lines.push_back(line);
        }
        return lines;
    }

    std::vector<std::pair<const ReadingRule*, int>> decided;
};

Request requestOf(const Row& row, TextList& selection) {
    if (row.word == "ProfileNotes") {
        Request request = wanting(row.word);
        request.given.emplace_back("strSearchString", ItemValue(row.searchString));
        request.given.emplace_back("strSearchQualifier", ItemValue(row.qualifier));
        return request;
    }
    Request request = wanting(row.word, ItemValue(std::int16_t{1}));
    request.selection = &selection;
    request.qualifier = row.qualifier;
    return request;
}

class RuleOfAReader : public testing::TestWithParam<Row> {};

TEST_P(RuleOfAReader, DecidesAboutTheseLines) {
    const Row& row = GetParam();
    Decisions decisions;
    const TextView className = row.word == "ProfileNotes" ? u"CProfileNotes" : u"CProfile";
    Parser parser = observedParser(className, std::make_unique<BuiltInTerminal>(), decisions);
    TextList selection = row.selection;
    const Text text = display(row.lines);
    parser.query(text, requestOf(row, selection));
    EXPECT_EQ(decisions.linesOf(*row.rule), row.decided) << drawn(text);
}

INSTANTIATE_TEST_SUITE_P(All, RuleOfAReader, testing::ValuesIn(allRows()), [](const testing::TestParamInfo<Row>& test) {
    return std::string(test.param.rule->name) + std::to_string(test.index);
});

// Only a terminal that makes its own lines returns a host line for a display of less than a line.
class HostLineTerminal final : public test::OwnLinesTerminal {
    Text lineOf(TextView /*response*/, std::int16_t line) override { return line == 1 ? u"4505" : u""; }
};

TEST(HostLineRule, ADisplayOfLessThanALineCannotBeCut) {
    Decisions decisions;
    Parser parser = observedParser(u"CProfile", std::make_unique<HostLineTerminal>(), decisions);
    EXPECT_EQ(parser.query(u"A", "NM").raised, raisedBy([] { fail(Failure::InvalidProcedureCall); }));
    EXPECT_EQ(decisions.linesOf(rule::hostLineTooShort), (std::vector{1}));
    EXPECT_EQ(decisions.linesOf(rule::hostLine), std::vector<int>{});
}

/// The rules of the readers of displays.
std::set<const ReadingRule*> displayRules() {
    std::set<const ReadingRule*> all;
    const auto add = [&](const auto& rules) { all.insert(rules.begin(), rules.end()); };
    add(sectionRules);
    add(prefixedRules);
    add(transferableRules);
    add(selectionRules);
    add(documentRules);
    add(noteRules);
    add(headerRules);
    add(hostLineRules);
    return all;
}

TEST(ReadingRules, OfDisplaysAreAllTested) {
    std::set<const ReadingRule*> untested = displayRules();
    untested.erase(&rule::hostLineTooShort);
    for (const Row& row : allRows()) {
        if (!row.decided.empty()) untested.erase(row.rule);
    }
    for (const ReadingRule* const rule : untested) ADD_FAILURE() << rule->name;
}

TEST(ReadingRules, OfDisplaysAreListed) {
    const std::span<const ReadingRule* const> all = readingRules();
    for (const ReadingRule* const rule : displayRules()) {
        EXPECT_EQ(std::ranges::count(all, rule->name, &ReadingRule::name), 1) << rule->name;
    }
}

TEST(ReadingRules, HaveNamesOfTheirOwnAndSentences) {
    std::set<std::string_view> names;
    for (const ReadingRule* const rule : readingRules()) {
        EXPECT_TRUE(names.insert(rule->name).second) << rule->name;
        const auto isOfAName = [](char character) {
            return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
        };
        EXPECT_TRUE(std::ranges::all_of(rule->name, isOfAName)) << rule->name;
        EXPECT_FALSE(rule->meaning.empty() || rule->meaning.ends_with(u'.')) << rule->name;
    }
}

// The lines of a search

struct Search {
    std::string mark;
    int first = 0;
    int last = 0;
    bool isFound = false;

    friend bool operator==(const Search&, const Search&) = default;
};

void PrintTo(const Search& search, std::ostream* out) {
    *out << search.mark << " in " << search.first << " to " << search.last << (search.isFound ? " found" : "");
}

class Searches final : public ReadingObserver {
public:
    void observe(const ReadingStep& step) override {
        if (step.kind != StepKind::MarkSearched) return;
        EXPECT_EQ(step.search, MarkSearch::InLine);
        made.push_back({utf8(step.text), step.line, step.lastLine, !step.pieces.empty()});
    }

    std::vector<Search> made;
};

std::vector<Search> searches(const std::string& word, const Lines& lines, TextView className = u"CProfile") {
    Searches observer;
    Parser parser = observedParser(className, std::make_unique<BuiltInTerminal>(), observer);
    parser.query(display(lines), wanting(word, ItemValue(std::int16_t{1})));
    return observer.made;
}

using SearchList = std::vector<Search>;

TEST(ObservedSearch, OfASection) {
    EXPECT_EQ(searches("PPR", below({"", priority})), (SearchList{{priority, 0, 1, true}, {priority, 3, 3, false}}));
    EXPECT_EQ(searches("PPR", {"A"}), (SearchList{{priority, 0, 0, false}}));
    // Line 0 is not searched for these.
    EXPECT_EQ(searches("PAS", below({documents})), (SearchList{{documents, 1, 1, false}}));
    EXPECT_EQ(searches("ProfileNotes", below({notes, "A", notes, ">"}), u"CProfileNotes"),
              (SearchList{{notes, 1, 2, true}, {notes, 4, 4, false}}));
}

// A prompt ends the search before the header is searched for in its line.
TEST(ObservedSearch, OfNotesEndsAboveAPrompt) {
    EXPECT_EQ(searches("ProfileNotes", {"", "A", notes + " >"}, u"CProfileNotes"), (SearchList{{notes, 1, 1, false}}));
    EXPECT_EQ(searches("ProfileNotes", {"", notes + " >"}, u"CProfileNotes"), SearchList{});
}

TEST(ObservedSearch, OfTransferableData) {
    EXPECT_EQ(searches("RM", below({"", priority, transferableData})), (SearchList{{transferableData, 0, 2, true}}));
    // A line is tested for an end first.
    EXPECT_EQ(searches("RM", {"", transferableData + " >"}), (SearchList{{transferableData, 0, 0, false}}));
    EXPECT_EQ(searches("RM", {">"}), SearchList{});
    EXPECT_EQ(searches("RM", {"A", "B"}), (SearchList{{transferableData, 0, 1, false}}));
    EXPECT_EQ(searches("RC", below({"", transferableData})), SearchList{});
}

TEST(ObservedSearch, OfHeaderLines) {
    EXPECT_EQ(searches("NM", {"", "A *C* B"}), (SearchList{{" NM ", 1, 20, false}, {"*C*", 1, 1, true}}));
    EXPECT_EQ(searches("NM", {"", "  1 NM "}), (SearchList{{" NM ", 1, 1, true}, {"*C*", 1, 10, false}}));
    EXPECT_EQ(searches("NM", {"", "  1 NM A"}), (SearchList{{" NM ", 1, 1, true}}));
    EXPECT_EQ(searches("PCN", below({"", "  1 PCN/ A"})), (SearchList{{"PCN/ ", 1, 1, true}}));
    EXPECT_EQ(searches("PCN", {"", ">"}), SearchList{});
    // A line with the mark in its margin is no line without the mark.
    EXPECT_EQ(searches("PIN", below({"PIN/", "A"})), (SearchList{{"PIN/", 1, 1, false}}));
    EXPECT_EQ(searches("PIN", below({"A", "PIN/", "B", "  1 PIN/ A"})),
              (SearchList{{"PIN/", 0, 0, false}, {"PIN/", 2, 3, true}}));
    EXPECT_EQ(searches("PCN", below({"", "  1 PCN/A", "  2 PCN/ A"})), (SearchList{{"PCN/ ", 2, 2, true}}));
    EXPECT_EQ(searches("PSL", below({"A", "  1 PSL/ A"})), (SearchList{{"PSL/", 0, 1, true}}));
}

TEST(ObservedSearch, BelowTheHostsOwnLine) {
    EXPECT_EQ(searches("PPR", below({"", "4505", "", priority})),
              (SearchList{{priority, 1, 3, true}, {priority, 5, 5, false}}));
}

}  // namespace
}  // namespace vantro
