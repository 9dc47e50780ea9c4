// What each server library defines for the parts that all of them share: the exports, the class factory, registration
// and the type library.
#pragma once

#include "server/com/ptr.h"
#include "server/com/system.h"
#include "vantro/text.h"

#include <functional>
#include <string>
#include <vector>

namespace vantro::com {

/// A class as the type library describes it.
struct ClassInfo {
    Text name;
    Text description;
    CLSID clsid;
    std::vector<IID> interfaces;  ///< the default one first
};

/// Every server library defines these functions once.
namespace module {

/// The first part of the names by which its classes are created.
TextView name();

/// The identifier of its type library.
const GUID& libraryId();

/// The names of the classes that it creates.
std::vector<Text> classNames();

/// A new object of a class.
Ptr<IUnknown> create(const ClassInfo& info);

/// An error when it must not be registered, for instance over another library.
HRESULT mayRegister(const std::vector<ClassInfo>& classes);

/// Releases what it keeps between calls; true when nothing is left. While another thread keeps something, nothing is
/// released.
bool releaseCaches();

}  // namespace module

/// Counts what keeps the library loaded: objects, and locks of the class factories. References to a class factory
/// itself do not count, because script engines keep one for as long as they live.
class ModuleLock {
public:
    ModuleLock();
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;

    static void add(LONG change);
    static bool exists();
};

/// The library's own file.
std::wstring modulePath();

}  // namespace vantro::com
