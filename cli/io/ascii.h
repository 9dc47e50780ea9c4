// ASCII between UTF-8 and UTF-16, sixteen characters in one step.
#pragma once

#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#if !defined(VANTRO_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2))
#include <emmintrin.h>

namespace vantro {

/// Sixteen characters as bytes: those beyond ASCII are 0x80 or above. Sets of characters have one bit per character,
/// the first one lowest.
struct AsciiBlock {
    static constexpr std::size_t size = 16;
    __m128i bytes;

    static AsciiBlock load(const char* from) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))}; }
    static AsciiBlock narrow(const char16_t* from) {
        const auto eight = [](const char16_t* units) {
            const __m128i value = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
            return _mm_sub_epi16(value, _mm_subs_epu16(value, _mm_set1_epi16(0xFF)));  // at most 0xFF
        };
        return {_mm_packus_epi16(eight(from), eight(from + 8))};
    }
    void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes); }
    void widen(char16_t* to) const {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 8), _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
    }
    unsigned beyondAscii() const { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }
    unsigned equal(char wanted) const {
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted))));
    }

    /// All characters below the blank or beyond ASCII.
    unsigned outsideText() const {
        const __m128i outside = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));  // bytes from 0x80 on are negative
        return static_cast<unsigned>(_mm_movemask_epi8(outside));
    }

    /// The same, the quotation marks and the backslashes.
    unsigned specialInJson() const { return outsideText() | equal('"') | equal('\\'); }
};

}  // namespace vantro

#elif !defined(VANTRO_NO_SIMD) && (defined(__aarch64__) || defined(_M_ARM64))
#include <arm_neon.h>

namespace vantro {

struct AsciiBlock {
    static constexpr std::size_t size = 16;
    uint8x16_t bytes;

    static AsciiBlock load(const void* from) { return {vld1q_u8(static_cast<const std::uint8_t*>(from))}; }
    static AsciiBlock narrow(const char16_t* from) {
        const auto eight = [](const void* units) {
            return vqmovn_u16(vreinterpretq_u16_u8(vld1q_u8(static_cast<const std::uint8_t*>(units))));
        };
        return {vcombine_u8(eight(from), eight(from + 8))};
    }
    void store(void* to) const { vst1q_u8(static_cast<std::uint8_t*>(to), bytes); }
    void widen(char16_t* to) const {
        AsciiBlock{vreinterpretq_u8_u16(vmovl_u8(vget_low_u8(bytes)))}.store(to);
        AsciiBlock{vreinterpretq_u8_u16(vmovl_u8(vget_high_u8(bytes)))}.store(to + 8);
    }
    unsigned beyondAscii() const { return bits(vcgeq_u8(bytes, vdupq_n_u8(0x80))); }
    unsigned equal(char wanted) const { return bits(isEqual(wanted)); }
    unsigned outsideText() const { return bits(isOutsideText()); }
    unsigned specialInJson() const { return bits(vorrq_u8(isOutsideText(), vorrq_u8(isEqual('"'), isEqual('\\')))); }

private:
    uint8x16_t isOutsideText() const {
        return vorrq_u8(vcltq_u8(bytes, vdupq_n_u8(' ')), vcgeq_u8(bytes, vdupq_n_u8(0x80)));
    }
    uint8x16_t isEqual(char wanted) const { return vceqq_u8(bytes, vdupq_n_u8(static_cast<std::uint8_t>(wanted))); }
    static unsigned bits(uint8x16_t set) {
        static constexpr std::uint8_t weights[size] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        const uint8x16_t weighted = vandq_u8(set, vld1q_u8(weights));
        return unsigned{vaddv_u8(vget_low_u8(weighted))} | unsigned{vaddv_u8(vget_high_u8(weighted))} << 8;
    }
};

}  // namespace vantro

#else

namespace vantro {

struct AsciiBlock {
    static constexpr std::size_t size = 16;
    std::array<unsigned char, size> bytes;

    static AsciiBlock load(const char* from) {
        AsciiBlock block;
        for (std::size_t at = 0; at < size; ++at) block.bytes[at] = static_cast<unsigned char>(from[at]);
        return block;
    }
    static AsciiBlock narrow(const char16_t* from) {
        AsciiBlock block;
        for (std::size_t at = 0; at < size; ++at) {
            block.bytes[at] = static_cast<unsigned char>(std::min(from[at], char16_t{0xFF}));
        }
        return block;
    }
    void store(char* to) const {
        for (const unsigned char byte : bytes) *to++ = static_cast<char>(byte);
    }
    void widen(char16_t* to) const {
        for (const unsigned char byte : bytes) *to++ = byte;
    }
    unsigned beyondAscii() const {
        return bitsOf([](unsigned char byte) { return byte >= 0x80; });
    }
    unsigned equal(char wanted) const {
        return bitsOf([wanted](unsigned char byte) { return byte == static_cast<unsigned char>(wanted); });
    }
    unsigned outsideText() const {
        return bitsOf([](unsigned char byte) { return byte < ' ' || byte >= 0x80; });
    }
    unsigned specialInJson() const {
        return bitsOf([](unsigned char byte) { return byte < ' ' || byte >= 0x80 || byte == '"' || byte == '\\'; });
    }

private:
    template <class Test>
    unsigned bitsOf(Test test) const {
        unsigned bits = 0;
        for (std::size_t at = 0; at < size; ++at) bits |= static_cast<unsigned>(test(bytes[at])) << at;
        return bits;
    }
};

}  // namespace vantro

#endif

namespace vantro {

/// Calls `stop` with the index of each block of a text of at least one block; the last one may overlap the one before
/// it. Returns the index of the first character in a set that `stop` returned, or the size.
template <class Stop>
std::size_t findInBlocks(std::size_t size, Stop stop) {
    const std::size_t last = size - AsciiBlock::size;
    for (std::size_t at = 0;; at = std::min(at + AsciiBlock::size, last)) {
        if (const unsigned found = stop(at)) return at + static_cast<std::size_t>(std::countr_zero(found));
        if (at == last) return size;
    }
}

/// Narrows the units before the first one that is not ASCII and returns their number. `to` has room for all units; its
/// content after that number is unspecified.
inline std::size_t narrowAscii(TextView from, char* to) {
    if (from.size() >= AsciiBlock::size) {
        return findInBlocks(from.size(), [from, to](std::size_t at) {
            const AsciiBlock block = AsciiBlock::narrow(from.data() + at);
            block.store(to + at);
            return block.beyondAscii();
        });
    }
    std::size_t done = 0;
    for (; done < from.size() && from[done] < 0x80; ++done) to[done] = static_cast<char>(from[done]);
    return done;
}

}  // namespace vantro
