// The keyed collection, which carries parameters and state in and results out.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>

namespace vantro {

/// A value of a collection. The key says its kind: "str" text, "bln" boolean, "int" 16-bit integer; a key that ends in
/// "()" has a list of texts.
using ItemValue = std::variant<bool, std::int16_t, Text, TextList>;

/// One stored value.
class VANTRO_EXPORT KeyedItem {
public:
    virtual ~KeyedItem() = default;

    /// The stored value; the reference is valid as long as the item.
    virtual const ItemValue& Value() const = 0;

    /// The lowest index of a stored list. A lower index is outside the list, whatever `Value` contains there.
    virtual std::size_t firstIndex() const { return 0; }

protected:
    KeyedItem() = default;
    KeyedItem(const KeyedItem&) = default;
    KeyedItem& operator=(const KeyedItem&) = default;
};

/// The result of `Item`; null for an absent key. Valid until the collection changes.
using ItemPtr = std::shared_ptr<const KeyedItem>;

/// Keys and values in the order in which the keys were first added. Keys are compared exactly, case included.
class VANTRO_EXPORT KeyedCollection {
public:
    virtual ~KeyedCollection() = default;

    /// Stores a value. A key that exists keeps its position and gets the new value.
    virtual void Add(TextView key, ItemValue value) = 0;

    /// The same for a value that others have too; never null. Nobody changes it as long as somebody has it, so a
    /// collection may keep it as it is. By default a copy is added.
    virtual void AddShared(TextView key, std::shared_ptr<const ItemValue> value) { Add(key, *value); }

    /// The item stored under the key, or null.
    virtual ItemPtr Item(TextView key) const = 0;

protected:
    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection&) = default;
    KeyedCollection& operator=(const KeyedCollection&) = default;
};

/// A collection as an argument or a result; null for no collection.
using CollectionPtr = std::shared_ptr<KeyedCollection>;

}  // namespace vantro
