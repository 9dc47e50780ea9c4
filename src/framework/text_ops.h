// The text operations that every reader uses. Positions count from 1, as the host's column rulers do; a blank
// is U+0020 and nothing else; all results are views of the argument.
#pragma once

#include "vantro/error.h"
#include "vantro/text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <limits>

namespace vantro {

/// A character position, from 1. A type of its own, so that it is never mistaken for a width.
struct Column {
    int value;

    friend constexpr Column operator+(Column column, int characters) { return {column.value + characters}; }
    friend constexpr auto operator<=>(Column, Column) = default;
};

/// A number of characters.
struct Width {
    int value;
};

/// All characters from a position. Raises 5 for a position below 1.
constexpr TextView mid(TextView text, Column column) {
    if (column.value < 1) fail(Failure::InvalidProcedureCall);
    return text.substr(std::min(static_cast<std::size_t>(column.value - 1), text.size()));
}

/// The first characters, as many as there are up to `width`.
constexpr TextView left(TextView text, Width width) { return text.substr(0, static_cast<std::size_t>(width.value)); }

/// Up to `width` characters from a position. Raises 5 for a position below 1; a position beyond the end or a
/// width below 1 gives empty text.
constexpr TextView mid(TextView text, Column column, Width width) {
    const TextView rest = mid(text, column);
    return width.value < 1 ? TextView{} : left(rest, width);
}

/// Columns of a line.
struct Field {
    Column from;
    Width width = Width{std::numeric_limits<int>::max()};  ///< up to the line's end when it is left out
};

/// The last characters, as many as there are up to `width`.
constexpr TextView right(TextView text, Width width) {
    const auto wanted = static_cast<std::size_t>(width.value);
    return text.size() <= wanted ? text : text.substr(text.size() - wanted);
}

/// `text.starts_with(start)` in one comparison of memory.
inline bool beginsWith(TextView text, TextView start) {
    return text.size() >= start.size() && std::memcmp(text.data(), start.data(), start.size() * sizeof(char16_t)) == 0;
}

constexpr TextView rightTrimmed(TextView text) {
    std::size_t length = text.size();
    while (length > 0 && text[length - 1] == u' ') --length;
    return text.substr(0, length);
}

constexpr TextView trimmed(TextView text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && text[blanks] == u' ') ++blanks;
    return rightTrimmed(text.substr(blanks));
}

/// The text in a field, trimmed. Raises 5 for a column below 1.
constexpr TextView cut(TextView line, Field field) { return trimmed(left(mid(line, field.from), field.width)); }

/// True when the text is empty or holds nothing but blanks.
constexpr bool isBlank(TextView text) {
    for (const char16_t character : text) {
        if (character != u' ') return false;
    }
    return true;
}

/// Where the searched text first starts at or after a position, or Column{0}. A start beyond the end finds
/// nothing.
Column find(TextView text, TextView searched, Column from = Column{1});

/// True when the text holds the searched one anywhere.
inline bool contains(TextView text, TextView searched) { return find(text, searched) > Column{0}; }

/// True when the text holds the searched one at or after a position.
inline bool containsFrom(TextView text, TextView searched, Column from) {
    return find(text, searched, from) > Column{0};
}

/// A list or passenger number: one or more of the digits 0 to 9 and nothing else.
constexpr bool isNumeric(TextView text) {
    for (const char16_t character : text) {
        if (character < u'0' || character > u'9') return false;
    }
    return !text.empty();
}

/// The parts one after the other, in one allocation.
Text concat(std::initializer_list<TextView> parts);

/// A part that is only there when the condition holds.
constexpr TextView onlyIf(bool condition, TextView part) { return condition ? part : TextView{}; }

}  // namespace vantro
