// Standard streams, the same bytes on every system.
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

/// Writes all bytes, one record, to standard output. Raises StreamError.
void writeOutput(std::string_view bytes);

/// The same for several records, which end where `ends` says, the last one at the end of the bytes. An interrupt
/// lets the record that is being written go out whole and ends the process.
void writeRecords(std::string_view bytes, std::span<const std::size_t> ends);

/// Writes to standard error as it is.
void writeError(std::string_view bytes);

/// One sentence (see `asSentence`) on standard error, in one line after the tool's name. Control characters are
/// shown as "?".
void complain(std::string_view message);

}  // namespace vantro
