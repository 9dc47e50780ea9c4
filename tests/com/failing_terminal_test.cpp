// A foreign terminal library that fails: every call of every operation in turn, in every way in which a call by name
// can fail. The outcome is what the error convention requires and the same as with the linked library, and nothing
// stays allocated.
#include "server/com/error.h"
#include "tests/com/failing_runs.h"
#include "tests/com/memory_spy.h"
#include "tests/com/remote_collection.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <thread>

namespace vantro::test {
namespace {

constexpr const char16_t* ownName = u"VantroProfileUtils";

Ending mismatch() { return Ending::raised(Error(13, ownName, u"Type mismatch")); }

Ending failedCode(HRESULT result, TextView description) { return Ending::raised(Error(result, ownName, description)); }

Ending ownFailure() {
    return Ending::raised(Error(ownNumber, u"VantroKestoFaces", u"The terminal failed, as it was asked to."));
}

// A call that succeeds, with a value of the wrong kind.
Ending endingOfValue(const std::string& call, Fault fault) {
    const bool isText = call == "ItemText" || call.starts_with("ScreenLine ") || call.starts_with("TextField ");
    const bool isTruth = call == "ItemBoolean" || call.starts_with("FindMarker ");
    const bool isNothing = fault == Fault::Nothing || fault == Fault::Empty || fault == Fault::Null;
    if (call.starts_with("Add ")) return Ending::usual();  // its result is not used
    if (call == "createCollection") {
        return fault == Fault::Nothing ? Ending::raised(Error(91, ownName, u"Object variable not set"))
                                       : Ending::usual();
    }
    if (isText || call.starts_with("Item ")) return isNothing ? Ending::absent() : mismatch();
    if (isTruth) return fault == Fault::Empty ? Ending::absent() : mismatch();
    return fault == Fault::Empty ? Ending::absent() : mismatch();  // a value
}

Ending endingOf(const std::string& call, Fault fault) {
    switch (fault) {
        case Fault::OwnError:
        case Fault::OwnLateError: return ownFailure();
        case Fault::SilentError:
        case Fault::Fails: return failedCode(E_FAIL, u"A call failed with code 0x80004005");
        case Fault::NoMemory: return failedCode(E_OUTOFMEMORY, u"A call failed with code 0x8007000E");
        default: return endingOfValue(call, fault);
    }
}

class ForeignTerminal : public testing::TestWithParam<Operation> {
protected:
    // The outcome that the table requires; the step's own error is `step`.
    static void expectConsequence(char consequence, const Outcome& outcome, const Error& step) {
        const Operation& operation = GetParam();
        const bool own = consequence == '!';
        if (consequence == '=') {
            EXPECT_EQ(outcome.raised, Raised{});
            ASSERT_FALSE(outcome.reported.empty());
            EXPECT_EQ(outcome.reported.front(), operation.className == u"CRLPTrans" ? 5130 : step.number());
            return;
        }
        EXPECT_EQ(outcome.raised,
                  own ? (Raised{operation.number, "VantroProfileUtils", operation.description()}) : raisedFrom(step));
        EXPECT_TRUE(outcome.results.empty());
        EXPECT_TRUE(outcome.reported.empty());
    }

    static std::vector<std::string> upTo(const std::vector<std::string>& calls, long number) {
        return {calls.begin(), calls.begin() + number};
    }
};

INSTANTIATE_TEST_SUITE_P(Command, ForeignTerminal, testing::ValuesIn(failingCommands()),
                         [](const auto& test) { return test.param.name; });
INSTANTIATE_TEST_SUITE_P(Response, ForeignTerminal, testing::ValuesIn(failingResponses()),
                         [](const auto& test) { return test.param.name; });
INSTANTIATE_TEST_SUITE_P(Count, ForeignTerminal, testing::ValuesIn(failingCounts()),
                         [](const auto& test) { return test.param.name; });
INSTANTIATE_TEST_SUITE_P(Query, ForeignTerminal, testing::ValuesIn(failingQueries()),
                         [](const auto& test) { return test.param.name; });

TEST_P(ForeignTerminal, IsCalledAsTheLinkedOneIs) {
    ServerRun server(GetParam());
    ReferenceTerminal reference(0, Ending::usual());
    const Outcome linked = runLinked(GetParam(), reference);
    EXPECT_EQ(server.run(0, Fault::None), linked);
    EXPECT_EQ(server.calls(), reference.calls());
    EXPECT_EQ(linked.raised, Raised{});
    EXPECT_TRUE(linked.reported.empty());
}

TEST_P(ForeignTerminal, FailsAsTheErrorConventionRequires) {
    const Operation& operation = GetParam();
    ServerRun server(operation);
    server.run(0, Fault::None);
    server.run(1, Fault::OwnError);  // creates what is created only once
    const long objects = server.control().liveObjects();
    const std::size_t blocks = MemorySpy::outstanding();
    const auto calls = static_cast<long>(server.calls().size());
    for (long failing = 1; failing <= calls; ++failing) {
        const std::vector<std::string> before = upTo(server.calls(), failing);
        for (int kind = static_cast<int>(Fault::OwnError); kind <= static_cast<int>(lastFault); ++kind) {
            SCOPED_TRACE(before.back() + ", fault " + std::to_string(kind));
            const Ending ending = endingOf(before.back(), static_cast<Fault>(kind));
            ReferenceTerminal reference(failing, ending);
            const Outcome outcome = server.run(failing, static_cast<Fault>(kind));
            EXPECT_EQ(outcome, runLinked(operation, reference));
            if (ending.error) expectConsequence(operation.consequence(before), outcome, *ending.error);
            EXPECT_EQ(server.control().liveObjects(), objects);
            EXPECT_EQ(MemorySpy::outstanding(), blocks);
        }
    }
}

// The explanation names the error, and changes nothing.
TEST_P(ForeignTerminal, FailsTheSameWhileItIsRecorded) {
    const Operation& operation = GetParam();
    ServerRun server(operation);
    const Outcome unrecorded = server.run(0, Fault::None);
    EXPECT_EQ(server.explained(), "");
    server.record();
    EXPECT_EQ(server.run(0, Fault::None), unrecorded);
    const std::string whole = server.explained();
    const auto calls = static_cast<long>(server.calls().size());
    for (long failing = 1; failing <= calls; ++failing) {
        SCOPED_TRACE(server.calls()[static_cast<std::size_t>(failing - 1)]);
        ReferenceTerminal reference(failing, ownFailure());
        const Outcome outcome = server.run(failing, Fault::OwnError);
        EXPECT_EQ(outcome, runLinked(operation, reference));
        EXPECT_NE(server.explained(), whole);
        const int number = outcome.raised.number != 0 ? outcome.raised.number : outcome.reported.front();
        EXPECT_NE(server.explained().find(std::to_string(number)), std::string::npos) << server.explained();
    }
}

// An error that cannot even be reported is a failure of the whole operation.
TEST_P(ForeignTerminal, FailsWithItsReporter) {
    const Operation& operation = GetParam();
    ServerRun server(operation);
    server.run(0, Fault::None);
    const auto calls = static_cast<long>(server.calls().size());
    const Error unreported(E_FAIL, ownName, u"A call failed with code 0x80004005");
    for (long failing = 1; failing <= calls; ++failing) {
        const std::vector<std::string> before = upTo(server.calls(), failing);
        SCOPED_TRACE(before.back());
        ReferenceTerminal reference(failing, ownFailure(), unreported);
        const Outcome outcome = server.run(failing, Fault::OwnError, Fault::Fails);
        EXPECT_EQ(outcome, runLinked(operation, reference));
        if (operation.consequence(before) == '=')
            expectConsequence(operation.number == 0 ? '^' : '!', outcome, unreported);
    }
}

// One apartment with a terminal whose helper objects cannot be created at first, and can be later.
void useWithoutHelpers() {
    TerminalControl control;
    const auto company = newTrans(u"CPCNTrans");
    const auto item = newTrans(u"CPXTrans");
    const auto locator = newTrans(u"CPDRTrans");
    const Ptr<IDispatch> params = com::copiedOut(collection({{u"strKeyItemNr", u"3"}}));
    const Bstr shown(screen({u"PCN/K", u"*C*"}));
    Ptr<IDispatch> results;
    Bstr command;
    control.failHelpers(Fault::Fails);
    EXPECT_EQ(raisedBy(company->VerifyResponse(shown.get(), noArgument(), results.receive())),
              (Raised{E_FAIL, "VantroProfileUtils", "A call failed with code 0x80004005"}));
    EXPECT_EQ(raisedBy(item->CreateCommand(argument(params.get()), command.receive())), creatingFailed(5010));
    // The line that cannot be fetched cannot be reported either.
    EXPECT_EQ(raisedBy(locator->VerifyResponse(shown.get(), noArgument(), results.receive())), verifyingFailed(5110));
    control.failHelpers(Fault::None);
    EXPECT_EQ(item->CreateCommand(argument(params.get()), command.receive()), S_OK);
    EXPECT_EQ(utf8(command.view()), "PX3");
    EXPECT_EQ(company->VerifyResponse(shown.get(), noArgument(), results.receive()), S_OK);
    EXPECT_TRUE(results);
}

TEST(ForeignTerminalsObjects, AreRequestedAgainAfterAFailure) {
    // Another thread has no helper objects yet.
    std::thread apartment([] {
        CoInitialize(nullptr);
        useWithoutHelpers();
        CoUninitialize();
    });
    apartment.join();
}

TEST(ForeignTerminalsObjects, OfferAutomationAlone) {
    for (const char16_t* const name : {u"KeyedCollection", u"TerminalFunctions", u"ErrorReporter"}) {
        const auto object = com::newRegistered(Text(u"VantroKestoFaces.").append(name));
        UINT descriptions = 1;
        EXPECT_EQ(object->GetTypeInfoCount(&descriptions), S_OK);
        EXPECT_EQ(descriptions, 0U);
        for (const IID& iid :
             {IID_IKeyedCollection, IID_ITerminalFunctions, IID_IErrorReporter, IID_IProvideClassInfo}) {
            EXPECT_FALSE(object.as<IUnknown>(iid));
        }
    }
}

}  // namespace
}  // namespace vantro::test
