// A whole batch: requests from standard input, responses on standard output.
#pragma once

#include "cli/batch/session.h"

#include <cstddef>

namespace vantro {

/// Answers every line of standard input (JSON Lines) with one line on standard output, and returns the exit status:
/// `success` when every line was a request, else `callFailed`. A line of more than `maxLine` bytes is no request.
/// Raises StreamError.
int answerRequests(Backend& backend, std::size_t maxLine);

}  // namespace vantro
