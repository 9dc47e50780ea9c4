#include "fuzz/common/input.h"

#include <array>

namespace vantro::fuzz {

namespace {

constexpr char headEnd = '\n';
constexpr char lineEnd = '\n';
constexpr char fieldMark = ';';
constexpr std::string_view screenMark = "\f\n";

/// More screens than these find nothing new.
constexpr std::size_t mostScreens = 4;

std::vector<std::string_view> split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(mark);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

constexpr std::array<char16_t, 32> unusualUnits{
    0x0009, 0x000A, 0x000D, 0x0000, 0x001F, 0x007F, 0x0080, 0x00A0, 0x00AD, 0x00C4, 0x0131,
    0x017F, 0x0660, 0x0661, 0x1680, 0x2000, 0x202F, 0x2028, 0x3000, 0x2F2F, 0x2D2D, 0x3E3E,
    0x2A2A, 0x8020, 0xFF0F, 0xFF10, 0xFF2F, 0xFEFF, 0xD83D, 0xDE00, 0xDC20, 0xFFFF,
};

char16_t unitOf(unsigned char byte) {
    if (byte < 0x80) return byte;
    // The low byte of a blank, a digit or a letter with another high byte, then such a byte as the high byte.
    if (byte < 0xC0) return static_cast<char16_t>(0x0120 + (byte & 0x3F));
    if (byte < 0xE0) return static_cast<char16_t>((0x20 + (byte & 0x1F)) << 8);
    return unusualUnits[byte & 0x1F];
}

Text rawUnits(std::string_view bytes) {
    Text text;
    for (std::size_t position = 0; position + 1 < bytes.size(); position += 2) {
        const auto low = static_cast<unsigned char>(bytes[position]);
        const auto high = static_cast<unsigned char>(bytes[position + 1]);
        text.push_back(static_cast<char16_t>(low | (high << 8)));
    }
    return text;
}

void fillUp(Text& text, std::size_t width) { text.resize((text.size() + width - 1) / width * width, u' '); }

void addLine(Text& screen, TextView line, std::size_t width) {
    screen.append(line.empty() ? TextView(u" ") : line);
    fillUp(screen, width);
}

void addEnd(Text& screen, const Layout& layout) {
    switch (layout.end) {
        case Layout::End::Display:
            fillUp(screen, layout.width);
            addLine(screen, u"END OF DISPLAY", layout.width);
            screen.push_back(u'>');
            return;
        case Layout::End::Prompt:
            fillUp(screen, layout.width);
            screen.push_back(u'>');
            return;
        case Layout::End::None: return;
        case Layout::End::Filled: fillUp(screen, layout.width); return;
    }
}

ItemValue valueOf(char kind, std::string_view value) {
    switch (kind) {
        case 'b': return value.empty();
        case 'i': {
            std::int16_t number = 0;
            for (const char byte : value) number = static_cast<std::int16_t>(number * 31 + byte - '0');
            return number;
        }
        case 'l': {
            TextList list;
            for (const std::string_view entry : split(value, ',')) list.push_back(unitsOf(entry));
            return list;
        }
        default: return unitsOf(value);
    }
}

}  // namespace

Input::Input(Bytes bytes) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const std::size_t end = text.find(headEnd);
    fields_ = split(text.substr(0, end), fieldMark);
    letters_ = fields_.front();
    fields_.erase(fields_.begin());
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    while (screens_.size() + 1 < mostScreens) {
        const std::size_t next = text.find(screenMark);
        if (next == std::string_view::npos) break;
        screens_.push_back(text.substr(0, next));
        text.remove_prefix(next + screenMark.size());
    }
    screens_.push_back(text);
}

std::size_t Input::choose(std::size_t choices) {
    if (letters_.empty()) return 0;
    const auto letter = static_cast<unsigned char>(letters_.front());
    letters_.remove_prefix(1);
    return static_cast<unsigned char>(letter - 'A') % choices;
}

Text unitsOf(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text.push_back(unitOf(static_cast<unsigned char>(byte)));
    return text;
}

Text screenOf(std::string_view lines, const Layout& layout) {
    Text screen;
    if (layout.raw) {
        screen = rawUnits(lines);
    } else if (!lines.empty()) {
        const std::vector<std::string_view> parts = split(lines, lineEnd);
        for (std::size_t line = 0; line < parts.size(); ++line) {
            const Text text = unitsOf(parts[line]);
            if (line + 1 < parts.size()) {
                addLine(screen, text, layout.width);
            } else {
                screen.append(text);  // a last line is not padded
            }
        }
    }
    addEnd(screen, layout);
    return screen;
}

Layout chosenLayout(Input& input) {
    using enum Layout::End;
    constexpr std::array ends{Display, Display, Prompt, Display, Display, Filled, Display, None};
    constexpr std::array<std::size_t, 12> widths{80, 80, 80, 128, 80, 129, 80, 200, 64, 80, 81, 255};
    Layout layout;
    layout.width = widths[input.choose(widths.size())];
    layout.end = ends[input.choose(ends.size())];
    layout.raw = input.choose(16) == 15;
    return layout;
}

std::optional<Item> itemOf(std::string_view field, std::span<const TextView> keys) {
    if (field.size() < 2) return std::nullopt;
    const std::size_t key = static_cast<unsigned char>(field[0] - 'A') % keys.size();
    return Item(keys[key], valueOf(field[1], field.substr(2)));
}

}  // namespace vantro::fuzz
