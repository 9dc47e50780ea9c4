#include "server/operations.h"

#include "server/com/error.h"
#include "server/com_collection.h"

namespace vantro::com {

namespace {

IDispatch* counted(IDispatch* object) {
    if (object != nullptr) object->AddRef();
    return object;
}

// The selection of a call, which the library changes and which goes back into the caller's array however the call
// ends.
class Selection {
public:
    explicit Selection(const VARIANT* argument) {
        if (argument == nullptr || isAbsent(*argument)) return;
        array_ = arrayIn(*argument);
        if (array_ == nullptr) fail(Failure::TypeMismatch);
        texts_ = elementsIn(array_);
    }

    TextList* texts() { return array_ == nullptr ? nullptr : &texts_; }

    void storeBack() {
        if (array_ != nullptr) storeElements(array_, texts_);
    }

private:
    SAFEARRAY* array_ = nullptr;
    TextList texts_;
};

// The type library gives an object no interface that its class does not have.
template <class Interface>
Interface& had(Interface* offered) {
    if (offered == nullptr) fail(Failure::CannotCreateObject);
    return *offered;
}

std::int16_t countOf(Served& served, TextView name, const CountRequest& request) {
    const CountProperty* const property = findCount(served.row, name);
    if (property == nullptr) fail(Failure::CannotCreateObject);
    return property->call(*served.object, request);
}

CollectionPtr elements(IProfileGet& parser, TextView display, const CollectionPtr& collection, Selection& selection,
                       TextView qualifier) {
    try {
        CollectionPtr unknown = parser.ProfileElements(display, collection, selection.texts(), qualifier);
        selection.storeBack();
        return unknown;
    } catch (const Error&) {
        selection.storeBack();
        throw;
    }
}

}  // namespace

HRESULT createCommand(Served& served, const IID& about, const VARIANT& params, BSTR* command) noexcept {
    if (command == nullptr) return E_POINTER;
    *command = nullptr;
    return atBorder(about, [&] {
        const Text text = had(served.object->profileTrans()).CreateCommand(ComCollection::from(params));
        *command = newBstr(text);
    });
}

HRESULT verifyResponse(Served& served, const IID& about, BSTR response, const VARIANT& collection,
                       IDispatch** results) noexcept {
    if (results == nullptr) return E_POINTER;
    *results = nullptr;
    return atBorder(about, [&] {
        const CollectionPtr given = ComCollection::from(collection);
        const CollectionPtr made = had(served.object->profileTrans()).VerifyResponse(viewOf(response), given);
        *results = counted(ComCollection::objectOf(made));
    });
}

HRESULT profileElements(Served& served, const IID& about, BSTR display, const VARIANT& collection, VARIANT* selection,
                        const VARIANT& qualifier, IDispatch** unknownFamily) noexcept {
    if (unknownFamily == nullptr) return E_POINTER;
    *unknownFamily = nullptr;
    return atBorder(about, [&] {
        const CollectionPtr given = ComCollection::from(collection);
        Selection selected(selection);
        const Text qualifierText = textIn(qualifier);
        const CollectionPtr unknown =
            elements(had(served.object->profileGet()), viewOf(display), given, selected, qualifierText);
        *unknownFamily = counted(ComCollection::objectOf(unknown));
    });
}

HRESULT count(Served& served, const IID& about, TextView name, BSTR text, SHORT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = 0;
    return atBorder(about, [&] { *result = countOf(served, name, {viewOf(text)}); });
}

HRESULT count(Served& served, const IID& about, TextView name, BSTR text, VARIANT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    VariantInit(result);
    return atBorder(about, [&] { *result = Variant::of(countOf(served, name, {viewOf(text)})).detach(); });
}

HRESULT countNotes(Served& served, const IID& about, BSTR text, const VARIANT& searchString,
                   const VARIANT& searchQualifier, SHORT* result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = 0;
    return atBorder(about, [&] {
        const Text search = textIn(searchString);
        const Text qualifier = textIn(searchQualifier);
        *result = countOf(served, u"ProfileNotesElementsCount", {viewOf(text), search, qualifier});
    });
}

HRESULT elementList(Served& served, const IID& about, BSTR name, VARIANT* list) noexcept {
    if (list == nullptr) return E_POINTER;
    VariantInit(list);
    return atBorder(about, [&] {
        const TextList* const texts = served.object->list(viewOf(name));
        if (texts == nullptr) fail(Failure::InvalidProcedureCall);
        *list = Variant::arrayOfVariants(*texts).detach();
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
