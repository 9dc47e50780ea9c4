#include "tests/com/failing_runs.h"

#include "server/com/error.h"
#include "tests/com/remote_collection.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

namespace vantro::test {

namespace {

using Call = Operation::Call;

std::string given(bool collection) { return collection ? "a collection" : "none"; }

// The selection of a query for "ALL".
TextList selected() { return {u"s  rm"}; }

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

std::string explain(const Ptr<IUnknown>& object, const VARIANT& recording) {
    Bstr text;
    com::check(object.as<IExplained>(IID_IExplained)->Explain(recording, text.receive()));
    return utf8(text.view());
}

Entries readBack(IDispatch* object) {
    const auto copy = std::make_shared<BuiltInCollection>();
    com::copyBack(object, *copy);
    return entriesOf(copy);
}

// Removes an error that the thread's earlier calls may have left; it does not belong to this call.
void leaveAnEarlierError() {
    Ptr<ICreateErrorInfo> earlier;
    com::check(CreateErrorInfo(earlier.receive()));
    const Bstr text(u"an earlier error");
    earlier->SetSource(text.get());
    earlier->SetDescription(text.get());
    SetErrorInfo(0, earlier.as<IErrorInfo>(IID_IErrorInfo).get());
}

}  // namespace

void PrintTo(const Outcome& outcome, std::ostream* out) {
    PrintTo(outcome.raised, out);
    *out << "; gives " << outcome.given << "; results " << testing::PrintToString(outcome.results) << "; request "
         << testing::PrintToString(outcome.request) << "; reported " << testing::PrintToString(outcome.reported);
}

Raised raisedFrom(const Error& error) { return {error.number(), utf8(error.source()), utf8(error.description())}; }

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

ServerRun::ServerRun(const Operation& operation)
    : operation_(operation),
      server_(factoryOf(u"VantroProfileUtils", operation.className)),
      collections_(factoryOf(u"VantroKestoFaces", u"KeyedCollection")) {}

Outcome ServerRun::run(long failing, Fault fault, Fault failingReports) {
    control_.failAt(0, Fault::None);
    const Ptr<IDispatch> params = operation_.params ? filled(*operation_.params) : nullptr;
    const auto object = made<IUnknown>(server_, IID_IUnknown);
    Outcome outcome;
    Ptr<IDispatch> results;
    if (isRecorded_) explain(object, Variant::of(true).get());
    control_.failAt(failing, fault);
    control_.failReports(failingReports);
    leaveAnEarlierError();
    call(object, params, outcome, results);
    outcome.reported = control_.reported();
    calls_ = failing == 0 ? control_.calls() : calls_;
    control_.failAt(0, Fault::None);
    explained_ = explain(object, noArgument());
    if (results) outcome.results = readBack(results.get());
    if (params) outcome.request = readBack(params.get());
    SetErrorInfo(0, nullptr);
    return outcome;
}

void ServerRun::call(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, Outcome& outcome,
                     Ptr<IDispatch>& results) {
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
            outcome.raised = raisedBy(trans->VerifyResponse(screen.get(), argument(params.get()), results.receive()));
            if (outcome.raised.number == 0) outcome.given = given(static_cast<bool>(results));
            break;
        }
        case Call::Count: count(object, screen, outcome); break;
        case Call::Elements: query(object, params, screen, outcome); break;
    }
}

void ServerRun::count(const Ptr<IUnknown>& object, const Bstr& screen, Outcome& outcome) {
    com::Member property(operation_.property);
    try {
        const auto dispatch = object.as<IDispatch>(IID_IDispatch);
        outcome.given = utf8(com::textIn(property.call(dispatch.get(), {com::borrowed(screen.get())}).get()));
    } catch (const Error& error) {
        outcome.raised = raisedFrom(error);
    }
}

void ServerRun::query(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, const Bstr& screen, Outcome& outcome) {
    Ptr<IDispatch> unknown;
    Variant selection = Variant::of(ItemValue(selected()));
    const auto parser = object.as<::IProfileGet>(IID_IProfileGet);
    outcome.raised = raisedBy(parser->ProfileElements(screen.get(), argument(params.get()), selection.pointer(),
                                                      noArgument(), unknown.receive()));
    if (outcome.raised.number == 0) outcome.given = given(static_cast<bool>(unknown));
}

Ptr<IDispatch> ServerRun::filled(const Entries& entries) {
    auto collection = made<IDispatch>(collections_, IID_IDispatch);
    for (const Entry& entry : entries) {
        const Bstr key(entry.key);
        const Variant value = Variant::of(entry.value);
        add_.call(collection.get(), {com::borrowed(key.get()), value.get()});
    }
    return collection;
}

}  // namespace vantro::test
