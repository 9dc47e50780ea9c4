// The calls that each operation makes of the terminal, in their order, and the values that stay when a reader stops
// half-way. What each call's failure leads to is asked in tests/failures.
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

enum class Operation { Create, Verify };

struct Scenario {
    const char* name;
    const char16_t* className;
    Operation operation;
    std::optional<Entries> collection;
    Text screen;
    Calls calls;
};

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

std::string scenarioName(const testing::TestParamInfo<Scenario>& row) { return row.param.name; }

/// What one call of the operation led to.
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
        if (scenario.operation == Operation::Create) {
            object->profileTrans()->CreateCommand(given);
        } else {
            outcome.results = object->profileTrans()->VerifyResponse(scenario.screen, given);
        }
    } catch (const Error& error) {
        outcome.raised = error;
    }
    outcome.reports = terminal.reports();
    outcome.calls = terminal.calls();
    return outcome;
}

class CallOrder : public testing::TestWithParam<Scenario> {};

TEST_P(CallOrder, IsTheOperations) {
    const Outcome outcome = run(GetParam(), 0);
    EXPECT_FALSE(outcome.raised);
    EXPECT_TRUE(outcome.reports.empty());
    EXPECT_EQ(outcome.calls, GetParam().calls);
}

constexpr TextView companies = u"SIMILAR COMPANY NAME LIST";
constexpr TextView header = u"     COMPANY         RECLOC     ";
constexpr TextView entry = u"   1 KESTRELLO       Q2W3E4";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

// clang-format off
const std::vector<Scenario> searches{
    {"PDN_Command", u"CPDNTrans", Operation::Create, Entries{{u"strKeyName", u"SMITH"}, {u"strKeyCompany", u"K"},
        {u"blnKeyExactMatch", true}, {u"strKeyOfficeID", u"N"}}, {},
        {"Item strKeyName", "ItemText", "Item strKeyCompany", "ItemText", "Item blnKeyExactMatch",
         "ItemBoolean", "Item strKeyOfficeID", "ItemText"}},
    {"PDN_CompanyList", u"CPDNTrans", Operation::Verify,
        Entries{{u"blnKeyEndOfBlock", false}, {u"strKeyRecLocPos", u""}},
        screen({u"PDN/KES", companies, header, entry, endOfBlock}),
        {"Item blnKeyEndOfBlock", "ItemBoolean", "Item strKeyRecLocPos", "ItemText",
         "ScreenLine 1", "ScreenLine 2", "ScreenLine 3", "ScreenLine 4", "createCollection",
         "Add blnKeyTrList", "Add blnKeyTrProfile", "Add blnKeyCompanyList", "Add blnKeyCoProfile",
         "Add blnKeyMerge", "Add strKeyCoNames", "Add blnKeyEndOfBlock", "Add strKeyRecLocPos"}},
    {"PDN_WithoutState", u"CPDNTrans", Operation::Verify, {}, screen({u"PDN/-SMITH", u"", u"*T* SMITH"}),
        {"ScreenLine 1", "ScreenLine 2", "createCollection",
         "Add blnKeyTrList", "Add blnKeyTrProfile", "Add blnKeyCompanyList", "Add blnKeyCoProfile",
         "Add blnKeyMerge", "Add strKeyCoNames", "Add blnKeyEndOfBlock", "Add strKeyRecLocPos"}},
    {"PDA_Command", u"CPDATrans", Operation::Create, Entries{{u"strKeyName", u"SMITH"}}, {},
        {"Item strKeyName", "ItemText", "Item strKeyCompany", "ItemText"}},
    {"PDA_CompanyList", u"CPDATrans", Operation::Verify, Entries{{u"blnKeyEndOfBlock", false}},
        screen({u"PDA/KES", companies, u"     COMPANY     ", entry, endOfBlock}),
        {"createCollection", "Item blnKeyEndOfBlock", "ItemBoolean",
         "ScreenLine 0", "ScreenLine 1", "ScreenLine 2", "ScreenLine 3", "ScreenLine 4",
         "Add blnKeyCoProfile", "Add blnKeyTrProfile", "Add blnKeyCoList", "Add strKeyCoNames",
         "Add blnKeyTrList", "Add blnKeyEndOfBlock"}},
    {"PD_Command", u"CPDTrans", Operation::Create, Entries{{u"strKeyItemNr", u"3"}}, {},
        {"Item strKeyItemNr", "ItemText", "Item blnKeyFromPNR", "ItemBoolean"}},
    {"PD_Profile", u"CPDTrans", Operation::Verify, Entries{}, screen({u"PD3", u"*T*"}),
        {"createCollection", "Add blnKeyList", "Add blnKeyProfile", "Add blnKeyMerge", "Add blnKeyEndOfList",
         "Add blnKeyError", "Add blnKeyCoProfile"}},
    {"PDI_Command", u"CPDITrans", Operation::Create, Entries{{u"strKeyIndex", u"3"}}, {},
        {"Item strKeyIndex", "ItemText"}},
    {"PDI_Profile", u"CPDITrans", Operation::Verify, {}, screen({u"PDI/3", u"*T*"}),
        {"createCollection", "ScreenLine 0", "ScreenLine 1", "Add blnKeyCoProfile", "Add blnKeyTrProfile"}},
    {"PDT_Command", u"CPDTTrans", Operation::Create, Entries{}, {}, {}},
    {"PDT_Profile", u"CPDTTrans", Operation::Verify, {}, screen({u"PDT", u"*T*"}),
        {"createCollection", "Add blnKeyProfile"}},
    {"PDR_Command", u"CPDRTrans", Operation::Create, Entries{{u"strKeyRecLoc", u"KQ4R7T"}}, {},
        {"Item strKeyRecLoc", "ItemText", "Item strKeyIndicator", "ItemText"}},
    {"PDR_Refusal", u"CPDRTrans", Operation::Verify, {}, screen({u"PDR/KQ4R7T", u"CHECK INPUT"}),
        {"createCollection", "ScreenLine 0", "ScreenLine 1", "ScreenLine 2", "ScreenLine 3",
         "Add blnKeyCoProfile", "Add blnKeyTrProfile", "Add blnKeyErrNoRecLoc", "Add blnKeyErrCheckInput",
         "Add blnKeyMerged", "Add blnKeyDeactivatedTProfile"}},
    {"PCN_Command", u"CPCNTrans", Operation::Create, Entries{{u"strKeyCompany", u"K"}}, {},
        {"Item strKeyCompany", "ItemText"}},
    {"PCN_Company", u"CPCNTrans", Operation::Verify, {}, screen({u"PCN/K", u"*C*"}),
        {"FindMarker *T* at 4", "FindMarker *C* at 4", "createCollection", "Add blnKeyTrProfile",
         "Add blnKeyCoProfile"}},
    {"PCN_TravellerAsksNoFurther", u"CPCNTrans", Operation::Verify, {}, screen({u"PCN/K", u"*T*"}),
        {"FindMarker *T* at 4", "createCollection", "Add blnKeyTrProfile", "Add blnKeyCoProfile"}},
    {"PLT_Command", u"CPLTTrans", Operation::Create, Entries{{u"strKeyOfficeID", u"N"}}, {},
        {"Item strKeyOfficeID", "ItemText", "Item strKeyCompany", "ItemText", "Item blnKeyExactMatch",
         "ItemBoolean"}},
    {"PLT_CompanyList", u"CPLTTrans", Operation::Verify, {},
        screen({u"PLT//K", companies, u"", u"     COMPANY     ", entry, u">"}),
        {"createCollection", "ScreenLine 1", "ScreenLine 3", "ScreenLine 4", "ScreenLine 5",
         "Add blnKeyTravellerList", "Add blnKeyCompanyList", "Add blnKeyProfile", "Add blnKeyMerge",
         "Add strKeyCoNames", "Add blnKeyNoCoFoundString", "Add blnKeyNoTrPrFoundString",
         "Add strKeyNoCoAssoArray()"}},
    {"PLT_TravellerListLocatorsHaveAReaderOfTheirOwn", u"CPLTTrans", Operation::Verify, {},
        screen({u"PLT", u"TRAVELLER LIST FOR N", u"", u"     NAME                   RECLOC  ", entry, u">"}),
        {"createCollection", "ScreenLine 1", "ScreenLine 3", "ScreenLine 4", "ScreenLine 5",
         "Add blnKeyTravellerList", "Add blnKeyCompanyList", "Add blnKeyProfile", "Add blnKeyMerge",
         "Add strKeyCoNames", "Add blnKeyNoCoFoundString", "Add blnKeyNoTrPrFoundString",
         "Add strKeyNoCoAssoArray()"}},
    {"PLC_Command", u"CPLCTrans", Operation::Create, Entries{}, {}, {"Item strKeyOfficeID", "ItemText"}},
    {"PLC_List", u"CPLCTrans", Operation::Verify, {}, screen({u"PLC", u"COMPANY NAME LIST"}),
        {"createCollection", "ScreenLine 1", "Add blnKeyCompanyList", "Add blnKeyProfile"}},
    {"PH_Command", u"CPHTrans", Operation::Create, Entries{}, {}, {"Item strKeyElementNr", "ItemText"}},
    {"PH_History", u"CPHTrans", Operation::Verify, {},
        screen({u"PH", u"PROFILE HISTORY", u"LAST PNR TRANSFER  :", u"PROFILE CREATION   :"}),
        {"createCollection", "ScreenLine 0", "ScreenLine 1", "ScreenLine 2", "ScreenLine 3",
         "Add blnKeyProfile", "Add blnKeyEndOfList", "Add strKeyLastPNRTransDate", "Add strKeyName",
         "Add strKeyProfileCreationDate"}},
};

const std::vector<Scenario> maintenance{
    {"Mode_Command", u"CProfileMode", Operation::Create, Entries{{u"blnKeyEnter", true}}, {},
        {"Item blnKeyUpdate", "ItemBoolean", "Item blnKeyExit", "ItemBoolean", "Item blnKeyEnter",
         "ItemBoolean", "Item blnKeyIgnore", "ItemBoolean"}},
    {"Mode_Answer", u"CProfileMode", Operation::Verify, Entries{{u"blnKeyEnter", true}},
        screen({u"PM", u"*PROFILE MODE*"}),
        {"Item blnKeyUpdate", "ItemBoolean", "Item blnKeyExit", "ItemBoolean", "Item blnKeyEnter",
         "ItemBoolean", "Item blnKeyIgnore", "ItemBoolean", "ScreenLine 1", "Add blnKeyResponseOK",
         "Add strKeyErrorString"}},
    {"PT_Single", u"CPTTrans", Operation::Create, Entries{{u"strKeyElements", u"3"}}, {},
        {"Item blnKeyAllPNR", "ItemBoolean", "Item blnKeyOverride", "ItemBoolean", "Item strKeyElements",
         "ItemText", "Item strKeySegAsso", "ItemText", "Item strKeyPasAsso", "ItemText",
         "Item intKeyArraySize", "ItemText"}},
    {"PT_ListsAreFetchedAnewForEveryEntry", u"CPTTrans", Operation::Create,
        Entries{{u"intKeyArraySize", u"1"}, {u"strKeyElArray()", TextList{u"a long list of elements", u"4"}},
                {u"strKeySegArray()", TextList{u"a long list of segments", u""}},
                {u"strKeyPasArray()", TextList{u"a long list of passengers", u""}}}, {},
        {"Item blnKeyAllPNR", "ItemBoolean", "Item blnKeyOverride", "ItemBoolean", "Item strKeyElements",
         "ItemText", "Item strKeySegAsso", "ItemText", "Item strKeyPasAsso", "ItemText",
         "Item intKeyArraySize", "ItemText",
         "Item strKeyElArray()", "Value", "Item strKeySegArray()", "Value", "Item strKeyPasArray()", "Value",
         "Item strKeyElArray()", "Value", "Item strKeySegArray()", "Value", "Item strKeyPasArray()", "Value"}},
    {"PT_Answer", u"CPTTrans", Operation::Verify, {}, screen({u"PT3", u"RP/"}),
        {"createCollection", "FindMarker RP/ at 10", "FindMarker - PNR CREATED at 10",
         "FindMarker - PNR UPDATED at 10", "Add blnKeyPNR", "Add blnKeyPNRCreated", "Add blnKeyPNRUpdated"}},
    {"PBN_Command", u"CPBNTrans", Operation::Create, Entries{{u"strKeyIndicator", u"Company"}}, {},
        {"Item strKeyIndicator", "ItemText", "Item strKeyCompany", "ItemText", "Item strKeyName", "ItemText",
         "Item blnKeyAllPNR", "ItemBoolean", "Item blnKeyExactMatch", "ItemBoolean"}},
    {"PBN_Answer", u"CPBNTrans", Operation::Verify, {}, screen({u"PBN/K", u"RP/"}),
        {"createCollection", "FindMarker RP/ at 6", "FindMarker - PNR UPDATED at 6", "Add blnKeyPNR",
         "Add blnKeyPNRUpdated"}},
    {"PBI_Command", u"CPBITrans", Operation::Create, Entries{{u"strKeyIndex", u"2"}}, {},
        {"Item strKeyIndex", "ItemText", "Item blnKeyAllPNR", "ItemBoolean"}},
    {"PBI_WithoutIndex", u"CPBITrans", Operation::Create, Entries{}, {}, {"Item strKeyIndex", "ItemText"}},
    {"PBI_Answer", u"CPBITrans", Operation::Verify, {}, screen({u"PBI/2", u"RP/"}),
        {"createCollection", "FindMarker RP/ at 6", "FindMarker - PNR UPDATED at 6", "Add blnKeyPNR",
         "Add blnKeyPNRUpdated"}},
    {"RLP_Command", u"CRLPTrans", Operation::Create, Entries{}, {}, {}},
    {"RLP_Entry", u"CRLPTrans", Operation::Verify, Entries{{u"strKeyIndex", u"0"}},
        screen({u"RLP", u"", u"RP/", u"T/ABC123 /P1", u">"}),
        {"Item strKeyIndex", "ItemText", "createCollection", "ScreenLine 1", "ScreenLine 2",
         // the count has a reader of its own; entry 0 is there from its beginning
         "ScreenLine 1", "ScreenLine 2", "ScreenLine 3", "ScreenLine 4",
         "Add strKeyPasAsso", "Add strKeyRecLoc", "Add blnKeyTraveller", "Add blnKeyCompany"}},
    {"RLP_NoElement", u"CRLPTrans", Operation::Verify, Entries{{u"strKeyIndex", u"0"}},
        screen({u"RLP", u"NO ELEMENT FOUND"}),
        {"Item strKeyIndex", "ItemText", "createCollection", "ScreenLine 1", "Add blnKeyNoElementsFound"}},
    {"PX_Command", u"CPXTrans", Operation::Create, Entries{{u"strKeyItemNr", u"3"}}, {},
        {"Item strKeyItemNr", "ItemText"}},
    {"PX_Answer", u"CPXTrans", Operation::Verify, {}, screen({u"PX3", u"WILL BE DEACTIVATED"}),
        {"createCollection", "ScreenLine 0", "ScreenLine 1", "Add blnKeyResponseOK"}},
    {"PDMD_Command", u"CPDMDTrans", Operation::Create, Entries{}, {}, {}},
    {"Notes_Command", u"CProfileNotes", Operation::Create, Entries{{u"strCommand", u"PN"}}, {},
        {"Item strCommand", "ItemText"}},
    {"Notes_Answer", u"CProfileNotes", Operation::Verify, Entries{{u"strCommand", u"PN"}},
        screen({u"PN", u"PNL"}),
        {"Item strCommand", "ItemText", "ScreenLine 1", "Add blnKeyResponseOK", "Add strKeyErrorString"}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Search, CallOrder, testing::ValuesIn(searches), scenarioName);
INSTANTIATE_TEST_SUITE_P(Maintenance, CallOrder, testing::ValuesIn(maintenance), scenarioName);

// The values that stay when a reader stops half-way.

CollectionPtr resultsFailingAt(const Scenario& scenario, const std::string& call) {
    for (std::size_t step = 0; step < scenario.calls.size(); ++step) {
        if (scenario.calls[step] == call) return run(scenario, static_cast<int>(step) + 1).results;
    }
    return nullptr;
}

const Scenario& find(const std::vector<Scenario>& scenarios, std::string_view name) {
    for (const Scenario& scenario : scenarios) {
        if (scenario.name == name) return scenario;
    }
    throw std::out_of_range("no such scenario");
}

TEST(StoppedReader, NameSearchKeepsWhatItHadSet) {
    const Scenario& list = find(searches, "PDN_CompanyList");
    const CollectionPtr atTitle = resultsFailingAt(list, "ScreenLine 1");
    EXPECT_TRUE(flagsOf(atTitle).empty());
    EXPECT_EQ(valueOf(atTitle, u"strKeyRecLocPos"), ItemValue(Text()));

    const CollectionPtr atHeader = resultsFailingAt(list, "ScreenLine 2");
    EXPECT_EQ(flagsOf(atHeader), std::vector<std::string>{"blnKeyCompanyList"});
    EXPECT_EQ(valueOf(atHeader, u"strKeyRecLocPos"), ItemValue(Text()));

    const CollectionPtr atEntry = resultsFailingAt(list, "ScreenLine 3");
    EXPECT_EQ(valueOf(atEntry, u"strKeyRecLocPos"), ItemValue(std::int16_t{22}));
    EXPECT_EQ(valueOf(atEntry, u"strKeyCoNames"), ItemValue(Text()));

    // The name is kept as it was cut, fifteen characters and not yet trimmed.
    const CollectionPtr atEnd = resultsFailingAt(list, "ScreenLine 4");
    EXPECT_EQ(valueOf(atEnd, u"strKeyCoNames"), ItemValue(Text(u"KESTRELLO      ")));
    EXPECT_EQ(valueOf(atEnd, u"blnKeyEndOfBlock"), ItemValue(false));
}

TEST(StoppedReader, NameSearchHasTakenBackTheFlagOfAContinuation) {
    const Scenario continuation{"",
                                u"CPDNTrans",
                                Operation::Verify,
                                Entries{{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", u"22"}},
                                screen({u"PDMD", companies, entry, entry, endOfBlock}),
                                {}};
    // Calls: four for the state, line 1, line 2 (its first entry), line 3.
    const CollectionPtr atLine2 = run(continuation, 6).results;
    EXPECT_EQ(valueOf(atLine2, u"blnKeyEndOfBlock"), ItemValue(true));
    const CollectionPtr atLine3 = run(continuation, 7).results;
    EXPECT_EQ(valueOf(atLine3, u"blnKeyEndOfBlock"), ItemValue(false));
    EXPECT_EQ(valueOf(atLine3, u"strKeyRecLocPos"), ItemValue(Text(u"22")));
}

TEST(StoppedReader, OfficeListKeepsTheLocatorsCollected) {
    const Scenario& list = find(searches, "PLT_TravellerListLocatorsHaveAReaderOfTheirOwn");
    const CollectionPtr atEntry = resultsFailingAt(list, "ScreenLine 4");
    EXPECT_EQ(valueOf(atEntry, u"strKeyNoCoAssoArray()"), ItemValue(TextList{u""}));
    EXPECT_EQ(flagsOf(atEntry), std::vector<std::string>{"blnKeyTravellerList"});
    // The entry's line is blank from column 29 on.
    const CollectionPtr atPrompt = resultsFailingAt(list, "ScreenLine 5");
    EXPECT_EQ(valueOf(atPrompt, u"strKeyNoCoAssoArray()"), (ItemValue(TextList{u"", u"      "})));
}

TEST(StoppedReader, LinkedProfilesGoOnWithTheEntriesRead) {
    const Scenario& linked = find(maintenance, "RLP_Entry");
    const auto locator = [&](int failAt) { return valueOf(run(linked, failAt).results, u"strKeyRecLoc"); };
    EXPECT_EQ(locator(8), ItemValue(Text()));           // the count stops at line 3, the entry's own
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

TEST(StoppedReader, AnIndexThatTheStoppedCountDidNotReachIsReportedToo) {
    const Scenario second{"",
                          u"CRLPTrans",
                          Operation::Verify,
                          Entries{{u"strKeyIndex", u"1"}},
                          screen({u"RLP", u"RP/", u"T/ABC123", u"C/XYZ789", u">"}),
                          {}};
    // Calls: two for the index, the collection, line 1; then the count's lines 1, 2, 3.
    const Outcome outcome = run(second, 6);
    EXPECT_EQ(outcome.reports.size(), 2U);
    EXPECT_TRUE(keysOf(outcome.results).empty());
}

}  // namespace
}  // namespace vantro::test
