// The transaction class that the commands `command` and `verify` were called with.
#pragma once

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <memory>
#include <string>

namespace vantro {

/// The row of the class with this name. Raises UsageError for an unknown name, and for a class that builds no
/// commands and reads no screens.
const ClassRow& transactionClass(const std::string& name);

}  // namespace vantro
