// What the foreign terminal does at the call that it was asked to fail at.
#pragma once

namespace vantro::test {

/// The numbers travel through automation, as arguments of the control.
enum class Fault : int {
    None,
    OwnError,      ///< an exception with number, source and description
    OwnLateError,  ///< the same as a result code that is filled in when the caller asks for it
    SilentError,   ///< an exception that says nothing of itself
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

/// The number of the foreign terminal's own errors where nothing else was asked for.
inline constexpr int ownNumber = 1004;

}  // namespace vantro::test
