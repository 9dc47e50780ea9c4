// How commands end.
#pragma once

#include "vantro/error.h"

#include <stdexcept>

namespace vantro {

/// Exit statuses.
inline constexpr int success = 0;
inline constexpr int callFailed = 1;  ///< a call raised an error, or a batch line was not a request
inline constexpr int badUsage = 2;

/// Something is wrong with what the tool was given. The text says what, and what to do; one line.
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

}  // namespace vantro
