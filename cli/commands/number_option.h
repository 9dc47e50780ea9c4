// Options whose value is a whole number of a range.
#pragma once

#include <CLI/CLI.hpp>
#include <charconv>
#include <string>

namespace vantro {

/// Refuses whatever is no whole number from `smallest` to `largest`, in words that say so.
inline CLI::Validator wholeNumber(int smallest, int largest) {
    const auto check = [smallest, largest](const std::string& text) -> std::string {
        int number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, problem] = std::from_chars(text.data(), end, number);
        if (problem == std::errc{} && stop == end && number >= smallest && number <= largest) return {};
        return "give a whole number from " + std::to_string(smallest) + " to " + std::to_string(largest) + ", not '" +
               text + "'";
    };
    return {check, ""};
}

}  // namespace vantro
