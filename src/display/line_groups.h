// The characters of a screen line in groups of sixteen, ready to be compared: where the processor can, a group at
// once, elsewhere one by one. Both give the same answers.
#pragma once

#include "display/line_bits.h"
#include "framework/simd.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace vantro {

inline constexpr std::size_t groupSize = 16;

#if VANTRO_SSE2

class CharacterGroup {
public:
    explicit CharacterGroup(const char16_t* characters)
        : bytes_(simd::asBytes(simd::load(characters), simd::load(characters + simd::charactersPerVector))) {}

    /// One bit a character; the wanted one is ASCII.
    std::uint64_t where(char16_t wanted) const {
        return simd::bits(simd::eachByteEqual(bytes_, static_cast<char>(wanted)));
    }

    /// The characters as bytes; every one that is not a byte has become one that is no ASCII.
    __m128i bytes() const { return bytes_; }

private:
    __m128i bytes_;
};

#else

class CharacterGroup {
public:
    explicit CharacterGroup(const char16_t* characters) : characters_(characters) {}

    std::uint64_t where(char16_t wanted) const {
        std::uint64_t bits = 0;
        for (std::size_t place = 0; place < groupSize; ++place) {
            bits |= std::uint64_t{characters_[place] == wanted} << place;
        }
        return bits;
    }

private:
    const char16_t* characters_;
};

#endif

/// The groups of one line. The places of the groups are constants, so that no loop is left.
template <std::size_t Count>
class LineGroups {
public:
    explicit LineGroups(const char16_t* characters) : LineGroups(characters, std::make_index_sequence<Count>()) {}

    const std::array<CharacterGroup, Count>& groups() const { return groups_; }

    /// Where an ASCII character stands.
    LineBits where(char16_t wanted) const { return where(wanted, std::make_index_sequence<Count>()); }

    /// True when an ASCII character stands in the line.
    bool contains(char16_t wanted) const {
        std::uint64_t found = 0;
        for (const CharacterGroup& group : groups_) found |= group.where(wanted);
        return found != 0;
    }

    /// Where the blanks stand; the places past the groups count as blanks.
    LineBits blanks() const {
        constexpr LineBits pastTheEnd = LineBits::from(Count * groupSize);
        return where(u' ') | pastTheEnd;
    }

private:
    template <std::size_t... Place>
    LineGroups(const char16_t* characters, std::index_sequence<Place...>)
        : groups_{CharacterGroup(characters + Place * groupSize)...} {}

    template <std::size_t... Place>
    LineBits where(char16_t wanted, std::index_sequence<Place...>) const {
        std::uint64_t words[2] = {0, 0};
        ((words[Place / 4] |= groups_[Place].where(wanted) << (Place % 4 * groupSize)), ...);
        return {words[0], words[1]};
    }

    std::array<CharacterGroup, Count> groups_;
};

/// A line of at most `LineBits::capacity` characters with blanks behind.
inline std::array<char16_t, LineBits::capacity> padded(TextView line) {
    std::array<char16_t, LineBits::capacity> characters;
    characters.fill(u' ');
    std::ranges::copy(line, characters.begin());
    return characters;
}

/// Gives a line to a function in groups: one of 80 characters as it is, a shorter or longer one with blanks behind.
template <class Look>
auto lookAtGroups(TextView line, Look look) {
    constexpr std::size_t usualCount = 5;
    if (line.size() == usualCount * groupSize) return look(LineGroups<usualCount>(line.data()));
    return look(LineGroups<LineBits::capacity / groupSize>(padded(line).data()));
}

}  // namespace vantro
