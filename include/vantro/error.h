// The numbered errors that operations raise.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <exception>
#include <string>

namespace vantro {

/// The numbers of failing steps, as automation clients know them.
enum class Failure : int {
    InvalidProcedureCall = 5,  ///< a position below 1, a negative length
    Overflow = 6,              ///< a 16-bit integer would leave -32768 to 32767
    OutOfMemory = 7,           ///< not enough memory
    SubscriptOutOfRange = 9,   ///< an index outside a list
    TypeMismatch = 13,         ///< a value that cannot be read as the expected kind
    InternalError = 51,        ///< a failure without a number, inside the terminal
    ObjectNotSet = 91,         ///< a required collection or item is missing
    CannotCreateObject = 429,  ///< the class is known but this build cannot create it
};

/// A failure: number, source and description. An operation with an error number of its own raises that number with a
/// fixed description; an operation without one passes on the error of the failing step.
class VANTRO_EXPORT Error : public std::exception {
public:
    Error(int number, TextView source, TextView description);

    int number() const noexcept { return number_; }
    const Text& source() const noexcept { return source_; }
    const Text& description() const noexcept { return description_; }

    /// Number and description in one line of ASCII, for logs; other characters are "?".
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    Text source_;
    Text description_;
    std::string what_;
};

/// The error of a failing step. Its source is "VantroProfileUtils".
VANTRO_EXPORT Error errorOf(Failure failure);

/// Raises the error of a failing step.
[[noreturn]] VANTRO_EXPORT void fail(Failure failure);

/// The exception that is being handled, as an error: an `Error` unchanged, `std::bad_alloc` as 7, any other as 51. Call
/// it only inside a catch block.
VANTRO_EXPORT Error currentError();

}  // namespace vantro
