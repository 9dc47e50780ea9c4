#include "cli/io/max_line.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

namespace vantro {

namespace {

constexpr std::size_t kibibyte = 1024;

// Shorter lines than this are no lines of a screen: 80 characters may be 240 bytes.
constexpr std::size_t smallest = kibibyte;
constexpr std::size_t largest = std::numeric_limits<std::int32_t>::max();

std::size_t unitOf(std::string_view suffix) {
    if (suffix.empty()) return 1;
    if (suffix == "K" || suffix == "k") return kibibyte;
    if (suffix == "M" || suffix == "m") return kibibyte * kibibyte;
    return 0;
}

std::optional<std::size_t> sizeIn(std::string_view text) {
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, number);
    if (problem != std::errc{}) return std::nullopt;
    const std::uint64_t size = std::uint64_t{number} * unitOf({stop, static_cast<std::size_t>(end - stop)});
    if (size < smallest || size > largest) return std::nullopt;
    return static_cast<std::size_t>(size);
}

}  // namespace

void addMaxLine(CLI::App& command, std::size_t& maxLine) {
    const auto toBytes = [](std::string& text) -> std::string {
        const auto size = sizeIn(text);
        if (!size) return "'" + text + "' is no length; give bytes, or a number with K or M, from 1K to 2047M";
        text = std::to_string(*size);
        return {};
    };
    command
        .add_option("--max-line", maxLine,
                    "Length of the longest line that is read, in bytes or with K or M (default: 16M)")
        ->transform(CLI::Validator(toBytes, ""))
        ->type_name("N");
}

std::string overLongLine(std::size_t line, std::size_t maxLine) {
    return "line " + std::to_string(line) + " has more than " + std::to_string(maxLine) +
           " bytes; --max-line lets longer lines in";
}

}  // namespace vantro
