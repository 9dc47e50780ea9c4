#include "cli/json/spelling.h"

#include "cli/io/utf.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>

namespace vantro {

namespace {

constexpr std::size_t unitEscape = 6;  // \uXXXX

// The code unit of a \uXXXX at the start of the text.
std::optional<char16_t> escapedUnit(std::string_view text) {
    if (text.size() < unitEscape || !text.starts_with("\\u")) return std::nullopt;
    unsigned unit = 0;
    const char* const end = text.data() + unitEscape;
    const auto [stop, problem] = std::from_chars(text.data() + 2, end, unit, 16);
    if (problem != std::errc{} || stop != end) return std::nullopt;
    return static_cast<char16_t>(unit);
}

// The character of an escape of two characters; 0 for none.
char16_t escapedCharacter(std::string_view text) {
    constexpr std::string_view letters = R"("\/bfnrt)";
    constexpr std::u16string_view characters = u"\"\\/\b\f\n\r\t";
    const std::size_t place = text.size() < 2 ? std::string_view::npos : letters.find(text[1]);
    return place == std::string_view::npos ? u'\0' : characters[place];
}

bool isHigh(std::optional<char16_t> unit) { return unit && *unit >= 0xD800 && *unit <= 0xDBFF; }
bool isLow(std::optional<char16_t> unit) { return unit && *unit >= 0xDC00 && *unit <= 0xDFFF; }

}  // namespace

DecodedString decodeString(std::string_view json, char16_t* target) {
    DecodedString decoded{target, nullptr, false};
    while (true) {
        const Widened widened = widen(json, '\\', decoded.end);
        decoded.end += widened.units;
        json.remove_prefix(widened.bytes);
        if (json.empty()) return decoded;
        if (const char16_t character = escapedCharacter(json); character != 0) {
            *decoded.end++ = character;
            json.remove_prefix(2);
            continue;
        }
        const auto unit = escapedUnit(json);
        if (!unit) {
            decoded.badEscape = json.data();
            return decoded;
        }
        json.remove_prefix(unitEscape);
        const auto next = isHigh(unit) ? escapedUnit(json) : std::nullopt;
        if (isLow(next)) {
            *decoded.end++ = *unit;
            *decoded.end++ = *next;
            json.remove_prefix(unitEscape);
        } else {
            const bool isLone = isHigh(unit) || isLow(unit);
            *decoded.end++ = isLone ? replacementCharacter : *unit;
            decoded.hasLoneSurrogate = decoded.hasLoneSurrogate || isLone;
        }
    }
}

bool isNumber(std::string_view text) {
    const auto skip = [&text](std::string_view any) {
        const bool isThere = !text.empty() && any.find(text.front()) != std::string_view::npos;
        if (isThere) text.remove_prefix(1);
        return isThere;
    };
    const auto skipDigits = [&text] {
        const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
        text.remove_prefix(digits);
        return digits > 0;
    };
    skip("-");
    if (!skip("0") && !skipDigits()) return false;
    if (skip(".") && !skipDigits()) return false;
    if (!skip("eE")) return text.empty();
    skip("+-");
    return skipDigits() && text.empty();
}

// The conversion stops before a fraction or an exponent and fails for a number out of range.
std::optional<std::int16_t> wholeNumber(std::string_view number) {
    std::int16_t value = 0;
    const char* const end = number.data() + number.size();
    const auto [stop, problem] = std::from_chars(number.data(), end, value);
    if (problem != std::errc{} || stop != end) return std::nullopt;
    return value;
}

const char* controlInString(std::string_view text) {
    bool inString = false;
    const char* at = text.data();
    for (const char* const end = at + text.size(); at < end; ++at) {
        if (inString && static_cast<unsigned char>(*at) < 0x20) break;
        if (*at == '"') inString = !inString;
        if (inString && *at == '\\') ++at;
    }
    return at;
}

}  // namespace vantro
