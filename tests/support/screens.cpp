#include "tests/support/screens.h"

#include <stdexcept>

namespace vantro::test {

namespace {

constexpr std::size_t width = 80;

void appendLine(Text& screen, TextView line) {
    if (line.size() > width) throw std::length_error("a screen line has 80 characters at most");
    screen.append(line);
    screen.append(width - line.size(), u' ');
}

}  // namespace

Text screen(std::initializer_list<TextView> lines) {
    Text text;
    for (const TextView line : lines) appendLine(text, line);
    return text;
}

Text screenAt(std::initializer_list<std::pair<int, TextView>> lines) {
    Text text;
    for (const auto& [number, line] : lines) {
        const std::size_t start = static_cast<std::size_t>(number) * width;
        if (start < text.size()) throw std::length_error("the lines must come in rising order");
        text.append(start - text.size(), u' ');
        appendLine(text, line);
    }
    return text;
}

}  // namespace vantro::test
