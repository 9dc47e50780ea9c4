// Warnings about the keys of a request's parameters.
#pragma once

#include "cli/batch/request.h"
#include "cli/batch/session.h"

#include <string>
#include <vector>

namespace vantro {

/// For a CreateCommand or VerifyResponse that was called: a clause for each key of the parameters that the class does
/// not read, and one that names the missing keys if the command is empty or the error says that a value is missing.
/// Empty for any other call.
std::vector<std::string> keyWarnings(const Request& request, const Reply& reply);

}  // namespace vantro
