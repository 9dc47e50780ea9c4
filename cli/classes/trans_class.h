// The class that a name stands for.
#pragma once

#include "vantro/registry.h"

#include <string>

namespace vantro {

/// The row of the class with this name. Raises UsageError for an unknown name, and for a class that builds no
/// commands and reads no screens.
const ClassRow& transactionClass(const std::string& name);

/// The row of the class of a host transaction ("PDN"), for those who enter its code instead of the class; or null.
const ClassRow* classOfTransaction(TextView code);

/// The message for a name that no class has. It names the class that may be meant.
std::string unknownClass(const std::string& name);

}  // namespace vantro
