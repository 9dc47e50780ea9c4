// The numbered errors that operations raise.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <exception>
#include <string>

namespace vantro {

/// Numbers of failing steps, as automation clients know them.
enum class Failure : int {
    InvalidProcedureCall = 5,  ///< a position below 1, a negative length
    Overflow = 6,              ///< a 16-bit integer would leave -32768 to 32767
    OutOfMemory = 7,           ///< no memory for a step
    SubscriptOutOfRange = 9,   ///< an index outside a list
    TypeMismatch = 13,         ///< a value that cannot be read as the wanted kind
    InternalError = 51,        ///< a step of the terminal's failed in a way that has no number
    ObjectNotSet = 91,         ///< no collection or item where one is needed
    CannotCreateObject = 429,  ///< the class is known but this build cannot create it
};

/// A failure with its number, its source and its description. Operations with an error number of their own
/// raise that number with a fixed description; operations without one let the failing step's error pass.
class VANTRO_EXPORT Error : public std::exception {
public:
    Error(int number, TextView source, TextView description);

    int number() const noexcept { return number_; }
    const Text& source() const noexcept { return source_; }
    const Text& description() const noexcept { return description_; }

    /// Number and description in one line of UTF-8, for logs.
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    Text source_;
    Text description_;
    std::string what_;
};

/// The error of a failing step; its source is "VantroProfileUtils".
VANTRO_EXPORT Error errorOf(Failure failure);

/// Raises the error of a failing step.
[[noreturn]] VANTRO_EXPORT void fail(Failure failure);

/// The exception that is being handled, as an error: an `Error` as it is, memory that ran out as 7, anything else
/// as 51. To be called inside a catch block.
VANTRO_EXPORT Error currentError();

}  // namespace vantro
