#include "bindings/c/handles.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <string>

namespace vantro::c {

namespace {

/// The number of bytes of the whole characters at the beginning that fit with a zero after them.
std::size_t fitting(std::string_view utf8, std::size_t capacity) {
    if (utf8.size() < capacity) return utf8.size();
    std::size_t size = capacity - 1;
    while (size > 0 && (static_cast<unsigned char>(utf8[size]) & 0xC0U) == 0x80U) --size;
    return size;
}

/// Text in memory that is there already: the last failure may be one of memory.
struct LastError {
    static constexpr std::size_t longest = 512;

    std::int32_t number = 0;
    char description[longest] = "";

    void note(int newNumber, const char* text) noexcept {
        number = newNumber;
        *std::copy_n(text, fitting(text, longest), description) = '\0';
    }
};

thread_local LastError lastError;

constexpr int noMemory = static_cast<int>(Failure::OutOfMemory);
constexpr int otherFailure = static_cast<int>(Failure::InternalError);

}  // namespace

std::int32_t noteFailure() noexcept {
    try {
        const Error error = currentError();
        lastError.note(error.number(), toUtf8(error.description()).c_str());
    } catch (const std::bad_alloc&) {
        lastError.note(noMemory, "Out of memory");
    } catch (...) {
        lastError.note(otherFailure, "Internal error");
    }
    return lastError.number;
}

}  // namespace vantro::c

using namespace vantro;
using namespace vantro::c;

std::int32_t vantro_c_version() { return VANTRO_C_VERSION; }

const char* vantro_library_version() { return VANTRO_LIBRARY_VERSION; }

std::int32_t vantro_error_number() { return lastError.number; }

const char* vantro_error_description() { return lastError.description; }

std::size_t vantro_to_utf8(vantro_view text, char* buffer, std::size_t capacity) {
    return guardedOr(std::size_t{0}, [&] {
        const std::string utf8 = toUtf8({reinterpret_cast<const char16_t*>(text.data), text.size});
        if (capacity > 0) *std::copy_n(utf8.data(), fitting(utf8, capacity), buffer) = '\0';
        return utf8.size();
    });
}

vantro_view vantro_string_view(const vantro_string* string) {
    return viewOf(string != nullptr ? TextView(string->text) : TextView());
}

void vantro_string_free(vantro_string* string) { delete string; }

std::int32_t vantro_screen(vantro_text lines, vantro_string** screen) {
    *screen = nullptr;
    return guarded([&] {
        JoinedLines joined = joinLines(TextArgument(lines).view());
        if (!joined.longLines.empty()) {
            const LongLine& line = joined.longLines.front();
            const std::string message = "Line " + std::to_string(line.number) + " has " + std::to_string(line.length) +
                                        " characters, more than " + std::to_string(screenWidth);
            throw Error(static_cast<int>(Failure::InvalidProcedureCall), u"VantroProfileUtils", toUtf16(message));
        }
        *screen = new vantro_string{std::move(joined.screen)};
    });
}
