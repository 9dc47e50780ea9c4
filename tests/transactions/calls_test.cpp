// Which calls each transaction makes to the terminal, and in which order: no more than the reading needs.
#include "tests/support/call_summary.h"
#include "tests/support/collections.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/screens.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vantro::test {
namespace {

struct CommandCalls {
    std::string name;
    TextView className;
    Entries params;
    std::string calls;
};

std::string commandName(const testing::TestParamInfo<CommandCalls>& row) { return row.param.name; }

class CommandCallsOf : public testing::TestWithParam<CommandCalls> {};

const TextList oneGroup{u"3"};
const TextList twoGroups{u"3", u"7"};

INSTANTIATE_TEST_SUITE_P(
    Each, CommandCallsOf,
    testing::Values(
        CommandCalls{"PBI", u"CPBITrans", {{u"strKeyIndex", u"2"}}, "text strKeyIndex; flag blnKeyAllPNR"},
        CommandCalls{"PBIWithoutIndex", u"CPBITrans", {}, "text strKeyIndex"},
        CommandCalls{"PBN",
                     u"CPBNTrans",
                     {},
                     "text strKeyIndicator strKeyCompany strKeyName; flag blnKeyAllPNR blnKeyExactMatch"},
        CommandCalls{"PCN", u"CPCNTrans", {}, "text strKeyCompany"},
        CommandCalls{"PDA", u"CPDATrans", {}, "text strKeyName strKeyCompany"},
        CommandCalls{"PDI", u"CPDITrans", {}, "text strKeyIndex"}, CommandCalls{"PDMD", u"CPDMDTrans", {}, ""},
        CommandCalls{
            "PDN", u"CPDNTrans", {}, "text strKeyName strKeyCompany; flag blnKeyExactMatch; text strKeyOfficeID"},
        CommandCalls{"PDR", u"CPDRTrans", {}, "text strKeyRecLoc strKeyIndicator"},
        CommandCalls{"PD", u"CPDTrans", {}, "text strKeyItemNr; flag blnKeyFromPNR"},
        CommandCalls{"PDT", u"CPDTTrans", {}, ""}, CommandCalls{"PH", u"CPHTrans", {}, "text strKeyElementNr"},
        CommandCalls{"PLC", u"CPLCTrans", {}, "text strKeyOfficeID"},
        CommandCalls{"PLT", u"CPLTTrans", {}, "text strKeyOfficeID strKeyCompany; flag blnKeyExactMatch"},
        CommandCalls{"Mode", u"CProfileMode", {}, "flag blnKeyUpdate blnKeyExit blnKeyEnter blnKeyIgnore"},
        CommandCalls{"PX", u"CPXTrans", {}, "text strKeyItemNr"}, CommandCalls{"RLP", u"CRLPTrans", {}, ""},
        CommandCalls{"PT",
                     u"CPTTrans",
                     {},
                     "flag blnKeyAllPNR blnKeyOverride; "
                     "text strKeyElements strKeySegAsso strKeyPasAsso intKeyArraySize"},
        CommandCalls{"PTBothForms",
                     u"CPTTrans",
                     {{u"strKeyElements", u"3"}, {u"intKeyArraySize", u"0"}, {u"strKeyElArray()", oneGroup}},
                     "flag blnKeyAllPNR blnKeyOverride; "
                     "text strKeyElements strKeySegAsso strKeyPasAsso intKeyArraySize"},
        CommandCalls{"PTList",
                     u"CPTTrans",
                     {{u"intKeyArraySize", u"1"},
                      {u"strKeyElArray()", twoGroups},
                      {u"strKeySegArray()", twoGroups},
                      {u"strKeyPasArray()", twoGroups}},
                     "flag blnKeyAllPNR blnKeyOverride; "
                     "text strKeyElements strKeySegAsso strKeyPasAsso intKeyArraySize; "
                     "value strKeyElArray() strKeySegArray() strKeyPasArray() "
                     "strKeyElArray() strKeySegArray() strKeyPasArray()"},
        CommandCalls{"PN", u"CProfileNotes", {}, "text strCommand"}),
    commandName);

TEST_P(CommandCallsOf, AreTheReadsOfItsParametersInOrder) {
    FailingTerminal terminal;
    const auto object = createObject(GetParam().className, terminal);
    object->profileTrans()->CreateCommand(terminal.watched(collection(GetParam().params)));
    EXPECT_EQ(summaryOf(terminal.calls()), GetParam().calls);
}

struct ReadingCalls {
    std::string name;
    TextView className;
    Text screen;
    std::optional<Entries> state;  ///< without one, no collection is passed
    std::string calls;
};

std::string readingName(const testing::TestParamInfo<ReadingCalls>& row) { return row.param.name; }

class ReadingCallsOf : public testing::TestWithParam<ReadingCalls> {};

const Text other = screen({u"ECHO", u"SOMETHING ELSE"});
const Text traveller = screen({u"ECHO", u"*T*  SMITH/ANNA MS", u"MORE"});
const Text companyList =
    screen({u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY                    RECLOC     OFFICE",
            u"   1 KESTRELLO TOOLS          Q2W3E4     NCEVN3101", u"END OF BLOCK - USE PDMD", u"   2 LOST", u"LOST"});
// Eleven lines, so that the block continues past the lines in which a title may be.
const Text longContinuation = screen({u"PDMD", u"   8 COMPANY H               Q2W3E4",
                                      u"   9 COMPANY I               Q2W3E4", u"  10 COMPANY J               Q2W3E4",
                                      u"  11 COMPANY K               Q2W3E4", u"  12 COMPANY L               Q2W3E4",
                                      u"  13 COMPANY M               Q2W3E4", u"  14 COMPANY N               Q2W3E4",
                                      u"  15 COMPANY O               Q2W3E4", u"  16 COMPANY P               Q2W3E4",
                                      u"  17 COMPANY Q               Q2W3E4", u"END OF BLOCK - USE PDMD", u"LOST"});
const Text officeTravellers =
    screen({u"PLT/NCEVN3101", u"TRAVELLER LIST FOR NCEVN3101", u"NEVER LOOKED AT",
            u"     NAME                   RECLOC  COMPANY", u"   1 ABELMANN/IDA MS        H1J2K3",
            u"END OF BLOCK - USE PDMD", u">", u"LOST"});
const Text officeCompanies =
    screen({u"PLT//KES", u"SIMILAR COMPANY NAME LIST", u"NEVER LOOKED AT", u"     COMPANY             OFFICE",
            u"   1 KESTRELLO TOOLS", u"NO NUMBER", u">", u"LOST"});
const Text history =
    screen({u"PH", u"PROFILE HISTORY              KQ4R7T", u"TRAVELLER PROFILE   : SMITH/ANNA MS",
            u"LAST PNR TRANSFER  : 04MAR24", u"PROFILE CREATION   : 19AUG21", u"COMPANY PROFILE      LOST"});
const Text linked = screen({u"RLP", u"--- RLR ---", u"RP/NCEVN3101/", u"T/KQ4R7T /P1", u">", u"LOST"});

const std::string titleResults =
    "add blnKeyTrList blnKeyTrProfile blnKeyCompanyList blnKeyCoProfile blnKeyMerge strKeyCoNames blnKeyEndOfBlock "
    "strKeyRecLocPos";
const std::string similarResults =
    "add blnKeyCoProfile blnKeyTrProfile blnKeyCoList strKeyCoNames blnKeyTrList blnKeyEndOfBlock";
const std::string officeResults =
    "add blnKeyTravellerList blnKeyCompanyList blnKeyProfile blnKeyMerge strKeyCoNames blnKeyNoCoFoundString "
    "blnKeyNoTrPrFoundString strKeyNoCoAssoArray()";
const std::string itemResults = "add blnKeyList blnKeyProfile blnKeyMerge blnKeyEndOfList blnKeyError blnKeyCoProfile";
const std::string locatorResults =
    "add blnKeyCoProfile blnKeyTrProfile blnKeyErrNoRecLoc blnKeyErrCheckInput blnKeyMerged blnKeyDeactivatedTProfile";
const std::string historyResults =
    "add blnKeyProfile blnKeyEndOfList strKeyLastPNRTransDate strKeyName strKeyProfileCreationDate";
const std::string messageResults = "add blnKeyResponseOK strKeyErrorString";
const Entries continued{{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", u"30"}};

INSTANTIATE_TEST_SUITE_P(
    Each, ReadingCallsOf,
    testing::Values(
        ReadingCalls{"PDN", u"CPDNTrans", other, {}, "line 1-9; new; " + titleResults},
        ReadingCalls{"PDNProfile", u"CPDNTrans", traveller, {}, "line 1; new; " + titleResults},
        ReadingCalls{"PDNList", u"CPDNTrans", companyList, {}, "line 1-4; new; " + titleResults},
        ReadingCalls{"PDNContinuation", u"CPDNTrans", longContinuation, continued,
                     "flag blnKeyEndOfBlock; text strKeyRecLocPos; line 1-11; new; " + titleResults},
        ReadingCalls{"PDNEmpty", u"CPDNTrans", {}, continued, ""},

        // The collection is created first, and the state is read even for an empty response.
        ReadingCalls{"PDA", u"CPDATrans", other, {}, "new; line 0-5; " + similarResults},
        ReadingCalls{"PDAProfile", u"CPDATrans", traveller, {}, "new; line 0-1; " + similarResults},
        ReadingCalls{"PDAList", u"CPDATrans", companyList, {}, "new; line 0-4; " + similarResults},
        ReadingCalls{"PDAContinuation", u"CPDATrans", longContinuation, continued,
                     "new; flag blnKeyEndOfBlock; line 0-11; " + similarResults},
        ReadingCalls{"PDAEmpty", u"CPDATrans", {}, {}, "new"},
        ReadingCalls{"PDAEmptyContinuation", u"CPDATrans", {}, continued, "new; flag blnKeyEndOfBlock"},

        ReadingCalls{"PDMD", u"CPDMDTrans", companyList, continued, ""},

        // "PD" and "PDT" cut their lines from the response themselves.
        ReadingCalls{"PD", u"CPDTrans", traveller, {}, "new; " + itemResults},
        ReadingCalls{"PDT", u"CPDTTrans", traveller, {}, "new; add blnKeyProfile"},
        ReadingCalls{"PDTEmpty", u"CPDTTrans", {}, {}, ""},
        ReadingCalls{"PDI", u"CPDITrans", other, {}, "new; line 0-5; add blnKeyCoProfile blnKeyTrProfile"},
        ReadingCalls{"PDIProfile", u"CPDITrans", traveller, {}, "new; line 0-1; add blnKeyCoProfile blnKeyTrProfile"},

        ReadingCalls{"PDR", u"CPDRTrans", other, {}, "new; line 0-3; " + locatorResults},
        ReadingCalls{"PDRProfile", u"CPDRTrans", traveller, {}, "new; line 0-1; " + locatorResults},
        ReadingCalls{
            "PCN", u"CPCNTrans", other, {}, "find *T* at 4 *C* at 4; new; add blnKeyTrProfile blnKeyCoProfile"},
        ReadingCalls{
            "PCNTraveller", u"CPCNTrans", traveller, {}, "find *T* at 4; new; add blnKeyTrProfile blnKeyCoProfile"},
        ReadingCalls{"PCNEmpty", u"CPCNTrans", {}, {}, ""},

        ReadingCalls{"PLC", u"CPLCTrans", other, {}, "new; line 1-9; add blnKeyCompanyList blnKeyProfile"},
        ReadingCalls{"PLCList",
                     u"CPLCTrans",
                     screen({u"", u"COMPANY NAME LIST", u""}),
                     {},
                     "new; line 1; add blnKeyCompanyList blnKeyProfile"},
        ReadingCalls{"PLT", u"CPLTTrans", other, {}, "new; line 1-9; " + officeResults},
        ReadingCalls{"PLTTravellers", u"CPLTTrans", officeTravellers, {}, "new; line 1 3-6; " + officeResults},
        ReadingCalls{"PLTCompanies", u"CPLTTrans", officeCompanies, {}, "new; line 1 3-6; " + officeResults},

        ReadingCalls{"PH", u"CPHTrans", other, {}, "new; line 0-5; " + historyResults},
        ReadingCalls{"PHHistory", u"CPHTrans", history, {}, "new; line 0-4; " + historyResults},
        ReadingCalls{"PHWithoutDates",
                     u"CPHTrans",
                     screen({u"", u"PROFILE HISTORY", u"NOTHING ELSE"}),
                     {},
                     "new; line 0-12; " + historyResults},

        ReadingCalls{"PT",
                     u"CPTTrans",
                     other,
                     {},
                     "new; find RP/ at 10 - PNR CREATED at 10 - PNR UPDATED at 10; "
                     "add blnKeyPNR blnKeyPNRCreated blnKeyPNRUpdated"},
        ReadingCalls{
            "PBN", u"CPBNTrans", other, {}, "new; find RP/ at 6 - PNR UPDATED at 6; add blnKeyPNR blnKeyPNRUpdated"},
        ReadingCalls{
            "PBI", u"CPBITrans", other, {}, "new; find RP/ at 6 - PNR UPDATED at 6; add blnKeyPNR blnKeyPNRUpdated"},

        ReadingCalls{"PX", u"CPXTrans", other, {}, "new; line 0-4; add blnKeyResponseOK"},
        ReadingCalls{"PXAccepted",
                     u"CPXTrans",
                     screen({u"PX3", u"PROFILE WILL BE DEACTIVATED", u"LOST"}),
                     {},
                     "new; line 0-1; add blnKeyResponseOK"},

        ReadingCalls{"RLP", u"CRLPTrans", linked, Entries{{u"strKeyIndex", u"0"}},
                     "text strKeyIndex; new; line 1-2 1-4; "
                     "add strKeyPasAsso strKeyRecLoc blnKeyTraveller blnKeyCompany"},
        ReadingCalls{"RLPNone", u"CRLPTrans", screen({u"RLP", u"NO ELEMENT FOUND", u"LOST"}),
                     Entries{{u"strKeyIndex", u"0"}}, "text strKeyIndex; new; line 1; add blnKeyNoElementsFound"},
        ReadingCalls{"RLPOther", u"CRLPTrans", other, Entries{{u"strKeyIndex", u"0"}},
                     "text strKeyIndex; new; line 1-4"},

        ReadingCalls{"Mode", u"CProfileMode", other, Entries{},
                     "flag blnKeyUpdate blnKeyExit blnKeyEnter blnKeyIgnore; line 1; " + messageResults},
        ReadingCalls{"PN", u"CProfileNotes", other, Entries{}, "text strCommand; line 1; " + messageResults}),
    readingName);

TEST_P(ReadingCallsOf, AreThoseForTheLinesItTestsAndForItsResults) {
    FailingTerminal terminal;
    const auto object = createObject(GetParam().className, terminal);
    const auto& state = GetParam().state;
    object->profileTrans()->VerifyResponse(GetParam().screen, terminal.watched(state ? collection(*state) : nullptr));
    EXPECT_EQ(summaryOf(terminal.calls()), GetParam().calls);
    EXPECT_TRUE(terminal.reports().empty());
}

TEST(RecLocCountCalls, EndAtThePromptOrAtLine24) {
    FailingTerminal terminal;
    const auto object = createObject(u"CRLPTrans", terminal);
    const CountProperty& count = *findCount(*findClass(u"CRLPTrans"), u"RecLocCount");
    count.call(*object, CountRequest{linked});
    EXPECT_EQ(summaryOf(terminal.calls()), "line 1-4");

    FailingTerminal endless;
    count.call(*createObject(u"CRLPTrans", endless), CountRequest{other});
    EXPECT_EQ(summaryOf(endless.calls()), "line 1-24");
}

}  // namespace
}  // namespace vantro::test
