#include "tests/profile/displays.h"

#include <algorithm>
#include <stdexcept>

namespace vantro {

namespace {

constexpr std::size_t width = 80;

}  // namespace

std::vector<std::string> utf8(const TextList& list) {
    std::vector<std::string> texts;
    for (const Text& entry : list) texts.push_back(utf8(TextView(entry)));
    return texts;
}

Text display(const Lines& lines) {
    Text joined;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const Text text = wide(lines[line]);
        if (text.size() > width) throw std::length_error("longer than a line of the host: " + lines[line]);
        joined.resize(line * width, u' ');
        joined += text;
    }
    return joined;
}

Text ended(Lines lines) { return display(std::move(lines) + Lines{"END OF DISPLAY", ">"}); }

std::string transferable(char kind, std::string_view number, std::string_view text) {
    std::string line(13, ' ');
    line[0] = kind;
    line.replace(8 - number.size(), number.size(), number);
    return line.append(text);
}

std::string from(std::size_t column, std::string_view text) { return std::string(column - 1, ' ').append(text); }

Lines operator+(Lines above, const Lines& below) {
    above.insert(above.end(), below.begin(), below.end());
    return above;
}

std::string drawn(TextView display) {
    std::string picture = "a display of " + std::to_string(display.size()) + " characters\n";
    std::size_t number = 0;
    for (std::size_t start = 0; start < display.size(); start += width) {
        const std::string label = std::to_string(number++);
        picture += std::string(5 - std::min<std::size_t>(label.size(), 5), ' ') + label + " |" +
                   utf8(display.substr(start, width)) + "|\n";
    }
    return picture;
}

}  // namespace vantro
