#pragma once

// The command lines of all transactions, put together step by step.

#include "collection.h"
#include "steps.h"

#include <string>

namespace oracle {

// The command of the class of that name; std::invalid_argument when there is no such transaction. A null
// collection is an absent one. Throws the class's own number, or the failing step's where it has none.
Text command(const std::string& className, const Collection* params);

}  // namespace oracle
