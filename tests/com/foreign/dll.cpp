// The exports of the foreign terminal's library. It registers under the terminal's own names and identifiers, instead
// of the stand-in, with which it shares no code.
#include "tests/com/foreign/objects.h"

#include <array>
#include <new>
#include <string>

namespace foreign {

namespace {

HINSTANCE instance = nullptr;

struct ClassRow {
    const wchar_t* name;
    CLSID clsid;
    IDispatch* (*create)();
    Fault (*enter)();  ///< the fault of a creation
};

Fault enterCollection() { return Watch::only().enter(L"createCollection"); }
Fault enterHelper() { return Watch::only().helperFault(); }
Fault enterControl() { return Fault::None; }

const ClassRow classes[] = {
    {L"KeyedCollection",
     {0xFFF86A3D, 0xDB0B, 0x11D3, {0xA2, 0x3F, 0x00, 0x00, 0x0E, 0x9C, 0xF6, 0x91}},
     newCollection,
     enterCollection},
    {L"TerminalFunctions",
     {0xD75832A4, 0xDB0A, 0x11D3, {0xA2, 0x3F, 0x00, 0x00, 0x0E, 0x9C, 0xF6, 0x91}},
     newFunctions,
     enterHelper},
    {L"ErrorReporter",
     {0xD75832A0, 0xDB0A, 0x11D3, {0xA2, 0x3F, 0x00, 0x00, 0x0E, 0x9C, 0xF6, 0x91}},
     newReporter,
     enterHelper},
    {L"StandInControl",
     {0x2C7A9E51, 0x64B3, 0x4F0D, {0x8A, 0x17, 0x3B, 0x90, 0xD2, 0x5E, 0x71, 0xC4}},
     newControl,
     enterControl},
};

// A failed creation has no exception information, only the thread's error information.
HRESULT failedCreation(Fault fault) {
    if (fault == Fault::NoMemory) return E_OUTOFMEMORY;
    if (fault != Fault::OwnError && fault != Fault::OwnLateError) return E_FAIL;
    ICreateErrorInfo* made = nullptr;
    IErrorInfo* info = nullptr;
    if (FAILED(CreateErrorInfo(&made))) return E_OUTOFMEMORY;
    made->SetSource(const_cast<LPOLESTR>(librarySource));
    made->SetDescription(const_cast<LPOLESTR>(askedDescription));
    if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
        SetErrorInfo(0, info);
        info->Release();
    }
    made->Release();
    return resultOfNumber(Watch::only().failingNumber());
}

// One factory per class, as long as the library is loaded.
class Factory final : public IClassFactory {
public:
    explicit Factory(const ClassRow& row) : row_(row) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        const Fault fault = row_.enter();
        if (fault == Fault::Nothing) return S_OK;
        if (fault != Fault::None && fault <= vantro::test::lastError) return failedCreation(fault);
        try {
            IDispatch* const made = row_.create();
            const HRESULT result = made->QueryInterface(iid, object);
            made->Release();
            return result;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    const ClassRow& row_;
};

std::wstring classesKey(const std::wstring& path) { return L"Software\\Classes\\" + path; }

std::wstring guidText(const GUID& guid) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring namedKey(const ClassRow& row) { return classesKey(std::wstring(librarySource) + L"." + row.name); }

std::wstring clsidKey(const ClassRow& row) { return classesKey(L"CLSID\\" + guidText(row.clsid)); }

bool store(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(), bytes) == ERROR_SUCCESS;
}

bool registerClass(const ClassRow& row) {
    std::array<wchar_t, 4 * MAX_PATH> path{};
    GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring server = clsidKey(row) + L"\\InprocServer32";
    return store(namedKey(row) + L"\\CLSID", nullptr, guidText(row.clsid)) && store(server, nullptr, path.data()) &&
           store(server, L"ThreadingModel", L"Apartment");
}

}  // namespace

}  // namespace foreign

extern "C" {

BOOL WINAPI DllMain(HINSTANCE loaded, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) foreign::instance = loaded;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** factory) {
    *factory = nullptr;
    static foreign::Factory factories[] = {foreign::Factory(foreign::classes[0]), foreign::Factory(foreign::classes[1]),
                                           foreign::Factory(foreign::classes[2]),
                                           foreign::Factory(foreign::classes[3])};
    for (std::size_t index = 0; index < std::size(factories); ++index) {
        if (foreign::classes[index].clsid == clsid) return factories[index].QueryInterface(iid, factory);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

// Its records may be read at any time.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
    for (const foreign::ClassRow& row : foreign::classes) {
        if (!foreign::registerClass(row)) return SELFREG_E_CLASS;
    }
    return S_OK;
}

STDAPI DllUnregisterServer() {
    for (const foreign::ClassRow& row : foreign::classes) {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, foreign::namedKey(row).c_str());
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, foreign::clsidKey(row).c_str());
    }
    return S_OK;
}

}  // extern "C"
