// The four exports that every server library has. DllMain only stores the module handle.
#include "server/com/class_factory.h"
#include "server/com/error.h"
#include "server/com/registration.h"
#include "server/com/system.h"
#include "server/com/type_library.h"

#include <array>
#include <atomic>

namespace vantro::com {

namespace {

HINSTANCE instance = nullptr;
std::atomic<LONG> locks{0};

// Runs one half of self-registration, with the result code for its failure.
template <class Body>
HRESULT half(HRESULT failure, Body&& body) noexcept {
    return FAILED(atBorder(IID_NULL, std::forward<Body>(body))) ? failure : S_OK;
}

}  // namespace

ModuleLock::ModuleLock() { add(1); }
ModuleLock::~ModuleLock() { add(-1); }
void ModuleLock::add(LONG change) { locks += change; }
bool ModuleLock::exists() { return locks != 0; }

std::wstring modulePath() {
    std::array<wchar_t, 4 * MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), length};
}

}  // namespace vantro::com

using namespace vantro;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE loaded, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) com::instance = loaded;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** factory) {
    if (factory == nullptr) return E_POINTER;
    *factory = nullptr;
    const com::ClassInfo* info = nullptr;
    const HRESULT result = com::atBorder(IID_IClassFactory, [&] { info = com::classWithId(clsid); });
    if (FAILED(result)) return result;
    return info == nullptr ? CLASS_E_CLASSNOTAVAILABLE : com::classFactory(*info, iid, factory);
}

STDAPI DllCanUnloadNow() {
    if (com::ModuleLock::exists() || !com::module::releaseCaches()) return S_FALSE;
    com::forgetTypeLibrary();
    return S_OK;
}

STDAPI DllRegisterServer() {
    std::vector<com::ClassInfo> classes;
    HRESULT refused = S_OK;
    HRESULT result = com::half(SELFREG_E_TYPELIB, [&] { classes = com::moduleClasses(); });
    if (FAILED(result)) return result;
    result = com::half(SELFREG_E_CLASS, [&] { refused = com::module::mayRegister(classes); });
    if (FAILED(refused)) return refused;
    if (SUCCEEDED(result)) result = com::half(SELFREG_E_CLASS, [&] { com::registerClasses(classes); });
    if (SUCCEEDED(result)) result = com::half(SELFREG_E_TYPELIB, [] { com::registerTypes(); });
    if (FAILED(result)) DllUnregisterServer();
    return result;
}

STDAPI DllUnregisterServer() {
    const HRESULT classes = com::half(SELFREG_E_CLASS, [] { com::unregisterClasses(com::moduleClasses()); });
    const HRESULT types = com::half(SELFREG_E_TYPELIB, [] { com::unregisterTypes(); });
    return FAILED(classes) ? classes : types;
}

}  // extern "C"
