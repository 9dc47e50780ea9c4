#include "framework/line_bits.h"

#include "framework/simd.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

constexpr std::size_t groupSize = 16;  // characters whose bits are made at once
constexpr std::size_t groups = LineBits::capacity / groupSize;
constexpr std::size_t usualGroups = 5;  // a line of 80 characters

#if VANTRO_SSE2

// Sixteen characters as bytes. Every character that is not a byte becomes one that is no mark.
struct Group {
    __m128i bytes;
};

Group groupAt(const char16_t* characters) {
    return {simd::asBytes(simd::load(characters), simd::load(characters + simd::charactersPerVector))};
}

std::uint64_t bitsOf(Group group, char16_t mark) { return simd::bitsOfBytes(group.bytes, static_cast<char>(mark)); }

#else

using Group = const char16_t*;

Group groupAt(const char16_t* characters) { return characters; }

std::uint64_t bitsOf(Group group, char16_t mark) {
    std::uint64_t bits = 0;
    for (std::size_t place = 0; place < groupSize; ++place) bits |= std::uint64_t{group[place] == mark} << place;
    return bits;
}

#endif

/// The places of one mark among groups; they are written out so that each group's place is a constant.
template <std::size_t... Place>
LineBits bitsOf(const std::array<Group, sizeof...(Place)>& line, char16_t mark, std::index_sequence<Place...>) {
    std::uint64_t words[2] = {0, 0};
    ((words[Place / 4] |= bitsOf(line[Place], mark) << (Place % 4 * groupSize)), ...);
    return {words[0], words[1]};
}

template <std::size_t... Place>
LineMarks marksOfGroups(const char16_t* characters, std::index_sequence<Place...> places) {
    const std::array<Group, sizeof...(Place)> line{groupAt(characters + Place * groupSize)...};
    return {bitsOf(line, u' ', places), bitsOf(line, u'/', places), bitsOf(line, u'-', places),
            bitsOf(line, u'>', places), bitsOf(line, u'F', places)};
}

}  // namespace

LineMarks marksOf(TextView line) {
    if (line.size() == usualGroups * groupSize) {
        LineMarks marks = marksOfGroups(line.data(), std::make_index_sequence<usualGroups>());
        marks.blanks = marks.blanks | LineBits::from(line.size());
        return marks;
    }
    std::array<char16_t, LineBits::capacity> padded;
    padded.fill(u' ');
    std::ranges::copy(line, padded.begin());
    return marksOfGroups(padded.data(), std::make_index_sequence<groups>());
}

}  // namespace vantro
