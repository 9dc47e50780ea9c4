// Response lines.
#pragma once

#include "cli/batch/request.h"
#include "cli/batch/session.h"

#include <string>

namespace vantro {

/// Appends the response to a request that was called, line end included. `id` is JSON, or null for none.
void appendResponse(const Request& request, const Reply& reply, const std::string* id, std::string& out);

/// Appends the response to a line that is no well-formed request, line end included.
void appendBadRequest(const std::string& problem, const std::string* id, std::string& out);

}  // namespace vantro
