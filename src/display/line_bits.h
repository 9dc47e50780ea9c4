// The characters of a display line, compared sixteen at a time, and sets of positions with one bit per character.
#pragma once

#include "framework/bytes.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vantro {

/// A set of positions in a line, from 0 to 127.
class LineBits {
public:
    static constexpr std::size_t capacity = 128;

    constexpr LineBits() = default;
    constexpr LineBits(std::uint64_t low, std::uint64_t high) : low_(low), high_(high) {}

    /// The positions from `begin` on.
    static constexpr LineBits from(std::size_t begin) {
        if (begin >= capacity) return {};
        return begin < 64 ? LineBits(~std::uint64_t{0} << begin, ~std::uint64_t{0})
                          : LineBits(0, ~std::uint64_t{0} << (begin % 64));
    }

    /// `count` (0 to 63) positions from `begin` on.
    static constexpr LineBits range(std::size_t begin, std::size_t count) {
        const std::uint64_t positions = (std::uint64_t{1} << count) - 1;
        if (begin >= capacity) return {};
        if (begin >= 64) return {0, positions << (begin % 64)};
        return {positions << begin, begin == 0 ? 0 : positions >> (64 - begin)};
    }

    constexpr bool any() const { return (low_ | high_) != 0; }

    /// The lowest position; `capacity` when there is none.
    constexpr std::size_t lowest() const {
        const bool isLow = low_ != 0;
        return static_cast<std::size_t>(std::countr_zero(isLow ? low_ : high_)) + (isLow ? 0 : 64);
    }

    /// One more than the highest position; 0 when there is none.
    constexpr std::size_t end() const {
        const bool isHigh = high_ != 0;
        return (isHigh ? capacity : 64) - static_cast<std::size_t>(std::countl_zero(isHigh ? high_ : low_));
    }

    /// True for a position in the set.
    constexpr bool contains(std::size_t position) const {
        return ((position < 64 ? low_ : high_) >> position % 64 & 1) != 0;
    }

    constexpr void removeLowest() {
        const std::uint64_t mask = low_ != 0 ? ~std::uint64_t{0} : high_ - 1;
        low_ &= low_ - 1;
        high_ &= mask;
    }

    /// The set moved down by `steps` (1 to 63): it contains p when this set contains p + `steps`.
    constexpr LineBits down(unsigned steps) const { return {low_ >> steps | high_ << (64 - steps), high_ >> steps}; }

    /// The positions in the set that are followed by `length` or `length` + 1 positions outside it and then one inside
    /// it; `length` is 1 to 61. In the set of a line's blanks: the blank before each word of these lengths.
    constexpr LineBits beforeWords(unsigned length) const {
        LineBits positions = *this & (down(length + 1) | down(length + 2));
        for (unsigned letter = 1; letter <= length; ++letter) positions = positions & ~down(letter);
        return positions;
    }

    /// The positions p for which the set contains all of p to p + `length` - 1; `length` is 2 to 63.
    constexpr LineBits runs(unsigned length) const {
        LineBits begins = *this;
        for (unsigned covered = 1; covered < length;) {
            const unsigned step = std::min(covered, length - covered);
            begins = begins & begins.down(step);
            covered += step;
        }
        return begins;
    }

    friend constexpr LineBits operator&(LineBits a, LineBits b) { return {a.low_ & b.low_, a.high_ & b.high_}; }
    friend constexpr LineBits operator|(LineBits a, LineBits b) { return {a.low_ | b.low_, a.high_ | b.high_}; }
    friend constexpr LineBits operator~(LineBits a) { return {~a.low_, ~a.high_}; }

private:
    std::uint64_t low_ = 0;
    std::uint64_t high_ = 0;
};

/// The characters of a line of `Length` characters, narrowed for comparing.
template <std::size_t Length>
class LineCharacters {
public:
    static constexpr std::size_t groupCount = Length / Bytes::count;
    static_assert(Length % Bytes::count == 0 && Length <= LineBits::capacity);

    explicit LineCharacters(const char16_t* text) {
        for (std::size_t group = 0; group < groupCount; ++group) {
            groups_[group] = Bytes::narrow(text + group * Bytes::count);
        }
    }

    /// The positions of an ASCII character.
    LineBits where(char wanted) const {
        return matches([wanted](Bytes bytes) { return bytes.equal(wanted); });
    }

    /// The positions of the characters that `test` matches.
    template <class Test>
    LineBits matches(Test test) const {
        std::uint64_t words[2] = {0, 0};
        for (std::size_t group = 0; group < groupCount; ++group) {
            const std::uint64_t bits = test(groups_[group]).bits();
            words[group / 4] |= bits << (group % 4 * Bytes::count);
        }
        return {words[0], words[1]};
    }

    /// The positions of the blanks; positions after the last character count as blanks.
    LineBits blanks() const { return where(' ') | LineBits::from(Length); }

    /// True when `test`, which returns its matches in a group of characters, matches any of them.
    template <class Test>
    bool any(Test test) const {
        Bytes matches = test(groups_[0]);
        for (std::size_t group = 1; group < groupCount; ++group) matches = matches | test(groups_[group]);
        return matches.bits() != 0;
    }

private:
    std::array<Bytes, groupCount> groups_;
};

/// A line of at most `LineBits::capacity` characters, padded with blanks.
inline std::array<char16_t, LineBits::capacity> padded(TextView line) {
    std::array<char16_t, LineBits::capacity> characters;
    characters.fill(u' ');
    TextView::traits_type::copy(characters.data(), line.data(), line.size());
    return characters;
}

/// Passes the characters of a line of at most `LineBits::capacity` characters to a function and returns its result. A
/// line of 80 characters is passed unchanged, any other padded with blanks.
template <class Use>
auto withCharacters(TextView line, Use use) {
    constexpr std::size_t usualLength = 80;
    if (line.size() == usualLength) return use(LineCharacters<usualLength>(line.data()));
    return use(LineCharacters<LineBits::capacity>(padded(line).data()));
}

}  // namespace vantro
