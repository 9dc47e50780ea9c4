#pragma once

// The commands of all transactions, built step by step.

#include "collection.h"
#include "steps.h"

#include <string>

namespace oracle {

// The command of the class with that name; std::invalid_argument when there is no such transaction. A null collection
// means an absent one. Throws the class's own number, or the failing step's when the class has none.
Text command(const std::string& className, const Collection* params);

}  // namespace oracle
