#pragma once

// The request and result collection of the oracle.

#include "steps.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace oracle {

using Value = std::variant<bool, int, Text, std::vector<Text>>;

// Keys keep the order in which they were first added; adding an existing key replaces its value.
class Collection {
public:
    void add(const std::string& key, Value value);

    // Null when the key is absent.
    const Value* item(const std::string& key) const;

    std::vector<std::pair<std::string, Value>> entries;
};

// The item as text: absent is empty, booleans are "True" and "False", a list is a type mismatch.
Text itemText(const Value* item);

// The item as a boolean: absent and the empty text are False.
bool itemBoolean(const Value* item);

// The value of the item; fails for an absent item.
const Value& itemValue(const Value* item);

// The value as a signed 16-bit integer.
int toInteger16(const Value& value);

}  // namespace oracle
