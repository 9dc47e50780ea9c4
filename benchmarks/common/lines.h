// Shared by the hand-written scanners: trimming, cutting, and the marks of a line.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vantro::bench {

using View = std::u16string_view;

/// A part of a text that is known to exist.
inline View slice(View text, std::size_t index, std::size_t count) { return {text.data() + index, count}; }
inline View slice(View text, std::size_t index) { return {text.data() + index, text.size() - index}; }

/// Four characters as one number that is 0 when all are blanks. The character with the lower index is in the lower
/// bits: the benchmarks run on little-endian machines.
inline std::uint64_t fourWithoutBlanks(const char16_t* text) {
    constexpr std::uint64_t fourBlanks = 0x0020'0020'0020'0020;
    std::uint64_t four = 0;
    std::memcpy(&four, text, sizeof four);
    return four ^ fourBlanks;
}

inline View rightTrimmed(View text) {
    std::size_t size = text.size();
    for (; size >= 4; size -= 4) {
        const std::uint64_t four = fourWithoutBlanks(text.data() + size - 4);
        if (four != 0) return slice(text, 0, size - static_cast<std::size_t>(std::countl_zero(four)) / 16);
    }
    while (size > 0 && text[size - 1] == u' ') --size;
    return slice(text, 0, size);
}

inline View leftTrimmed(View text) {
    std::size_t first = 0;
    for (; first + 4 <= text.size(); first += 4) {
        const std::uint64_t four = fourWithoutBlanks(text.data() + first);
        if (four != 0) return slice(text, first + static_cast<std::size_t>(std::countr_zero(four)) / 16);
    }
    while (first < text.size() && text[first] == u' ') ++first;
    return slice(text, first);
}

/// The index of an ASCII character at or after an index, found with the standard library's byte search; the bytes
/// around a hit decide whether it is the character.
inline std::size_t findUnit(View text, char16_t unit, std::size_t index = 0) {
    const char* const begin = reinterpret_cast<const char*>(text.data());
    const char* const end = begin + text.size() * sizeof(char16_t);
    const char* at = begin + std::min(index, text.size()) * sizeof(char16_t);
    while (at < end) {
        at = static_cast<const char*>(std::memchr(at, unit, static_cast<std::size_t>(end - at)));
        if (at == nullptr) break;
        const std::size_t position = static_cast<std::size_t>(at - begin) / sizeof(char16_t);
        if (text[position] == unit) return position;
        ++at;
    }
    return View::npos;
}

inline View trimmed(View text) { return leftTrimmed(rightTrimmed(text)); }

/// The text from an index (from 0); empty past the end.
inline View from(View text, std::size_t index, std::size_t count = View::npos) {
    if (index >= text.size()) return {};
    return slice(text, index, std::min(count, text.size() - index));
}

inline bool isBlank(View text) { return leftTrimmed(text).empty(); }

/// True if the first `count` characters of a line, or all when there are fewer, are blanks.
inline bool beginsBlank(View line, std::size_t count) { return isBlank(line.substr(0, count)); }

/// True for five blanks at an index.
inline bool fiveBlanks(View text, std::size_t index) {
    return text.size() >= index + 5 && isBlank(text.substr(index, 5));
}

inline View screenLine(View text, std::size_t number) {
    constexpr std::size_t width = 80;
    return from(text, number * width, width);
}

inline std::size_t lineCount(View text) { return (text.size() + 79) / 80; }

inline constexpr View endOfDisplay = u"END OF DISPLAY";
inline constexpr View sectionRule = u"-------";

/// The marks that can end a search or a section.
struct Marks {
    bool prompt = false;  ///< ">"
    bool end = false;     ///< "END OF DISPLAY"
    bool rule = false;    ///< seven hyphens
};

/// The result of looking at a whole line once.
struct Sweep {
    bool mayContainMark = false;  ///< false: no mark in it
    unsigned slashes = 0;
};

/// Tests all 80 columns of a line and two more without an early exit: the compiler turns this into wide compares. It
/// looks for "F D" of the end text and for two hyphens of a rule.
inline Sweep sweep(const char16_t* c) {
    std::uint16_t hit = 0;
    std::uint16_t slashes = 0;
    for (std::size_t i = 0; i < 80; ++i) {
        hit = static_cast<std::uint16_t>(
            hit | ((c[i] == u'>') | ((c[i] == u'F') & (c[i + 2] == u'D')) | ((c[i] == u'-') & (c[i + 1] == u'-'))));
        slashes = static_cast<std::uint16_t>(slashes + (c[i] == u'/'));
    }
    return {hit != 0, slashes};
}

inline Sweep sweepLine(View text, std::size_t number) {
    const std::size_t begin = number * 80;
    if (begin + 82 <= text.size()) return sweep(text.data() + begin);
    if (begin >= text.size()) return {};
    const View line = text.substr(begin, 80);
    return {true, static_cast<unsigned>(std::count(line.begin(), line.end(), u'/'))};
}

inline Marks marksOf(View line) {
    return {findUnit(line, u'>') != View::npos, line.find(endOfDisplay) != View::npos,
            line.find(sectionRule) != View::npos};
}

}  // namespace vantro::bench
