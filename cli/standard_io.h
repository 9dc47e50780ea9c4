// Standard streams and files, the same bytes on every system.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Standard input and output carry bytes as they are from here on, line ends included.
void useBinaryStreams();

bool inputIsTerminal();
bool outputIsTerminal();
bool errorIsTerminal();

/// Reads what standard input has, at least one byte; 0 at its end. Raises StreamError.
std::size_t readInput(std::span<char> bytes);

/// Writes all bytes to standard output at once. Raises StreamError.
void writeOutput(std::string_view bytes);

/// Writes to standard error as it is.
void writeError(std::string_view bytes);

/// One line on standard error, after the tool's name.
void complain(std::string_view message);

/// All of a file (its name in UTF-8), or of standard input for "" and "-". Raises UsageError for a file that
/// cannot be read.
std::string readAll(const std::string& file);

}  // namespace vantro
