// What a server library says of itself to the parts that all server libraries share: the exports, the class
// factory, registration and the type library.
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

/// The questions that each server library answers; every library defines them once.
namespace module {

/// The first half of the names its classes are created by.
TextView name();

/// The identifier of its type library.
const GUID& libraryId();

/// The names of the classes that it creates.
std::vector<Text> classNames();

/// A new object of a class.
Ptr<IUnknown> create(const ClassInfo& info);

/// An error where it must not be registered, such as a place that is taken.
HRESULT mayRegister(const std::vector<ClassInfo>& classes);

/// Lets go of what it keeps between calls; true when nothing is left. While another thread keeps something nothing is
/// let go.
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
    static bool held();
};

/// The library's own file.
std::wstring modulePath();

}  // namespace vantro::com
