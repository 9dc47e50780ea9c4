// The registry's classes (HKEY_LOCAL_MACHINE\Software\Classes), for all users of the machine.
#pragma once

#include "server/com/system.h"
#include "vantro/text.h"

#include <optional>
#include <string>
#include <vector>

namespace vantro::com::registry {

/// The view of the registry, 32-bit or 64-bit. Some keys are the same in both.
enum class View { Own, ThirtyTwoBit, SixtyFourBit };

inline constexpr View bothKinds[] = {View::ThirtyTwoBit, View::SixtyFourBit};

/// A text in the form that the registry's functions expect.
std::wstring wide(TextView text);

/// An identifier in braces.
std::wstring guidText(const GUID& guid);

/// A key, which is created if it is missing. Paths begin below the classes. Raises the failing call's error.
class Key {
public:
    explicit Key(const std::wstring& path);
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(key_); }

    /// Sets a value of this key; without a name, the key's default value.
    const Key& set(const std::wstring& value, const wchar_t* name = nullptr) const;

private:
    HKEY key_ = nullptr;
};

/// The key's default value; nothing when the key or the value is missing.
std::optional<std::wstring> valueOf(const std::wstring& path, View view = View::Own);

bool exists(const std::wstring& path, View view = View::Own);

/// The names of the keys directly below a key.
std::vector<std::wstring> keysBelow(const std::wstring& path);

/// Removes a key with everything below it; a missing key is no failure.
void remove(const std::wstring& path, View view = View::Own);

}  // namespace vantro::com::registry
