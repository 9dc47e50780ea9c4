// JSON written into a buffer.
#pragma once

#include "vantro/text.h"

#include <memory>
#include <string>
#include <string_view>

namespace vantro {

/// Whether JSON comes in one line or in lines with an indent of two blanks a level.
enum class JsonStyle { OneLine, Indented };

/// Appends one JSON value to a text. Commas and colons come by themselves; that keys stand before members and that
/// what is begun is ended is the caller's business.
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

    /// A number as it is spelled, or a value that is JSON already.
    void raw(std::string_view json);

    /// Begins anew: what comes next is another value.
    void restart();

private:
    class Writer;

    std::unique_ptr<Writer> writer_;
};

}  // namespace vantro
