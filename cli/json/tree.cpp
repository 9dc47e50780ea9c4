#include "cli/json/tree.h"

#include "cli/io/utf.h"
#include "cli/json/spelling.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr int mostLevels = 100;

/// The length of the string at the start of the text, quotation marks included; 0 if it is not closed.
std::size_t lengthOfString(std::string_view text) {
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == '"') return at + 1;
        if (text[at] == '\\') ++at;
    }
    return 0;
}

class TreeReader {
public:
    explicit TreeReader(std::string_view text) : text_(text) {}

    JsonNode whole() {
        JsonNode node = value(0);
        if (next() != '\0') fail("the value has ended before");
        return node;
    }

private:
    using Kind = JsonNode::Kind;

    [[noreturn]] void fail(const char* what) const { throw JsonFault{at_, what}; }

    /// The next character that is no blank; 0 at the end.
    char next() {
        at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size());
        return at_ < text_.size() ? text_[at_] : '\0';
    }

    bool take(char wanted) {
        if (next() != wanted) return false;
        ++at_;
        return true;
    }

    JsonNode value(int level) {
        if (level > mostLevels) fail("values are nested too deeply");
        JsonNode node;
        switch (next()) {
            case '\0': fail("a value is missing");
            case '"': return {.kind = Kind::String, .text = string(), .names = {}, .items = {}};
            case '[': readItems(node, Kind::Array, ']', level); return node;
            case '{': readItems(node, Kind::Object, '}', level); return node;
            default: return scalar();
        }
    }

    void readItems(JsonNode& node, Kind kind, char closing, int level) {
        const std::size_t begin = at_++;
        node.kind = kind;
        while (!take(closing)) {
            if (!node.items.empty() && !take(',')) fail("a comma or the closing bracket is missing");
            if (kind == Kind::Object) node.names.push_back(name());
            node.items.push_back(value(level + 1));
        }
        node.text = text_.substr(begin, at_ - begin);
    }

    std::string name() {
        if (next() != '"') fail("a name in quotation marks is expected");
        const JsonNode named{.kind = Kind::String, .text = string(), .names = {}, .items = {}};
        if (!take(':')) fail("a colon is missing");
        return toUtf8(named.string());
    }

    std::string_view string() {
        const std::string_view found = text_.substr(at_, lengthOfString(text_.substr(at_)));
        if (found.empty()) fail("a text has no closing quotation mark");
        const auto control =
            std::ranges::find_if(found, [](char byte) { return static_cast<unsigned char>(byte) < 0x20; });
        if (control != found.end()) {
            at_ += static_cast<std::size_t>(control - found.begin());
            fail("a control character in a text");
        }
        Text decoded(found.size(), u'\0');
        const DecodedString end = decodeString(found.substr(1, found.size() - 2), decoded.data());
        if (end.badEscape != nullptr) fail("JSON has no such escape sequence");
        if (end.hasLoneSurrogate) fail("an unpaired surrogate in a text");
        at_ += found.size();
        return found;
    }

    JsonNode scalar() {
        const std::size_t end = std::min(text_.find_first_of(" \t\r\n,:[]{}\"", at_), text_.size());
        JsonNode node;
        node.text = text_.substr(at_, end - at_);
        if (node.text == "true") {
            node.kind = Kind::True;
        } else if (node.text == "false") {
            node.kind = Kind::False;
        } else if (isNumber(node.text)) {
            node.kind = Kind::Number;
        } else if (node.text != "null") {
            fail("not a value; texts are in quotation marks");
        }
        at_ = end;
        return node;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

// Every member of the first that is not empty is the same in the second.
bool containsAll(const JsonNode& one, const JsonNode& other) {
    for (std::size_t i = 0; i < one.items.size(); ++i) {
        const JsonNode* const match = other.member(one.names[i]);
        if (match == nullptr ? !one.items[i].isEmpty() : !isSame(one.items[i], *match)) return false;
    }
    return true;
}

}  // namespace

Text JsonNode::string() const {
    if (kind != Kind::String) return {};
    Text decoded(text.size(), u'\0');
    const DecodedString end = decodeString(text.substr(1, text.size() - 2), decoded.data());
    decoded.resize(static_cast<std::size_t>(end.end - decoded.data()));
    return decoded;
}

const JsonNode* JsonNode::member(std::string_view name) const {
    const auto place = std::ranges::find(names, name);
    return place == names.end() ? nullptr : &items[static_cast<std::size_t>(place - names.begin())];
}

bool JsonNode::isEmpty() const {
    switch (kind) {
        case Kind::Null:
        case Kind::False: return true;
        case Kind::String: return text.size() == 2;
        case Kind::True:
        case Kind::Number: return false;
        case Kind::Array:
        case Kind::Object: return std::ranges::all_of(items, &JsonNode::isEmpty);
    }
    return false;
}

bool isSame(const JsonNode& one, const JsonNode& other) {
    using Kind = JsonNode::Kind;
    if (one.kind != other.kind) return false;
    if (one.kind == Kind::String) return one.string() == other.string();
    if (one.kind == Kind::Array) return std::ranges::equal(one.items, other.items, isSame);
    if (one.kind == Kind::Object) return containsAll(one, other) && containsAll(other, one);
    return one.text == other.text;
}

JsonNode readTree(std::string_view text) { return TreeReader(text).whole(); }

std::string inOneLine(std::string_view json) {
    std::string line;
    while (!json.empty()) {
        const bool isString = json.front() == '"';
        const std::size_t length = isString ? lengthOfString(json) : 1;
        if (blanks.find(json.front()) == std::string_view::npos) line += json.substr(0, length);
        json.remove_prefix(length);
    }
    return line;
}

}  // namespace vantro
