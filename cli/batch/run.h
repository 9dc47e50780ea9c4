// A whole batch: requests from standard input, responses on standard output.
#pragma once

#include "cli/batch/session.h"

#include "cli/io/input_files.h"

#include <cstddef>

namespace vantro {

struct BatchOptions {
    std::size_t maxLine = defaultMaxLine;  ///< in bytes
    bool strict = false;                   ///< makes a run with warnings fail
    bool quiet = false;                    ///< prints no warnings
};

/// Answers every line of standard input (JSON Lines) with one line on standard output, and returns the exit status:
/// `success` when every line was a request, else `callFailed`. A line of more than `maxLine` bytes is no request.
/// Warns, with the line's number and the request's id, about control characters in screens, unknown classes, unknown
/// and missing keys of parameters and, if strict, screens that no test of the class recognised. Raises StreamError.
int answerRequests(Backend& backend, const BatchOptions& options = {});

}  // namespace vantro
