// An explanation for programs.
#pragma once

#include "cli/explain/explained.h"
#include "cli/json/output.h"

namespace vantro {

/// Writes one object: the screen, the values with their pieces, the steps in the order in which they happened, the
/// lines that look like elements and are none, and the results or the error.
void writeExplanation(const Explained& explained, JsonOut& out);

}  // namespace vantro
