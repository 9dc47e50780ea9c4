#include "server/com/variant.h"

#include "server/com/array.h"
#include "server/com/error.h"

#include <algorithm>
#include <new>
#include <span>

namespace vantro::com {

namespace {

Variant newArray(VARTYPE type, std::size_t length, LONG lowerBound = 0) {
    SAFEARRAY* const array = SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(length));
    if (array == nullptr) throw std::bad_alloc();
    Variant value;
    value.pointer()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.pointer()->parray = array;
    return value;
}

Variant entryOf(const Text& text) { return Variant::of(TextView(text)); }
Variant entryOf(bool truth) { return Variant::of(truth); }

template <class List>
Variant arrayOfEntries(const List& list) {
    Variant value = newArray(VT_VARIANT, list.size());
    LONG index = 0;
    for (const auto& entry : list) {
        Variant element = entryOf(entry);
        check(SafeArrayPutElement(value.get().parray, &index, element.pointer()));
        ++index;
    }
    return value;
}

// The system's functions only read their source, but do not declare it const.
VARIANT* readOnly(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

// The rule for every incoming value: the system's own conversion, with automation's error numbers.
Variant coerced(const VARIANT& value, VARTYPE type) {
    Variant converted;
    const HRESULT result = convert(value, type, converted);
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    if (result == DISP_E_OVERFLOW) fail(Failure::Overflow);
    if (FAILED(result)) fail(Failure::TypeMismatch);
    return converted;
}

}  // namespace

Variant Variant::of(TextView text) {
    Variant made;
    made.value_.bstrVal = newBstr(text);
    made.value_.vt = VT_BSTR;
    return made;
}

Variant Variant::of(std::int16_t number) {
    Variant made;
    made.value_.vt = VT_I2;
    made.value_.iVal = number;
    return made;
}

Variant Variant::of(bool truth) {
    Variant made;
    made.value_.vt = VT_BOOL;
    made.value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

Variant Variant::of(IDispatch* object) {
    Variant made;
    if (object != nullptr) object->AddRef();
    made.value_.vt = VT_DISPATCH;
    made.value_.pdispVal = object;
    return made;
}

Variant Variant::of(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return of(*truth);
    if (const auto* number = std::get_if<std::int16_t>(&value)) return of(*number);
    if (const auto* text = std::get_if<Text>(&value)) return of(TextView(*text));
    return arrayOfTexts(std::get<TextList>(value));
}

Variant Variant::arrayOfTexts(const TextList& list, std::size_t firstIndex) {
    const std::size_t first = std::min(firstIndex, list.size());
    Variant value = newArray(VT_BSTR, list.size() - first, static_cast<LONG>(first));
    auto* element = static_cast<BSTR*>(value.get().parray->pvData);  // of a new array, which nothing else uses yet
    for (const Text& text : std::span(list).subspan(first)) *element++ = newBstr(text);
    return value;
}

Variant Variant::arrayOfVariants(const TextList& list) { return arrayOfEntries(list); }

Variant Variant::arrayOfFlags(const FlagList& list) { return arrayOfEntries(list); }

Variant Variant::missing() {
    Variant made;
    made.value_.vt = VT_ERROR;
    made.value_.scode = DISP_E_PARAMNOTFOUND;
    return made;
}

VARIANT Variant::detach() {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
}

HRESULT convert(const VARIANT& value, VARTYPE type, Variant& converted) {
    return VariantChangeTypeEx(converted.pointer(), readOnly(value), LOCALE_INVARIANT, VARIANT_ALPHABOOL, type);
}

const VARIANT& dereferenced(const VARIANT& value) {
    const VARIANT* target = &value;
    while (target->vt == (VT_BYREF | VT_VARIANT) && target->pvarVal != nullptr) target = target->pvarVal;
    return *target;
}

bool isAbsent(const VARIANT& value) {
    const VARIANT& target = dereferenced(value);
    switch (target.vt) {
        case VT_EMPTY:
        case VT_NULL: return true;
        case VT_ERROR: return target.scode == DISP_E_PARAMNOTFOUND;
        case VT_DISPATCH: return target.pdispVal == nullptr;
        case VT_UNKNOWN: return target.punkVal == nullptr;
        case VT_BYREF | VT_DISPATCH: return target.ppdispVal == nullptr || *target.ppdispVal == nullptr;
        case VT_BYREF | VT_UNKNOWN: return target.ppunkVal == nullptr || *target.ppunkVal == nullptr;
        default: return false;
    }
}

Ptr<IDispatch> objectIn(const VARIANT& value) {
    if (isAbsent(value)) return {};
    const VARIANT& target = dereferenced(value);
    Ptr<IDispatch> object;
    switch (target.vt) {
        case VT_DISPATCH: object = Ptr(target.pdispVal); break;
        case VT_BYREF | VT_DISPATCH: object = Ptr(*target.ppdispVal); break;
        case VT_UNKNOWN: object = Ptr(target.punkVal).as<IDispatch>(IID_IDispatch); break;
        case VT_BYREF | VT_UNKNOWN: object = Ptr(*target.ppunkVal).as<IDispatch>(IID_IDispatch); break;
        default: break;
    }
    if (!object) fail(Failure::TypeMismatch);
    return object;
}

Text textIn(const VARIANT& value) {
    if (isAbsent(value)) return {};
    const VARIANT& target = dereferenced(value);
    if (target.vt == VT_BSTR) return Text(viewOf(target.bstrVal));
    if (target.vt == (VT_BYREF | VT_BSTR) && target.pbstrVal != nullptr) return Text(viewOf(*target.pbstrVal));
    return Text(viewOf(coerced(target, VT_BSTR).get().bstrVal));
}

bool truthIn(const VARIANT& value) { return coerced(value, VT_BOOL).get().boolVal != VARIANT_FALSE; }

ItemValue itemValueIn(const VARIANT& value) {
    const VARIANT& referenced = dereferenced(value);
    if (referenced.vt == VT_BSTR) return Text(viewOf(referenced.bstrVal));
    if (containsArray(referenced)) return listIn(arrayIn(referenced));
    Variant copy;
    check(VariantCopyInd(copy.pointer(), readOnly(referenced)));
    const VARIANT& target = copy.get();
    switch (target.vt) {
        case VT_EMPTY: return Text();
        case VT_BSTR: return Text(viewOf(target.bstrVal));
        case VT_BOOL: return target.boolVal != VARIANT_FALSE;
        default: return coerced(target, VT_I2).get().iVal;
    }
}

}  // namespace vantro::com
