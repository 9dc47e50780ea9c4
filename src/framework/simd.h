// Eight characters at a time where the processor can, one at a time elsewhere. Both give the same answers.
#pragma once

#if !defined(VANTRO_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2))
#define VANTRO_SSE2 1
#include <emmintrin.h>
#else
#define VANTRO_SSE2 0
#endif

#if VANTRO_SSE2

namespace vantro::simd {

inline constexpr int charactersPerVector = 8;

inline __m128i load(const char16_t* characters) {
    return _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(characters)));
}

inline __m128i eachEqual(__m128i characters, char16_t wanted) {
    return _mm_cmpeq_epi16(characters, _mm_set1_epi16(static_cast<short>(wanted)));
}

/// Sixteen characters as bytes; one beyond 0xFF becomes 0xFF or 0.
inline __m128i asBytes(__m128i first, __m128i last) { return _mm_packus_epi16(first, last); }

inline __m128i eachByteEqual(__m128i bytes, char wanted) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)); }

/// Compares pairs of bytes that begin at an even place.
inline __m128i eachPairEqual(__m128i bytes, char left, char right) {
    return _mm_cmpeq_epi16(bytes, _mm_set1_epi16(static_cast<short>(left | right << 8)));
}

/// One bit a byte of a comparison.
inline unsigned bits(__m128i compared) { return static_cast<unsigned>(_mm_movemask_epi8(compared)); }

/// One bit a character of a comparison of eight.
inline unsigned bitsOfCharacters(__m128i compared) { return bits(_mm_packs_epi16(compared, _mm_setzero_si128())); }

}  // namespace vantro::simd

#endif
