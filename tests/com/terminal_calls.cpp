#include "tests/com/terminal_calls.h"

#include "server/com/error.h"
#include "server/com/late_call.h"
#include "tests/com/client.h"

#include <utility>

namespace vantro::test {

using Operation = TerminalCall::Operation;

class CallRecorder::Item final : public KeyedItem {
public:
    Item(CallRecorder& recorder, std::size_t position, const ItemPtr& inner)
        : recorder_(recorder),
          position_(position),
          inner_(std::make_shared<BuiltInCollection::Entry>(TextView(), inner->Value())) {}

    // The server fetches a value once.
    const ItemValue& Value() const override {
        if (!std::exchange(isFetched_, true)) recorder_.note({.operation = Operation::Value, .source = position_});
        return inner_->Value();
    }
    std::size_t firstIndex() const override { return inner_->firstIndex(); }

    std::size_t position() const { return position_; }
    ItemPtr inner() const { return inner_; }

private:
    CallRecorder& recorder_;
    std::size_t position_;
    ItemPtr inner_;
    mutable bool isFetched_ = false;
};

class CallRecorder::Collection final : public KeyedCollection {
public:
    Collection(CallRecorder& recorder, std::shared_ptr<BuiltInCollection> inner, bool isCreated)
        : recorder_(recorder), inner_(std::move(inner)), isCreated_(isCreated) {}

    void Add(TextView key, ItemValue value) override {
        recorder_.note({.operation = Operation::Add, .text = Text(key), .value = value, .onCreated = isCreated_});
        inner_->Add(key, std::move(value));
    }
    ItemPtr Item(TextView key) const override {
        const std::size_t position =
            recorder_.note({.operation = Operation::Item, .text = Text(key), .onCreated = isCreated_});
        const ItemPtr item = inner_->Item(key);
        return item ? std::make_shared<CallRecorder::Item>(recorder_, position, item) : nullptr;
    }

private:
    CallRecorder& recorder_;
    std::shared_ptr<BuiltInCollection> inner_;
    bool isCreated_;
};

std::size_t CallRecorder::sourceOf(const ItemPtr& item) {
    return item ? static_cast<const Item&>(*item).position() : TerminalCall::nothing;
}

ItemPtr CallRecorder::readable(const ItemPtr& item) { return item ? static_cast<const Item&>(*item).inner() : nullptr; }

std::size_t CallRecorder::note(TerminalCall call) {
    calls_.push_back(std::move(call));
    return calls_.size() - 1;
}

CollectionPtr CallRecorder::passed(std::shared_ptr<BuiltInCollection> collection) {
    return collection ? std::make_shared<Collection>(*this, std::move(collection), false) : nullptr;
}

CollectionPtr CallRecorder::createCollection() {
    note({.operation = Operation::Create});
    return std::make_shared<Collection>(*this, std::make_shared<BuiltInCollection>(), true);
}

TextView CallRecorder::ItemText(const ItemPtr& item, TextStore& store) {
    note({.operation = Operation::ItemText, .source = sourceOf(item)});
    return inner_.functions().ItemText(readable(item), store);
}

bool CallRecorder::ItemBoolean(const ItemPtr& item) {
    note({.operation = Operation::ItemBoolean, .source = sourceOf(item)});
    return inner_.functions().ItemBoolean(readable(item));
}

TextView CallRecorder::ScreenLine(TextView response, std::int16_t line, TextStore& store) {
    note({.operation = Operation::ScreenLine, .text = Text(response), .number = line});
    return inner_.functions().ScreenLine(response, line, store);
}

bool CallRecorder::FindMarker(TextView response, TextView marker, std::int16_t line) {
    note({.operation = Operation::FindMarker, .text = Text(response), .second = Text(marker), .number = line});
    return inner_.functions().FindMarker(response, marker, line);
}

TextView CallRecorder::TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) {
    note({.operation = Operation::TextField, .text = Text(text), .second = Text(separator), .number = number});
    return inner_.functions().TextField(text, number, separator, store);
}

void CallRecorder::ReportError(const Error& current, const Error*) {
    throw Error(current);  // a benchmark's operation does not fail
}

namespace {

TextView nameOf(Operation operation) {
    switch (operation) {
        case Operation::Add: return u"Add";
        case Operation::Item: return u"Item";
        case Operation::Value: return u"Value";
        case Operation::ItemText: return u"ItemText";
        case Operation::ItemBoolean: return u"ItemBoolean";
        case Operation::ScreenLine: return u"ScreenLine";
        case Operation::FindMarker: return u"FindMarker";
        case Operation::TextField: return u"TextField";
        case Operation::Create: break;
    }
    fail(Failure::InvalidProcedureCall);
}

com::Ptr<IClassFactory> classObject(TextView name) {
    com::Ptr<IClassFactory> factory;
    com::check(CoGetClassObject(registeredClass(u"VantroKestoFaces", name), CLSCTX_INPROC_SERVER, nullptr,
                                IID_IClassFactory, factory.receiveAny()));
    return factory;
}

com::Ptr<IDispatch> newObject(IClassFactory* factory) {
    com::Ptr<IDispatch> object;
    com::check(factory->CreateInstance(nullptr, IID_IDispatch, object.receiveAny()));
    return object;
}

DISPID idOf(IDispatch* object, TextView name) {
    DISPID id = DISPID_UNKNOWN;
    auto* text = const_cast<OLECHAR*>(com::characters(name));
    com::check(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_SYSTEM_DEFAULT, &id));
    return id;
}

}  // namespace

DirectCalls::DirectCalls(const TerminalCalls& calls, com::Ptr<IDispatch> passed)
    : passed_(std::move(passed)),
      functions_(newObject(classObject(u"TerminalFunctions").get())),
      collections_(classObject(u"KeyedCollection")) {
    for (const TerminalCall& call : calls) steps_.push_back(stepOf(call));
}

VARIANT DirectCalls::prepared(com::Variant value) { return prepared_.emplace_back(std::move(value)).get(); }

// Equal texts are one BSTR.
VARIANT DirectCalls::preparedText(const Text& text) {
    const auto known = texts_.find(text);
    if (known != texts_.end()) return known->second;
    return texts_[text] = prepared(com::Variant::of(TextView(text)));
}

DirectCalls::Step DirectCalls::stepOf(const TerminalCall& call) {
    Step step{call.operation, call.onCreated, call.source, {}};
    switch (call.operation) {
        case Operation::Create:
        case Operation::Value: break;
        case Operation::Add: {
            prepared(com::Variant::of(call.value));
            VARIANT* const value = prepared_.back().pointer();
            prepared(com::Variant::of(TextView(call.text)));
            BSTR* const key = &prepared_.back().pointer()->bstrVal;
            step.lastFirst = {com::borrowedByReference(value), com::borrowedByReference(key)};
            break;
        }
        case Operation::Item: step.lastFirst = {preparedText(call.text)}; break;
        case Operation::ItemText:
        case Operation::ItemBoolean: step.lastFirst = {noArgument()}; break;  // the item, once there is one
        case Operation::ScreenLine: step.lastFirst = {com::borrowed(call.number), preparedText(call.text)}; break;
        case Operation::FindMarker:
            step.lastFirst = {com::borrowed(call.number), preparedText(call.second), preparedText(call.text)};
            break;
        case Operation::TextField:
            step.lastFirst = {preparedText(call.second), com::borrowed(call.number), preparedText(call.text)};
            break;
    }
    return step;
}

IDispatch* DirectCalls::itemOf(const Step& step) const {
    if (step.source == TerminalCall::nothing) return nullptr;
    return steps_[step.source].result.pdispVal;
}

void DirectCalls::make(Step& step) {
    if (step.operation == Operation::Create) {
        created_ = newObject(collections_.get());
        return;
    }
    IDispatch* object = functions_.get();
    if (step.operation == Operation::Add || step.operation == Operation::Item) {
        object = step.onCreated ? created_.get() : passed_.get();
    } else if (step.operation == Operation::Value) {
        object = itemOf(step);
    } else if (step.operation == Operation::ItemText || step.operation == Operation::ItemBoolean) {
        step.lastFirst.front() = com::borrowed(itemOf(step));
    }
    if (step.id == DISPID_UNKNOWN) step.id = idOf(object, nameOf(step.operation));
    DISPPARAMS parameters{step.lastFirst.data(), nullptr, static_cast<UINT>(step.lastFirst.size()), 0};
    com::check(object->Invoke(step.id, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                              &parameters, &step.result, nullptr, nullptr));
    if (step.operation != Operation::Item) VariantClear(&step.result);
}

void DirectCalls::make() {
    for (Step& step : steps_) make(step);
    for (Step& step : steps_) VariantClear(&step.result);
    created_.reset();
}

}  // namespace vantro::test
