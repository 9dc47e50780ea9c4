// One screen, or set of parameters, for every rule of the transactions.
#include "profile/notes_rules.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "tests/transactions/observed_calls.h"
#include "transactions/rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

enum class Call { Command, Read, Rows };

struct RuleRow {
    const ReadingRule* rule;
    std::int32_t line;  ///< the line that the rule names, or noLine
    const char16_t* className;
    Call call;
    Entries passed;  ///< parameters or state
    Text response;   ///< empty for a command
};

void PrintTo(const RuleRow& row, std::ostream* out) { *out << row.rule->name; }

void run(const RuleRow& row, TerminalLines lines, const std::function<void(const Explanation&)>& check) {
    if (row.call == Call::Rows) {
        Explanation explanation;
        readRows(row.className, row.response, collection(row.passed), explanation);
        check(explanation);
        return;
    }
    ObservedClass object(row.className, lines, true);
    if (row.call == Call::Command) {
        EXPECT_EQ(object.command(row.passed).command, u"");
    } else {
        object.read(row.response, row.passed);
    }
    check(object.explanation());
}

// Lists of the name search

const TextView title = u"SIMILAR COMPANY NAME LIST";
const TextView header = u"     COMPANY         RECLOC     ";
const TextView entry = u"   1 KESTRELLO       Q2W3E4";
const Entries continued{{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", u"22"}};

/// A name search's list, with these lines from line 3 on.
Text companies(std::initializer_list<TextView> lines) { return screen({u"PDN/KES", title, header}) + screen(lines); }

RuleRow named(const ReadingRule& rule, std::int32_t line, Text response, Entries state = {}) {
    return {&rule, line, u"CPDNTrans", Call::Read, std::move(state), std::move(response)};
}

RuleRow similar(const ReadingRule& rule, std::int32_t line, Text response, Entries state = {}) {
    return {&rule, line, u"CPDATrans", Call::Read, std::move(state), std::move(response)};
}

const Text longContinuation = screen({u"PDMD", entry, entry, entry, entry, entry, entry, entry, entry, entry, entry});

const std::vector<RuleRow> listRules{
    named(rule::listHeader, 2, companies({entry})),
    named(rule::listHeader, 3, screen({u"PDN/KES", title, u"", header, entry})),
    named(rule::listContinuation, 2, longContinuation, continued),
    named(rule::listHasNoStart, noLine, screen({u"PDMD", entry}), continued),
    named(rule::listHasNoStart, noLine, screen({u"PDN", u"SIMILAR COMPANY NAME LIST >", header, entry})),
    named(rule::listEndsBeforeHeader, 3, screen({u"PDN/KES", title, u"", u">", header, entry})),
    named(rule::listEndsBeforeHeader, 2, screen({u"PDN/KES", title, u"     COMPANY     >", entry})),
    named(rule::listEndsBeforeHeader, 2, screen({u"PDN/KES", title})),
    named(rule::listEntry, 3, companies({entry})),
    named(rule::listWrappedName, 4, companies({entry, u"     WRAPPED"})),
    named(rule::listEndOfBlock, 4, companies({entry, u"END OF BLOCK - USE PDMD"})),
    named(rule::listEmptyLine, 4, companies({entry})),
    named(rule::listPrompt, 4, companies({entry, u">"})),
    named(rule::listNoNumber, 4, companies({entry, u"NO NUMBER"})),
    named(rule::listLocatorWithoutNumber, 4, companies({entry, u"     NO NUMBER       J8K9L1"})),
    named(rule::listNoName, 4, companies({entry, u""})),
    named(rule::listSearchGoesOn, 4, companies({entry, u"   7 END OF BLOCK - USE PDMD"})),
    named(rule::locatorColumnFound, 2, companies({entry})),
    named(rule::locatorColumnMissing, 2, screen({u"PDN/KES", title, u"     COMPANY     ", entry})),
    named(rule::locatorColumnFromState, 2, companies({entry}), {{u"strKeyRecLocPos", u"22"}}),
    similar(rule::listEntry, 3, companies({entry})),
    similar(rule::listEntry, 1, longContinuation, continued),
    similar(rule::listContinuation, 2, longContinuation, continued),
    similar(rule::listEndOfBlock, 4, companies({entry, u"END OF BLOCK - USE PDMD"})),
    similar(rule::listEmptyLine, 4, companies({entry})),
    similar(rule::listPrompt, 4, companies({entry, u"   2 KESTRELLO >"})),
    similar(rule::listNoNumber, 4, companies({entry, u""})),
    similar(rule::listSearchGoesOn, 4, companies({entry, u"   7 END OF BLOCK - USE PDMD"})),
};

// Lists of an office

RuleRow office(const ReadingRule& rule, std::int32_t line, Text response, Call call = Call::Read) {
    return {&rule, line, u"CPLTTrans", call, {}, std::move(response)};
}

Text officeCompanies(std::initializer_list<TextView> lines) {
    return screen({u"PLT//KES", title, u"", u"     COMPANY     "}) + screen(lines);
}

Text officeTravellers(std::initializer_list<TextView> lines) {
    return screen({u"PLT", u"TRAVELLER LIST FOR N", u"", u"     NAME                   RECLOC  COMPANY"}) +
           screen(lines);
}

constexpr TextView alone = u"   1 ABELMANN/IDA MS        H1J2K3";
constexpr TextView ofCompany = u"   2 BOROVIK/JURI MR        H4J5K6  KESTRELLO";
constexpr TextView companyEntry = u"   1 KESTRELLO";

const std::vector<RuleRow> officeRules{
    office(rule::listEntry, 4, officeCompanies({companyEntry})),
    office(rule::listNoNumber, 5, officeCompanies({companyEntry, u"NO NUMBER"})),
    office(rule::listNoNumber, 5, officeCompanies({companyEntry, u">"})),
    office(rule::listPrompt, 5, officeCompanies({companyEntry, u"   2 KESTRELLO >"})),
    office(rule::listHeaderAgain, 5, officeCompanies({companyEntry, u"     COMPANY     ", companyEntry})),
    office(rule::travellerWithoutCompany, 4, officeTravellers({alone})),
    office(rule::travellerWithCompany, 4, officeTravellers({ofCompany})),
    office(rule::listEndOfBlock, 5, officeTravellers({alone, u"END OF BLOCK - USE PDMD"})),
    office(rule::listEmptyLine, 5, officeTravellers({alone})),
    office(rule::listPrompt, 5, officeTravellers({alone, u">"})),
    office(rule::officeTraveller, 4, officeTravellers({alone}), Call::Rows),
    office(rule::officeTraveller, 4, officeTravellers({u"     NO NUMBER              H1J2K3"}), Call::Rows),
    office(rule::officeLineWithoutEntry, 4, officeTravellers({u""}), Call::Rows),
    office(rule::officeHeaderAgain, 4, officeTravellers({u"     NAME                   RECLOC  COMPANY"}), Call::Rows),
};

// Linked profiles, history, profile mode, notes

RuleRow linked(const ReadingRule& rule, std::int32_t line, Text response) {
    return {&rule, line, u"CRLPTrans", Call::Read, {{u"strKeyIndex", u"0"}}, std::move(response)};
}

const std::vector<RuleRow> otherRules{
    linked(rule::linkedTraveller, 2, screen({u"RLP", u"RP/", u"T/ABC123 /P1", u">"})),
    linked(rule::linkedCompany, 2, screen({u"RLP", u"RP/", u"C/ABC123", u">"})),
    linked(rule::linkedLocatorBelow, 3, screen({u"RLP", u"RP/"}) + u"T/"),
    linked(rule::linkedLocatorBelow, 3, screen({u"RLP", u"RP/"}) + u"C/"),
    linked(rule::linkedMarkTooFarLeft, 2, screen({u"RLP", u"RP/", u"T/AB/P12", u">"})),
    linked(rule::linkedNoProfile, 1, screen({u"RLP", u"RP/", u"T/ABC123 /P1", u">"})),
    linked(rule::linkedPrompt, 3, screen({u"RLP", u"RP/", u"T/ABC123 /P1", u">"})),
    linked(rule::linkedEcho, 2, screen({u"RLP", u"RP/", u">RLP", u"T/ABC123 /P1", u">"})),
    linked(rule::linkedLastLine, 24, screen({u"RLP", u"RP/", u"T/ABC123 /P1"})),
    {&rule::historyComplete,
     3,
     u"CPHTrans",
     Call::Read,
     {},
     screen({u"PH", u"PROFILE HISTORY", u"LAST PNR TRANSFER  : 04MAR24", u"PROFILE CREATION   : 19AUG21", u""})},
    {&rule::historyLastLine, 12, u"CPHTrans", Call::Read, {}, screen({u"PH", u"PROFILE HISTORY", u""})},
    {&rule::modeExitFromNextLine,
     noLine,
     u"CProfileMode",
     Call::Read,
     {{u"blnKeyExit", true}, {u"blnKeyIgnore", true}},
     screen({u"PIE", u"IGNORED", u"PROFILE MODE EXITED"})},
    {&rule::modeExitFromNextLine,
     noLine,
     u"CProfileMode",
     Call::Read,
     {{u"blnKeyExit", true}, {u"blnKeyIgnore", true}},
     screen({u"PIE", u"IGNORED", u"PROFILE MODE"})},
    {&rule::modeExitTooEarly,
     noLine,
     u"CProfileMode",
     Call::Read,
     {{u"blnKeyExit", true}, {u"blnKeyIgnore", true}},
     screen({u"PIE", u"PROFILE MODE EXITED     IGNORED"})},
    {&rule::modeUnknownStep, noLine, u"CProfileMode", Call::Read, {{u"blnKeyExit", false}}, screen({u"PM"})},
    {&rule::notesUnknownCommand, noLine, u"CProfileNotes", Call::Read, {{u"strCommand", u"PNX"}}, screen({u"PN"})},
};

// Commands

RuleRow unsent(const ReadingRule& rule, const char16_t* className, Entries params) {
    return {&rule, noLine, className, Call::Command, std::move(params), {}};
}

const std::vector<RuleRow> commandRules{
    unsent(rule::commandNeedsAnyName, u"CPDNTrans", {}),
    unsent(rule::commandNeedsAnyName, u"CPDATrans", {}),
    unsent(rule::commandNeedsIndicator, u"CPBNTrans", {{u"strKeyCompany", u"KESTRELLO"}}),
    unsent(rule::commandNeedsCompany, u"CPBNTrans", {{u"strKeyIndicator", u"Company"}, {u"strKeyName", u"SMITH"}}),
    unsent(rule::commandNeedsTraveller, u"CPBNTrans",
           {{u"strKeyIndicator", u"Traveller"}, {u"strKeyCompany", u"KESTRELLO"}}),
    unsent(rule::commandNeedsIndex, u"CPBITrans", {}),
    unsent(rule::commandNeedsIndex, u"CPDITrans", {}),
    unsent(rule::commandNeedsItem, u"CPDTrans", {{u"blnKeyFromPNR", true}}),
    unsent(rule::commandNeedsLocator, u"CPDRTrans", {{u"strKeyIndicator", u"T"}}),
    unsent(rule::commandOfOneForm, u"CPTTrans", {{u"intKeyArraySize", u"0"}, {u"strKeyElements", u"3"}}),
    unsent(rule::modeUnknownStep, u"CProfileMode", {}),
    unsent(rule::notesUnknownCommand, u"CProfileNotes", {{u"strCommand", u"PNX"}}),
};

std::vector<RuleRow> allRows() {
    std::vector<RuleRow> rows = listRules;
    for (const auto* group : {&officeRules, &otherRules, &commandRules}) {
        rows.insert(rows.end(), group->begin(), group->end());
    }
    return rows;
}

class TransactionRule : public testing::TestWithParam<RuleRow> {};

INSTANTIATE_TEST_SUITE_P(, TransactionRule, testing::ValuesIn(allRows()), [](const auto& test) {
    return std::to_string(test.index) + "_" + std::string(test.param.rule->name);
});

TEST_P(TransactionRule, IsSaidWithItsLine) {
    for (const TerminalLines lines : {TerminalLines::Slices, TerminalLines::Own}) {
        run(GetParam(), lines, [](const Explanation& explanation) {
            const KeptStep* const step = decisionBy(explanation, *GetParam().rule);
            ASSERT_NE(step, nullptr);
            EXPECT_EQ(step->line, GetParam().line);
        });
    }
}

/// The lines from which on a mark was searched for and not found, and the last ones, by a name search.
std::vector<std::pair<std::int32_t, std::int32_t>> linesWithout(TextView mark, const Text& response) {
    ObservedClass object(u"CPDNTrans", TerminalLines::Slices, true);
    object.read(response, Entries{});
    std::vector<std::pair<std::int32_t, std::int32_t>> lines;
    for (const KeptStep& step : object.explanation().steps()) {
        const bool isMissing = step.kind == StepKind::MarkSearched && step.text == mark && step.pieces.empty();
        if (isMissing) lines.emplace_back(step.line, step.lastLine);
    }
    return lines;
}

// A prompt ends the search before the header is searched for in its line.
TEST(TransactionRules, AHeaderInALineWithAPromptIsNotMissing) {
    using Ranges = std::vector<std::pair<std::int32_t, std::int32_t>>;
    const TextView mark = u"     COMPANY     ";
    EXPECT_EQ(linesWithout(mark, screen({u"PDN/KES", title, u"", u"     COMPANY     >", entry})), (Ranges{{2, 2}}));
    EXPECT_EQ(linesWithout(mark, screen({u"PDN/KES", title, u"     COMPANY     >", entry})), Ranges{});
}

TEST(TransactionRules, AreAllInTheTable) {
    std::set<std::string_view> named;
    for (const RuleRow& row : allRows()) named.insert(row.rule->name);
    for (const ReadingRule* rule : transactionRules) EXPECT_EQ(named.count(rule->name), 1U) << rule->name;
    for (const ReadingRule* rule : notesTransactionRules) EXPECT_EQ(named.count(rule->name), 1U) << rule->name;
}

TEST(TransactionRules, AreAmongTheRulesOfAllReaders) {
    const auto all = readingRules();
    std::set<std::string_view> names;
    for (const ReadingRule* rule : all) names.insert(rule->name);
    EXPECT_EQ(names.size(), all.size()) << "two rules have the same name";
    for (const ReadingRule* rule : transactionRules) EXPECT_EQ(names.count(rule->name), 1U) << rule->name;
    for (const ReadingRule* rule : notesTransactionRules) EXPECT_EQ(names.count(rule->name), 1U) << rule->name;
}

}  // namespace
}  // namespace vantro::test
