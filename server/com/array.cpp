#include "server/com/array.h"

#include "server/com/error.h"

#include <algorithm>
#include <cstdint>

namespace vantro::com {

namespace {

constexpr LONG highestIndex = INT16_MAX;

VARTYPE elementType(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    check(SafeArrayGetVartype(array, &type));
    if (type != VT_BSTR && type != VT_VARIANT) fail(Failure::TypeMismatch);
    return type;
}

// Converting an element to text can run foreign code, which may change the array.
void checkElement(HRESULT result) {
    if (result == DISP_E_BADINDEX) fail(Failure::SubscriptOutOfRange);
    check(result);
}

}  // namespace

bool containsArray(const VARIANT& value) { return (dereferenced(value).vt & VT_ARRAY) != 0; }

SAFEARRAY* arrayIn(const VARIANT& value) {
    const VARIANT& target = dereferenced(value);
    if ((target.vt & VT_ARRAY) == 0) return nullptr;
    if ((target.vt & VT_BYREF) == 0) return target.parray;
    return target.pparray == nullptr ? nullptr : *target.pparray;
}

ArrayEntries::ArrayEntries(SAFEARRAY* array) : array_(array) {
    if (array == nullptr || SafeArrayGetDim(array) == 0) fail(Failure::SubscriptOutOfRange);
    type_ = elementType(array);
    if (SafeArrayGetDim(array) != 1) fail(Failure::TypeMismatch);
    LONG upper = 0;
    check(SafeArrayGetLBound(array, 1, &lower_));
    check(SafeArrayGetUBound(array, 1, &upper));
    size_ = static_cast<std::size_t>(upper - lower_ + 1);
}

Text ArrayEntries::text(std::size_t offset) const {
    LONG place = index(offset);
    if (type_ == VT_BSTR) {
        void* element = nullptr;
        checkElement(SafeArrayPtrOfIndex(array_, &place, &element));
        return Text(viewOf(*static_cast<const BSTR*>(element)));
    }
    Variant value;
    checkElement(SafeArrayGetElement(array_, &place, value.pointer()));
    return textIn(value.get());
}

void ArrayEntries::store(std::size_t offset, TextView text) const {
    LONG place = index(offset);
    Variant element = Variant::of(text);
    void* const stored = type_ == VT_BSTR ? static_cast<void*>(element.get().bstrVal) : element.pointer();
    checkElement(SafeArrayPutElement(array_, &place, stored));
}

IndexedList indexedListIn(SAFEARRAY* array) {
    if (array == nullptr || SafeArrayGetDim(array) == 0) return {};
    const ArrayEntries entries(array);
    if (entries.lowerBound() > highestIndex) return {};
    const auto belowZero = static_cast<std::size_t>(std::max<LONG>(-entries.lowerBound(), 0));
    IndexedList list;
    list.firstIndex = static_cast<std::size_t>(std::max<LONG>(entries.lowerBound(), 0));
    list.texts.resize(list.firstIndex);
    for (std::size_t offset = belowZero; offset < entries.size(); ++offset) list.texts.push_back(entries.text(offset));
    return list;
}

TextList listIn(SAFEARRAY* array) { return indexedListIn(array).texts; }

TextList elementsIn(SAFEARRAY* array) {
    const ArrayEntries entries(array);
    TextList texts;
    for (std::size_t offset = 0; offset < entries.size(); ++offset) texts.push_back(entries.text(offset));
    return texts;
}

void storeElements(SAFEARRAY* array, const TextList& texts) {
    const ArrayEntries entries(array);
    for (std::size_t offset = 0; offset < texts.size(); ++offset) entries.store(offset, texts[offset]);
}

}  // namespace vantro::com
