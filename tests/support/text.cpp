#include "tests/support/text.h"

#include <stdexcept>

namespace vantro::test {

namespace {

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void appendUnits(Text& text, char32_t character) {
    if (character < 0x10000) {
        text.push_back(static_cast<char16_t>(character));
    } else {
        text.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
    }
}

void appendBytes(std::string& bytes, char32_t character) {
    const auto push = [&](char32_t byte) { bytes.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (character < 0x80) {
        push(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr char32_t leads[] = {0, 0xC0, 0xE0, 0xF0};
    push(leads[following] | (character >> (6 * following)));
    for (int byte = following - 1; byte >= 0; --byte) push(0x80 | ((character >> (6 * byte)) & 0x3F));
}

// The number of bytes that follow the lead byte; -1 when it is not a lead byte.
int followingBytes(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead < 0xE0) return 1;
    if (lead >= 0xE0 && lead < 0xF0) return 2;
    if (lead >= 0xF0 && lead < 0xF5) return 3;
    return -1;
}

}  // namespace

Text wide(std::string_view utf8) {
    Text text;
    for (std::size_t position = 0; position < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[position]);
        const int following = followingBytes(lead);
        if (following < 0 || position + static_cast<std::size_t>(following) >= utf8.size()) {
            throw std::runtime_error("not well-formed UTF-8");
        }
        char32_t character = following == 0 ? lead : lead & (0x3FU >> following);
        for (int byte = 1; byte <= following; ++byte) {
            const auto next = static_cast<unsigned char>(utf8[position + static_cast<std::size_t>(byte)]);
            if ((next & 0xC0U) != 0x80U) throw std::runtime_error("not well-formed UTF-8");
            character = (character << 6) | (next & 0x3FU);
        }
        appendUnits(text, character);
        position += static_cast<std::size_t>(following) + 1;
    }
    return text;
}

std::string utf8(TextView text) {
    std::string bytes;
    for (std::size_t position = 0; position < text.size(); ++position) {
        char32_t character = text[position];
        if (isHighSurrogate(character) && position + 1 < text.size() && isLowSurrogate(text[position + 1])) {
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++position]) - 0xDC00);
        } else if (isHighSurrogate(character) || isLowSurrogate(character)) {
            character = U'?';
        }
        appendBytes(bytes, character);
    }
    return bytes;
}

}  // namespace vantro::test
