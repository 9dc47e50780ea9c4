// Collections written and read as plain lists of entries.
#pragma once

#include "vantro/built_in_terminal.h"
#include "vantro/collection.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace vantro::test {

/// A key with its value, as a test writes it: `{u"strKeyName", u"SMITH"}`, `{u"blnKeyExactMatch", true}`.
struct Entry {
    Entry(TextView entryKey, bool truth) : key(entryKey), value(std::in_place_type<bool>, truth) {}
    Entry(TextView entryKey, int number) : key(entryKey), value(static_cast<std::int16_t>(number)) {}
    Entry(TextView entryKey, const char16_t* text) : key(entryKey), value(Text(text)) {}
    Entry(TextView entryKey, Text text) : key(entryKey), value(std::move(text)) {}
    Entry(TextView entryKey, TextList list) : key(entryKey), value(std::move(list)) {}
    Entry(TextView entryKey, ItemValue entryValue) : key(entryKey), value(std::move(entryValue)) {}

    friend bool operator==(const Entry&, const Entry&) = default;

    Text key;
    ItemValue value;
};

using Entries = std::vector<Entry>;

void PrintTo(const Entry& entry, std::ostream* out);

/// A value as JSON-like text, for messages.
std::string printed(const ItemValue& value);

/// A new collection with these entries.
std::shared_ptr<BuiltInCollection> collection(const Entries& entries);

/// The entries of a collection of the built-in terminal or of a failing one, in order.
Entries entriesOf(const CollectionPtr& collection);

/// Only their keys.
std::vector<std::string> keysOf(const CollectionPtr& collection);

/// The keys of the entries that are the boolean True, in order: the flags that a screen sets.
std::vector<std::string> flagsOf(const CollectionPtr& collection);

/// The value under a key; throws std::out_of_range when the key is absent.
ItemValue valueOf(const CollectionPtr& collection, TextView key);

}  // namespace vantro::test
