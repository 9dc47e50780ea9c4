// What the handles of the C interface contain, and the conversions between its types and the library's.
#pragma once

#include "cli/io/utf.h"
#include "include/vantro_c.h"
#include "vantro/built_in_terminal.h"
#include "vantro/error.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

struct vantro_string {
    vantro::Text text;
};

struct vantro_profile {
    vantro::Profile profile;
};

struct vantro_collection {
    std::shared_ptr<vantro::BuiltInCollection> collection;
};

struct vantro_object {
    std::vector<vantro::Error> reported;
    vantro::BuiltInTerminal terminal{[this](const vantro::Error& error) { reported.push_back(error); }};
    std::unique_ptr<vantro::ProfileObject> object;  // destroyed before its terminal
    const vantro::ClassRow* row = nullptr;
};

namespace vantro::c {

/// An operation or property that the object does not have.
inline constexpr int noSuchMember = 438;

/// The text as the library takes it: a view of a UTF-16 one, otherwise a copy.
class TextArgument {
public:
    explicit TextArgument(const vantro_text& text) {
        if (text.size == 0) return;
        if (text.encoding == VANTRO_UTF16) {
            view_ = {static_cast<const char16_t*>(text.data), text.size};
        } else {
            appendUtf16({static_cast<const char*>(text.data), text.size}, copy_);
            view_ = copy_;
        }
    }
    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;

    TextView view() const { return view_; }
    Text text() const { return Text(view_); }

    /// The text as the caller's own; nothing but the destructor may follow.
    Text take() { return copy_.empty() ? Text(view_) : std::move(copy_); }

private:
    Text copy_;
    TextView view_;
};

inline vantro_view viewOf(TextView text) {
    static_assert(sizeof(char16_t) == sizeof(std::uint16_t));
    return {reinterpret_cast<const std::uint16_t*>(text.data()), text.size()};
}

/// Notes the error that is being handled as the thread's last one, and returns its number.
std::int32_t noteFailure() noexcept;

/// Runs the body of a function that returns 0 or an error's number.
template <class Body>
std::int32_t guarded(Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
        return 0;
    } catch (...) {
        return noteFailure();
    }
}

/// Runs the body of a function that cannot fail but for memory; then it returns the other value.
template <class Result, class Body>
Result guardedOr(Result otherwise, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        noteFailure();
        return otherwise;
    }
}

/// The collection of a handle, which may be null.
inline CollectionPtr collectionOf(const vantro_collection* handle) {
    return handle != nullptr ? handle->collection : nullptr;
}

}  // namespace vantro::c
