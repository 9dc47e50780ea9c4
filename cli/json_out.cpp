#include "cli/json_out.h"

#include "cli/utf.h"

#include <array>
#include <cstddef>

namespace vantro {

namespace {

// True for characters that a JSON string takes as they are, as one byte of UTF-8.
constexpr bool isPlain(char16_t character) {
    return character >= 0x20 && character < 0x80 && character != u'"' && character != u'\\';
}

void appendPlain(TextView plain, std::string& out) {
    const std::size_t before = out.size();
    out.resize(before + plain.size());
    char* const target = out.data() + before;
    for (std::size_t i = 0; i < plain.size(); ++i) target[i] = static_cast<char>(plain[i]);
}

void appendControl(char32_t control, std::string& out) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (control) {
        case U'\b': out += "\\b"; return;
        case U'\t': out += "\\t"; return;
        case U'\n': out += "\\n"; return;
        case U'\f': out += "\\f"; return;
        case U'\r': out += "\\r"; return;
        default:
            out += "\\u00";
            out += digits[control / 16];
            out += digits[control % 16];
    }
}

void appendEscaped(char32_t character, std::string& out) {
    if (character == U'"' || character == U'\\') {
        out += '\\';
        out += static_cast<char>(character);
    } else if (character < 0x20) {
        appendControl(character, out);
    } else {
        appendUtf8(character, out);
    }
}

}  // namespace

void JsonOut::separate() {
    if (commaDue_) out_ += ',';
    commaDue_ = true;
}

void JsonOut::begin(char bracket) {
    separate();
    out_ += bracket;
    commaDue_ = false;
}

void JsonOut::end(char bracket) {
    out_ += bracket;
    commaDue_ = true;
}

void JsonOut::key(TextView name) {
    separate();
    quoted(name);
    out_ += ':';
    commaDue_ = false;
}

void JsonOut::key(std::string_view asciiName) {
    separate();
    out_ += '"';
    out_ += asciiName;
    out_ += "\":";
    commaDue_ = false;
}

void JsonOut::text(TextView value) {
    separate();
    quoted(value);
}

void JsonOut::number(int value) {
    separate();
    out_ += std::to_string(value);
}

void JsonOut::raw(std::string_view json) {
    separate();
    out_ += json;
}

void JsonOut::quoted(TextView value) {
    out_ += '"';
    while (!value.empty()) {
        std::size_t plain = 0;
        while (plain < value.size() && isPlain(value[plain])) ++plain;
        appendPlain(value.substr(0, plain), out_);
        value.remove_prefix(plain);
        if (value.empty()) break;
        const CodePoint character = codePointAt(value, 0);
        appendEscaped(character.value, out_);
        value.remove_prefix(character.units);
    }
    out_ += '"';
}

}  // namespace vantro
