// What is fuzzed. A target takes any bytes, runs the library over what they stand for and says in words where it
// parts from the slow second opinion; an empty text when it does not. libFuzzer calls it, and so does the ordinary
// suite with the inputs that are kept.
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
    std::span<const std::string_view> marks;  ///< what its lines are mutated with; none for plain bytes
};

std::span<const Target> targets();

/// The target of this name, or null.
const Target* findTarget(std::string_view name);

}  // namespace vantro::fuzz
