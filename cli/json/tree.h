// JSON in files that people edit: every value with its position, so that messages can name it and it can be rewritten.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// A value and its spelling, a view of the text that it was read from.
struct JsonNode {
    enum class Kind { Null, False, True, Number, String, Array, Object };

    Kind kind = Kind::Null;
    std::string_view text;           ///< as it is spelled
    std::vector<std::string> names;  ///< of an object's members
    std::vector<JsonNode> items;     ///< of an array or an object

    /// The text of a string; empty for any other value.
    Text string() const;

    /// The member of this name, or null.
    const JsonNode* member(std::string_view name) const;

    /// True for null, false, "" and arrays and objects without anything else.
    bool isEmpty() const;
};

/// True for values that are the same, however they are spelled. A member that is empty may be absent.
bool isSame(const JsonNode& one, const JsonNode& other);

/// What is wrong with a text, and the index of the byte where it is.
struct JsonFault {
    std::size_t at;
    std::string what;
};

/// Reads a value and nothing after it. Raises JsonFault for a text that is not JSON, and for nesting of more than a
/// hundred levels. The text must be UTF-8.
JsonNode readTree(std::string_view text);

/// A value in one line, without blanks between its parts.
std::string inOneLine(std::string_view json);

}  // namespace vantro
