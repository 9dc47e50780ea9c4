// JSON read as a stream of events. No tree is built, so memory use does not depend on the input.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

enum class JsonKind { Null, Boolean, Number, String, Key, StartObject, EndObject, StartArray, EndArray };

/// One event. The text is UTF-8: the decoded string or key, or a number as it is spelled. It is valid until the
/// next event.
struct JsonEvent {
    JsonKind kind;
    std::string_view text = {};
    bool truth = false;
};

class JsonEvents {
public:
    virtual ~JsonEvents() = default;
    virtual void take(const JsonEvent& event) = 0;

protected:
    JsonEvents() = default;
    JsonEvents(const JsonEvents&) = default;
    JsonEvents& operator=(const JsonEvents&) = default;
};

/// The number of writable bytes that must follow a text: the first becomes its terminating zero, the others may be
/// read.
inline constexpr std::size_t jsonPadding = 32;

/// The outcome of reading a text. JSON with invalid characters (malformed UTF-8, an unpaired surrogate) is read to its
/// end, with U+FFFD in place of each.
struct JsonOutcome {
    bool isJson;
    std::string problem;  ///< what is wrong and where; empty for JSON with valid characters
};

/// Reads one JSON value and passes its parts to `events`. The text is decoded in place, which changes it, and
/// `jsonPadding` bytes must follow it. Deep nesting uses heap memory, not stack. A number beyond the range of a double
/// is an error.
JsonOutcome readJson(std::span<char> text, JsonEvents& events);

}  // namespace vantro
