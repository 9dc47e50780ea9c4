// What the hand-written contenders share: UTF-16 units compared sixteen at a time. The plain variants do the same where
// there is no SSE2.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vantro::bench {

using View = std::u16string_view;

inline constexpr std::size_t lineUnits = 80;

/// Four units as one number, to compare them at once. Both sides of a comparison come from here.
inline std::uint64_t fourUnits(const char16_t* units) {
    std::uint64_t four = 0;
    std::memcpy(&four, units, sizeof four);
    return four;
}

/// What a search for a title sees in a line.
struct Marks {
    bool prompt = false;
    bool rule = false;    ///< two hyphens
    bool mayEnd = false;  ///< pairs of units as in "END OF DISPLAY"
    bool any() const { return prompt || rule || mayEnd; }
};

/// One bit for each unit of a line.
struct LineBits {
    std::uint64_t low;   ///< units 0 to 63
    std::uint64_t high;  ///< units 64 to 79

    /// The bits of the units so many places further on.
    LineBits ahead(unsigned places) const { return {low >> places | high << (64 - places), high >> places}; }

    /// Calls `take` with the index of each set bit.
    template <class Take>
    void forEach(Take take) const {
        for (std::uint64_t left = low; left != 0; left &= left - 1) take(static_cast<unsigned>(std::countr_zero(left)));
        for (std::uint64_t left = high; left != 0; left &= left - 1) {
            take(64 + static_cast<unsigned>(std::countr_zero(left)));
        }
    }
};

/// What one look at all 80 units of a line shows.
struct LineLook {
    std::size_t end;  ///< the number of units up to the last one that is not a blank
    LineBits blanks;
    LineBits slashes;
    bool mayEndDisplay;  ///< the line contains a prompt, or pairs of units as in "END OF DISPLAY"
};

#if defined(__SSE2__)

/// Sixteen units as bytes; a unit that is not ASCII becomes a byte that no comparison here looks for.
inline __m128i sixteenBytes(const char16_t* units) {
    const auto* const vectors = reinterpret_cast<const __m128i*>(units);
    return _mm_packus_epi16(_mm_loadu_si128(vectors), _mm_loadu_si128(vectors + 1));
}

inline std::uint64_t bitsOf(__m128i mask) { return static_cast<unsigned>(_mm_movemask_epi8(mask)); }

/// The index after the last unit whose bit is not set, from the blanks of units 0 to 63 and 64 to 79.
inline std::size_t endOf(std::uint64_t blanks, std::uint64_t lastBlanks) {
    const std::uint64_t last = lastBlanks ^ 0xFFFF;
    const auto zeros = static_cast<std::size_t>(std::countl_zero(last != 0 ? last : ~blanks));
    return (last != 0 ? 128 : 64) - zeros;
}

/// Pairs of bytes as in the end text: of "SP" and "PL" in "DISPLAY", one begins at an even index.
inline __m128i endPairs(__m128i bytes) {
    return _mm_or_si128(_mm_cmpeq_epi16(bytes, _mm_set1_epi16('S' | 'P' << 8)),
                        _mm_cmpeq_epi16(bytes, _mm_set1_epi16('P' | 'L' << 8)));
}

/// The end of the text alone.
inline std::size_t textEnd(const char16_t* line) {
    const __m128i blank = _mm_set1_epi8(' ');
    const auto blanks = [&](std::size_t i) { return bitsOf(_mm_cmpeq_epi8(sixteenBytes(line + 16 * i), blank)); };
    return endOf(blanks(0) | blanks(1) << 16 | blanks(2) << 32 | blanks(3) << 48, blanks(4));
}

/// The prompt alone.
inline bool hasPrompt(const char16_t* line) {
    __m128i prompts = _mm_setzero_si128();
    for (std::size_t i = 0; i < 5; ++i) {
        prompts = _mm_or_si128(prompts, _mm_cmpeq_epi8(sixteenBytes(line + 16 * i), _mm_set1_epi8('>')));
    }
    return bitsOf(prompts) != 0;
}

inline LineLook lookAt(const char16_t* line) {
    const __m128i blank = _mm_set1_epi8(' ');
    const __m128i slash = _mm_set1_epi8('/');
    const __m128i prompt = _mm_set1_epi8('>');
    std::uint64_t blanks[5];
    std::uint64_t slashes[5];
    __m128i ends = _mm_setzero_si128();
    for (std::size_t i = 0; i < 5; ++i) {
        const __m128i bytes = sixteenBytes(line + 16 * i);
        blanks[i] = bitsOf(_mm_cmpeq_epi8(bytes, blank));
        slashes[i] = bitsOf(_mm_cmpeq_epi8(bytes, slash));
        ends = _mm_or_si128(ends, _mm_or_si128(_mm_cmpeq_epi8(bytes, prompt), endPairs(bytes)));
    }
    const auto joined = [](const std::uint64_t(&bits)[5]) {
        return LineBits{bits[0] | bits[1] << 16 | bits[2] << 32 | bits[3] << 48, bits[4]};
    };
    const LineBits blankBits = joined(blanks);
    return {endOf(blankBits.low, blankBits.high), blankBits, joined(slashes), bitsOf(ends) != 0};
}

inline Marks marksOf(const char16_t* line) {
    const __m128i prompt = _mm_set1_epi8('>');
    const __m128i hyphens = _mm_set1_epi16('-' | '-' << 8);  // of the seven of a title, two begin at an even index
    __m128i prompts = _mm_setzero_si128();
    __m128i rules = _mm_setzero_si128();
    __m128i ends = _mm_setzero_si128();
    for (std::size_t i = 0; i < 5; ++i) {
        const __m128i bytes = sixteenBytes(line + 16 * i);
        prompts = _mm_or_si128(prompts, _mm_cmpeq_epi8(bytes, prompt));
        rules = _mm_or_si128(rules, _mm_cmpeq_epi16(bytes, hyphens));
        ends = _mm_or_si128(ends, endPairs(bytes));
    }
    if (bitsOf(_mm_or_si128(ends, _mm_or_si128(prompts, rules))) == 0) return {};
    return {bitsOf(prompts) != 0, bitsOf(rules) != 0, bitsOf(ends) != 0};
}

/// True for eight blanks.
inline bool eightBlanks(const char16_t* units) {
    const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
    return bitsOf(_mm_cmpeq_epi16(eight, _mm_set1_epi16(' '))) == 0xFFFF;
}

#else

inline std::size_t textEnd(const char16_t* line) {
    std::size_t end = lineUnits;
    while (end > 0 && line[end - 1] == u' ') --end;
    return end;
}

inline bool hasPrompt(const char16_t* line) { return View(line, lineUnits).find(u'>') != View::npos; }

inline LineLook lookAt(const char16_t* line) {
    const View text(line, lineUnits);
    const auto bitsOf = [&](char16_t unit) {
        LineBits bits{};
        for (std::size_t i = 0; i < lineUnits; ++i) {
            (i < 64 ? bits.low : bits.high) |= std::uint64_t{text[i] == unit} << i % 64;
        }
        return bits;
    };
    return {textEnd(line), bitsOf(u' '), bitsOf(u'/'),
            text.find(u'>') != View::npos || text.find(u"SPL") != View::npos};
}

inline Marks marksOf(const char16_t* line) {
    const View text(line, lineUnits);
    return {text.find(u'>') != View::npos, text.find(u"--") != View::npos, text.find(u"SPL") != View::npos};
}

inline bool eightBlanks(const char16_t* units) { return View(units, 8) == u"        "; }

#endif

/// True for the blanks that a continuation line begins with.
inline bool nineBlanks(const char16_t* line) { return eightBlanks(line) && line[8] == u' '; }
inline bool seventeenBlanks(const char16_t* line) { return nineBlanks(line) && eightBlanks(line + 9); }

/// The units from one pointer to another without blanks at the beginning.
inline View leftTrimmed(const char16_t* begin, const char16_t* end) {
    if (begin >= end) return {};
    while (begin < end && *begin == u' ') ++begin;
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// Texts joined from several lines, one after the other in memory that must not move. Appends more to a text; the one
/// joined last grows where it is.
template <class Char>
std::basic_string_view<Char> joinedIn(std::basic_string<Char>& memory, std::basic_string_view<Char> text,
                                      std::basic_string_view<Char> separator, std::basic_string_view<Char> more) {
    const bool isLast = text.data() + text.size() == memory.data() + memory.size();
    const std::size_t begin = memory.size() - (isLast ? text.size() : 0);
    if (!isLast) memory.append(text);
    memory.append(separator).append(more);
    return std::basic_string_view<Char>(memory).substr(begin);
}

/// A line of a screen, for contenders that cut every line.
inline View screenLine(View screen, std::size_t number) {
    return number * lineUnits < screen.size() ? screen.substr(number * lineUnits, lineUnits) : View();
}

/// A text without blanks at its end.
inline void trimEnd(std::u16string& text) {
    const char16_t* end = text.data() + text.size();
    while (end - text.data() >= 8 && eightBlanks(end - 8)) end -= 8;
    while (end != text.data() && end[-1] == u' ') --end;
    text.resize(static_cast<std::size_t>(end - text.data()));
}

}  // namespace vantro::bench
