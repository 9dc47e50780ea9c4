// Sixteen characters, each narrowed to a byte, compared in one step. `narrow` turns a character above 0xFF into a byte
// that is no printable ASCII character; which one depends on the variant. `store` writes the bytes to memory, `load`
// reads them. `equal` and `equalPairs` set all bits of each byte that matches: an ASCII character, the byte in the same
// place of other bytes, or a pair, which begins at an even position. `bits` returns one bit per byte, the first
// character lowest. `prefetch` asks for text that will be read soon, where instructions for it exist. There are
// variants for SSE2, for 64-bit ARM and without vector instructions.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#if !defined(VANTRO_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2))
#include <emmintrin.h>

namespace vantro {

struct Bytes {
    static constexpr std::size_t count = 16;
    __m128i value;

    static Bytes narrow(const char16_t* text) {
        const auto eight = [](const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); };
        return {_mm_packus_epi16(eight(text), eight(text + 8))};
    }
    static Bytes load(const std::uint8_t* bytes) {
        return {_mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(bytes)))};
    }
    void store(std::uint8_t* bytes) const { _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(bytes)), value); }
    static void prefetch(const char16_t* text) { _mm_prefetch(reinterpret_cast<const char*>(text), _MM_HINT_T0); }
    Bytes equal(char wanted) const { return {_mm_cmpeq_epi8(value, _mm_set1_epi8(wanted))}; }
    Bytes equal(Bytes other) const { return {_mm_cmpeq_epi8(value, other.value)}; }
    Bytes equalPairs(char left, char right) const {
        return {_mm_cmpeq_epi16(value, _mm_set1_epi16(static_cast<short>(left | right << 8)))};
    }
    unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(value)); }
    friend Bytes operator|(Bytes a, Bytes b) { return {_mm_or_si128(a.value, b.value)}; }
    friend Bytes operator&(Bytes a, Bytes b) { return {_mm_and_si128(a.value, b.value)}; }
};

}  // namespace vantro

#elif !defined(VANTRO_NO_SIMD) && (defined(__aarch64__) || defined(_M_ARM64))
#include <arm_neon.h>

namespace vantro {

struct Bytes {
    static constexpr std::size_t count = 16;
    uint8x16_t value;

    static void prefetch(const char16_t* /*text*/) {}
    static Bytes narrow(const char16_t* text) {
        const auto eight = [](const void* from) {
            return vqmovn_u16(vreinterpretq_u16_u8(vld1q_u8(static_cast<const std::uint8_t*>(from))));
        };
        return {vcombine_u8(eight(text), eight(text + 8))};
    }
    static Bytes load(const std::uint8_t* bytes) { return {vld1q_u8(bytes)}; }
    void store(std::uint8_t* bytes) const { vst1q_u8(bytes, value); }
    Bytes equal(char wanted) const { return {vceqq_u8(value, vdupq_n_u8(static_cast<std::uint8_t>(wanted)))}; }
    Bytes equal(Bytes other) const { return {vceqq_u8(value, other.value)}; }
    Bytes equalPairs(char left, char right) const {
        const uint16x8_t pair = vdupq_n_u16(static_cast<std::uint16_t>(left | right << 8));
        return {vreinterpretq_u8_u16(vceqq_u16(vreinterpretq_u16_u8(value), pair))};
    }
    unsigned bits() const {
        static constexpr std::uint8_t weights[count] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        const uint8x16_t weighted = vandq_u8(value, vld1q_u8(weights));
        return unsigned{vaddv_u8(vget_low_u8(weighted))} | unsigned{vaddv_u8(vget_high_u8(weighted))} << 8;
    }
    friend Bytes operator|(Bytes a, Bytes b) { return {vorrq_u8(a.value, b.value)}; }
    friend Bytes operator&(Bytes a, Bytes b) { return {vandq_u8(a.value, b.value)}; }
};

}  // namespace vantro

#else

namespace vantro {

struct Bytes {
    static constexpr std::size_t count = 16;
    std::array<std::uint8_t, count> value;

    static void prefetch(const char16_t* /*text*/) {}
    static Bytes narrow(const char16_t* text) {
        Bytes bytes;
        for (std::size_t at = 0; at < count; ++at) {
            bytes.value[at] = static_cast<std::uint8_t>(std::min(text[at], char16_t{0xFF}));
        }
        return bytes;
    }
    static Bytes load(const std::uint8_t* bytes) {
        Bytes loaded;
        std::copy_n(bytes, count, loaded.value.begin());
        return loaded;
    }
    void store(std::uint8_t* bytes) const { std::ranges::copy(value, bytes); }
    Bytes equal(char wanted) const {
        Bytes matches;
        for (std::size_t at = 0; at < count; ++at) matches.value[at] = value[at] == wanted ? 0xFF : 0;
        return matches;
    }
    Bytes equal(Bytes other) const {
        Bytes matches;
        for (std::size_t at = 0; at < count; ++at) matches.value[at] = value[at] == other.value[at] ? 0xFF : 0;
        return matches;
    }
    Bytes equalPairs(char left, char right) const {
        Bytes matches;
        for (std::size_t at = 0; at < count; at += 2) {
            const bool isPair = value[at] == left && value[at + 1] == right;
            matches.value[at] = matches.value[at + 1] = isPair ? 0xFF : 0;
        }
        return matches;
    }
    unsigned bits() const {
        unsigned set = 0;
        for (std::size_t at = 0; at < count; ++at) set |= (value[at] & 1U) << at;
        return set;
    }
    friend Bytes operator|(Bytes a, Bytes b) {
        for (std::size_t at = 0; at < count; ++at) a.value[at] = static_cast<std::uint8_t>(a.value[at] | b.value[at]);
        return a;
    }
    friend Bytes operator&(Bytes a, Bytes b) {
        for (std::size_t at = 0; at < count; ++at) a.value[at] = static_cast<std::uint8_t>(a.value[at] & b.value[at]);
        return a;
    }
};

}  // namespace vantro

#endif
