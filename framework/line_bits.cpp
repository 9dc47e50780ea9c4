#include "framework/line_bits.h"

#include "framework/simd.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

/// Two words of sixteen-character groups for each kind of mark.
struct Words {
    std::array<std::uint64_t, 2> blanks{};
    std::array<std::uint64_t, 2> slashes{};
    std::array<std::uint64_t, 2> dashes{};
    std::array<std::uint64_t, 2> prompts{};
};

constexpr std::size_t groupSize = 16;

#if VANTRO_SSE2

void addGroup(Words& words, std::size_t begin, const char16_t* characters) {
    const __m128i first = simd::load(characters);
    const __m128i last = simd::load(characters + simd::charactersPerVector);
    const auto add = [&](std::array<std::uint64_t, 2>& bits, char16_t wanted) {
        bits[begin / 64] |= simd::bits(simd::eachEqual(first, wanted), simd::eachEqual(last, wanted)) << (begin % 64);
    };
    add(words.blanks, u' ');
    add(words.slashes, u'/');
    add(words.dashes, u'-');
    add(words.prompts, u'>');
}

#else

void addGroup(Words& words, std::size_t begin, const char16_t* characters) {
    for (std::size_t place = 0; place < groupSize; ++place) {
        const auto add = [&](std::array<std::uint64_t, 2>& bits, char16_t wanted) {
            bits[begin / 64] |= std::uint64_t{characters[place] == wanted} << (begin % 64 + place);
        };
        add(words.blanks, u' ');
        add(words.slashes, u'/');
        add(words.dashes, u'-');
        add(words.prompts, u'>');
    }
}

#endif

}  // namespace

LineMarks marksOf(TextView line) {
    Words words;
    const std::size_t wholeGroups = line.size() / groupSize * groupSize;
    for (std::size_t begin = 0; begin < wholeGroups; begin += groupSize) addGroup(words, begin, line.data() + begin);
    if (wholeGroups < line.size()) {
        std::array<char16_t, groupSize> padded;
        padded.fill(u' ');
        std::ranges::copy(line.substr(wholeGroups), padded.begin());
        addGroup(words, wholeGroups, padded.data());
    }
    const auto bits = [](const std::array<std::uint64_t, 2>& word) { return LineBits(word[0], word[1]); };
    return {bits(words.blanks) | LineBits::from(line.size()), bits(words.slashes), bits(words.dashes),
            bits(words.prompts)};
}

}  // namespace vantro
