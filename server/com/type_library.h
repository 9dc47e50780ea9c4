// The type library inside the server's own file: the list of its classes, and the engine of their `IDispatch`.
#pragma once

#include "server/com/module.h"

namespace vantro::com {

/// The embedded type library; loaded on first use and kept until `forgetTypeLibrary`.
Ptr<ITypeLib> typeLibrary();

/// The description of an interface, for calls by name; kept like the library itself.
Ptr<ITypeInfo> typeInfoOf(const IID& iid);

/// The classes of the module that the type library describes, in the order of `module::classNames`. A class that it
/// does not describe is a build error and is left out.
std::vector<ClassInfo> moduleClasses();

/// The identifiers of the interfaces that the type library describes.
std::vector<IID> describedInterfaces();

/// The type library's attributes other than its identifier.
struct LibraryVersion {
    unsigned major;
    unsigned minor;
    unsigned language;
};
LibraryVersion libraryVersion();

/// The module's class with this identifier, or null. It lives as long as the library is loaded.
const ClassInfo* classWithId(const CLSID& clsid);

/// Releases the type library before the server is unloaded.
void forgetTypeLibrary();

}  // namespace vantro::com
