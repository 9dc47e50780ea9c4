#include "server/com/registry.h"

#include "server/com/error.h"

#include <array>

namespace vantro::com::registry {

namespace {

// A registration is for the whole machine, not for the user who runs it.
constexpr const wchar_t* classesFolder = L"Software\\Classes";

std::wstring whole(const std::wstring& path) {
    return path.empty() ? classesFolder : std::wstring(classesFolder) + L"\\" + path;
}

REGSAM accessIn(View view) {
    switch (view) {
        case View::ThirtyTwoBit: return KEY_READ | KEY_WOW64_32KEY;
        case View::SixtyFourBit: return KEY_READ | KEY_WOW64_64KEY;
        case View::Own: break;
    }
    return KEY_READ;
}

void checkRegistry(LSTATUS status) { check(HRESULT_FROM_WIN32(static_cast<unsigned long>(status))); }

bool isMissing(LSTATUS status) { return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND; }

// An existing key, or none.
class Opened {
public:
    Opened(const std::wstring& path, View view, REGSAM further = 0) {
        const LSTATUS status =
            RegOpenKeyExW(HKEY_LOCAL_MACHINE, whole(path).c_str(), 0, accessIn(view) | further, &key_);
        if (!isMissing(status)) checkRegistry(status);
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        if (key_ != nullptr) RegCloseKey(key_);
    }

    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

}  // namespace

std::wstring wide(TextView text) { return {text.begin(), text.end()}; }

std::wstring guidText(const GUID& guid) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

Key::Key(const std::wstring& path) {
    checkRegistry(RegCreateKeyExW(HKEY_LOCAL_MACHINE, whole(path).c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                                  &key_, nullptr));
}

const Key& Key::set(const std::wstring& value, const wchar_t* name) const {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    checkRegistry(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), bytes));
    return *this;
}

std::optional<std::wstring> valueOf(const std::wstring& path, View view) {
    const Opened key(path, view);
    if (key.get() == nullptr) return std::nullopt;
    constexpr DWORD texts = RRF_RT_REG_SZ;  // with environment variables in a text expanded
    DWORD bytes = 0;
    if (RegGetValueW(key.get(), nullptr, nullptr, texts, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    checkRegistry(RegGetValueW(key.get(), nullptr, nullptr, texts, nullptr, value.data(), &bytes));
    value.resize(value.find(L'\0'));
    return value;
}

bool exists(const std::wstring& path, View view) { return Opened(path, view).get() != nullptr; }

std::vector<std::wstring> keysBelow(const std::wstring& path) {
    constexpr DWORD longestName = 256;
    std::vector<std::wstring> keys;
    const Opened key(path, View::Own);
    if (key.get() == nullptr) return keys;
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, longestName> name{};
        DWORD length = longestName;
        const LSTATUS status =
            RegEnumKeyExW(key.get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS) return keys;
        checkRegistry(status);
        keys.emplace_back(name.data(), length);
    }
}

void remove(const std::wstring& path, View view) {
    const std::size_t last = path.rfind(L'\\');
    const bool isNested = last != std::wstring::npos;
    const Opened parent(isNested ? path.substr(0, last) : std::wstring(), view, KEY_WRITE | DELETE);
    if (parent.get() == nullptr) return;
    const LSTATUS status = RegDeleteTreeW(parent.get(), isNested ? path.c_str() + last + 1 : path.c_str());
    if (!isMissing(status)) checkRegistry(status);
}

}  // namespace vantro::com::registry
