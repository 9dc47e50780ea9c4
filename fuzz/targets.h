// The fuzz targets. A target accepts any bytes, runs the library on what they describe, and returns a message where the
// result differs from the oracle's, or an empty text. libFuzzer calls it, and so does the ordinary suite with the
// stored inputs.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vantro::fuzz {

using Bytes = std::span<const std::uint8_t>;

/// Every transaction's `VerifyResponse`, over screens and states.
std::string transactions(Bytes input);

/// One query and its count property, over displays.
std::string profileQueries(Bytes input);

/// `parseProfile` against the single queries.
std::string wholeProfile(Bytes input);

/// Lines of a batch and their responses.
std::string batchLines(Bytes input);

/// The built-in collection, its items and their conversions.
std::string collections(Bytes input);

struct Target {
    std::string_view name;  ///< also of its folders and its program
    std::string (*run)(Bytes input);
    std::span<const std::string_view> marks;  ///< for mutating its lines; none for plain bytes
};

std::span<const Target> targets();

/// The target with this name, or null.
const Target* findTarget(std::string_view name);

}  // namespace vantro::fuzz
