// Typed access to the keyed collection. Nothing else in the library calls `Item`, `ItemText` and `Add`.
#pragma once

#include "framework/keys.h"
#include "framework/observation.h"
#include "vantro/terminal.h"

#include <concepts>
#include <cstdint>

namespace vantro {

/// An entry of a list, and the list's item. An item that the terminal creates for one call ends with its last pointer.
struct ListEntry {
    TextView text;
    ItemPtr item;
};

/// Reads parameters and state. Texts are views that are valid as long as this object and the collection's item. Every
/// read raises 91 when there is no collection.
class Parameters {
public:
    Parameters(Terminal& terminal, const CollectionPtr& collection)
        : functions_(terminal.functions()), collection_(collection.get()), watch_(terminal) {}

    /// The text under a key; empty when the key is absent.
    TextView read(const Key<Text>& key) { return readText(key.name); }

    /// The boolean under a key; False when the key is absent.
    bool read(const Key<bool>& key) {
        const bool value = functions_.ItemBoolean(item(key.name));
        if (watch_) watch_.keyRead(key.name, value ? u"True" : u"False");
        return value;
    }

    /// The integer under a key. Raises 91 when the key is absent, 6 for an overflow, 13 for a value that is no integer.
    std::int16_t read(const Key<std::int16_t>& key);

    /// The text of an optional integer under a key; empty when the key is absent.
    TextView readAsText(const Key<std::int16_t>& key) { return readText(key.name); }

    /// Entry `index` (from 0) of the list under a key. Every call fetches the item from the collection. Raises 91 when
    /// the key is absent, 13 when its value is no list and 9 for an index outside the list.
    ListEntry readEntry(const Key<TextList>& key, std::int16_t index);

private:
    ItemPtr item(TextView name) const;
    TextView readText(TextView name) {
        const TextView value = functions_.ItemText(item(name), texts_);
        watch_.keyRead(name, value);
        return value;
    }

    TerminalFunctions& functions_;
    const KeyedCollection* collection_;
    Watch watch_;
    TextStore texts_;
};

/// Adds results to a collection under typed keys.
class Results {
public:
    explicit Results(KeyedCollection& collection, Watch watch = {}) : collection_(collection), watch_(watch) {}

    /// Adds a boolean. A template that accepts exactly `bool`, so that pointers and numbers are not converted.
    template <std::same_as<bool> Flag>
    void add(const Key<bool>& key, Flag value) {
        store(key.name, value);
    }
    void add(const Key<Text>& key, TextView value) {
        watch_.textAdded(key.name, value);
        collection_.Add(key.name, ItemValue(std::in_place_type<Text>, value));
    }
    void add(const Key<Text>& key, Text&& value) {
        watch_.textAdded(key.name, value);
        collection_.Add(key.name, ItemValue(std::move(value)));
    }
    void add(const Key<TextList>& key, const TextList& value) {
        watch_.listAdded(key.name, value);
        collection_.Add(key.name, ItemValue(value));
    }
    void add(const Key<TextList>& key, TextList&& value) {
        watch_.listAdded(key.name, value);
        collection_.Add(key.name, ItemValue(std::move(value)));
    }
    /// Adds a list that somebody else has too.
    void addShared(const Key<TextList>& key, std::shared_ptr<const ItemValue> list) {
        watch_.listAdded(key.name, std::get<TextList>(*list));
        collection_.AddShared(key.name, std::move(list));
    }

    /// Adds a number under a key that otherwise has a text: "strKeyRecLocPos" only.
    void addNumber(const Key<Text>& key, std::int16_t value) { store(key.name, value); }

private:
    template <class Value>
    void store(TextView name, Value value) {
        watch_.valueAdded(name, value);
        collection_.Add(name, ItemValue(std::in_place_type<Value>, value));
    }

    KeyedCollection& collection_;
    Watch watch_;
};

}  // namespace vantro
