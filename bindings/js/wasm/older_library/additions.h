// What the C++ library of Emscripten 3.1.6 (Debian 12) does not have yet. Every source of the WebAssembly module is
// compiled with this file in front; with a newer C++ library the file is empty. Only what the project uses is here,
// with the arguments that it uses. Algorithms return iterators as they are, also of temporary ranges.
#pragma once

#include <version>

#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 15000

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace std {

/// Of arrays.
template <class Array>
unique_ptr<Array> make_unique_for_overwrite(size_t size) {
    return unique_ptr<Array>(new remove_extent_t<Array>[size]);
}

namespace ranges {

template <class Range, class Predicate, class Projection = identity>
constexpr auto find_if(Range&& range, Predicate predicate, Projection projection = {}) {
    auto at = std::begin(range);
    while (at != std::end(range) && !std::invoke(predicate, std::invoke(projection, *at))) ++at;
    return at;
}

template <class Range, class Predicate, class Projection = identity>
constexpr auto find_if_not(Range&& range, Predicate predicate, Projection projection = {}) {
    return ranges::find_if(range, std::not_fn(std::move(predicate)), std::move(projection));
}

template <class Range, class Value, class Projection = identity>
constexpr auto find(Range&& range, const Value& value, Projection projection = {}) {
    return ranges::find_if(
        range, [&](const auto& entry) { return entry == value; }, std::move(projection));
}

template <class Range, class Predicate, class Projection = identity>
constexpr bool any_of(Range&& range, Predicate predicate, Projection projection = {}) {
    return ranges::find_if(range, std::move(predicate), std::move(projection)) != std::end(range);
}

template <class Range, class Predicate, class Projection = identity>
constexpr bool none_of(Range&& range, Predicate predicate, Projection projection = {}) {
    return !ranges::any_of(range, std::move(predicate), std::move(projection));
}

template <class Range, class Predicate, class Projection = identity>
constexpr bool all_of(Range&& range, Predicate predicate, Projection projection = {}) {
    return !ranges::any_of(range, std::not_fn(std::move(predicate)), std::move(projection));
}

template <class Range, class Predicate, class Projection = identity>
constexpr auto count_if(Range&& range, Predicate predicate, Projection projection = {}) {
    ptrdiff_t found = 0;
    for (auto&& entry : range) found += std::invoke(predicate, std::invoke(projection, entry)) ? 1 : 0;
    return found;
}

template <class Range, class Value, class Projection = identity>
constexpr auto count(Range&& range, const Value& value, Projection projection = {}) {
    return ranges::count_if(
        range, [&](const auto& entry) { return entry == value; }, std::move(projection));
}

template <class One, class Other, class Predicate = equal_to, class OneProjection = identity,
          class OtherProjection = identity>
constexpr bool equal(One&& one, Other&& other, Predicate predicate = {}, OneProjection ofOne = {},
                     OtherProjection ofOther = {}) {
    auto at = std::begin(other);
    for (auto&& entry : one) {
        if (at == std::end(other)) return false;
        if (!std::invoke(predicate, std::invoke(ofOne, entry), std::invoke(ofOther, *at))) return false;
        ++at;
    }
    return at == std::end(other);
}

template <class Range, class Value, class Less = less, class Projection = identity>
constexpr auto lower_bound(Range&& range, const Value& value, Less isLess = {}, Projection projection = {}) {
    return std::lower_bound(std::begin(range), std::end(range), value, [&](const auto& entry, const Value& wanted) {
        return std::invoke(isLess, std::invoke(projection, entry), wanted);
    });
}

/// The part of a result that the project reads.
template <class Output>
struct WrittenUpTo {
    Output out;
};

template <class Range, class Output>
constexpr auto copy(Range&& range, Output output) {
    return WrittenUpTo<Output>{std::copy(std::begin(range), std::end(range), output)};
}

template <class Range, class Output, class Predicate>
constexpr auto copy_if(Range&& range, Output output, Predicate predicate) {
    return WrittenUpTo<Output>{std::copy_if(std::begin(range), std::end(range), output, std::move(predicate))};
}

template <class Range, class Output, class Change>
constexpr auto transform(Range&& range, Output output, Change change) {
    return WrittenUpTo<Output>{std::transform(std::begin(range), std::end(range), output, std::move(change))};
}

template <class Range, class Value>
constexpr void replace(Range&& range, const Value& value, const Value& other) {
    std::replace(std::begin(range), std::end(range), value, other);
}

template <class Range, class Less = less, class Projection = identity>
constexpr void stable_sort(Range&& range, Less isLess = {}, Projection projection = {}) {
    std::stable_sort(std::begin(range), std::end(range), [&](const auto& one, const auto& other) {
        return std::invoke(isLess, std::invoke(projection, one), std::invoke(projection, other));
    });
}

template <class Range>
constexpr auto max(Range&& range) {
    return *std::max_element(std::begin(range), std::end(range));
}

}  // namespace ranges

}  // namespace std

#endif
