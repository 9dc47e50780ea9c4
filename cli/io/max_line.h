// The length that no line of an input may go beyond, so that memory stays bounded whatever comes.
#pragma once

#include <cstddef>
#include <string>

namespace CLI {
class App;
}

namespace vantro {

inline constexpr std::size_t defaultMaxLine = std::size_t{16} * 1024 * 1024;

/// Adds the option --max-line to a command.
void addMaxLine(CLI::App& command, std::size_t& maxLine);

/// What to say about a line, counted from 1, of more bytes than `maxLine`.
std::string overLongLine(std::size_t line, std::size_t maxLine);

}  // namespace vantro
