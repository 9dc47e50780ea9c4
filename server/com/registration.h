// Self-registration for all users of the machine.
#pragma once

#include "server/com/module.h"

namespace vantro::com {

/// Writes the registry entries of the classes, the type library and its interfaces.
void registerClasses(const std::vector<ClassInfo>& classes);

/// Removes what `registerClasses` wrote, and nothing else. The names stay while the server's build for the other
/// kind of process is registered, because both share them.
void unregisterClasses(const std::vector<ClassInfo>& classes);

/// True when some server is registered for the class.
bool isRegistered(const CLSID& clsid);

/// The file of the server that is registered for the class; empty without one.
std::wstring registeredServer(const CLSID& clsid);

}  // namespace vantro::com
