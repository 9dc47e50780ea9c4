#include "server/com/variant.h"

#include "server/com/error.h"

#include <new>

namespace vantro::com {

namespace {

struct Bounds {
    LONG lower;
    LONG upper;
};

Bounds boundsOf(SAFEARRAY* array) {
    Bounds bounds{};
    if (SafeArrayGetDim(array) != 1) fail(Failure::TypeMismatch);
    check(SafeArrayGetLBound(array, 1, &bounds.lower));
    check(SafeArrayGetUBound(array, 1, &bounds.upper));
    return bounds;
}

VARTYPE elementType(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    check(SafeArrayGetVartype(array, &type));
    if (type != VT_BSTR && type != VT_VARIANT) fail(Failure::TypeMismatch);
    return type;
}

Text elementText(SAFEARRAY* array, VARTYPE type, LONG index) {
    if (type == VT_BSTR) {
        Bstr text;
        check(SafeArrayGetElement(array, &index, text.receive()));
        return Text(text.view());
    }
    Variant value;
    check(SafeArrayGetElement(array, &index, value.pointer()));
    return textIn(value.get());
}

Variant newArray(VARTYPE type, std::size_t length) {
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(length));
    if (array == nullptr) throw std::bad_alloc();
    Variant value;
    value.pointer()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.pointer()->parray = array;
    return value;
}

Variant arrayOfTexts(const TextList& list) {
    Variant value = newArray(VT_BSTR, list.size());
    LONG index = 0;
    for (const Text& text : list) {
        const Bstr element(text);
        check(SafeArrayPutElement(value.get().parray, &index, element.get()));
        ++index;
    }
    return value;
}

// The system's functions only read their source, but do not say so.
VARIANT* readOnly(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

// Clients write numbers in whatever width their language has: a number that is whole and fits is an integer.
std::int16_t integerIn(const VARIANT& value) {
    Variant converted;
    const HRESULT result = convert(value, VT_I2, converted);
    if (result == DISP_E_OVERFLOW) fail(Failure::Overflow);
    if (FAILED(result)) fail(Failure::TypeMismatch);
    return converted.get().iVal;
}

bool isNumber(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_UINT:
        case VT_R4:
        case VT_R8: return true;
        default: return false;
    }
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

Variant Variant::arrayOfVariants(const TextList& list) {
    Variant value = newArray(VT_VARIANT, list.size());
    LONG index = 0;
    for (const Text& text : list) {
        Variant element = of(TextView(text));
        check(SafeArrayPutElement(value.get().parray, &index, element.pointer()));
        ++index;
    }
    return value;
}

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
    const VARIANT* behind = &value;
    while (behind->vt == (VT_BYREF | VT_VARIANT) && behind->pvarVal != nullptr) behind = behind->pvarVal;
    return *behind;
}

bool isAbsent(const VARIANT& value) {
    const VARIANT& behind = dereferenced(value);
    switch (behind.vt) {
        case VT_EMPTY:
        case VT_NULL: return true;
        case VT_ERROR: return behind.scode == DISP_E_PARAMNOTFOUND;
        case VT_DISPATCH: return behind.pdispVal == nullptr;
        case VT_UNKNOWN: return behind.punkVal == nullptr;
        case VT_BYREF | VT_DISPATCH: return behind.ppdispVal == nullptr || *behind.ppdispVal == nullptr;
        case VT_BYREF | VT_UNKNOWN: return behind.ppunkVal == nullptr || *behind.ppunkVal == nullptr;
        default: return false;
    }
}

Ptr<IDispatch> objectIn(const VARIANT& value) {
    if (isAbsent(value)) return {};
    const VARIANT& behind = dereferenced(value);
    Ptr<IDispatch> object;
    switch (behind.vt) {
        case VT_DISPATCH: object = Ptr(behind.pdispVal); break;
        case VT_BYREF | VT_DISPATCH: object = Ptr(*behind.ppdispVal); break;
        case VT_UNKNOWN: object = Ptr(behind.punkVal).as<IDispatch>(IID_IDispatch); break;
        case VT_BYREF | VT_UNKNOWN: object = Ptr(*behind.ppunkVal).as<IDispatch>(IID_IDispatch); break;
        default: break;
    }
    if (!object) fail(Failure::TypeMismatch);
    return object;
}

Text textIn(const VARIANT& value) {
    if (isAbsent(value)) return {};
    const VARIANT& behind = dereferenced(value);
    if (behind.vt == VT_BSTR) return Text(viewOf(behind.bstrVal));
    if (behind.vt == (VT_BYREF | VT_BSTR) && behind.pbstrVal != nullptr) return Text(viewOf(*behind.pbstrVal));
    Variant converted;
    if (FAILED(convert(behind, VT_BSTR, converted))) fail(Failure::TypeMismatch);
    return Text(viewOf(converted.get().bstrVal));
}

ItemValue itemValueIn(const VARIANT& value) {
    const VARIANT& referenced = dereferenced(value);
    if (SAFEARRAY* const array = arrayIn(referenced)) return listIn(array);
    Variant copy;
    check(VariantCopyInd(copy.pointer(), readOnly(referenced)));
    const VARIANT& behind = copy.get();
    switch (behind.vt) {
        case VT_EMPTY: return Text();
        case VT_BSTR: return Text(viewOf(behind.bstrVal));
        case VT_BOOL: return behind.boolVal != VARIANT_FALSE;
        default: break;
    }
    if (!isNumber(behind.vt)) fail(Failure::TypeMismatch);
    return integerIn(behind);
}

SAFEARRAY* arrayIn(const VARIANT& value) {
    const VARIANT& behind = dereferenced(value);
    if ((behind.vt & VT_ARRAY) == 0) return nullptr;
    return (behind.vt & VT_BYREF) != 0 ? *behind.pparray : behind.parray;
}

TextList listIn(SAFEARRAY* array) {
    const VARTYPE type = elementType(array);
    const Bounds bounds = boundsOf(array);
    if (bounds.lower < 0) fail(Failure::SubscriptOutOfRange);
    TextList list(static_cast<std::size_t>(bounds.lower));
    for (LONG index = bounds.lower; index <= bounds.upper; ++index) list.push_back(elementText(array, type, index));
    return list;
}

TextList elementsIn(SAFEARRAY* array) {
    const VARTYPE type = elementType(array);
    const Bounds bounds = boundsOf(array);
    TextList texts;
    for (LONG index = bounds.lower; index <= bounds.upper; ++index) texts.push_back(elementText(array, type, index));
    return texts;
}

void storeElements(SAFEARRAY* array, const TextList& texts) {
    const VARTYPE type = elementType(array);
    LONG index = boundsOf(array).lower;
    for (const Text& text : texts) {
        Variant element = Variant::of(TextView(text));
        void* const stored = type == VT_BSTR ? static_cast<void*>(element.get().bstrVal) : element.pointer();
        check(SafeArrayPutElement(array, &index, stored));
        ++index;
    }
}

}  // namespace vantro::com
