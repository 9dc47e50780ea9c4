// What the foreign terminal does at the call that is to fail.
#pragma once

namespace vantro::test {

/// The values are passed through automation, as arguments of the control.
enum class Fault : int {
    None,
    OwnError,      ///< an exception with number, source and description
    OwnLateError,  ///< the same as a result code that is filled in when the caller asks for it
    SilentError,   ///< an exception without a description
    Fails,         ///< E_FAIL without any information
    NoMemory,      ///< E_OUTOFMEMORY
    Nothing,       ///< the call succeeds and returns a null object
    Empty,         ///< ... no value
    Null,          ///< ... Null
    Numbers,       ///< ... an array of numbers
    ErrorValue,    ///< ... an error as a value
};

inline constexpr Fault lastError = Fault::NoMemory;
inline constexpr Fault lastFault = Fault::ErrorValue;

/// The default number of the foreign terminal's own errors.
inline constexpr int ownNumber = 1004;

}  // namespace vantro::test
