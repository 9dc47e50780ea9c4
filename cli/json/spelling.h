// How JSON spells strings and numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantro {

/// The end of a decoded string.
struct DecodedString {
    char16_t* end;          ///< one past the last unit written
    const char* badEscape;  ///< the backslash of the first escape sequence that JSON does not have, or null
    bool hasLoneSurrogate;  ///< an escaped surrogate without its other half was read as U+FFFD
};

/// Writes the text between a string's quotation marks as UTF-16. `target` has room for as many units as there are
/// bytes.
DecodedString decodeString(std::string_view json, char16_t* target);

/// True for a number, of any size.
bool isNumber(std::string_view text);

/// The 16-bit integer that a number spells without fraction and exponent; nothing for another number.
std::optional<std::int16_t> wholeNumber(std::string_view number);

/// The first control character in a string of a text; the end of the text for none.
const char* controlInString(std::string_view text);

}  // namespace vantro
