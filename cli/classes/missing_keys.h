// Which keys parameters lack that make no command.
#pragma once

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <string>

namespace vantro {

/// The message for parameters that make an empty command: the keys that are missing and when each is needed, or the
/// rule about keys that do not go together.
std::string messageOfEmptyCommand(const ClassRow& row, const BuiltInCollection& params);

/// Why the class raised this error for these parameters, as a clause: the keys that are missing, or what the error
/// means. Empty when the class's row does not say.
std::string reasonOfFailedCommand(const ClassRow& row, const BuiltInCollection& params, const Error& raised);

}  // namespace vantro
