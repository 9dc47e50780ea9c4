// JSON written into a buffer.
#pragma once

#include "vantro/text.h"

#include <string>
#include <string_view>

namespace vantro {

/// Appends JSON to a text. Commas and colons come by themselves; that keys stand before members and that what is
/// begun is ended is the caller's business.
class JsonOut {
public:
    explicit JsonOut(std::string& out) : out_(out) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// A member's name. The narrow form is for plain ASCII names that need no escape.
    void key(TextView name);
    void key(std::string_view asciiName);

    /// A string value. Control characters are escaped; an unpaired surrogate becomes U+FFFD.
    void text(TextView value);
    void number(int value);
    void boolean(bool value) { raw(value ? "true" : "false"); }
    void null() { raw("null"); }

    /// A value that is JSON already.
    void raw(std::string_view json);

    /// Begins anew: what comes next follows nothing.
    void restart() { commaDue_ = false; }

private:
    void separate();
    void begin(char bracket);
    void end(char bracket);
    void quoted(TextView value);

    std::string& out_;
    bool commaDue_ = false;
};

}  // namespace vantro
