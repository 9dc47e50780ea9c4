// Self-registration for all users of the machine. Unregistering removes only what still belongs to this file: not a
// class that names another file by now, nor what the build for the other kind of process needs.
#pragma once

#include "server/com/module.h"

namespace vantro::com {

/// Writes the entries of the classes and of their names.
void registerClasses(const std::vector<ClassInfo>& classes);

/// Removes the classes that are registered to this file. Their names are removed too if they still name
/// these classes, unless the build for the other kind of process is registered: both share the names.
void unregisterClasses(const std::vector<ClassInfo>& classes);

/// Writes the entries of the type library and of its interfaces.
void registerTypes();

/// Removes the type library if it is registered to this file. The entries that it shares with the build for the other
/// kind of process stay as long as that one is registered; an interface's entry is removed only if it names this type
/// library.
void unregisterTypes();

/// True when one of the classes, names or interfaces is registered to another library, for either kind of process:
/// registering would destroy what only that library can restore.
bool isTaken(const std::vector<ClassInfo>& classes);

}  // namespace vantro::com
