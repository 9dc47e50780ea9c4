#include "server/com/registration.h"

#include "server/com/error.h"
#include "server/com/registry.h"
#include "server/com/type_library.h"

#include <algorithm>
#include <string>

namespace vantro::com {

namespace {

using registry::guidText;
using registry::Key;
using registry::View;
using registry::wide;

std::wstring classKey(const CLSID& clsid) { return L"CLSID\\" + guidText(clsid); }

std::wstring serverKey(const CLSID& clsid) { return classKey(clsid) + L"\\InprocServer32"; }

std::wstring lastingName(const ClassInfo& info) { return wide(module::name()) + L"." + wide(info.name); }

std::wstring versionedName(const ClassInfo& info) { return lastingName(info) + L".1"; }

// The path with long names instead of short ones, as far as the file exists.
std::wstring longPath(const std::wstring& path) {
    std::wstring whole(4 * MAX_PATH, L'\0');
    const DWORD length = GetLongPathNameW(path.c_str(), whole.data(), static_cast<DWORD>(whole.size()));
    if (length == 0 || length >= whole.size()) return path;
    whole.resize(length);
    return whole;
}

bool isOwnFile(const std::optional<std::wstring>& path) {
    return path && lstrcmpiW(longPath(*path).c_str(), longPath(modulePath()).c_str()) == 0;
}

void registerName(const std::wstring& name, const ClassInfo& info) {
    Key(name).set(wide(info.description));
    Key(name + L"\\CLSID").set(guidText(info.clsid));
}

// The file is written first: unregistering finds the class by it when a later entry could not be written.
void registerClass(const ClassInfo& info) {
    const std::wstring key = classKey(info.clsid);
    Key(serverKey(info.clsid)).set(modulePath()).set(L"Apartment", L"ThreadingModel");
    Key(key).set(wide(info.description));
    Key(key + L"\\ProgID").set(versionedName(info));
    Key(key + L"\\VersionIndependentProgID").set(lastingName(info));
    Key(key + L"\\TypeLib").set(guidText(module::libraryId()));
    registerName(versionedName(info), info);
    registerName(lastingName(info), info);
    Key(lastingName(info) + L"\\CurVer").set(versionedName(info));
}

// True when the key exists and names something else.
bool namesAnother(const std::wstring& key, const GUID& own, View view = View::Own) {
    const auto value = registry::valueOf(key, view);
    return value && lstrcmpiW(value->c_str(), guidText(own).c_str()) != 0;
}

bool names(const std::wstring& key, const GUID& own, View view = View::Own) {
    return registry::valueOf(key, view) && !namesAnother(key, own, view);
}

void unregisterClass(const ClassInfo& info) {
    if (!isOwnFile(registry::valueOf(serverKey(info.clsid)))) return;
    registry::remove(classKey(info.clsid));
    if (std::ranges::any_of(registry::bothKinds,
                            [&](View view) { return registry::exists(classKey(info.clsid), view); }))
        return;
    for (const std::wstring& name : {versionedName(info), lastingName(info)}) {
        if (names(name + L"\\CLSID", info.clsid)) registry::remove(name);
    }
}

bool isClassTaken(const ClassInfo& info) {
    const auto server = registry::valueOf(serverKey(info.clsid));
    if (server && !isOwnFile(server)) return true;
    // Processes of the other kind use another file, which is recognised by its type library.
    const std::wstring key = classKey(info.clsid);
    return std::ranges::any_of(registry::bothKinds, [&](View view) {
        return registry::exists(key, view) && !names(key + L"\\TypeLib", module::libraryId(), view);
    });
}

bool isNameTaken(const ClassInfo& info) {
    return namesAnother(lastingName(info) + L"\\CLSID", info.clsid) ||
           namesAnother(versionedName(info) + L"\\CLSID", info.clsid);
}

std::wstring interfaceKey(const IID& iid) { return L"Interface\\" + guidText(iid); }

bool isInterfaceTaken(const IID& iid) {
    return std::ranges::any_of(registry::bothKinds, [&](View view) {
        return namesAnother(interfaceKey(iid) + L"\\TypeLib", module::libraryId(), view);
    });
}

void unregisterInterfaces() {
    for (const IID& iid : describedInterfaces()) {
        for (const View view : registry::bothKinds) {
            if (names(interfaceKey(iid) + L"\\TypeLib", module::libraryId(), view)) {
                registry::remove(interfaceKey(iid), view);
            }
        }
    }
}

// The keys of a type library: one for the library, one for its version, one for its language, and below that one for
// each kind of process.
struct TypesPlace {
    std::wstring libraryKey;
    std::wstring versionKey;
    std::wstring languageKey;

    std::wstring file(bool sixtyFourBit) const { return languageKey + (sixtyFourBit ? L"\\win64" : L"\\win32"); }
};

std::wstring hexadecimal(unsigned number) {
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789abcdef"[number % 16]);
        number /= 16;
    } while (number != 0);
    return digits;
}

TypesPlace typesPlace() {
    const LibraryVersion version = libraryVersion();
    TypesPlace place;
    place.libraryKey = L"TypeLib\\" + guidText(module::libraryId());
    place.versionKey = place.libraryKey + L"\\" + hexadecimal(version.major) + L"." + hexadecimal(version.minor);
    place.languageKey = place.versionKey + L"\\" + hexadecimal(version.language);
    return place;
}

// Besides its languages, a version has keys for its flags and its help.
bool hasLanguages(const std::wstring& version) {
    const std::vector<std::wstring> keys = registry::keysBelow(version);
    return std::ranges::any_of(keys, [](const std::wstring& key) { return key != L"FLAGS" && key != L"HELPDIR"; });
}

}  // namespace

void registerClasses(const std::vector<ClassInfo>& classes) {
    for (const ClassInfo& info : classes) registerClass(info);
}

void unregisterClasses(const std::vector<ClassInfo>& classes) {
    for (const ClassInfo& info : classes) unregisterClass(info);
}

// The system's function writes the interfaces for both kinds of process.
void registerTypes() {
    const Ptr<ITypeLib> library = typeLibrary();
    std::wstring path = modulePath();
    check(RegisterTypeLib(library.get(), path.data(), nullptr));
}

// Not by the system's function, which removes the interfaces for both kinds of process even where another library has
// registered them.
void unregisterTypes() {
    constexpr bool isSixtyFourBit = sizeof(void*) == 8;
    const TypesPlace place = typesPlace();
    const auto file = registry::valueOf(place.file(isSixtyFourBit));
    if (file && !isOwnFile(file)) return;
    // A registration that failed may have written the interfaces without the library.
    registry::remove(place.file(isSixtyFourBit));
    if (registry::exists(place.file(!isSixtyFourBit))) return;
    unregisterInterfaces();
    registry::remove(place.languageKey);
    if (!hasLanguages(place.versionKey)) registry::remove(place.versionKey);
    if (registry::keysBelow(place.libraryKey).empty()) registry::remove(place.libraryKey);
}

bool isTaken(const std::vector<ClassInfo>& classes) {
    return std::ranges::any_of(classes, isClassTaken) || std::ranges::any_of(classes, isNameTaken) ||
           std::ranges::any_of(describedInterfaces(), isInterfaceTaken);
}

}  // namespace vantro::com
