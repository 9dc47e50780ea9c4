// What no mark is without: a line that shows none of it is passed without a second look.
#pragma once

#include "display/line_groups.h"
#include "framework/screen.h"

#include <cstddef>

namespace vantro {

/// The characters of a usual display line.
using DisplayLineGroups = LineGroups<screenWidth / groupSize>;

#if VANTRO_SSE2

/// In sixteen characters at a time: two hyphens, the "P" of the end text with its left or its right neighbour, or the
/// prompt. Pairs are looked for at even places alone: seven hyphens fill three such pairs, and of the two around the
/// "P", which are rare in words, one is such a pair.
inline __m128i markSigns(const CharacterGroup& group) {
    const __m128i bytes = group.bytes();
    const __m128i endText = _mm_or_si128(simd::eachPairEqual(bytes, 'S', 'P'), simd::eachPairEqual(bytes, 'P', 'L'));
    const __m128i others = _mm_or_si128(simd::eachPairEqual(bytes, '-', '-'), simd::eachByteEqual(bytes, '>'));
    return _mm_or_si128(endText, others);
}

inline bool mayBeMarked(const DisplayLineGroups& line) {
    __m128i found = _mm_setzero_si128();
    for (const CharacterGroup& group : line.groups()) found = _mm_or_si128(found, markSigns(group));
    return simd::bits(found) != 0;
}

#else

inline bool mayBeMarked(const DisplayLineGroups& /*line*/) { return true; }

#endif

}  // namespace vantro
