#include "cli/explain/html_out.h"

#include "cli/io/utf.h"

namespace vantro {

namespace {

constexpr char32_t firstControlPicture = 0x2400;
constexpr char32_t deletePicture = 0x2421;
constexpr char32_t lineEndPicture = 0x2424;

constexpr bool isBetween(char32_t value, char32_t first, char32_t last) { return first <= value && value <= last; }

constexpr bool changesDirection(char32_t value) {
    return value == 0x061C || isBetween(value, 0x200E, 0x200F) || isBetween(value, 0x202A, 0x202E) ||
           isBetween(value, 0x2066, 0x2069);
}

constexpr bool isNoCharacter(char32_t value) {
    return isBetween(value, 0x80, 0x9F) || isBetween(value, 0xFDD0, 0xFDEF) || (value & 0xFFFEU) == 0xFFFE;
}

constexpr char32_t visible(char32_t value) {
    if (value < 0x20) return firstControlPicture + value;
    if (value == 0x7F) return deletePicture;
    if (isBetween(value, 0x2028, 0x2029)) return lineEndPicture;
    return changesDirection(value) || isNoCharacter(value) ? char32_t{replacementCharacter} : value;
}

}  // namespace

void HtmlOut::character(char32_t value) {
    switch (value) {
        case '&': markup("&amp;"); return;
        case '<': markup("&lt;"); return;
        case '>': markup("&gt;"); return;
        case '"': markup("&quot;"); return;
        case '\'': markup("&#39;"); return;
        default: break;
    }
    char bytes[4];
    markup({bytes, static_cast<std::size_t>(writeUtf8(visible(value), bytes) - bytes)});
}

HtmlOut& HtmlOut::text(TextView value) {
    for (std::size_t at = 0; at < value.size();) {
        const CodePoint next = codePointAt(value, at);
        character(next.value);
        at += next.units;
    }
    return *this;
}

HtmlOut& HtmlOut::text(std::string_view utf8) { return text(toUtf16(utf8)); }

}  // namespace vantro
