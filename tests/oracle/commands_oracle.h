#pragma once

// The commands of every transaction, put together step by step.

#include "collection.h"
#include "steps.h"

#include <string>

namespace oracle {

// The command of a class. Null parameters are an absent collection. Throws the number of the class's operation, or the
// failing step's own where it has none.
Text command(const std::string& className, const Collection* params);

}  // namespace oracle
