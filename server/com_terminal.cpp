#include "server/com_terminal.h"

#include "server/com/error.h"
#include "server/com/thread_slot.h"
#include "server/numbered_error.h"
#include "server/terminal_ids.h"

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

class ComFunctions final : public TerminalFunctions {
public:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return kept(itemText_.call(object_.get(), {borrowed(objectOf(item))}), store);
    }

    bool ItemBoolean(const ItemPtr& item) override {
        return answer(itemBoolean_.call(object_.get(), {borrowed(objectOf(item))}));
    }

    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        const Bstr text(response);
        return kept(screenLine_.call(object_.get(), {borrowed(text.get()), borrowed(line)}), store);
    }

    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        const Bstr text(response);
        const Bstr markerText(marker);
        return answer(
            findMarker_.call(object_.get(), {borrowed(text.get()), borrowed(markerText.get()), borrowed(line)}));
    }

    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        const Bstr whole(text);
        const Bstr separatorText(separator);
        return kept(
            textField_.call(object_.get(), {borrowed(whole.get()), borrowed(number), borrowed(separatorText.get())}),
            store);
    }

private:
    static TextView kept(const Variant& result, TextStore& store) { return store.keep(textIn(result.get())); }

    static bool answer(const Variant& result) { return truthIn(result.get()); }

    HelperObject object_{kesto::TerminalFunctions};
    Member itemText_{u"ItemText"};
    Member itemBoolean_{u"ItemBoolean"};
    Member screenLine_{u"ScreenLine"};
    Member findMarker_{u"FindMarker"};
    Member textField_{u"TextField"};
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

// The terminal objects that one thread keeps.
struct Helpers {
    ComFunctions functions;
    ComReporter reporter;
    std::shared_ptr<CollectionMembers> members = std::make_shared<CollectionMembers>();
};

ThreadSlot<Helpers>& slot() {
    static ThreadSlot<Helpers> helpers;
    return helpers;
}

class ComTerminal final : public Terminal {
public:
    TerminalFunctions& functions() override { return slot().get().functions; }
    ErrorReporter& errorReporter() override { return slot().get().reporter; }
    CollectionPtr createCollection() override {
        return std::make_shared<ComCollection>(newTerminalObject(kesto::KeyedCollection));
    }
};

}  // namespace

Terminal& comTerminal() {
    static ComTerminal only;
    return only;
}

std::shared_ptr<CollectionMembers> terminalMembers() { return slot().get().members; }

bool releaseLastHelpers() { return slot().releaseLast(); }

}  // namespace vantro::com
