#include "cli/io/screen_warnings.h"

#include "vantro/screen_lines.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace vantro {

namespace {

enum class Kind { Harmless, LineEnd, Tab, OtherControl };

constexpr bool isControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }

constexpr Kind kindOf(char16_t unit) {
    if (!isControl(unit)) return Kind::Harmless;
    if (unit == u'\n' || unit == u'\r') return Kind::LineEnd;
    return unit == u'\t' ? Kind::Tab : Kind::OtherControl;
}

// Looks at every character, without a branch for each: nearly all screens are good.
bool containsControl(TextView screen) {
    bool contains = false;
    for (const char16_t unit : screen) contains |= isControl(unit);
    return contains;
}

std::string counted(std::size_t number, const std::string& one) {
    return number == 1 ? "a " + one : std::to_string(number) + " " + one + "s, the first";
}

std::string positionOf(std::size_t index) {
    constexpr std::size_t width = screenWidth;
    return " in line " + std::to_string(index / width + 1) + ", column " + std::to_string(index % width + 1);
}

std::string codePointName(char16_t unit) {
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(unit));
    return name;
}

std::string warningOf(Kind kind, std::size_t number, const std::string& position, char16_t first) {
    switch (kind) {
        case Kind::LineEnd:
            return counted(number, "line end") + position +
                   "; a screen is lines of 80 characters without line ends, or a list of lines";
        case Kind::Tab: return counted(number, "tab") + position + "; replace tabs by the blanks that they stand for";
        case Kind::OtherControl:
        case Kind::Harmless: break;
    }
    return counted(number, "control character") + position + " (" + codePointName(first) + ")";
}

}  // namespace

std::vector<std::string> screenWarnings(TextView screen) {
    std::vector<std::string> warnings;
    if (!containsControl(screen)) return warnings;
    for (const Kind kind : {Kind::LineEnd, Kind::Tab, Kind::OtherControl}) {
        const auto isOfKind = [kind](char16_t unit) { return kindOf(unit) == kind; };
        const auto first = std::ranges::find_if(screen, isOfKind);
        if (first == screen.end()) continue;
        const auto number = static_cast<std::size_t>(std::count_if(first, screen.end(), isOfKind));
        const auto index = static_cast<std::size_t>(first - screen.begin());
        warnings.push_back("the screen contains " + warningOf(kind, number, positionOf(index), *first));
    }
    return warnings;
}

}  // namespace vantro
