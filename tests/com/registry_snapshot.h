// The current content of the registry's classes, and entries that a test adds.
#pragma once

#include "server/com/system.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantro::test {

inline constexpr const wchar_t* classesFolder = L"Software\\Classes";

/// Keys and their values below the classes, flattened: "CLSID\{...}\ProgID" -> "default=...".
using Snapshot = std::map<std::wstring, std::wstring>;

/// The name of every key, and the whole content of the keys of this project's classes, interfaces and type libraries.
/// Entries that only the other kind of process sees are under "Wow6432Node".
Snapshot allClasses();

/// What is in one of two snapshots only, or in both with other values: "gone ...", "new ...", "changed ...".
std::vector<std::wstring> differences(const Snapshot& before, const Snapshot& after);

/// No differences.
inline const std::vector<std::wstring> none;

bool isClassesKey(const std::wstring& path);

std::wstring guidText(const GUID& guid);

/// Entries that a test writes: a path and the key's default value. The destructor restores the earlier values and
/// removes the keys that were missing.
class WrittenKeys {
public:
    WrittenKeys() = default;
    WrittenKeys(const WrittenKeys&) = delete;
    WrittenKeys& operator=(const WrittenKeys&) = delete;
    ~WrittenKeys();

    void write(const std::wstring& path, const std::wstring& value, REGSAM view = 0);

    /// A volatile key, below which no permanent key can be created.
    void block(const std::wstring& path);

private:
    struct Before {
        std::wstring made;  ///< the topmost key that was missing; empty when all existed
        std::wstring path;
        std::wstring value;
        REGSAM view;
    };

    void open(const std::wstring& path, REGSAM view, DWORD options, HKEY* key);

    std::vector<Before> before_;
};

}  // namespace vantro::test
