// One bit a character of a screen line: where its blanks stand, say. A line is looked at once and then answers most
// questions from its bits.
#pragma once

#include "vantro/text.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace vantro {

/// A set of character places in a line, from 0. Places from 128 on do not exist.
class LineBits {
public:
    static constexpr std::size_t capacity = 128;

    constexpr LineBits() = default;
    constexpr LineBits(std::uint64_t low, std::uint64_t high) : low_(low), high_(high) {}

    /// The places from `begin` on.
    static constexpr LineBits from(std::size_t begin) {
        if (begin >= capacity) return {};
        return begin < 64 ? LineBits(~std::uint64_t{0} << begin, ~std::uint64_t{0})
                          : LineBits(0, ~std::uint64_t{0} << (begin - 64));
    }

    /// The places from `begin` on, `count` (0 to 63) of them.
    static constexpr LineBits range(std::size_t begin, std::size_t count) {
        const std::uint64_t places = (std::uint64_t{1} << count) - 1;
        if (begin >= capacity) return {};
        if (begin >= 64) return {0, places << (begin - 64)};
        return {places << begin, begin == 0 ? 0 : places >> (64 - begin)};
    }

    constexpr bool any() const { return (low_ | high_) != 0; }

    /// The lowest place; `capacity` when there is none.
    constexpr std::size_t lowest() const {
        if (low_ != 0) return static_cast<std::size_t>(std::countr_zero(low_));
        return 64 + static_cast<std::size_t>(std::countr_zero(high_));
    }

    /// One more than the highest place; 0 when there is none.
    constexpr std::size_t end() const {
        if (high_ != 0) return capacity - static_cast<std::size_t>(std::countl_zero(high_));
        return 64 - static_cast<std::size_t>(std::countl_zero(low_));
    }

    constexpr void removeLowest() {
        if (low_ != 0) {
            low_ &= low_ - 1;
        } else {
            high_ &= high_ - 1;
        }
    }

    /// Every place moved down by `steps` (1 to 63): place p of the result is place p + steps of this one.
    constexpr LineBits down(unsigned steps) const { return {low_ >> steps | high_ << (64 - steps), high_ >> steps}; }

    /// The places that `length` others and then a further place of the set follow: those of the blanks in front of
    /// the words of that length.
    constexpr LineBits beforeWords(unsigned length) const {
        LineBits places = *this & down(length + 1);
        for (unsigned letter = 1; letter <= length; ++letter) places = places & ~down(letter);
        return places;
    }

    /// The places at which `length` (2 to 63) places of the set in a row begin.
    constexpr LineBits runs(unsigned length) const {
        LineBits begins = *this;
        for (unsigned covered = 1; covered < length;) {
            const unsigned step = covered < length - covered ? covered : length - covered;
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

}  // namespace vantro
