// The text operations of all readers. Columns count from 1, as on the host's screens; a blank is U+0020 only; results
// are views of the argument.
#pragma once

#include "framework/bytes.h"
#include "vantro/error.h"
#include "vantro/text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <limits>

namespace vantro {

/// A character position, from 1. A type of its own, so that columns and widths cannot be confused.
struct Column {
    int value;

    friend constexpr Column operator+(Column column, int characters) { return {column.value + characters}; }
    friend constexpr auto operator<=>(Column, Column) = default;
};

/// A number of characters.
struct Width {
    int value;
};

/// All characters from a column on. Raises 5 for a column below 1.
constexpr TextView mid(TextView text, Column column) {
    if (column.value < 1) fail(Failure::InvalidProcedureCall);
    text.remove_prefix(std::min(static_cast<std::size_t>(column.value - 1), text.size()));
    return text;
}

/// The first `width` characters, or fewer when the text is shorter.
constexpr TextView left(TextView text, Width width) { return text.substr(0, static_cast<std::size_t>(width.value)); }

/// Up to `width` characters from a column on; empty for a column after the end or a width below 1. Raises 5 for a
/// column below 1.
constexpr TextView mid(TextView text, Column column, Width width) {
    const TextView rest = mid(text, column);
    return width.value < 1 ? TextView{} : left(rest, width);
}

/// Columns of a line.
struct Field {
    Column from;
    Width width = Width{std::numeric_limits<int>::max()};  ///< by default up to the line's end
};

/// The last `width` characters, or fewer when the text is shorter.
constexpr TextView right(TextView text, Width width) {
    const auto wanted = static_cast<std::size_t>(width.value);
    return text.substr(text.size() - std::min(text.size(), wanted));
}

/// The same as `text.starts_with(start)`, faster.
inline bool beginsWith(TextView text, TextView start) {
    return text.size() >= start.size() && std::memcmp(text.data(), start.data(), start.size() * sizeof(char16_t)) == 0;
}

constexpr TextView rightTrimmed(TextView text) {
    while (text.ends_with(u' ')) text.remove_suffix(1);
    return text;
}

/// The same as `rightTrimmed`, faster where many blanks are at the end.
inline TextView withoutPadding(TextView text) {
    while (text.size() >= Bytes::count) {
        const unsigned blanks = Bytes::narrow(text.data() + text.size() - Bytes::count).equal(' ').bits();
        const auto atEnd = static_cast<std::size_t>(std::countl_one(static_cast<std::uint16_t>(blanks)));
        text.remove_suffix(atEnd);
        if (atEnd < Bytes::count) return text;
    }
    return rightTrimmed(text);
}

constexpr TextView trimmed(TextView text) {
    while (text.starts_with(u' ')) text.remove_prefix(1);
    return rightTrimmed(text);
}

/// The text in a field, trimmed. Raises 5 for a column below 1.
constexpr TextView cut(TextView line, Field field) { return trimmed(left(mid(line, field.from), field.width)); }

/// True when the text is empty or consists of blanks.
bool isBlank(TextView text);

/// The first column at or after `from` where the searched text begins, or Column{0}. Raises 5 for a column below 1.
Column find(TextView text, TextView searched, Column from = Column{1});

/// The first column of a character near the text's beginning, or Column{0}.
constexpr Column find(TextView text, char16_t character) {
    return Column{static_cast<int>(text.find(character) + 1)};  // npos + 1 is 0
}

/// True when the text contains the searched text.
inline bool contains(TextView text, TextView searched) { return find(text, searched) > Column{0}; }

/// True when the searched text begins at or after a column.
inline bool containsFrom(TextView text, TextView searched, Column from) {
    return find(text, searched, from) > Column{0};
}

/// True for a list or passenger number: one or more of the digits 0 to 9.
constexpr bool isNumeric(TextView text) {
    for (const char16_t character : text) {
        if (character < u'0' || character > u'9') return false;
    }
    return !text.empty();
}

/// Joins the parts, in one allocation.
Text concat(std::initializer_list<TextView> parts);

/// The part if the condition is true, otherwise an empty text.
constexpr TextView onlyIf(bool condition, TextView part) { return condition ? part : TextView{}; }

}  // namespace vantro
