// JSON, written into a text.
#pragma once

#include "vantro/text.h"

#include <memory>
#include <string>
#include <string_view>

namespace vantro {

/// JSON in one line, or in lines indented by two blanks per level.
enum class JsonStyle { OneLine, Indented };

/// Appends one JSON value to a text and adds commas and colons. The caller must write a key before each member and
/// close what it opens.
class JsonOut {
public:
    explicit JsonOut(std::string& out, JsonStyle style = JsonStyle::OneLine);
    ~JsonOut();

    JsonOut(const JsonOut&) = delete;
    JsonOut& operator=(const JsonOut&) = delete;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();

    /// A member's name.
    void key(TextView name);
    void key(std::string_view utf8Name);

    /// A string value. Control characters are escaped; an unpaired surrogate becomes U+FFFD.
    void text(TextView value);
    void number(int value);
    void boolean(bool value);
    void null();

    /// A number in its original spelling, or any value that is JSON already.
    void raw(std::string_view json);

    /// Starts another value.
    void restart();

private:
    class Writer;

    std::unique_ptr<Writer> writer_;
};

}  // namespace vantro
