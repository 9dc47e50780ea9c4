// The keyed collection: how parameters and state come in and results go out.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>

namespace vantro {

/// The kinds of value a collection holds. The first letters of a key tell its kind: "str" text, "bln" boolean,
/// "int" 16-bit integer; a key ending in "()" holds a list of texts.
using ItemValue = std::variant<bool, std::int16_t, Text, TextList>;

/// One stored value.
class VANTRO_EXPORT KeyedItem {
public:
    virtual ~KeyedItem() = default;

    /// The stored value; the reference lives as long as the item.
    virtual const ItemValue& Value() const = 0;

    /// The lowest index of a stored list. Asking for an entry below it is an index outside the list, whatever
    /// `Value` holds there.
    virtual std::size_t firstIndex() const { return 0; }

protected:
    KeyedItem() = default;
    KeyedItem(const KeyedItem&) = default;
    KeyedItem& operator=(const KeyedItem&) = default;
};

/// An item as `Item` gives it; null for an absent one. It is valid until its collection next changes.
using ItemPtr = std::shared_ptr<const KeyedItem>;

/// Keys and values in the order in which the keys were first added. Keys are exact, case-sensitive texts.
class VANTRO_EXPORT KeyedCollection {
public:
    virtual ~KeyedCollection() = default;

    /// Stores a value; a key that is present keeps its place and takes the new value.
    virtual void Add(TextView key, ItemValue value) = 0;

    /// The item stored under the key, or null.
    virtual ItemPtr Item(TextView key) const = 0;

protected:
    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection&) = default;
    KeyedCollection& operator=(const KeyedCollection&) = default;
};

/// A collection in an argument or a result; null for no collection.
using CollectionPtr = std::shared_ptr<KeyedCollection>;

}  // namespace vantro
