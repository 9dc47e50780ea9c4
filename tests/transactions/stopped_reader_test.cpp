// The values that remain when a reader stops half-way. tests/failures tests the outcome of every other failing call.
#include "tests/support/collections.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/failure_rules.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

/// A screen and the state that it is read with.
struct Scenario {
    const char16_t* className;
    std::optional<Entries> collection;
    Text screen;
};

/// The outcome of one call of the operation.
struct Outcome {
    CollectionPtr results;
    std::optional<Error> raised;
    std::vector<Report> reports;
    Calls calls;
};

Outcome run(const Scenario& scenario, int failAt) {
    FailingTerminal terminal(Failing{failAt});
    const auto object = createObject(*findClass(scenario.className), terminal);
    const CollectionPtr given = terminal.watched(scenario.collection ? collection(*scenario.collection) : nullptr);
    Outcome outcome;
    try {
        outcome.results = object->profileTrans()->VerifyResponse(scenario.screen, given);
    } catch (const Error& error) {
        outcome.raised = error;
    }
    outcome.reports = terminal.reports();
    outcome.calls = terminal.calls();
    return outcome;
}

constexpr TextView companies = u"SIMILAR COMPANY NAME LIST";
constexpr TextView header = u"     COMPANY         RECLOC     ";
constexpr TextView entry = u"   1 KESTRELLO       Q2W3E4";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

CollectionPtr resultsFailingAt(const Scenario& scenario, const std::string& call) {
    const Calls calls = run(scenario, 0).calls;
    for (std::size_t step = 0; step < calls.size(); ++step) {
        if (calls[step] == call) return run(scenario, static_cast<int>(step) + 1).results;
    }
    return nullptr;
}

TEST(StoppedReader, NameSearchKeepsWhatItHadSet) {
    const Scenario list{u"CPDNTrans", {}, screen({u"PDN/K", companies, header, entry, endOfBlock})};
    const CollectionPtr atTitle = resultsFailingAt(list, "ScreenLine 1");
    EXPECT_TRUE(flagsOf(atTitle).empty());
    EXPECT_EQ(valueOf(atTitle, u"strKeyRecLocPos"), ItemValue(Text()));

    const CollectionPtr atHeader = resultsFailingAt(list, "ScreenLine 2");
    EXPECT_EQ(flagsOf(atHeader), std::vector<std::string>{"blnKeyCompanyList"});
    EXPECT_EQ(valueOf(atHeader, u"strKeyRecLocPos"), ItemValue(Text()));

    const CollectionPtr atEntry = resultsFailingAt(list, "ScreenLine 3");
    EXPECT_EQ(valueOf(atEntry, u"strKeyRecLocPos"), ItemValue(std::int16_t{22}));
    EXPECT_EQ(valueOf(atEntry, u"strKeyCoNames"), ItemValue(Text()));

    // The name is kept as it was cut: fifteen characters, not yet trimmed.
    const CollectionPtr atEnd = resultsFailingAt(list, "ScreenLine 4");
    EXPECT_EQ(valueOf(atEnd, u"strKeyCoNames"), ItemValue(Text(u"KESTRELLO      ")));
    EXPECT_EQ(valueOf(atEnd, u"blnKeyEndOfBlock"), ItemValue(false));
}

TEST(StoppedReader, NameSearchHasClearedTheFlagOfAContinuation) {
    const Scenario continuation{u"CPDNTrans", Entries{{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", u"22"}},
                                screen({u"PDMD", companies, entry, entry, endOfBlock})};
    // Calls: four for the state, line 1, line 2 (its first entry), line 3.
    const CollectionPtr atLine2 = run(continuation, 6).results;
    EXPECT_EQ(valueOf(atLine2, u"blnKeyEndOfBlock"), ItemValue(true));
    const CollectionPtr atLine3 = run(continuation, 7).results;
    EXPECT_EQ(valueOf(atLine3, u"blnKeyEndOfBlock"), ItemValue(false));
    EXPECT_EQ(valueOf(atLine3, u"strKeyRecLocPos"), ItemValue(Text(u"22")));
}

TEST(StoppedReader, OfficeListKeepsTheLocatorsCollected) {
    const Scenario list{
        u"CPLTTrans",
        {},
        screen({u"PLT", u"TRAVELLER LIST FOR N", u"", u"     NAME                   RECLOC  ", entry, u">"})};
    const CollectionPtr atEntry = resultsFailingAt(list, "ScreenLine 4");
    EXPECT_EQ(valueOf(atEntry, u"strKeyNoCoAssoArray()"), ItemValue(TextList{u""}));
    EXPECT_EQ(flagsOf(atEntry), std::vector<std::string>{"blnKeyTravellerList"});
    // The entry's line is blank from column 29 on.
    const CollectionPtr atPrompt = resultsFailingAt(list, "ScreenLine 5");
    EXPECT_EQ(valueOf(atPrompt, u"strKeyNoCoAssoArray()"), (ItemValue(TextList{u"", u"      "})));
}

TEST(StoppedReader, LinkedProfilesGoOnWithTheEntriesRead) {
    const Scenario linked{u"CRLPTrans", Entries{{u"strKeyIndex", u"0"}},
                          screen({u"RLP", u"", u"RP/", u"T/ABC123 /P1", u">"})};
    const auto locator = [&](int failAt) { return valueOf(run(linked, failAt).results, u"strKeyRecLoc"); };
    EXPECT_EQ(locator(8), ItemValue(Text()));           // the count stops at line 3, which has the entry
    EXPECT_EQ(locator(9), ItemValue(Text(u"ABC123")));  // at the prompt
}

TEST(StoppedReader, ACountOfLinkedProfilesIs0) {
    for (int failAt = 1; failAt <= 4; ++failAt) {
        FailingTerminal terminal(Failing{failAt});
        const ClassRow& row = *findClass(u"CRLPTrans");
        const auto object = createObject(row, terminal);
        const Text response = screen({u"RLP", u"T/ABC123", u"T/XYZ789", u"T/QQQQQQ", u">"});
        EXPECT_EQ(findCount(row, u"RecLocCount")->call(*object, CountRequest{response}), 0);
        ASSERT_EQ(terminal.reports().size(), 1U);
        ASSERT_NE(terminal.reports()[0].given, nullptr);
        EXPECT_EQ(terminal.reports()[0].given->number(), 5130);
    }
}

TEST(StoppedReader, AnIndexBeyondTheStoppedCountIsReportedToo) {
    const Scenario second{u"CRLPTrans", Entries{{u"strKeyIndex", u"1"}},
                          screen({u"RLP", u"RP/", u"T/ABC123", u"C/XYZ789", u">"})};
    // Calls: two for the index, the collection, line 1; then the count's lines 1, 2, 3.
    const Outcome outcome = run(second, 6);
    EXPECT_EQ(outcome.reports.size(), 2U);
    EXPECT_TRUE(keysOf(outcome.results).empty());
}

}  // namespace
}  // namespace vantro::test
