// Conversions between UTF-8, in files and streams, and UTF-16, in the library.
#pragma once

#include "vantro/text.h"

#include <cstddef>
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
