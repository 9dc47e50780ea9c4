#include "tests/com/registry_snapshot.h"

#include <ranges>
#include <set>

namespace vantro::test {

namespace {

std::wstring valuesOf(HKEY key) {
    std::wstring values;
    wchar_t name[256];
    wchar_t data[1024];
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = 256;
        DWORD bytes = sizeof data - sizeof(wchar_t);
        DWORD type = 0;
        const LSTATUS status =
            RegEnumValueW(key, index, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(data), &bytes);
        if (status == ERROR_NO_MORE_ITEMS) return values;
        if (status != ERROR_SUCCESS) continue;
        data[bytes / sizeof(wchar_t)] = L'\0';
        values.append(nameLength == 0 ? L"default" : name).append(L"=");
        values.append(type == REG_SZ ? data : L"(other)").append(L";");
    }
}

// The keys that contain a key for each class, interface or type library of the whole system.
bool isCatalogue(const std::wstring& name) {
    return name == L"CLSID" || name == L"Interface" || name == L"TypeLib" || name == L"Wow6432Node";
}

const std::set<std::wstring>& ownGuids();

// For the system's own entries the names are enough: reading all of them takes a long time.
bool isOfInterest(const std::wstring& name) {
    return isCatalogue(name) || name.starts_with(L"Vantro") || ownGuids().contains(name);
}

void take(HKEY parent, const std::wstring& path, const std::wstring& shown, bool isWhole, Snapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    snapshot[shown] = valuesOf(key);
    wchar_t name[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        const std::wstring below = shown.empty() ? name : shown + L"\\" + name;
        if (isWhole || isOfInterest(name)) {
            take(key, name, below, isWhole || !isCatalogue(name), snapshot);
        } else {
            snapshot[below] = L"";
        }
    }
    RegCloseKey(key);
}

// Every identifier in a type library: the library's own, its interfaces' and its classes'.
void takeGuids(const wchar_t* file, std::set<std::wstring>& guids) {
    ITypeLib* library = nullptr;
    if (FAILED(LoadTypeLibEx(file, REGKIND_NONE, &library))) return;
    TLIBATTR* own = nullptr;
    if (SUCCEEDED(library->GetLibAttr(&own))) {
        guids.insert(guidText(own->guid));
        library->ReleaseTLibAttr(own);
    }
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        ITypeInfo* info = nullptr;
        TYPEATTR* attributes = nullptr;
        if (FAILED(library->GetTypeInfo(index, &info))) continue;
        if (SUCCEEDED(info->GetTypeAttr(&attributes))) {
            guids.insert(guidText(attributes->guid));
            info->ReleaseTypeAttr(attributes);
        }
        info->Release();
    }
    library->Release();
}

const std::set<std::wstring>& ownGuids() {
    static const std::set<std::wstring> guids = [] {
        std::set<std::wstring> found;
        takeGuids(L"VantroProfileUtils.dll", found);
        takeGuids(L"VantroKestoFaces.dll", found);
        return found;
    }();
    return guids;
}

}  // namespace

Snapshot allClasses() {
    Snapshot snapshot;
    take(HKEY_LOCAL_MACHINE, classesFolder, L"", false, snapshot);
    return snapshot;
}

std::vector<std::wstring> differences(const Snapshot& before, const Snapshot& after) {
    std::vector<std::wstring> found;
    for (const auto& [key, values] : before) {
        const auto place = after.find(key);
        if (place == after.end()) {
            found.push_back(L"gone " + key);
        } else if (place->second != values) {
            found.push_back(L"changed " + key + L": " + values + L" -> " + place->second);
        }
    }
    for (const auto& [key, values] : after) {
        if (!before.contains(key)) found.push_back(L"new " + key);
    }
    return found;
}

bool isClassesKey(const std::wstring& path) {
    HKEY key = nullptr;
    const std::wstring whole = std::wstring(classesFolder) + L"\\" + path;
    const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, whole.c_str(), 0, KEY_READ, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

std::wstring guidText(const GUID& guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

namespace {

std::wstring whole(const std::wstring& path) { return std::wstring(classesFolder) + L"\\" + path; }

bool isThere(const std::wstring& path, REGSAM view) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, whole(path).c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

// The topmost missing key of a path; empty when all exist.
std::wstring firstMissing(const std::wstring& path, REGSAM view) {
    for (std::size_t end = path.find(L'\\');; end = path.find(L'\\', end + 1)) {
        const std::wstring upper = path.substr(0, end);
        if (!isThere(upper, view)) return upper;
        if (end == std::wstring::npos) return {};
    }
}

}  // namespace

void WrittenKeys::open(const std::wstring& path, REGSAM view, DWORD options, HKEY* key) {
    Before before{firstMissing(path, view), path, {}, view};
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, whole(path).c_str(), 0, nullptr, options, KEY_ALL_ACCESS | view, nullptr, key,
                    nullptr);
    if (before.made.empty()) {
        const std::wstring values = valuesOf(*key);
        const std::wstring mark = L"default=";
        const std::size_t begin = values.find(mark);
        if (begin == 0) before.value = values.substr(mark.size(), values.find(L';') - mark.size());
    }
    before_.push_back(before);
}

void WrittenKeys::write(const std::wstring& path, const std::wstring& value, REGSAM view) {
    HKEY key = nullptr;
    open(path, view, 0, &key);
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), bytes);
    RegCloseKey(key);
}

void WrittenKeys::block(const std::wstring& path) {
    HKEY key = nullptr;
    open(path, 0, REG_OPTION_VOLATILE, &key);
    RegCloseKey(key);
}

WrittenKeys::~WrittenKeys() {
    for (const Before& before : before_ | std::views::reverse) {
        HKEY key = nullptr;
        const std::wstring path = before.made.empty() ? before.path : before.made;
        const std::size_t last = path.rfind(L'\\');
        const std::wstring parent = before.made.empty()          ? path
                                    : last == std::wstring::npos ? L""
                                                                 : path.substr(0, last);
        const std::wstring opened = parent.empty() ? classesFolder : whole(parent);
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, opened.c_str(), 0, KEY_ALL_ACCESS | before.view, &key) != ERROR_SUCCESS) {
            continue;
        }
        if (before.made.empty()) {
            const auto bytes = static_cast<DWORD>((before.value.size() + 1) * sizeof(wchar_t));
            RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(before.value.c_str()), bytes);
        } else {
            RegDeleteTreeW(key, last == std::wstring::npos ? path.c_str() : path.c_str() + last + 1);
        }
        RegCloseKey(key);
    }
}

}  // namespace vantro::test
