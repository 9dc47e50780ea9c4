#include "cli/json/output.h"

#include "cli/io/ascii.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace vantro {

namespace {

/// Copies the characters before the first one that is escaped or not ASCII, and returns their number. `to` has room for
/// all characters.
std::size_t copyPlain(TextView from, char* to) {
    if (from.size() >= AsciiBlock::size) {
        return findInBlocks(from.size(), [from, to](std::size_t at) {
            const AsciiBlock block = AsciiBlock::narrow(from.data() + at);
            block.store(to + at);
            return block.specialInJson();
        });
    }
    std::size_t done = 0;
    for (; done < from.size(); ++done) {
        const char16_t unit = from[done];
        if (unit < u' ' || unit >= 0x80 || unit == u'"' || unit == u'\\') break;
        to[done] = static_cast<char>(unit);
    }
    return done;
}

constexpr std::size_t longestEscape = 6;

/// Writes a character that is escaped or not ASCII and returns the end of it.
char* writeSpecial(char32_t character, char* to) {
    constexpr std::string_view controls = "\b\f\n\r\t";
    constexpr std::string_view digits = "0123456789ABCDEF";
    if (character >= 0x80) return writeUtf8(character, to);
    const auto ascii = static_cast<char>(character);
    const std::size_t control = controls.find(ascii);
    *to++ = '\\';
    if (control != std::string_view::npos) {
        *to++ = "bfnrt"[control];
    } else if (ascii >= ' ') {
        *to++ = ascii;
    } else {
        for (const char byte : {'u', '0', '0', digits[character >> 4U], digits[character & 0xFU]}) *to++ = byte;
    }
    return to;
}

}  // namespace

void JsonOut::grow(std::size_t bytes) {
    constexpr std::size_t step = 2048;
    const auto written = static_cast<std::size_t>(end_ - out_.data());
    out_.resize(written + std::max(bytes, step));
    end_ = out_.data() + written;
    limit_ = out_.data() + out_.size();
}

void JsonOut::separate() {
    if (depth_ == 0) {
        end_ = limit_ = out_.data() + out_.size();
    } else if (!std::exchange(followsKey_, false) && !std::exchange(isFirst_, false)) {
        piece(",");
    }
}

void JsonOut::endValue() {
    if (depth_ == 0) out_.resize(static_cast<std::size_t>(end_ - out_.data()));
}

void JsonOut::begin(char bracket) {
    separate();
    piece({&bracket, 1});
    ++depth_;
    isFirst_ = true;
}

void JsonOut::end(char bracket) {
    piece({&bracket, 1});
    --depth_;
    isFirst_ = false;
    endValue();
}

void JsonOut::characters(TextView text) {
    constexpr std::size_t pieceSize = 256;  // so that room is made only for what is written
    while (true) {
        const TextView piece = text.substr(0, pieceSize);
        const std::size_t plain = copyPlain(piece, room(piece.size()));
        end_ += plain;
        text.remove_prefix(plain);
        if (text.empty()) return;
        if (plain < piece.size()) text.remove_prefix(special(text));
    }
}

/// Writes the text's first character, which is escaped or not ASCII, and returns the number of its units.
std::size_t JsonOut::special(TextView text) {
    const CodePoint character = codePointAt(text, 0);
    end_ = writeSpecial(character.value, room(longestEscape));
    return character.units;
}

void JsonOut::key(TextView name) {
    separate();
    piece("\"");
    characters(name);
    piece("\":");
    followsKey_ = true;
}

void JsonOut::key(std::string_view utf8Name) {
    separate();
    piece("\"");
    piece(utf8Name);
    piece("\":");
    followsKey_ = true;
}

void JsonOut::text(TextView value) {
    separate();
    piece("\"");
    characters(value);
    piece("\"");
    endValue();
}

void JsonOut::number(int value) {
    char digits[16];
    const char* const end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    raw({digits, static_cast<std::size_t>(end - digits)});
}

void JsonOut::raw(std::string_view json) {
    separate();
    piece(json);
    endValue();
}

void JsonOut::restart() {
    depth_ = 0;
    followsKey_ = false;
}

std::string indented(std::string_view json) {
    std::string lines;
    std::size_t depth = 0;
    const auto breakLine = [&lines, &depth] { lines.append(1, '\n').append(2 * depth, ' '); };
    for (std::size_t at = 0; at < json.size(); ++at) {
        const char byte = json[at];
        if (byte == '"') {
            const std::size_t start = at;
            for (++at; json[at] != '"'; ++at) at += json[at] == '\\' ? 1 : 0;
            lines += json.substr(start, at + 1 - start);
        } else if (byte == '{' || byte == '[') {
            lines += byte;
            ++depth;
            if (json[at + 1] != '}' && json[at + 1] != ']') breakLine();
        } else if (byte == '}' || byte == ']') {
            --depth;
            if (json[at - 1] != '{' && json[at - 1] != '[') breakLine();
            lines += byte;
        } else {
            lines += byte;
            if (byte == ',') breakLine();
            if (byte == ':') lines += ' ';
        }
    }
    return lines;
}

}  // namespace vantro
