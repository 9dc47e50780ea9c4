// A class that reads a screen, observed.
#pragma once

#include "cli/explain/explained.h"
#include "vantro/explanation.h"
#include "vantro/registry.h"

namespace vantro {

/// Calls `VerifyResponse` with the explanation as its observer, and notes the outcome and the results in `explained`.
/// Returns true when a test of the class recognised the screen. The state may be null. What the call raises passes
/// through.
bool explainResponse(const ClassRow& row, TextView screen, const CollectionPtr& state, Explanation& explanation,
                     Explained& explained);

}  // namespace vantro
