// The registry's folder of classes as it stands, and what a test puts there.
#pragma once

#include "server/com/system.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantro::test {

inline constexpr const wchar_t* classesFolder = L"Software\\Classes";

/// Keys and their values below the folder, flattened: "CLSID\{...}\ProgID" -> "default=...".
using Snapshot = std::map<std::wstring, std::wstring>;

/// The folder: every key's name, and all of what belongs to this project's classes, interfaces and type libraries.
/// What only the other kind of process sees is under "Wow6432Node".
Snapshot allClasses();

/// What is in one of two snapshots only, or in both with other values: "gone ...", "new ...", "changed ...".
std::vector<std::wstring> differences(const Snapshot& before, const Snapshot& after);

/// No differences.
inline const std::vector<std::wstring> none;

bool isClassesKey(const std::wstring& path);

std::wstring guidText(const GUID& guid);

/// Entries that a test writes in the folder: a path and the key's own value. What stood there before comes back when
/// it ends; keys that were not there go.
class WrittenKeys {
public:
    WrittenKeys() = default;
    WrittenKeys(const WrittenKeys&) = delete;
    WrittenKeys& operator=(const WrittenKeys&) = delete;
    ~WrittenKeys();

    void write(const std::wstring& path, const std::wstring& value, REGSAM view = 0);

    /// A key that lets nobody make a lasting key below it.
    void block(const std::wstring& path);

private:
    struct Before {
        std::wstring made;  ///< the topmost key that was missing; empty when all were there
        std::wstring path;
        std::wstring value;
        REGSAM view;
    };

    void open(const std::wstring& path, REGSAM view, DWORD options, HKEY* key);

    std::vector<Before> before_;
};

}  // namespace vantro::test
