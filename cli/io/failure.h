// Exit statuses, errors and the wording of messages.
#pragma once

#include "vantro/error.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace vantro {

/// The tool's name, in messages and files.
inline constexpr const char* toolName = "vantro-profile";

/// Exit statuses.
inline constexpr int success = 0;
inline constexpr int callFailed = 1;  ///< a call raised an error, or a batch line was not a request
inline constexpr int badUsage = 2;
inline constexpr int insufficientParameters = 3;  ///< the command is empty, so nothing is to be sent
inline constexpr int screenNotRecognised = 4;     ///< no test of the class recognised the screen
inline constexpr int warned = 5;                  ///< with --strict: there were warnings

/// Standard output was closed by its reader: 128 + 13, the number of the signal SIGPIPE, as shells report it.
inline constexpr int outputClosed = 141;

/// Something is wrong with the tool's arguments or input. The text says what, and what to do: one line, a clause or
/// several sentences, without the full stop of the last one.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A stream could not be read or written.
class StreamError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An error that a call raised, in one line: "error 5015 from VantroProfileUtils: An error ...".
std::string describe(const Error& error);

/// The message with exactly one full stop at its end. A question keeps its mark.
std::string asSentence(std::string_view message);

/// The message without the full stop at its end, so that more can follow.
std::string asClause(std::string_view message);

}  // namespace vantro
