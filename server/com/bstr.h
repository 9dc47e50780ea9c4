// Conversions between the library's text and automation's. No other file casts between the two.
#pragma once

#include "server/com/system.h"
#include "vantro/text.h"

#include <new>
#include <utility>

namespace vantro::com {

static_assert(sizeof(OLECHAR) == sizeof(char16_t), "both count UTF-16 code units");

inline TextView viewOf(const OLECHAR* characters, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(characters), length};
}

/// A BSTR as text; a null one is empty.
inline TextView viewOf(BSTR text) { return viewOf(text, SysStringLen(text)); }

/// A zero-terminated text, such as a text constant, for the system's functions.
inline const OLECHAR* characters(TextView terminated) { return reinterpret_cast<const OLECHAR*>(terminated.data()); }

/// A new BSTR, which the caller owns.
inline BSTR newBstr(TextView text) {
    const BSTR made = SysAllocStringLen(characters(text), static_cast<UINT>(text.size()));
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

/// An owned BSTR.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(TextView text) : text_(newBstr(text)) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR* receive() { return &text_; }
    TextView view() const { return viewOf(text_); }

private:
    BSTR text_ = nullptr;
};

}  // namespace vantro::com
