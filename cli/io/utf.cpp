#include "cli/io/utf.h"

#include "cli/io/ascii.h"

#include <algorithm>

namespace vantro {

namespace {

std::size_t asciiPrefixLength(std::string_view bytes) {
    std::size_t length = 0;
    while (bytes.size() - length >= AsciiBlock::size && AsciiBlock::load(bytes.data() + length).beyondAscii() == 0) {
        length += AsciiBlock::size;
    }
    while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80) ++length;
    return length;
}

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The number of bytes of a character with this first byte; 0 for a byte that begins none.
constexpr std::size_t characterLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF5 ? 4 : 0;
}

struct Decoded {
    char32_t value;
    std::size_t length;  // 0: malformed
};

Decoded decodeFirst(std::string_view bytes) {
    constexpr Decoded malformed{0, 0};
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};  // by length: anything below is overlong
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = characterLength(lead);
    if (length == 0 || length > bytes.size()) return malformed;
    if (length == 1) return {lead, 1};
    char32_t value = static_cast<char32_t>(lead & (0x7FU >> length));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0U) != 0x80U) return malformed;
        value = (value << 6U) | (next & 0x3FU);
    }
    const bool surrogate = isHighSurrogate(value) || isLowSurrogate(value);
    return value < smallest[length] || value > 0x10FFFF || surrogate ? malformed : Decoded{value, length};
}

// Returns the number of code units.
std::size_t putCodeUnits(char32_t value, char16_t* target) {
    if (value < 0x10000) {
        target[0] = static_cast<char16_t>(value);
        return 1;
    }
    target[0] = static_cast<char16_t>(0xD800U + ((value - 0x10000U) >> 10U));
    target[1] = static_cast<char16_t>(0xDC00U + ((value - 0x10000U) & 0x3FFU));
    return 2;
}

constexpr bool isPlain(char byte, char stop) { return static_cast<unsigned char>(byte) < 0x80 && byte != stop; }

}  // namespace

bool isAscii(std::string_view bytes) { return asciiPrefixLength(bytes) == bytes.size(); }

bool isUtf8(std::string_view bytes) {
    while (true) {
        bytes.remove_prefix(asciiPrefixLength(bytes));
        if (bytes.empty()) return true;
        const Decoded character = decodeFirst(bytes);
        if (character.length == 0) return false;
        bytes.remove_prefix(character.length);
    }
}

std::size_t widenPlain(std::string_view bytes, char stop, char16_t* target) {
    if (bytes.size() >= AsciiBlock::size) {
        return findInBlocks(bytes.size(), [=](std::size_t at) {
            const AsciiBlock block = AsciiBlock::load(bytes.data() + at);
            block.widen(target + at);
            return block.beyondAscii() | block.equal(stop);
        });
    }
    std::size_t length = 0;
    for (; length < bytes.size() && isPlain(bytes[length], stop); ++length) {
        target[length] = static_cast<unsigned char>(bytes[length]);
    }
    return length;
}

Widened widen(std::string_view utf8, char stop, char16_t* target) {
    Widened done{0, 0};
    while (true) {
        const std::size_t plain = widenPlain(utf8.substr(done.bytes), stop, target + done.units);
        done.bytes += plain;
        done.units += plain;
        if (done.bytes == utf8.size() || utf8[done.bytes] == stop) return done;
        const Decoded character = decodeFirst(utf8.substr(done.bytes));
        const bool malformed = character.length == 0;
        done.units += putCodeUnits(malformed ? replacementCharacter : character.value, target + done.units);
        done.bytes += malformed ? 1 : character.length;
    }
}

void mendUtf8(std::span<char> bytes) {
    while (!bytes.empty()) {
        const std::size_t length = decodeFirst({bytes.data(), bytes.size()}).length;
        if (length == 0) bytes.front() = '?';
        bytes = bytes.subspan(std::max<std::size_t>(length, 1));
    }
}

void appendUtf16(std::string_view utf8, Text& text) {
    const std::size_t before = text.size();
    text.resize(before + utf8.size());
    char16_t* const target = text.data() + before;
    std::size_t units = 0;
    while (true) {
        const Widened widened = widen(utf8, '\0', target + units);
        units += widened.units;
        if (widened.bytes == utf8.size()) return text.resize(before + units);
        target[units++] = u'\0';
        utf8.remove_prefix(widened.bytes + 1);
    }
}

Text toUtf16(std::string_view utf8) {
    Text text;
    appendUtf16(utf8, text);
    return text;
}

std::size_t utf16Length(std::string_view utf8) {
    std::size_t units = 0;
    for (const char byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        units += static_cast<std::size_t>((value & 0xC0U) != 0x80U) + static_cast<std::size_t>(value >= 0xF0);
    }
    return units;
}

CodePoint codePointAt(TextView text, std::size_t index) {
    const char32_t unit = text[index];
    if (!isHighSurrogate(unit) && !isLowSurrogate(unit)) return {unit, 1};
    const char32_t next = index + 1 < text.size() ? text[index + 1] : u'\0';
    if (isLowSurrogate(unit) || !isLowSurrogate(next)) return {replacementCharacter, 1};
    return {0x10000U + ((unit - 0xD800U) << 10U) + (next - 0xDC00U), 2};
}

char* writeUtf8(char32_t codePoint, char* to) {
    const auto put = [&to](char32_t byte) { *to++ = static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto putTail = [&put, codePoint](unsigned shift) { put(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0U | (codePoint >> 6U));
        putTail(0);
    } else if (codePoint < 0x10000) {
        put(0xE0U | (codePoint >> 12U));
        putTail(6);
        putTail(0);
    } else {
        put(0xF0U | (codePoint >> 18U));
        putTail(12);
        putTail(6);
        putTail(0);
    }
    return to;
}

void appendUtf8(TextView text, std::string& utf8) {
    constexpr std::size_t mostBytes = 3;  // for one unit
    const std::size_t before = utf8.size();
    utf8.resize(before + mostBytes * text.size());
    char* to = utf8.data() + before;
    while (true) {
        const std::size_t ascii = narrowAscii(text, to);
        to += ascii;
        text.remove_prefix(ascii);
        if (text.empty()) break;
        const CodePoint character = codePointAt(text, 0);
        to = writeUtf8(character.value, to);
        text.remove_prefix(character.units);
    }
    utf8.resize(static_cast<std::size_t>(to - utf8.data()));
}

std::string toUtf8(TextView text) {
    std::string utf8;
    appendUtf8(text, utf8);
    return utf8;
}

std::string inQuotes(TextView text) {
    constexpr std::size_t longest = 60;
    std::string result = "\"";
    appendUtf8(text.substr(0, longest), result);
    result += text.size() > longest ? "...\"" : "\"";
    return result;
}

}  // namespace vantro
