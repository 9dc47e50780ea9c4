// Every error number, forced by a terminal that fails at its k-th call, on both routes: through the interface's
// own operations and through `Invoke`.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <vector>

namespace vantro::test {
namespace {

constexpr int terminalsNumber = 1004;
constexpr long mostCalls = 400;

const Raised terminalsFailure{terminalsNumber, "VantroKestoFaces", "The terminal failed, as it was asked to."};

// Runs a call with the terminal failing at call 1, 2, ... until it needs no further call, and returns every error that
// was raised. Where none was raised, the failure must have been reported.
struct Sweep {
    std::vector<Raised> raised;
    std::vector<int> reported;
    long swallowedUnreported = 0;
};

std::vector<int> reportedNow(const Ptr<IStandInControl>& control) {
    std::vector<int> numbers;
    LONG count = 0;
    control->get_ReportedCount(&count);
    for (LONG index = 0; index < count; ++index) {
        LONG number = 0;
        control->get_Reported(index, &number);
        numbers.push_back(static_cast<int>(number));
    }
    return numbers;
}

Sweep sweep(const std::function<HRESULT()>& call) {
    Sweep seen;
    const auto control = standIn();
    for (long failing = 1; failing < mostCalls; ++failing) {
        control->FailAtCall(failing, terminalsNumber);
        const Raised raised = raisedBy(call());
        LONG calls = 0;
        control->get_CallCount(&calls);
        if (calls < failing) break;
        const std::vector<int> reported = reportedNow(control);
        if (raised.number != 0) seen.raised.push_back(raised);
        if (raised.number == 0 && reported.empty()) ++seen.swallowedUnreported;
        seen.reported.insert(seen.reported.end(), reported.begin(), reported.end());
    }
    control->Reset();
    return seen;
}

void expectOnly(const Sweep& seen, const Raised& expected) {
    for (const Raised& raised : seen.raised) EXPECT_EQ(raised, expected);
    EXPECT_FALSE(seen.raised.empty());
}

Entries everyParameter() {
    return {{u"strKeyName", u"MARTEN"},        {u"strKeyCompany", u"KESTRELLO"}, {u"strKeyItemNr", u"3"},
            {u"strKeyRecLoc", u"Q2W3E4"},      {u"strKeyIndicator", u"T"},       {u"strKeyIndex", u"0"},
            {u"strKeyOfficeID", u"NCEVN3101"}, {u"strCommand", u"PN"},           {u"blnKeyEnter", true}};
}

// A screen on which every reader finds something to do.
Text busyScreen() { return screen({u"ECHO", u"RP/NCEVN3101/", u"*T* MARTEN/LOVIS MRS", u"T/ABC123 /P1", u">"}); }

struct Numbers {
    const char16_t* name;
    int create;  ///< 0: the terminal's own error passes
    int verify;
    bool createCallsTerminal = true;
};

void PrintTo(const Numbers& numbers, std::ostream* out) { *out << utf8(numbers.name); }

const std::vector<Numbers> transactions{
    {u"CPDTrans", 5000, 5005},  {u"CPXTrans", 5010, 5015},      {u"CPDTTrans", 5020, 5025, false},
    {u"CPBNTrans", 0, 5035},    {u"CProfileMode", 5040, 5045},  {u"CProfileNotes", 5040, 5045},
    {u"CPLTTrans", 5050, 5055}, {u"CPDNTrans", 0, 5075},        {u"CPHTrans", 5080, 5085},
    {u"CPDITrans", 5090, 5095}, {u"CPDATrans", 0, 5105},        {u"CPDRTrans", 0, 5110},
    {u"CPTTrans", 0, 5120},     {u"CRLPTrans", 0, 5130, false}, {u"CPLCTrans", 5135, 5140},
    {u"CPBITrans", 5385, 5390}, {u"CPCNTrans", 0, 0},
};

class FailingTerminalUnder : public testing::TestWithParam<Numbers> {
protected:
    Ptr<::IProfileTrans> trans_ = newTrans(GetParam().name);
    Ptr<IKeyedCollection> params_ = terminalCollection(everyParameter());
    Bstr response_{busyScreen()};
};
INSTANTIATE_TEST_SUITE_P(, FailingTerminalUnder, testing::ValuesIn(transactions),
                         [](const auto& numbers) { return utf8(numbers.param.name); });

TEST_P(FailingTerminalUnder, CreateCommandRaisesTheClassesNumberOrTheTerminalsOwn) {
    const Sweep seen = sweep([&] {
        Bstr command;
        return trans_->CreateCommand(argument(params_.get()), command.receive());
    });
    const Raised expected = GetParam().create == 0 ? terminalsFailure : creatingFailed(GetParam().create);
    for (const Raised& raised : seen.raised) EXPECT_EQ(raised, expected);
    EXPECT_EQ(!seen.raised.empty(), GetParam().createCallsTerminal);
    EXPECT_EQ(seen.swallowedUnreported, 0);
}

TEST_P(FailingTerminalUnder, VerifyResponseRaisesTheClassesNumberOrTheTerminalsOwn) {
    const Sweep seen = sweep([&] {
        Ptr<IDispatch> results;
        return trans_->VerifyResponse(response_.get(), argument(params_.get()), results.receive());
    });
    expectOnly(seen, GetParam().verify == 0 ? terminalsFailure : verifyingFailed(GetParam().verify));
    EXPECT_EQ(seen.swallowedUnreported, 0);
    for (const int number : seen.reported) {
        // What is reported is the failure itself; the linked profiles report their own number instead.
        EXPECT_EQ(number, Text(GetParam().name) == u"CRLPTrans" ? 5130 : terminalsNumber);
    }
}

TEST_P(FailingTerminalUnder, VerifyResponseRaisesTheSameThroughInvoke) {
    com::Member verify{u"VerifyResponse"};
    const auto object = trans_.as<IDispatch>(IID_IDispatch);
    const auto control = standIn();
    std::set<int> numbers;
    for (long failing = 1; failing < mostCalls; ++failing) {
        LONG calls = 0;
        control->FailAtCall(failing, terminalsNumber);
        try {
            verify.call(object.get(), {com::borrowed(response_.get()), argument(params_.get())});
        } catch (const Error& error) {
            const Raised raised{error.number(), utf8(error.source()), utf8(error.description())};
            EXPECT_EQ(raised, GetParam().verify == 0 ? terminalsFailure : verifyingFailed(GetParam().verify));
            numbers.insert(error.number());
        }
        control->get_CallCount(&calls);
        if (calls < failing) break;
    }
    control->Reset();
    EXPECT_EQ(numbers.size(), 1u);
}

TEST(FailingTerminalUnderMoveDown, NothingFailsBecauseNothingIsAsked) {
    const auto trans = newTrans(u"CPDMDTrans");
    const Bstr response(busyScreen());
    const Sweep seen = sweep([&] {
        Ptr<IDispatch> results;
        return trans->VerifyResponse(response.get(), noArgument(), results.receive());
    });
    EXPECT_TRUE(seen.raised.empty());
}

Text fullDisplay() {
    return screen(
        {u"PDR/KQ4R7T", u"*T* MARTEN/LOVIS MRS", u"------- PRIORITY", u"1  PPR/WINDOW SEAT", u"END OF DISPLAY"});
}

struct CountNumber {
    const char16_t* property;
    int number;
};

void PrintTo(const CountNumber& count, std::ostream* out) { *out << utf8(count.property); }

const std::vector<CountNumber> counts{
    {u"PPRElementsCount", 5266},           {u"PGLElementsCount", 5267},
    {u"PPSElementsCount", 5270},           {u"PHIElementsCount", 5272},
    {u"PCIElementsCount", 5290},           {u"PPCElementsCount", 5285},
    {u"PPHElementsCount", 5273},           {u"PPAElementsCount", 5292},
    {u"PPKElementsCount", 5293},           {u"PPIElementsCount", 5280},
    {u"PXCElementsCount", 5295},           {u"PXAElementsCount", 5296},
    {u"PXKElementsCount", 5281},           {u"PSHElementsCount", 5282},
    {u"PSCElementsCount", 5283},           {u"PPTElementsCount", 5284},
    {u"PXTElementsCount", 5286},           {u"RemarkElementsCount", 5260},
    {u"ContactElementsCount", 5235},       {u"OtherServiceElementsCount", 5250},
    {u"FrequentFlyerElementsCount", 5255}, {u"ServiceRequestElementsCount", 5245},
    {u"SeatElementsCount", 5240},          {u"RemarkConfElementsCount", 5260},
    {u"PASElementsCount", 5287},           {u"PIVElementsCount", 5288},
    {u"PCEElementsCount", 5289},           {u"PIDElementsCount", 5290},
    {u"PFOElementsCount", 5291},
};

class FailingTerminalUnderCount : public testing::TestWithParam<CountNumber> {};
INSTANTIATE_TEST_SUITE_P(, FailingTerminalUnderCount, testing::ValuesIn(counts),
                         [](const auto& count) { return utf8(count.param.property); });

TEST_P(FailingTerminalUnderCount, RaisesTheFamilysNumber) {
    const auto profile = newServerObject<IDispatch>(u"CProfile", IID_IDispatch);
    const Bstr display(fullDisplay());
    const auto control = standIn();
    control->FailAtCall(1, terminalsNumber);
    com::Member property(GetParam().property);
    try {
        property.call(profile.get(), {com::borrowed(display.get())});
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        const Raised raised{error.number(), utf8(error.source()), utf8(error.description())};
        EXPECT_EQ(raised, verifyingFailed(GetParam().number));
    }
    control->Reset();
}

TEST(FailingTerminalUnderParser, ProfileElementsLetsTheStepsOwnErrorThrough) {
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"PHI"}});
    const Bstr display(fullDisplay());
    const Sweep seen = sweep([&] {
        Ptr<IDispatch> unknown;
        return profile->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(),
                                        unknown.receive());
    });
    std::set<int> numbers;
    for (const Raised& raised : seen.raised) numbers.insert(raised.number);
    // The terminal's failure in the query's own steps, the family's number from the count.
    EXPECT_EQ(numbers, (std::set<int>{terminalsNumber, 5272}));
    EXPECT_EQ(seen.raised.front(), terminalsFailure);
    EXPECT_EQ(seen.swallowedUnreported, 0);
}

TEST(FailingTerminalUnderParser, AnEmptyPrefixIs5065) {
    for (const char16_t* const name : {u"CProfile", u"CProfileNotes"}) {
        const auto parser = newGet(name);
        const auto request = terminalCollection({{u"strKeyPrefix", u""}});
        const Bstr display(fullDisplay());
        Ptr<IDispatch> unknown;
        EXPECT_EQ(raisedBy(parser->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(),
                                                   unknown.receive())),
                  verifyingFailed(5065));
        EXPECT_FALSE(unknown);
    }
}

TEST(FailingTerminalUnderParser, AnIndexBeyondTheConfidentialRemarksIs5265) {
    const auto parser = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"RC"}, {u"intKeyIndex", 1}});
    const Bstr display(fullDisplay());
    Ptr<IDispatch> unknown;
    EXPECT_EQ(raisedBy(parser->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(),
                                               unknown.receive())),
              verifyingFailed(5265));
}

TEST(FailingTerminalUnderNotes, TheCountIs5505AndTheQuery5500) {
    const auto notes = newServerObject<ICProfileNotes>(u"CProfileNotes", IID_ICProfileNotes);
    const Bstr display(screen({u"PN", u"------- PROFILE NOTES", u"A  PREFERS TEA", u"END OF DISPLAY"}));
    expectOnly(sweep([&] {
                   SHORT count = 0;
                   return notes->ProfileNotesElementsCount(display.get(), noArgument(), noArgument(), &count);
               }),
               notesFailed(5505));
    const auto request = terminalCollection({{u"strKeyPrefix", u"ProfileNotes"}});
    const Sweep query = sweep([&] {
        Ptr<IDispatch> unknown;
        return notes->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive());
    });
    std::set<int> numbers;
    for (const Raised& raised : query.raised) numbers.insert(raised.number);
    EXPECT_EQ(numbers, (std::set<int>{terminalsNumber, 5500}));
}

TEST(FailingTerminalUnderLinkedProfiles, TheCountReportsItsOwnNumberAndGoesOn) {
    const auto linked = newServerObject<ICRLPTrans>(u"CRLPTrans", IID_ICRLPTrans);
    const Bstr response(busyScreen());
    const Sweep seen = sweep([&] {
        SHORT count = 0;
        return linked->RecLocCount(response.get(), &count);
    });
    EXPECT_TRUE(seen.raised.empty());
    EXPECT_EQ(std::set<int>(seen.reported.begin(), seen.reported.end()), std::set<int>{5130});
}

TEST(ReportedErrors, AreCurrentInTheThreadDuringReportError) {
    const auto trans = newTrans(u"CPDNTrans");
    const auto control = standIn();
    const Bstr response(busyScreen());
    Ptr<IDispatch> results;
    control->FailAtCall(1, terminalsNumber);
    ASSERT_EQ(trans->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
    Bstr text;
    ASSERT_EQ(control->get_ReportedText(0, text.receive()), S_OK);
    EXPECT_EQ(utf8(text.view()), terminalsFailure.description);
    EXPECT_EQ(reportedNow(control), std::vector<int>{terminalsNumber});
    control->Reset();
}

TEST(PassedThroughErrors, KeepAResultCodeThatIsNoAutomationNumber) {
    const auto trans = newTrans(u"CPCNTrans");
    const auto control = standIn();
    Bstr command;
    const auto params = terminalCollection(everyParameter());
    control->FailAtCall(1, static_cast<LONG>(RPC_E_DISCONNECTED));
    EXPECT_EQ(trans->CreateCommand(argument(params.get()), command.receive()), RPC_E_DISCONNECTED);
    control->Reset();
}

}  // namespace
}  // namespace vantro::test
