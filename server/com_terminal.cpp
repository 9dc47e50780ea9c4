#include "server/com_terminal.h"

#include "server/com/error.h"
#include "server/com/thread_slot.h"
#include "server/numbered_error.h"
#include "server/terminal_ids.h"

#include <functional>

namespace vantro::com {

namespace {

IDispatch* objectOf(const ItemPtr& item) {
    return item ? static_cast<const ComItem&>(*item).object() : nullptr;  // every item came from a ComCollection
}

Ptr<IDispatch> newTerminalObject(const CLSID& clsid) {
    Ptr<IDispatch> object;
    SetErrorInfo(0, nullptr);  // the current information belongs to an earlier call
    check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveAny()));
    if (!object) fail(Failure::ObjectNotSet);
    return object;
}

// A helper object of the terminal that is created when it is first called.
class HelperObject {
public:
    explicit HelperObject(const CLSID& clsid) : clsid_(clsid) {}

    IDispatch* get() {
        if (!object_) object_ = newTerminalObject(clsid_);
        return object_.get();
    }

private:
    const CLSID& clsid_;
    Ptr<IDispatch> object_;
};

// Creates the terminal's collections. The class object is kept after the first creation that succeeds, with a lock on
// its server, because a reference to a class object alone does not keep a library loaded. One that cannot be locked is
// not kept.
class CollectionClass {
public:
    CollectionClass() = default;
    CollectionClass(const CollectionClass&) = delete;
    CollectionClass& operator=(const CollectionClass&) = delete;
    ~CollectionClass() {
        if (kept_) kept_->LockServer(FALSE);
    }

    Ptr<IDispatch> create() {
        SetErrorInfo(0, nullptr);  // the current information belongs to an earlier call
        if (kept_) return createdBy(kept_);
        Ptr<IClassFactory> factory;
        check(CoGetClassObject(kesto::KeyedCollection, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               factory.receiveAny()));
        Ptr<IDispatch> object = createdBy(factory);
        if (!kept_ && SUCCEEDED(factory->LockServer(TRUE))) kept_ = std::move(factory);
        return object;
    }

private:
    static Ptr<IDispatch> createdBy(const Ptr<IClassFactory>& factory) {
        Ptr<IDispatch> object;
        if (factory) check(factory->CreateInstance(nullptr, IID_IDispatch, object.receiveAny()));
        if (!object) fail(Failure::ObjectNotSet);
        return object;
    }

    Ptr<IClassFactory> kept_;
};

class ComReporter final : public ErrorReporter {
public:
    void ReportError(const Error& current, const Error* replacement) override {
        const Ptr<IErrorInfo> whileReporting = numberedError(current);
        if (replacement == nullptr) {
            reportError_.call(object_.get(), {}, whileReporting.get());
            return;
        }
        VARIANT number;
        number.vt = VT_I4;
        number.lVal = replacement->number();
        const Bstr source(replacement->source());
        const Bstr description(replacement->description());
        reportError_.call(object_.get(), {number, borrowed(source.get()), borrowed(description.get())},
                          whileReporting.get());
    }

private:
    HelperObject object_{kesto::ErrorReporter};
    Member reportError_{u"ReportError"};
};

// What one thread keeps of the terminal.
struct Helpers {
    HelperObject functions{kesto::TerminalFunctions};
    Member itemText{u"ItemText"};
    Member itemBoolean{u"ItemBoolean"};
    Member screenLine{u"ScreenLine"};
    Member findMarker{u"FindMarker"};
    Member textField{u"TextField"};
    ComReporter reporter;
    CollectionClass collections;
    std::shared_ptr<CollectionMembers> members = std::make_shared<CollectionMembers>();
};

ThreadSlot<Helpers>& slot() {
    static ThreadSlot<Helpers> helpers;
    return helpers;
}

Variant calledFunction(Member Helpers::*function, std::initializer_list<VARIANT> arguments) {
    Helpers& helpers = slot().get();
    return (helpers.*function).call(helpers.functions.get(), arguments);
}

bool isSame(TextView text, TextView other) { return text.data() == other.data() && text.size() == other.size(); }

bool isPart(TextView text, TextView whole) {
    constexpr std::less_equal<const char16_t*> notAfter{};
    return notAfter(whole.data(), text.data()) && notAfter(text.data() + text.size(), whole.data() + whole.size());
}

TextView kept(const Variant& result, TextStore& store) {
    const VARIANT& value = result.get();
    return value.vt == VT_BSTR ? store.keepCopy(viewOf(value.bstrVal)) : store.keep(textIn(value));
}

}  // namespace

BSTR ComTerminal::passed(TextView text) {
    const TextView whole = viewOf(read_.given);
    if (read_.given != nullptr && isSame(text, whole)) return read_.given;
    if (read_.copied.empty() || !isSame(text, read_.copied)) {
        read_.copy = Bstr(text);
        read_.copied = isPart(text, whole) ? text : TextView();
    }
    return read_.copy.get();
}

ErrorReporter& ComTerminal::errorReporter() { return slot().get().reporter; }

CollectionPtr ComTerminal::createCollection() {
    return std::make_shared<ComCollection>(slot().get().collections.create());
}

TextView ComTerminal::ItemText(const ItemPtr& item, TextStore& store) {
    return kept(calledFunction(&Helpers::itemText, {borrowed(objectOf(item))}), store);
}

bool ComTerminal::ItemBoolean(const ItemPtr& item) {
    return truthIn(calledFunction(&Helpers::itemBoolean, {borrowed(objectOf(item))}).get());
}

TextView ComTerminal::ScreenLine(TextView response, std::int16_t line, TextStore& store) {
    return kept(calledFunction(&Helpers::screenLine, {borrowed(passed(response)), borrowed(line)}), store);
}

bool ComTerminal::FindMarker(TextView response, TextView marker, std::int16_t line) {
    const Bstr markerText(marker);
    return truthIn(
        calledFunction(&Helpers::findMarker, {borrowed(passed(response)), borrowed(markerText.get()), borrowed(line)})
            .get());
}

TextView ComTerminal::TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) {
    const Bstr whole(text);
    const Bstr separatorText(separator);
    return kept(
        calledFunction(&Helpers::textField, {borrowed(whole.get()), borrowed(number), borrowed(separatorText.get())}),
        store);
}

std::shared_ptr<CollectionMembers> terminalMembers() { return slot().get().members; }

bool releaseLastHelpers() { return slot().releaseLast(); }

}  // namespace vantro::com
