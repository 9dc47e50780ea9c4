// The terminal's 16-bit integers: line counters, element counts and indexes, which raise an error when they overflow.
#pragma once

#include "vantro/collection.h"
#include "vantro/error.h"
#include "vantro/text.h"

#include <compare>
#include <cstdint>
#include <limits>

namespace vantro {

/// The value as a 16-bit integer; raises 6 when it does not fit.
constexpr std::int16_t toInt16(long long value) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        fail(Failure::Overflow);
    }
    return static_cast<std::int16_t>(value);
}

/// The whole number in a text, without blanks at both ends: an optional sign and one or more digits. Raises 13 for any
/// other text, including the empty one, and 6 for a number that does not fit.
std::int16_t toInt16(TextView text);

/// A stored value as a 16-bit integer: an integer unchanged, True as -1, False as 0, a text as above. Raises 13 for a
/// list.
std::int16_t toInt16(const ItemValue& value);

/// The number in decimal.
Text decimal(std::int16_t number);

/// A counter of lines or elements. A step beyond 16 bits raises 6 and changes nothing.
class Counter {
public:
    constexpr explicit Counter(std::int16_t start = 0) : value_(start) {}

    constexpr std::int16_t value() const { return value_; }

    constexpr Counter& operator++() {
        value_ = toInt16(value_ + 1LL);
        return *this;
    }

    constexpr Counter& operator--() {
        value_ = toInt16(value_ - 1LL);
        return *this;
    }

    friend constexpr Counter operator+(Counter counter, int steps) {
        return Counter(toInt16(static_cast<long long>(counter.value_) + steps));
    }

    friend constexpr auto operator<=>(Counter, Counter) = default;

private:
    std::int16_t value_;
};

}  // namespace vantro
