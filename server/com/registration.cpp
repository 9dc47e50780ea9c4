#include "server/com/registration.h"

#include "server/com/bstr.h"
#include "server/com/error.h"
#include "server/com/type_library.h"

#include <array>
#include <string>

namespace vantro::com {

namespace {

constexpr REGSAM thirtyTwoBit = KEY_WOW64_32KEY;
constexpr REGSAM sixtyFourBit = KEY_WOW64_64KEY;

// A registration is for the machine, whoever runs it.
constexpr const wchar_t* classesFolder = L"Software\\Classes";

std::wstring wide(TextView text) { return {text.begin(), text.end()}; }

std::wstring guidText(const GUID& guid) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void checkRegistry(LSTATUS status) { check(HRESULT_FROM_WIN32(static_cast<unsigned long>(status))); }

// An open key of the registry.
class Key {
public:
    Key(HKEY parent, const std::wstring& path) {
        checkRegistry(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE | DELETE, nullptr,
                                      &key_, nullptr));
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(key_); }

    Key sub(const std::wstring& path) const { return Key(key_, path); }

    const Key& set(const std::wstring& value, const wchar_t* name = nullptr) const {
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        checkRegistry(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), bytes));
        return *this;
    }
    void remove(const std::wstring& path) const { RegDeleteTreeW(key_, path.c_str()); }

private:
    HKEY key_ = nullptr;
};

Key classesRoot() { return Key(HKEY_LOCAL_MACHINE, classesFolder); }

std::wstring classKey(const CLSID& clsid) { return L"CLSID\\" + guidText(clsid); }

std::wstring lastingName(const ClassInfo& info) { return wide(module::name()) + L"." + wide(info.name); }

std::wstring versionedName(const ClassInfo& info) { return lastingName(info) + L".1"; }

void registerNames(const Key& root, const ClassInfo& info) {
    const std::wstring description = wide(info.description);
    const std::wstring clsid = guidText(info.clsid);
    const Key versioned = root.sub(versionedName(info));
    versioned.set(description).sub(L"CLSID").set(clsid);
    const Key lasting = root.sub(lastingName(info));
    lasting.set(description).sub(L"CLSID").set(clsid);
    lasting.sub(L"CurVer").set(versionedName(info));
}

void registerClass(const Key& root, const ClassInfo& info) {
    registerNames(root, info);
    const Key key = root.sub(classKey(info.clsid));
    key.set(wide(info.description));
    key.sub(L"ProgID").set(versionedName(info));
    key.sub(L"VersionIndependentProgID").set(lastingName(info));
    key.sub(L"InprocServer32").set(modulePath()).set(L"Apartment", L"ThreadingModel");
    key.sub(L"TypeLib").set(guidText(module::libraryId()));
}

bool existsInView(const CLSID& clsid, REGSAM view) {
    const std::wstring path = std::wstring(classesFolder) + L"\\" + classKey(clsid);
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ | view, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

void unregisterClass(const Key& root, const ClassInfo& info) {
    root.remove(classKey(info.clsid));
    if (existsInView(info.clsid, thirtyTwoBit) || existsInView(info.clsid, sixtyFourBit)) return;
    root.remove(versionedName(info));
    root.remove(lastingName(info));
}

void registerTypes() {
    const Ptr<ITypeLib> library = typeLibrary();
    std::wstring path = modulePath();
    check(RegisterTypeLib(library.get(), path.data(), nullptr));
}

void unregisterTypes() {
    TLIBATTR* attributes = nullptr;
    const Ptr<ITypeLib> library = typeLibrary();
    check(library->GetLibAttr(&attributes));
    const TLIBATTR copy = *attributes;
    library->ReleaseTLibAttr(attributes);
    const SYSKIND kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    UnRegisterTypeLib(copy.guid, copy.wMajorVerNum, copy.wMinorVerNum, copy.lcid, kind);
}

}  // namespace

void registerClasses(const std::vector<ClassInfo>& classes) {
    const Key root = classesRoot();
    for (const ClassInfo& info : classes) registerClass(root, info);
    registerTypes();
}

void unregisterClasses(const std::vector<ClassInfo>& classes) {
    const Key root = classesRoot();
    for (const ClassInfo& info : classes) unregisterClass(root, info);
    unregisterTypes();
}

bool isRegistered(const CLSID& clsid) { return !registeredServer(clsid).empty(); }

std::wstring registeredServer(const CLSID& clsid) {
    std::array<wchar_t, MAX_PATH> path{};
    auto bytes = static_cast<DWORD>(sizeof path);
    const std::wstring key = classKey(clsid) + L"\\InprocServer32";
    const LSTATUS status =
        RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path.data(), &bytes);
    return status == ERROR_SUCCESS ? path.data() : std::wstring();
}

}  // namespace vantro::com
