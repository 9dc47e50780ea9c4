// Automation's values: owned ones, and what the library's kinds of value look like in them.
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
    /// A list goes out as an array of texts, as terminals expect it.
    static Variant of(const ItemValue& value);
    /// A list as an array of variants: the only arrays that a script can index.
    static Variant arrayOfVariants(const TextList& list);
    /// What stands for an argument that was left out.
    static Variant missing();

    const VARIANT& get() const { return value_; }
    VARIANT* pointer() { return &value_; }
    VARIANT detach();

private:
    VARIANT value_;
};

/// The value itself, behind any references to variants.
const VARIANT& dereferenced(const VARIANT& value);

/// The value as another type, whatever the machine's language: truth is "True" or "False".
HRESULT convert(const VARIANT& value, VARTYPE type, Variant& converted);

/// True when there is no value: nothing given, Empty, Null or Nothing.
bool isAbsent(const VARIANT& value);

/// The object in a value; null when the value is absent. Raises 13 for a value that is no object.
Ptr<IDispatch> objectIn(const VARIANT& value);

/// The value as text; empty when it is absent. Raises 13 for a value that has no text.
Text textIn(const VARIANT& value);

/// The value as one of the kinds that collections hold. Whole numbers of any width are converted; raises 6 for
/// one that does not fit in 16 bits and 13 for anything that is none of the four kinds.
ItemValue itemValueIn(const VARIANT& value);

/// The array in a value, behind any references; null when the value holds none.
SAFEARRAY* arrayIn(const VARIANT& value);

/// The texts of an array of texts or of variants: entry k of the list is the element with index k, so that a
/// lower bound above 0 leaves empty entries before it. Raises 13 for any other array and for one that has not
/// exactly one dimension, 9 for a lower bound below 0.
TextList listIn(SAFEARRAY* array);

/// The texts of an array from its lower to its upper bound, whatever the bounds are.
TextList elementsIn(SAFEARRAY* array);

/// Stores texts over the elements of an array of texts or variants, from its lower bound on.
void storeElements(SAFEARRAY* array, const TextList& texts);

}  // namespace vantro::com
