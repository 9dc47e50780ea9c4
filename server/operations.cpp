#include "server/operations.h"

#include "server/com/array.h"
#include "server/com/error.h"
#include "server/com_collection.h"

#include <optional>

namespace vantro::com {

namespace {

constexpr TextView notesCount = u"ProfileNotesElementsCount";

IDispatch* counted(IDispatch* object) {
    if (object != nullptr) object->AddRef();
    return object;
}

// The collection of a call. When it turns out to be no object, only that error is reported: the call is wrong, not what
// the operation does with it.
class CollectionArgument {
public:
    explicit CollectionArgument(const VARIANT& argument) : collection_(ComCollection::from(argument)) {}

    template <class Operation>
    auto use(Operation&& operation) const {
        try {
            return operation(collection_);
        } catch (const Error&) {
            if (ComCollection::isRefused(collection_)) fail(Failure::TypeMismatch);
            throw;
        }
    }

private:
    CollectionPtr collection_;
};

// The last two arguments of a query. Every changed entry is stored in the caller's array at once, so that the array has
// the changes even when the call fails.
class SelectionArguments final : public SelectionSource {
public:
    SelectionArguments(const VARIANT* selection, const VARIANT& qualifier)
        : selection_(selection), qualifier_(qualifier) {}

    std::size_t size() override {
        if (selection_ == nullptr || isAbsent(*selection_)) return 0;
        if (!containsArray(*selection_)) fail(Failure::TypeMismatch);
        return entries_.emplace(arrayIn(*selection_)).size();
    }
    Text entry(std::size_t index) override { return entries_->text(index); }
    void store(std::size_t index, const Text& changed) override { entries_->store(index, changed); }

    TextView qualifier() override {
        qualifierText_ = textIn(qualifier_);
        return qualifierText_;
    }

private:
    const VARIANT* selection_;
    const VARIANT& qualifier_;
    std::optional<ArrayEntries> entries_;
    Text qualifierText_;
};

// The type library lists for a class only the interfaces that it implements.
template <class Interface>
Interface& had(Interface* offered) {
    if (offered == nullptr) fail(Failure::CannotCreateObject);
    return *offered;
}

// Runs an operation that reads, as a call of the object's recording.
template <class Body>
HRESULT recorded(Served& served, const IID& about, TextView name, Body&& body) noexcept {
    return atBorder(about, [&] {
        const Recorder::Call call(served.recorder);
        if (!call.isRecorded()) return body();
        try {
            body();
        } catch (...) {
            served.recorder.failed(name, currentError());
            throw;
        }
    });
}

std::int16_t countOf(Served& served, TextView name, BSTR text, TextView search = {}, TextView qualifier = {}) {
    const CountProperty* const property = findCount(served.row, name);
    if (property == nullptr) fail(Failure::CannotCreateObject);
    const ComTerminal::Reading reading(served.terminal, text);
    return property->call(*served.object, {reading.text(), search, qualifier});
}

// Without notes to filter, the filters are not read.
std::int16_t countOfNotes(Served& served, BSTR text, const VARIANT& searchString, const VARIANT& searchQualifier) {
    if (viewOf(text).empty()) return countOf(served, notesCount, text);
    const Text search = textIn(searchString);
    const Text qualifier = textIn(searchQualifier);
    return countOf(served, notesCount, text, search, qualifier);
}

}  // namespace

HRESULT createCommand(Served& served, const IID& about, const VARIANT& params, BSTR* command) noexcept {
    if (command == nullptr) return E_POINTER;
    *command = nullptr;
    return recorded(served, about, u"CreateCommand", [&] {
        IProfileTrans& trans = had(served.object->profileTrans());
        const Text text = CollectionArgument(params).use([&](const auto& given) { return trans.CreateCommand(given); });
        *command = newBstr(text);
    });
}

HRESULT verifyResponse(Served& served, const IID& about, BSTR response, const VARIANT& collection,
                       IDispatch** results) noexcept {
    if (results == nullptr) return E_POINTER;
    *results = nullptr;
    return recorded(served, about, u"VerifyResponse", [&] {
        IProfileTrans& trans = had(served.object->profileTrans());
        const ComTerminal::Reading reading(served.terminal, response);
        const CollectionPtr made = CollectionArgument(collection).use([&](const auto& given) {
            return trans.VerifyResponse(reading.text(), given);
        });
        *results = counted(ComCollection::objectOf(made));
    });
}

HRESULT profileElements(Served& served, const IID& about, BSTR display, const VARIANT& collection, VARIANT* selection,
                        const VARIANT& qualifier, IDispatch** unknownFamily) noexcept {
    if (unknownFamily == nullptr) return E_POINTER;
    *unknownFamily = nullptr;
    return recorded(served, about, u"ProfileElements", [&] {
        IProfileGet& parser = had(served.object->profileGet());
        SelectionArguments selected(selection, qualifier);
        const ComTerminal::Reading reading(served.terminal, display);
        const CollectionPtr unknown = CollectionArgument(collection).use([&](const auto& given) {
            return parser.ProfileElements(reading.text(), given, selected);
        });
        *unknownFamily = counted(ComCollection::objectOf(unknown));
    });
}

HRESULT count(Served& served, const IID& about, TextView name, BSTR text, SHORT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = 0;
    return recorded(served, about, name, [&] { *result = countOf(served, name, text); });
}

HRESULT count(Served& served, const IID& about, TextView name, BSTR text, VARIANT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    VariantInit(result);
    return recorded(served, about, name, [&] { *result = Variant::of(countOf(served, name, text)).detach(); });
}

HRESULT countNotes(Served& served, const IID& about, BSTR text, const VARIANT& searchString,
                   const VARIANT& searchQualifier, SHORT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = 0;
    return recorded(served, about, notesCount,
                    [&] { *result = countOfNotes(served, text, searchString, searchQualifier); });
}

HRESULT elementList(Served& served, const IID& about, BSTR name, VARIANT* list) noexcept {
    if (list == nullptr) return E_POINTER;
    VariantInit(list);
    return atBorder(about, [&] {
        if (const TextList* const texts = served.object->list(viewOf(name))) {
            *list = Variant::arrayOfVariants(*texts).detach();
        } else if (const FlagList* const flags = served.object->flagList(viewOf(name))) {
            *list = Variant::arrayOfFlags(*flags).detach();
        } else {
            fail(Failure::InvalidProcedureCall);
        }
    });
}

HRESULT explain(Served& served, const IID& about, const VARIANT& recording, BSTR* explanation) noexcept {
    if (explanation == nullptr) return E_POINTER;
    *explanation = nullptr;
    return atBorder(about, [&] {
        const bool isSwitched = !isAbsent(recording);
        const bool isOn = isSwitched && truthIn(recording);
        *explanation = newBstr(served.recorder.text(served.row));
        if (isSwitched) served.recorder.record(isOn);
    });
}

HRESULT listOf(const IID& about, const VARIANT& collection, BSTR key, VARIANT* list) noexcept {
    if (list == nullptr) return E_POINTER;
    VariantInit(list);
    return atBorder(about, [&] {
        const CollectionPtr given = ComCollection::from(collection);
        if (!given) fail(Failure::ObjectNotSet);
        const ItemPtr item = given->Item(viewOf(key));
        if (!item) fail(Failure::ObjectNotSet);
        const auto* const texts = std::get_if<TextList>(&item->Value());
        if (texts == nullptr) fail(Failure::TypeMismatch);
        *list = Variant::arrayOfVariants(*texts).detach();
    });
}

}  // namespace vantro::com
