#include "cli/json/text_checks.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>

namespace vantro {

namespace {

constexpr std::size_t escapeLength = 6;  // \uXXXX

int hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

// The code unit of a \uXXXX at the start of the text.
std::optional<unsigned> escapedUnit(std::span<const char> text) {
    if (text.size() < escapeLength || text[0] != '\\' || text[1] != 'u') return std::nullopt;
    unsigned unit = 0;
    for (const char digit : text.subspan(2, 4)) {
        const int value = hexDigit(digit);
        if (value < 0) return std::nullopt;
        unit = unit * 16 + static_cast<unsigned>(value);
    }
    return unit;
}

bool isControl(char character) { return static_cast<unsigned char>(character) < 0x20; }

bool isStrayControl(char character) {
    return isControl(character) && character != '\t' && character != '\n' && character != '\r';
}

// No early exit from the loop, so that the compiler can vectorise it.
bool containsControl(std::span<const char> text) {
    unsigned char found = 0;
    for (const char character : text) {
        found = static_cast<unsigned char>(found | static_cast<unsigned char>(isControl(character)));
    }
    return found != 0;
}

bool isHigh(std::optional<unsigned> unit) { return unit && *unit >= 0xD800 && *unit <= 0xDBFF; }
bool isLow(std::optional<unsigned> unit) { return unit && *unit >= 0xDC00 && *unit <= 0xDFFF; }

}  // namespace

bool containsStrayControl(std::span<const char> text) {
    // Few blocks contain a control character at all.
    constexpr std::size_t blockSize = 256;
    while (!text.empty()) {
        const auto block = text.first(std::min(blockSize, text.size()));
        if (containsControl(block) && std::ranges::any_of(block, isStrayControl)) return true;
        text = text.subspan(block.size());
    }
    return false;
}

bool mendUnpairedSurrogates(std::span<char> text) {
    bool paired = true;
    while (!text.empty()) {
        const void* const backslash = std::memchr(text.data(), '\\', text.size());
        if (backslash == nullptr) break;
        text = text.subspan(static_cast<std::size_t>(static_cast<const char*>(backslash) - text.data()));
        const auto unit = escapedUnit(text);
        std::size_t taken = std::min<std::size_t>(2, text.size());  // the backslash and what it escapes
        if (isHigh(unit) && isLow(escapedUnit(text.subspan(escapeLength)))) {
            taken = 2 * escapeLength;
        } else if (isHigh(unit) || isLow(unit)) {
            std::ranges::copy(std::string_view("FFFD"), text.begin() + 2);
            taken = escapeLength;
            paired = false;
        }
        text = text.subspan(taken);
    }
    return paired;
}

}  // namespace vantro
