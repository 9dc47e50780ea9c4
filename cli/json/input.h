// JSON read as a stream of events. Nothing is built, so memory does not depend on what is read.
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

/// Writable bytes that must follow a text that is read: the first ends it, the others may be looked at.
inline constexpr std::size_t jsonPadding = 32;

/// What became of a text. A text that is JSON but not sound text (broken UTF-8, an unpaired surrogate) is read
/// to its end, with U+FFFD for what is broken.
struct JsonOutcome {
    bool isJson;
    std::string problem;  ///< what is wrong and where; empty for JSON in sound text
};

/// Reads one JSON value. The text is decoded in place and is not the same afterwards; `jsonPadding` bytes behind
/// it must be there. Nesting costs memory, never stack. A number beyond the range of a double is refused.
JsonOutcome readJson(std::span<char> text, JsonEvents& events);

}  // namespace vantro
