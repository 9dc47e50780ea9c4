// Conversions between UTF-8, in files and streams, and UTF-16, in the library.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Replaces whatever the other encoding cannot represent.
inline constexpr char16_t replacementCharacter = u'\uFFFD';

/// True when all bytes are below 0x80.
bool isAscii(std::string_view bytes);

/// True when the bytes are well-formed UTF-8: shortest forms, no surrogates, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

/// Appends the code units of a UTF-8 text. A byte that belongs to no well-formed character becomes U+FFFD.
void appendUtf16(std::string_view utf8, Text& text);
Text toUtf16(std::string_view utf8);

/// Writes a text up to its first `stop` character (below 0x80) or byte beyond ASCII as UTF-16, and returns the number
/// of characters. `target` has room for as many as there are bytes; what follows the text there is overwritten.
std::size_t widenPlain(std::string_view bytes, char stop, char16_t* target);

/// How much of a text was converted.
struct Widened {
    std::size_t bytes;
    std::size_t units;
};

/// The same for all of UTF-8: it ends at the first `stop` character only. A byte that belongs to no well-formed
/// character becomes U+FFFD.
Widened widen(std::string_view utf8, char stop, char16_t* target);

/// Replaces each byte that belongs to no well-formed character by a question mark.
void mendUtf8(std::span<char> bytes);

/// The number of UTF-16 code units of a well-formed UTF-8 text.
std::size_t utf16Length(std::string_view utf8);

/// Appends a text as UTF-8. An unpaired surrogate becomes U+FFFD.
void appendUtf8(TextView text, std::string& utf8);
std::string toUtf8(TextView text);

/// A text in quotation marks for a message, shortened when it is long.
std::string inQuotes(TextView text);

/// One character of a text: its code point (U+FFFD for an unpaired surrogate) and its number of code units.
struct CodePoint {
    char32_t value;
    std::size_t units;
};
CodePoint codePointAt(TextView text, std::size_t index);

/// Writes one code point as UTF-8, at most four bytes, and returns the end of it.
char* writeUtf8(char32_t codePoint, char* to);

}  // namespace vantro
