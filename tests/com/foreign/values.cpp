#include "tests/com/foreign/values.h"

#include <new>
#include <utility>

namespace foreign {

namespace {

// The element of a caller's array, which may be an array of texts or of variants.
Held elementOf(SAFEARRAY* array, VARTYPE type, LONG index) {
    Held element;
    void* const place = type == VT_BSTR ? static_cast<void*>(&element.value.bstrVal) : &element.value;
    if (FAILED(SafeArrayGetElement(array, &index, place))) mismatch();
    if (type == VT_BSTR) element.value.vt = VT_BSTR;
    return textValue(isNone(element.value) ? std::wstring_view() : textIn(element.value));
}

Held keptList(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    LONG lower = 0;
    LONG upper = -1;
    if (FAILED(SafeArrayGetVartype(array, &type)) || (type != VT_BSTR && type != VT_VARIANT)) mismatch();
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &lower)) || lower < 0) mismatch();
    if (FAILED(SafeArrayGetUBound(array, 1, &upper))) mismatch();
    Held list;
    list.value.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(upper + 1));
    if (list.value.parray == nullptr) throw std::bad_alloc();
    list.value.vt = VT_ARRAY | VT_VARIANT;
    for (LONG index = lower; index <= upper; ++index) {
        Held element = elementOf(array, type, index);
        if (FAILED(SafeArrayPutElement(list.value.parray, &index, &element.value))) throw std::bad_alloc();
    }
    return list;
}

SAFEARRAY* arrayIn(const VARIANT& value) {
    if ((value.vt & VT_ARRAY) == 0) return nullptr;
    return (value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray;
}

bool isText(const VARIANT& value) { return (value.vt & ~VT_BYREF) == VT_BSTR; }

bool isTruth(const VARIANT& value) { return (value.vt & ~VT_BYREF) == VT_BOOL; }

LONG fromReal(double number) {
    const auto whole = static_cast<LONG>(number);
    if (static_cast<double>(whole) != number) mismatch();
    return whole;
}

}  // namespace

void mismatch() { throw Failed{13, L"The value is of another type."}; }

Held& Held::operator=(Held&& other) noexcept {
    std::swap(value, other.value);
    return *this;
}

VARIANT Held::detach() {
    const VARIANT given = value;
    VariantInit(&value);
    return given;
}

// The empty text is returned as a null one, which is the same in automation.
Held textValue(std::wstring_view text) {
    Held made;
    made.value.vt = VT_BSTR;
    made.value.bstrVal = text.empty() ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (made.value.bstrVal == nullptr && !text.empty()) throw std::bad_alloc();
    return made;
}

Held longValue(LONG number) {
    Held made;
    made.value.vt = VT_I4;
    made.value.lVal = number;
    return made;
}

Held booleanValue(bool truth) {
    Held made;
    made.value.vt = VT_BOOL;
    made.value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

Held objectValue(IDispatch* object) {
    Held made;
    object->AddRef();
    made.value.vt = VT_DISPATCH;
    made.value.pdispVal = object;
    return made;
}

Held copyOf(const VARIANT& value) {
    Held copy;
    if (FAILED(VariantCopy(&copy.value, const_cast<VARIANT*>(&value)))) throw std::bad_alloc();
    return copy;
}

const VARIANT& behind(const VARIANT& value) {
    return value.vt == (VT_BYREF | VT_VARIANT) ? behind(*value.pvarVal) : value;
}

bool isNone(const VARIANT& value) {
    const VARIANT& inner = behind(value);
    const bool leftOut = inner.vt == VT_ERROR && inner.scode == DISP_E_PARAMNOTFOUND;
    return leftOut || inner.vt == VT_EMPTY || inner.vt == VT_NULL;
}

std::wstring_view textIn(const VARIANT& value) {
    const VARIANT& inner = behind(value);
    if (!isText(inner)) mismatch();
    const BSTR text = (inner.vt & VT_BYREF) != 0 ? *inner.pbstrVal : inner.bstrVal;
    return {text, SysStringLen(text)};
}

LONG longIn(const VARIANT& value) {
    const VARIANT& inner = behind(value);
    const bool reference = (inner.vt & VT_BYREF) != 0;
    switch (inner.vt & ~VT_BYREF) {
        case VT_UI1: return reference ? *inner.pbVal : inner.bVal;
        case VT_I2: return reference ? *inner.piVal : inner.iVal;
        case VT_INT:
        case VT_I4: return reference ? *inner.plVal : inner.lVal;
        case VT_R8: return fromReal(reference ? *inner.pdblVal : inner.dblVal);
        default: mismatch();
    }
}

IDispatch* objectIn(const VARIANT& value) {
    const VARIANT& inner = behind(value);
    if (isNone(inner)) return nullptr;
    if ((inner.vt & ~VT_BYREF) != VT_DISPATCH) mismatch();
    return (inner.vt & VT_BYREF) != 0 ? *inner.ppdispVal : inner.pdispVal;
}

Held keptForm(const VARIANT& value) {
    const VARIANT& inner = behind(value);
    if (SAFEARRAY* const array = arrayIn(inner)) return keptList(array);
    if (inner.vt == VT_EMPTY) return textValue({});
    if (isText(inner)) return textValue(textIn(inner));
    if (isTruth(inner)) {
        return booleanValue(((inner.vt & VT_BYREF) != 0 ? *inner.pboolVal : inner.boolVal) != VARIANT_FALSE);
    }
    return longValue(longIn(inner));
}

}  // namespace foreign
