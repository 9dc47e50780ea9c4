// JSON read into targets: each member of an object directly into the variable that it is for.
#pragma once

#include "vantro/built_in_terminal.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace vantro {

/// A host screen: a string, or an array of strings, each one screen line of up to 80 characters; null for none.
class JsonScreen {
public:
    bool isNull() const { return isNull_; }
    TextView text() const { return TextView(units_).substr(0, length_); }

private:
    friend class JsonInput;

    Text units_;  // grows only; what follows the text is room for longer ones
    std::size_t length_ = 0;
    bool isNull_ = false;
};

/// A keyed collection: an object of texts, booleans, 16-bit integers and lists of texts; null for none.
using JsonCollection = std::shared_ptr<BuiltInCollection>;

/// Any value, kept as JSON. Numbers keep their spelling.
using JsonCopy = std::string;

/// Where a value is stored. Its kind is the kind of value that is expected.
using JsonTarget = std::variant<Text*, TextList*, JsonScreen*, JsonCollection*, JsonCopy*>;

/// A member of an object. A value of another kind than expected is recorded as a fault, not raised: whether it matters
/// is known only when the whole object has been read.
struct JsonMember {
    std::string_view name;
    JsonTarget target;
    bool isGiven = false;
    std::string fault = {};  ///< what is wrong with the value, such as "a text is expected"; empty for a correct one

    bool isGood() const { return isGiven && fault.empty(); }
};

/// The number of bytes that must follow a text: the first becomes its terminating zero, the others may be read.
inline constexpr std::size_t jsonPadding = 64;

/// The outcome of reading a text. JSON with invalid characters (malformed UTF-8, an unpaired surrogate) is read to its
/// end, with U+FFFD in place of each.
struct JsonOutcome {
    bool isJson;
    bool isObject;        ///< false for a text that is not JSON
    std::string problem;  ///< what is wrong and where; empty for JSON with valid characters
};

/// Reads JSON texts, one after the other. Every byte of a text is checked, also in values that nobody wants. Deep
/// nesting uses heap memory, not stack. Numbers may be of any size.
class JsonInput {
public:
    JsonInput();
    ~JsonInput();
    JsonInput(const JsonInput&) = delete;
    JsonInput& operator=(const JsonInput&) = delete;

    /// Reads an object's members into their targets; other members are ignored. The last value of a repeated member
    /// counts. `jsonPadding` bytes must follow the text.
    JsonOutcome readObject(std::span<char> text, std::span<JsonMember> members);

    /// Reads a value of any kind into the member's target.
    JsonOutcome readValue(std::string_view text, JsonMember& member);

private:
    class Parser;

    std::unique_ptr<Parser> parser_;
};

}  // namespace vantro
