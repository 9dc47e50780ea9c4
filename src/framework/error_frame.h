// Error handling: a public operation turns any failure inside it into its own number and fixed description; a private
// reader reports a failure and continues with the results so far. Every exception of a terminal, of any type, is a
// failure.
#pragma once

#include "framework/constants.h"
#include "framework/observation.h"
#include "vantro/terminal.h"

#include <utility>

namespace vantro {

/// Runs an operation and raises its number for any failure. With `TransErrors::passesThrough` (0) failures pass
/// unchanged.
template <class Body>
auto raiseAs(int number, TextView description, Body&& body) -> decltype(body()) {
    if (number == 0) return std::forward<Body>(body)();
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        throw Error(number, applicationTitle, description);
    }
}

/// Runs a private reader. A failure is reported to the terminal and not raised. Returns false after a failure.
template <class Body>
bool reportErrors(Terminal& terminal, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        const Error error = currentError();
        Watch(terminal).reported(error);
        terminal.errorReporter().ReportError(error, nullptr);
        return false;
    }
}

}  // namespace vantro
