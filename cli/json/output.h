// JSON, written into a text.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace vantro {

/// Appends one JSON value, in one line, to a text and adds commas and colons. The caller must write a key before each
/// member and close what it opens. Until the value is complete, the text is longer than what was written.
class JsonOut {
public:
    explicit JsonOut(std::string& out) : out_(out) {}

    JsonOut(const JsonOut&) = delete;
    JsonOut& operator=(const JsonOut&) = delete;

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// A member's name. No character of a name in UTF-8 needs an escape.
    void key(TextView name);
    void key(std::string_view utf8Name);

    /// A string value. Control characters are escaped; an unpaired surrogate becomes U+FFFD.
    void text(TextView value);
    void number(int value);
    void boolean(bool value) { raw(value ? "true" : "false"); }
    void null() { raw("null"); }

    /// A number in its original spelling, or any value that is JSON already.
    void raw(std::string_view json);

    /// Part of an object or array, punctuation included, and the characters of a string in it.
    void piece(std::string_view json) {
        std::memcpy(room(json.size()), json.data(), json.size());
        end_ += json.size();
    }
    void characters(TextView text);

    /// Starts another value, whether this one is complete or not.
    void restart();

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void endValue();
    std::size_t special(TextView text);

    /// Room for as many more bytes.
    char* room(std::size_t bytes) {
        if (static_cast<std::size_t>(limit_ - end_) < bytes) grow(bytes);
        return end_;
    }
    void grow(std::size_t bytes);

    std::string& out_;
    char* end_ = nullptr;    // of what was written
    char* limit_ = nullptr;  // of the text
    std::size_t depth_ = 0;
    bool isFirst_ = true;  // nothing was written at this depth
    bool followsKey_ = false;
};

/// A value that is written in one line, in lines indented by two blanks per level.
std::string indented(std::string_view json);

}  // namespace vantro
