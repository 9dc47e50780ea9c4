// ASCII between UTF-8 and UTF-16, sixteen characters in one step.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <string_view>

#if !defined(VANTRO_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2))
#include <emmintrin.h>
#define VANTRO_ASCII_SSE2
#endif

namespace vantro {

inline constexpr std::size_t asciiBlock = 16;

#ifdef VANTRO_ASCII_SSE2

/// Writes sixteen units for sixteen bytes. False when a byte is not ASCII; what was written is then of no use.
inline bool widenAsciiBlock(const char* from, char16_t* to) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 8), _mm_unpackhi_epi8(bytes, zero));
    return _mm_movemask_epi8(bytes) == 0;
}

/// The same from units to bytes.
inline bool narrowAsciiBlock(const char16_t* from, char* to) {
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + 8));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(low, high));
    // The sum's highest bit is set for all units from 0x80 on.
    const __m128i sums = _mm_adds_epu16(_mm_or_si128(low, high), _mm_set1_epi16(0x7F80));
    return (_mm_movemask_epi8(sums) & 0xAAAA) == 0;
}

#else

/// Writes sixteen units for sixteen bytes. False when a byte is not ASCII; what was written is then of no use.
inline bool widenAsciiBlock(const char* from, char16_t* to) {
    unsigned all = 0;
    for (std::size_t at = 0; at < asciiBlock; ++at) {
        const auto byte = static_cast<unsigned char>(from[at]);
        to[at] = byte;
        all |= byte;
    }
    return all < 0x80;
}

/// The same from units to bytes.
inline bool narrowAsciiBlock(const char16_t* from, char* to) {
    unsigned all = 0;
    for (std::size_t at = 0; at < asciiBlock; ++at) {
        to[at] = static_cast<char>(from[at]);
        all |= from[at];
    }
    return all < 0x80;
}

#endif

/// Widens the bytes before the first one that is not ASCII and returns their number. `to` has room for all bytes; its
/// content after that number is unspecified.
inline std::size_t widenAscii(std::string_view from, char16_t* to) {
    std::size_t done = 0;
    while (from.size() - done >= asciiBlock && widenAsciiBlock(from.data() + done, to + done)) done += asciiBlock;
    for (; done < from.size() && static_cast<unsigned char>(from[done]) < 0x80; ++done) {
        to[done] = static_cast<unsigned char>(from[done]);
    }
    return done;
}

/// The same from units to bytes.
inline std::size_t narrowAscii(TextView from, char* to) {
    std::size_t done = 0;
    while (from.size() - done >= asciiBlock && narrowAsciiBlock(from.data() + done, to + done)) done += asciiBlock;
    for (; done < from.size() && from[done] < 0x80; ++done) to[done] = static_cast<char>(from[done]);
    return done;
}

}  // namespace vantro
