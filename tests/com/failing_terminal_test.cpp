// A terminal of another making that fails: every call of every operation in its turn, in every way in which a call
// by name can fail. What comes out is what the error convention says, and what the linked library makes of the same
// failure; and nothing is left behind.
#include "server/client/remote_collection.h"
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/com/failing_operations.h"
#include "tests/com/memory_spy.h"
#include "tests/com/reference_terminal.h"
#include "tests/com/terminal_control.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <thread>

namespace vantro::test {
namespace {

using Call = Operation::Call;

/// What one call of an operation led to.
struct Outcome {
    Raised raised;
    std::string given;  ///< the command, the count, or whether a collection came back
    Entries results;    ///< of that collection
    Entries request;    ///< of the collection passed, after the call
    std::vector<int> reported;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    PrintTo(outcome.raised, out);
    *out << "; gives " << outcome.given << "; results " << testing::PrintToString(outcome.results) << "; request "
         << testing::PrintToString(outcome.request) << "; reported " << testing::PrintToString(outcome.reported);
}

Raised raisedFrom(const Error& error) { return {error.number(), utf8(error.source()), utf8(error.description())}; }

std::string given(bool collection) { return collection ? "a collection" : "none"; }

// The selection of a query for "ALL".
TextList selected() { return {u"s  rm"}; }

// --- the linked library

void call(const Operation& operation, ProfileObject& object, const CollectionPtr& params, Outcome& outcome) {
    switch (operation.call) {
        case Call::Command: outcome.given = utf8(object.profileTrans()->CreateCommand(params)); break;
        case Call::Response: {
            const CollectionPtr results = object.profileTrans()->VerifyResponse(operation.screen, params);
            outcome.given = given(results != nullptr);
            if (results) outcome.results = entriesOf(ReferenceTerminal::inner(results));
            break;
        }
        case Call::Count: {
            const CountProperty* const property = findCount(*findClass(operation.className), operation.property);
            outcome.given = std::to_string(property->call(object, {operation.screen}));
            break;
        }
        case Call::Elements: {
            TextList selection = selected();
            outcome.given =
                given(object.profileGet()->ProfileElements(operation.screen, params, &selection, {}) != nullptr);
            break;
        }
    }
}

Outcome runLinked(const Operation& operation, ReferenceTerminal& terminal) {
    const auto object = createObject(*findClass(operation.className), terminal);
    const CollectionPtr params = terminal.watched(operation.params ? collection(*operation.params) : nullptr);
    Outcome outcome;
    try {
        call(operation, *object, params, outcome);
    } catch (const Error& error) {
        outcome.raised = raisedFrom(error);
    }
    if (params) outcome.request = entriesOf(ReferenceTerminal::inner(params));
    outcome.reported = terminal.reported();
    return outcome;
}

// --- the registered server

Ptr<IClassFactory> factoryOf(TextView library, TextView className) {
    Ptr<IClassFactory> factory;
    com::check(CoGetClassObject(registeredClass(library, className), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                factory.receiveAny()));
    return factory;
}

template <class Interface>
Ptr<Interface> made(const Ptr<IClassFactory>& factory, const IID& iid) {
    Ptr<Interface> object;
    com::check(factory->CreateInstance(nullptr, iid, object.receiveAny()));
    return object;
}

Entries readBack(IDispatch* object) {
    const auto copy = std::make_shared<BuiltInCollection>();
    com::copyBack(object, *copy);
    return entriesOf(copy);
}

class ServerRun {
public:
    explicit ServerRun(const Operation& operation)
        : operation_(operation),
          server_(factoryOf(u"VantroProfileUtils", operation.className)),
          collections_(factoryOf(u"VantroKestoFaces", u"KeyedCollection")) {}

    TerminalControl& control() { return control_; }

    /// The operation's outcome with its call number `failing` (0 for none) ending so.
    Outcome run(long failing, Fault fault, Fault failingReports = Fault::None) {
        control_.failAt(0, Fault::None);
        const Ptr<IDispatch> params = operation_.params ? filled(*operation_.params) : nullptr;
        const auto object = made<IUnknown>(server_, IID_IUnknown);
        Outcome outcome;
        Ptr<IDispatch> results;
        control_.failAt(failing, fault);
        control_.failReports(failingReports);
        leaveAnEarlierError();
        call(object, params, outcome, results);
        outcome.reported = control_.reported();
        calls_ = failing == 0 ? control_.calls() : calls_;
        control_.failAt(0, Fault::None);
        if (results) outcome.results = readBack(results.get());
        if (params) outcome.request = readBack(params.get());
        SetErrorInfo(0, nullptr);
        return outcome;
    }

    /// The calls of the run in which none failed.
    const std::vector<std::string>& calls() const { return calls_; }

private:
    void call(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, Outcome& outcome, Ptr<IDispatch>& results) {
        const Bstr screen(operation_.screen);
        switch (operation_.call) {
            case Call::Command: {
                Bstr command;
                const auto trans = object.as<::IProfileTrans>(IID_IProfileTrans);
                outcome.raised = raisedBy(trans->CreateCommand(argument(params.get()), command.receive()));
                outcome.given = utf8(command.view());
                break;
            }
            case Call::Response: {
                const auto trans = object.as<::IProfileTrans>(IID_IProfileTrans);
                outcome.raised =
                    raisedBy(trans->VerifyResponse(screen.get(), argument(params.get()), results.receive()));
                if (outcome.raised.number == 0) outcome.given = given(static_cast<bool>(results));
                break;
            }
            case Call::Count: count(object, screen, outcome); break;
            case Call::Elements: query(object, params, screen, outcome); break;
        }
    }

    // Whatever the thread did last may have left an error behind; it is none of this call's.
    static void leaveAnEarlierError() {
        Ptr<ICreateErrorInfo> earlier;
        com::check(CreateErrorInfo(earlier.receive()));
        const Bstr text(u"an earlier error");
        earlier->SetSource(text.get());
        earlier->SetDescription(text.get());
        SetErrorInfo(0, earlier.as<IErrorInfo>(IID_IErrorInfo).get());
    }

    void count(const Ptr<IUnknown>& object, const Bstr& screen, Outcome& outcome) {
        com::Member property(operation_.property);
        try {
            const auto dispatch = object.as<IDispatch>(IID_IDispatch);
            outcome.given = utf8(com::textIn(property.call(dispatch.get(), {com::borrowed(screen.get())}).get()));
        } catch (const Error& error) {
            outcome.raised = raisedFrom(error);
        }
    }

    void query(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, const Bstr& screen, Outcome& outcome) {
        Ptr<IDispatch> unknown;
        Variant selection = Variant::of(ItemValue(selected()));
        const auto parser = object.as<::IProfileGet>(IID_IProfileGet);
        outcome.raised = raisedBy(parser->ProfileElements(screen.get(), argument(params.get()), selection.pointer(),
                                                          noArgument(), unknown.receive()));
        if (outcome.raised.number == 0) outcome.given = given(static_cast<bool>(unknown));
    }

    Ptr<IDispatch> filled(const Entries& entries) {
        auto collection = made<IDispatch>(collections_, IID_IDispatch);
        for (const Entry& entry : entries) {
            const Bstr key(entry.key);
            const Variant value = Variant::of(entry.value);
            add_.call(collection.get(), {com::borrowed(key.get()), value.get()});
        }
        return collection;
    }

    const Operation& operation_;
    Ptr<IClassFactory> server_;
    Ptr<IClassFactory> collections_;
    TerminalControl control_;
    com::Member add_{u"Add"};
    std::vector<std::string> calls_;
};

// --- what a fault is to the step that it hits

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
    if (call.starts_with("Add ")) return Ending::usual();  // what it gives back is of no interest
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

// --- the tests

class ForeignTerminal : public testing::TestWithParam<Operation> {
protected:
    // What the table says; the step's own error is `step`.
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

TEST_P(ForeignTerminal, FailsAsTheConventionSays) {
    const Operation& operation = GetParam();
    ServerRun server(operation);
    server.run(0, Fault::None);
    server.run(1, Fault::OwnError);  // whatever is made once is made now
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

// What one apartment makes of a terminal whose helper objects cannot be created, and can be later.
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

TEST(ForeignTerminalsObjects, AreAskedForAgainAfterAFailure) {
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
