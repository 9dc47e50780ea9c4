// Automation's arrays of texts and of variants as lists.
#pragma once

#include "server/com/variant.h"

namespace vantro::com {

/// True when the value is an array, an unallocated one included.
bool containsArray(const VARIANT& value);

/// The array in a value, also one passed by reference; null when there is none or it is not allocated.
SAFEARRAY* arrayIn(const VARIANT& value);

/// An array of texts or of variants with one dimension, entry by entry from its lower to its upper bound. Raises 13
/// for any other array and 9 for one that is not allocated.
class ArrayEntries {
public:
    explicit ArrayEntries(SAFEARRAY* array);

    LONG lowerBound() const { return lower_; }
    std::size_t size() const { return size_; }

    /// The entry's text; raises 13 for one that has no text.
    Text text(std::size_t offset) const;
    void store(std::size_t offset, TextView text) const;

private:
    LONG index(std::size_t offset) const { return lower_ + static_cast<LONG>(offset); }

    SAFEARRAY* array_;
    VARTYPE type_ = VT_EMPTY;
    LONG lower_ = 0;
    std::size_t size_ = 0;
};

/// A list whose indexes begin with 0: entry k is the array's element with index k. The array has no element below
/// `firstIndex`; the texts there are placeholders.
struct IndexedList {
    TextList texts;
    std::size_t firstIndex = 0;
};

/// The array as a list. An array that is not allocated has no entries. Elements below index 0 and those above the range
/// of a 16-bit index are left out. Raises 13 for an array that `ArrayEntries` refuses.
IndexedList indexedListIn(SAFEARRAY* array);

/// The texts of such a list.
TextList listIn(SAFEARRAY* array);

/// All texts of an array, from its lower to its upper bound.
TextList elementsIn(SAFEARRAY* array);

/// Replaces the elements of an array of texts or variants, beginning with its lower bound.
void storeElements(SAFEARRAY* array, const TextList& texts);

}  // namespace vantro::com
