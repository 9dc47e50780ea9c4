// The standard streams: the same bytes on every system.
#pragma once

#include <cstddef>
#include <exception>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Makes standard input and output binary: line ends are not converted.
void useBinaryStreams();

bool inputIsTerminal();
bool outputIsTerminal();
bool errorIsTerminal();

/// Reads what is available on standard input, waiting for at least one byte, and returns the number of bytes; 0 at the
/// end. Raises StreamError.
std::size_t readInput(std::span<char> bytes);

/// Nobody reads standard output any more, as in "vantro-profile parse ... | head -1". The run ends without a message.
class ClosedPipe : public std::exception {};

/// Writes all bytes, one record, to standard output. Raises StreamError and ClosedPipe.
void writeOutput(std::string_view bytes);

/// Writes several records to standard output. `ends` are their ends in `bytes`; the last one is the end of `bytes`.
/// After an interrupt, the record that is being written is completed and the process ends. Raises StreamError and
/// ClosedPipe.
void writeRecords(std::string_view bytes, std::span<const std::size_t> ends);

/// Writes the bytes to standard error unchanged.
void writeError(std::string_view bytes);

/// Writes a message to standard error as one line: the tool's name and a sentence (see `asSentence`). Control
/// characters are shown as "?".
void complain(std::string_view message);

}  // namespace vantro
