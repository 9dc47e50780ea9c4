// How commands end.
#pragma once

#include "vantro/error.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace vantro {

/// Exit statuses.
inline constexpr int success = 0;
inline constexpr int callFailed = 1;  ///< a call raised an error, or a batch line was not a request
inline constexpr int badUsage = 2;

/// Something is wrong with what the tool was given. The text says what, and what to do; one line, like every message
/// a clause or several sentences, without the last one's full stop.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The tool could not go on: a stream broke.
class StreamError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An error that a call raised, in one line: "error 5015 from VantroProfileUtils: An error ...".
std::string describe(const Error& error);

/// The message with one full stop at its end, whether or not it came with one. A question keeps its mark.
std::string asSentence(std::string_view message);

/// The message without the full stop at its end, to be gone on with.
std::string asClause(std::string_view message);

}  // namespace vantro
