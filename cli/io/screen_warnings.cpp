#include "cli/io/screen_warnings.h"

#include "vantro/screen_lines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace vantro {

namespace {

enum class Kind { Harmless, LineEnd, Tab, OtherControl };

constexpr bool isControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }

constexpr Kind kindOf(char16_t unit) {
    if (!isControl(unit)) return Kind::Harmless;
    if (unit == u'\n' || unit == u'\r') return Kind::LineEnd;
    return unit == u'\t' ? Kind::Tab : Kind::OtherControl;
}

// False only for a block without control characters. It looks at two minima, a few instructions for eight characters:
// that of the characters, and that of their distances above U+007F, both as signed numbers so that any processor
// compares them. A character from U+8000 on is negative and looks like a control character.
constexpr std::size_t blockLength = screenWidth;

bool mayContainControl(const char16_t* block) {
    constexpr int signBit = 0x8000;
    std::int16_t lowest = std::numeric_limits<std::int16_t>::max();
    std::int16_t nearest = lowest;
    for (std::size_t i = 0; i < blockLength; ++i) {
        lowest = std::min(lowest, static_cast<std::int16_t>(block[i]));
        nearest = std::min(nearest, static_cast<std::int16_t>(block[i] - 0x7F + signBit));
    }
    return lowest < 0x20 || nearest < 0xA0 - 0x7F - signBit;
}

// Nearly all screens are good, and `batch` looks at many.
bool containsControl(TextView screen) {
    while (screen.size() >= blockLength && !mayContainControl(screen.data())) screen.remove_prefix(blockLength);
    return std::ranges::any_of(screen, isControl);
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
