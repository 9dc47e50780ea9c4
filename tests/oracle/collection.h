#pragma once

// The request and result collection of the literal readers.

#include "steps.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace oracle {

using Value = std::variant<bool, int, Text, std::vector<Text>>;

// Keys keep the order in which they were first added; adding a present key replaces its value in place.
class Collection {
public:
    void add(const std::string& key, Value value);

    // Null when the key is absent.
    const Value* item(const std::string& key) const;

    std::vector<std::pair<std::string, Value>> entries;
};

// The item as text: absent is empty, True and False are spelled out, a list is a type mismatch.
Text itemText(const Value* item);

// The item as a boolean: absent and the empty text are False.
bool itemBoolean(const Value* item);

// The value of the item; an absent item has none.
const Value& itemValue(const Value* item);

// The value as a signed 16-bit integer.
int toInteger16(const Value& value);

}  // namespace oracle
