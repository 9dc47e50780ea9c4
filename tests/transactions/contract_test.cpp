// Rules that apply to every transaction class.
#include "tests/framework/raised.h"
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

struct ClassFacts {
    const char16_t* name;
    Entries emptyResults;      ///< for a screen without any mark, in the order added
    int commandWithoutParams;  ///< the error raised without a collection; 0 for a class that reads none
};

void PrintTo(const ClassFacts& facts, std::ostream* out) { *out << utf8(facts.name); }

std::string className(const testing::TestParamInfo<ClassFacts>& facts) { return utf8(facts.param.name); }

// clang-format off
const std::vector<ClassFacts> classes{
    {u"CPBITrans", {{u"blnKeyPNR", false}, {u"blnKeyPNRUpdated", false}}, 5385},
    {u"CPBNTrans", {{u"blnKeyPNR", false}, {u"blnKeyPNRUpdated", false}}, 91},
    {u"CPCNTrans", {{u"blnKeyTrProfile", false}, {u"blnKeyCoProfile", false}}, 91},
    {u"CPDATrans", {{u"blnKeyCoProfile", false}, {u"blnKeyTrProfile", false}, {u"blnKeyCoList", false},
                    {u"strKeyCoNames", u""}, {u"blnKeyTrList", false}, {u"blnKeyEndOfBlock", false}}, 91},
    {u"CPDITrans", {{u"blnKeyCoProfile", false}, {u"blnKeyTrProfile", false}}, 5090},
    {u"CPDNTrans", {{u"blnKeyTrList", false}, {u"blnKeyTrProfile", false}, {u"blnKeyCompanyList", false},
                    {u"blnKeyCoProfile", false}, {u"blnKeyMerge", false}, {u"strKeyCoNames", u""},
                    {u"blnKeyEndOfBlock", false}, {u"strKeyRecLocPos", u""}}, 91},
    {u"CPDRTrans", {{u"blnKeyCoProfile", false}, {u"blnKeyTrProfile", false}, {u"blnKeyErrNoRecLoc", false},
                    {u"blnKeyErrCheckInput", false}, {u"blnKeyMerged", false},
                    {u"blnKeyDeactivatedTProfile", false}}, 91},
    {u"CPDTrans", {{u"blnKeyList", false}, {u"blnKeyProfile", false}, {u"blnKeyMerge", false},
                   {u"blnKeyEndOfList", false}, {u"blnKeyError", false}, {u"blnKeyCoProfile", false}}, 5000},
    {u"CPDTTrans", {{u"blnKeyProfile", false}}, 0},
    {u"CPHTrans", {{u"blnKeyProfile", false}, {u"blnKeyEndOfList", false}, {u"strKeyLastPNRTransDate", u""},
                   {u"strKeyName", u""}, {u"strKeyProfileCreationDate", u""}}, 5080},
    {u"CPLCTrans", {{u"blnKeyCompanyList", false}, {u"blnKeyProfile", false}}, 5135},
    {u"CPLTTrans", {{u"blnKeyTravellerList", false}, {u"blnKeyCompanyList", false}, {u"blnKeyProfile", false},
                    {u"blnKeyMerge", false}, {u"strKeyCoNames", u""}, {u"blnKeyNoCoFoundString", false},
                    {u"blnKeyNoTrPrFoundString", false}, {u"strKeyNoCoAssoArray()", TextList{u""}}}, 5050},
    {u"CPXTrans", {{u"blnKeyResponseOK", false}}, 5010},
    {u"CPTTrans", {{u"blnKeyPNR", false}, {u"blnKeyPNRCreated", false}, {u"blnKeyPNRUpdated", false}}, 91},
};
// clang-format on

class EveryClass : public testing::TestWithParam<ClassFacts> {};
INSTANTIATE_TEST_SUITE_P(, EveryClass, testing::ValuesIn(classes), className);

TEST_P(EveryClass, AddsAllItsKeysInOrderForAScreenWithoutMarks) {
    DrivenClass driven(GetParam().name);
    const CollectionPtr results = driven.read(screen({u"", u"NOTHING OF INTEREST", u"", u">"}));
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(entriesOf(results), GetParam().emptyResults);
    EXPECT_TRUE(driven.reported.empty());
}

TEST_P(EveryClass, ReadsAResponseOfOneCharacter) {
    DrivenClass driven(GetParam().name);
    EXPECT_EQ(entriesOf(driven.read(u"*")), GetParam().emptyResults);
    EXPECT_TRUE(driven.reported.empty());
}

TEST_P(EveryClass, LeavesItsParametersUnchanged) {
    DrivenClass driven(GetParam().name);
    const Entries given{{u"strKeyName", u"SMITH"}, {u"blnKeyEndOfBlock", false}, {u"strKeyIndex", u"1"}};
    const CollectionPtr params = collection(given);
    driven.command(params);
    const CollectionPtr results = driven.read(u"RP/", params);
    EXPECT_NE(results, params);
    EXPECT_EQ(entriesOf(params), given);
}

TEST_P(EveryClass, KeepsNothingBetweenCalls) {
    DrivenClass driven(GetParam().name);
    driven.read(screenAt({{1, u"*T* *C* *MRG* RP/ - PNR CREATED WILL BE DEACTIVATED"}}));
    driven.read(screenAt({{1, u"SIMILAR COMPANY NAME LIST"},
                          {2, u"     COMPANY             RECLOC     "},
                          {3, u"     COMPANY             RECLOC     "},
                          {4, u"   1 KESTRELLO           Q2W3E4"}}));
    EXPECT_EQ(entriesOf(driven.read(u"*")), GetParam().emptyResults);
}

TEST_P(EveryClass, RaisesItsErrorForACommandWithoutACollection) {
    DrivenClass driven(GetParam().name);
    EXPECT_EQ(raisedNumber([&] { driven.command(CollectionPtr()); }), GetParam().commandWithoutParams);
    EXPECT_TRUE(driven.reported.empty());
}

std::vector<TextView> allTransactions() {
    std::vector<TextView> names;
    for (const ClassRow& row : classTable()) {
        if (row.hasProfileTrans) names.push_back(row.name);
    }
    return names;
}

const std::vector<TextView> transactions = allTransactions();

TEST(EmptyResponse, ReturnsNoCollectionWhateverTheState) {
    for (const TextView name : transactions) {
        DrivenClass driven(name);
        EXPECT_EQ(driven.read(u""), nullptr) << utf8(name);
        EXPECT_EQ(driven.read(u"", Entries{{u"blnKeyEndOfBlock", true}}), nullptr) << utf8(name);
        EXPECT_TRUE(driven.reported.empty()) << utf8(name);
    }
}

TEST(EmptyResponse, IsTestedBeforeTheStateIsReadExceptInSimilarNames) {
    const Entries unreadable{{u"blnKeyEndOfBlock", TextList{u"x"}},
                             {u"strKeyRecLocPos", TextList{u"x"}},
                             {u"strKeyIndex", TextList{u"x"}},
                             {u"blnKeyUpdate", TextList{u"x"}},
                             {u"strCommand", TextList{u"x"}}};
    for (const TextView name : transactions) {
        DrivenClass driven(name);
        const int expected = name == u"CPDATrans" ? 5105 : 0;
        EXPECT_EQ(raisedNumber([&] { driven.read(u"", unreadable); }), expected) << utf8(name);
    }
}

TEST(MoveDown, ReadsNothing) {
    DrivenClass driven(u"CPDMDTrans");
    EXPECT_EQ(driven.read(screenAt({{1, u"SIMILAR COMPANY NAME LIST"}})), nullptr);
    EXPECT_EQ(driven.command(CollectionPtr()), u"PDMD");
}

TEST(NoCollection, LetsLinkedProfilesBuildTheirCommand) {
    DrivenClass driven(u"CRLPTrans");
    EXPECT_EQ(driven.command(CollectionPtr()), u"RLP");
}

}  // namespace
}  // namespace vantro::test
