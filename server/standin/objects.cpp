#include "server/standin/objects.h"

#include "server/com/array.h"
#include "server/com/error.h"
#include "server/com/ref_counted.h"
#include "server/com/variant.h"
#include "server/standin/state.h"
#include "vantro/built_in_terminal.h"
#include "vantro_kesto_faces.h"
#include "vantro_profile_utils.h"

#include <unordered_map>

namespace vantro::com::standin {

namespace {

std::atomic<long> live{0};

class LiveCount {
public:
    LiveCount() { ++live; }
    ~LiveCount() { --live; }
    LiveCount(const LiveCount&) = delete;
    LiveCount& operator=(const LiveCount&) = delete;
};

// An object with one dual interface.
template <class Interface>
class Single : public RefCounted<Dispatching<Interface>> {
protected:
    explicit Single(const IID& iid) : RefCounted<Dispatching<Interface>>(iid) {}

    bool isOwn(REFIID iid) const final { return iid == IID_IDispatch || iid == this->dispatchedIid(); }

    // An operation of the terminal: counted, and failing when a test has asked for it.
    template <class Body>
    HRESULT operation(Body&& body) noexcept {
        return atBorder(this->dispatchedIid(), [&] {
            State::only().enterCall();
            body();
        });
    }

    template <class Body>
    HRESULT uncounted(Body&& body) noexcept {
        return atBorder(this->dispatchedIid(), std::forward<Body>(body));
    }

private:
    ModuleLock lock_;
};

VARIANT_BOOL truth(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// An item keeps its value when the collection changes: a copy that owns it.
class OwnedItem final : public KeyedItem {
public:
    OwnedItem(ItemValue value, std::size_t firstIndex) : value_(std::move(value)), firstIndex_(firstIndex) {}

    const ItemValue& Value() const override { return value_; }
    std::size_t firstIndex() const override { return firstIndex_; }

    /// The value as it was stored, a list with its lower bound.
    Variant asVariant() const {
        const auto* const list = std::get_if<TextList>(&value_);
        return list == nullptr ? Variant::of(value_) : Variant::arrayOfTexts(*list, firstIndex_);
    }

private:
    ItemValue value_;
    std::size_t firstIndex_;
};

class StoredItem final : public Single<IKeyedItem> {
public:
    explicit StoredItem(std::shared_ptr<const OwnedItem> stored) : Single(IID_IKeyedItem), stored_(std::move(stored)) {}

    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* value) override {
        VariantInit(value);
        return operation([&] { *value = stored_->asVariant().detach(); });
    }

    ItemPtr stored() const { return stored_; }

private:
    LiveCount count_;
    std::shared_ptr<const OwnedItem> stored_;
};

class Collection final : public Single<IKeyedCollection> {
public:
    Collection() : Single(IID_IKeyedCollection) { State::only().enterCall(); }

    HRESULT STDMETHODCALLTYPE Add(VARIANT* key, VARIANT* value, IDispatch** item) override {
        *item = nullptr;
        return operation([&] {
            const Text keyText = textIn(*key);
            collection_.Add(keyText, itemValueIn(*value));
            firstIndexes_[keyText] = containsArray(*value) ? indexedListIn(arrayIn(*value)).firstIndex : 0;
            *item = newItem(keyText).detach();
        });
    }

    HRESULT STDMETHODCALLTYPE Item(BSTR key, IDispatch** item) override {
        *item = nullptr;
        return operation([&] { *item = newItem(viewOf(key)).detach(); });
    }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override {
        *count = static_cast<LONG>(collection_.entries().size());
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_Key(LONG index, BSTR* key) override {
        *key = nullptr;
        return uncounted([&] {
            const auto entries = collection_.entries();
            if (index < 0 || static_cast<std::size_t>(index) >= entries.size()) fail(Failure::SubscriptOutOfRange);
            *key = newBstr(entries[static_cast<std::size_t>(index)].key());
        });
    }

private:
    Ptr<IDispatch> newItem(TextView key) const {
        const ItemPtr stored = collection_.Item(key);
        if (!stored) return {};
        return Ptr<IDispatch>(
            new StoredItem(std::make_shared<OwnedItem>(stored->Value(), firstIndexes_.at(Text(key)))));
    }

    LiveCount count_;
    BuiltInCollection collection_;
    std::unordered_map<Text, std::size_t> firstIndexes_;  // of the lists
};

// The stored item of a `StoredItem` object; null for Nothing.
ItemPtr storedIn(IDispatch* object) {
    if (object == nullptr) return {};
    const auto item = Ptr(object).as<IKeyedItem>(IID_IKeyedItem);
    if (!item) fail(Failure::TypeMismatch);
    return static_cast<const StoredItem*>(item.get())->stored();
}

class Functions final : public Single<ITerminalFunctions> {
public:
    Functions() : Single(IID_ITerminalFunctions) {}

    HRESULT STDMETHODCALLTYPE ItemText(IDispatch* item, BSTR* text) override {
        *text = nullptr;
        return operation([&] {
            TextStore store;
            *text = newBstr(terminal_.functions().ItemText(storedIn(item), store));
        });
    }

    HRESULT STDMETHODCALLTYPE ItemBoolean(IDispatch* item, VARIANT_BOOL* value) override {
        *value = VARIANT_FALSE;
        return operation([&] { *value = truth(terminal_.functions().ItemBoolean(storedIn(item))); });
    }

    HRESULT STDMETHODCALLTYPE ScreenLine(BSTR response, SHORT line, BSTR* text) override {
        *text = nullptr;
        return operation([&] {
            TextStore store;
            State::only().addLineFetch();
            *text = newBstr(terminal_.functions().ScreenLine(viewOf(response), line, store));
        });
    }

    HRESULT STDMETHODCALLTYPE FindMarker(BSTR response, BSTR marker, SHORT line, VARIANT /*option*/,
                                         VARIANT_BOOL* found) override {
        *found = VARIANT_FALSE;
        return operation(
            [&] { *found = truth(terminal_.functions().FindMarker(viewOf(response), viewOf(marker), line)); });
    }

    HRESULT STDMETHODCALLTYPE TextField(BSTR text, SHORT number, BSTR separator, BSTR* field) override {
        *field = nullptr;
        return operation([&] {
            TextStore store;
            *field = newBstr(terminal_.functions().TextField(viewOf(text), number, viewOf(separator), store));
        });
    }

private:
    LiveCount count_;
    BuiltInTerminal terminal_;
};

int numberIn(const VARIANT& value) {
    Variant converted;
    check(convert(dereferenced(value), VT_I4, converted));
    return converted.get().lVal;
}

// The error that is current in the thread. Only this project's server sets its number.
ReportedError currentError() {
    Ptr<IErrorInfo> info;
    if (GetErrorInfo(0, info.receive()) != S_OK) return {0, {}};
    Bstr description;
    info->GetDescription(description.receive());
    LONG number = 0;
    if (const auto numbered = info.as<INumberedError>(IID_INumberedError)) numbered->get_Number(&number);
    return {static_cast<int>(number), Text(description.view())};
}

class Reporter final : public Single<IErrorReporter> {
public:
    Reporter() : Single(IID_IErrorReporter) {}

    HRESULT STDMETHODCALLTYPE ReportError(VARIANT number, VARIANT /*source*/, VARIANT description) override {
        const ReportedError current = currentError();
        return operation([&] {
            const bool given = !isAbsent(number);
            State::only().addReport(given ? ReportedError{numberIn(number), textIn(description)} : current);
        });
    }

private:
    LiveCount count_;
};

class Control final : public Single<IStandInControl> {
public:
    Control() : Single(IID_IStandInControl) {}

    HRESULT STDMETHODCALLTYPE FailAtCall(LONG call, LONG number) override {
        State::only().failAt(call, static_cast<int>(number));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reset() override { return FailAtCall(0, 0); }
    HRESULT STDMETHODCALLTYPE get_CallCount(LONG* count) override {
        *count = State::only().calls();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_LiveObjects(LONG* count) override {
        *count = liveObjects();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_ReportedCount(LONG* count) override {
        *count = static_cast<LONG>(State::only().reported().size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Reported(LONG index, LONG* number) override {
        return uncounted([&] { *number = reported(index).number; });
    }
    HRESULT STDMETHODCALLTYPE get_ReportedText(LONG index, BSTR* text) override {
        *text = nullptr;
        return uncounted([&] { *text = newBstr(reported(index).description); });
    }
    HRESULT STDMETHODCALLTYPE get_LineFetches(LONG* count) override {
        *count = State::only().lineFetches();
        return S_OK;
    }

private:
    static ReportedError reported(LONG index) {
        const auto errors = State::only().reported();
        if (index < 0 || static_cast<std::size_t>(index) >= errors.size()) fail(Failure::SubscriptOutOfRange);
        return errors[static_cast<std::size_t>(index)];
    }
};

template <class Object>
Ptr<IUnknown> make() {
    return Ptr<IUnknown>(new Object);
}

struct Creator {
    TextView name;
    Ptr<IUnknown> (*create)();
};

constexpr Creator creators[] = {
    {u"KeyedCollection", make<Collection>},
    {u"TerminalFunctions", make<Functions>},
    {u"ErrorReporter", make<Reporter>},
    {u"StandInControl", make<Control>},
};

}  // namespace

Ptr<IUnknown> newObject(const ClassInfo& info) {
    for (const Creator& creator : creators) {
        if (creator.name == info.name) return creator.create();
    }
    fail(Failure::CannotCreateObject);
}

long liveObjects() { return live; }

}  // namespace vantro::com::standin
