// Automation's values: owned ones, and conversions from and to the library's kinds of value.
#pragma once

#include "server/com/bstr.h"
#include "server/com/ptr.h"
#include "server/com/system.h"
#include "vantro/collection.h"

namespace vantro::com {

/// An owned value.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    static Variant of(TextView text);
    static Variant of(std::int16_t number);
    static Variant of(bool truth);
    static Variant of(IDispatch* object);
    /// The value of an item. A list becomes an array of texts, as terminals expect.
    static Variant of(const ItemValue& value);
    /// The entries from `firstIndex` on as an array of texts with that lower bound.
    static Variant arrayOfTexts(const TextList& list, std::size_t firstIndex = 0);
    /// A list as an array of variants: the only arrays that a script can index.
    static Variant arrayOfVariants(const TextList& list);
    static Variant arrayOfFlags(const FlagList& list);
    /// The value of an omitted argument.
    static Variant missing();

    const VARIANT& get() const { return value_; }
    VARIANT* pointer() { return &value_; }
    VARIANT detach();

private:
    VARIANT value_;
};

/// The value that any references to variants lead to.
const VARIANT& dereferenced(const VARIANT& value);

/// The value as another type, independent of the machine's language: a boolean is "True" or "False".
HRESULT convert(const VARIANT& value, VARTYPE type, Variant& converted);

/// True when there is no value: an omitted argument, Empty, Null or Nothing.
bool isAbsent(const VARIANT& value);

/// The object in a value; null when the value is absent. Raises 13 for a value that is no object.
Ptr<IDispatch> objectIn(const VARIANT& value);

/// The value as text; empty when it is absent. Raises 13 for a value that has no text.
Text textIn(const VARIANT& value);

/// The value as a boolean. Raises 13 for a value that is none, Null and Nothing included.
bool truthIn(const VARIANT& value);

/// The value as one of the kinds that collections contain. Anything other than a text, a boolean or an array is
/// converted to a 16-bit integer as automation converts it, with a fraction rounded; Empty is the empty text. Raises 6
/// for a number that does not fit in 16 bits and 13 for anything that is none of the four kinds.
ItemValue itemValueIn(const VARIANT& value);

}  // namespace vantro::com
