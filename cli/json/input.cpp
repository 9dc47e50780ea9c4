#include "cli/json/input.h"

#include "cli/io/screen_input.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "cli/json/spelling.h"

// The checks of a debug build limit the depth of nesting.
#define SIMDJSON_DEVELOPMENT_CHECKS 0
#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace vantro {

namespace {

using namespace simdjson;
using ondemand::json_type;

static_assert(jsonPadding >= SIMDJSON_PADDING);

constexpr const char* wantedText = "a text is expected";
constexpr const char* wantedList = "an array of texts is expected";
constexpr const char* wantedScreen = "a text or an array of texts is expected";
constexpr const char* wantedCollection = "an object of keys and values is expected";
constexpr const char* wantedItem =
    "a text, true or false, a whole number from -32768 to 32767 or an array of texts is expected";

/// Raised where a text is not JSON, if the library does not see it.
struct Malformed {
    const char* at;
    std::string_view why;
};

// What a string contains, as it is spelled; nothing for another value. A token ends where the next one begins, so
// blanks may follow it.
std::optional<std::string_view> stringIn(ondemand::value& value) {
    std::string_view token = value.raw_json_token();
    if (token.front() != '"') return std::nullopt;
    while (token.back() != '"') token.remove_suffix(1);
    std::ignore = value.get_raw_json_string();  // goes to the next token
    return token.substr(1, token.size() - 2);
}

// A number, true, false or null, as it is spelled.
std::string_view scalarIn(ondemand::value& value) {
    std::string_view token = value.raw_json_token();
    token = token.substr(0, token.find_last_not_of(" \t\r\n") + 1);
    if (token == "true" || token == "false" || token == "null" || isNumber(token)) return token;
    throw Malformed{token.data(), "an invalid value"};
}

std::string_view keyOf(ondemand::field& field) {
    const char* const begin = field.key().raw();
    const char* end = begin;
    while (*end != '"') end += *end == '\\' ? 2 : 1;
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool isAtEnd(ondemand::document& document) { return document.current_location().error() == OUT_OF_BOUNDS; }

}  // namespace

class JsonInput::Parser {
public:
    // A text that cannot be read as an object is read again, to find out why.
    JsonOutcome readObject(std::span<char> text, std::span<JsonMember> members) {
        text.data()[text.size()] = '\0';
        try {
            ondemand::document document = parse({text.data(), text.size()});
            takeMembers(document.get_object(), members);
            if (isAtEnd(document)) return readToItsEnd(true);
        } catch (const simdjson_error&) {
        } catch (const Malformed&) {}
        bool isObject = false;
        JsonOutcome outcome = readElement({text.data(), text.size()}, [&](ondemand::value& value) {
            isObject = value.type() == json_type::object;
            isObject ? takeMembers(value.get_object(), members) : skip(value);
        });
        outcome.isObject = isObject && outcome.isJson;
        return outcome;
    }

    JsonOutcome readValue(std::string_view text, JsonMember& member) {
        return readElement(text, [&](ondemand::value& value) { takeMember(value, member); });
    }

private:
    JsonOutcome readToItsEnd(bool isObject) const {
        return {true, isObject, hasLoneSurrogate_ ? "a string contains an unpaired surrogate" : ""};
    }

    ondemand::document parse(std::string_view text) {
        hasLoneSurrogate_ = false;
        constexpr std::size_t least = std::size_t{1} << 20U;  // so that few lines are longer than all before
        const bool fits = text.size() <= parser_.capacity();
        if (!fits && parser_.allocate(std::max(text.size(), least)) != SUCCESS) throw std::bad_alloc();
        return parser_.iterate(text.data(), text.size(), text.size() + jsonPadding);
    }

    // Reads a text as the only element of an array: then any kind of value ends at a bracket.
    template <class Take>
    JsonOutcome readElement(std::string_view text, Take take) {
        const auto inArray = [](const std::string& element) {
            return "[" + element + "]" + std::string(jsonPadding, '\0');
        };
        std::string array = inArray(std::string(text));
        mendUtf8(array);  // keeps every byte in its place
        const std::string problem = problemOfElement(array, take);
        if (!problem.empty()) return {false, false, "not JSON" + problem};
        if (isUtf8(text)) return readToItsEnd(false);
        problemOfElement(inArray(toUtf8(toUtf16(text))), take);
        return {true, false, "the text is not UTF-8"};
    }

    // The bracket precedes the text, so that an index in the array is a position in the text, counted from 1.
    template <class Take>
    std::string problemOfElement(std::string_view array, Take take) {
        array.remove_suffix(jsonPadding);
        const char* const end = &array.back();
        const auto at = [&](const char* place, std::string_view why) {
            return " at byte " + std::to_string(place - array.data()) + ": " + std::string(why);
        };
        ondemand::document document;
        try {
            document = parse(array);
            bool isTaken = false;
            for (ondemand::value element : document.get_array()) {
                if (isTaken) throw Malformed{element.raw_json_token().data(), "the value has ended before"};
                take(element);
                isTaken = true;
            }
            if (!isTaken) throw Malformed{end, "the text is empty"};
            if (!isAtEnd(document)) throw Malformed{end, "the value has ended before"};
            return {};
        } catch (const Malformed& malformed) {
            return at(malformed.at, malformed.why);
        } catch (const simdjson_error& failed) {
            if (failed.error() == UNCLOSED_STRING) return at(end, "a string is not closed");
            if (failed.error() == UNESCAPED_CHARS) {
                return at(controlInString(array), "a control character stands in a string");
            }
            const char* const place = isAtEnd(document) ? end : document.current_location().value();
            return place < end ? at(place, "an unexpected character") : at(end, "the text ends too early");
        }
    }

    void takeMembers(ondemand::object object, std::span<JsonMember> members) {
        for (JsonMember& member : members) member.isGiven = false;
        for (ondemand::field field : object) {
            std::string_view name = keyOf(field);
            std::string spelledOut;
            if (name.find('\\') != std::string_view::npos) name = spelledOut = toUtf8(decoded(name));
            const auto member = std::ranges::find(members, name, &JsonMember::name);
            member == members.end() ? skip(field.value()) : takeMember(field.value(), *member);
        }
    }

    void takeMember(ondemand::value value, JsonMember& member) {
        member.isGiven = true;
        member.fault.clear();
        fault_ = &member.fault;
        std::visit([&](auto* target) { take(value, *target); }, member.target);
    }

    // Reads a value that nobody wants.
    void skip(ondemand::value& value) { take(value, skipped_); }

    // Only a member's first fault is recorded.
    void refuse(ondemand::value& value, const char* fault) {
        if (fault_->empty()) *fault_ = fault;
        skip(value);
    }

    void take(ondemand::value& value, Text& target) {
        const auto text = stringIn(value);
        if (!text) return refuse(value, wantedText);
        target = decoded(*text);
    }

    void take(ondemand::value& value, TextList& target) {
        target.clear();
        if (value.type() != json_type::array) return refuse(value, wantedList);
        if (!takeList(value, target)) *fault_ = wantedList;
    }

    // False when an element is no text.
    bool takeList(ondemand::value& value, TextList& list) {
        bool isGood = true;
        for (ondemand::value element : value.get_array()) {
            if (const auto text = stringIn(element)) {
                list.emplace_back(decoded(*text));
            } else {
                skip(element);
                isGood = false;
            }
        }
        return isGood;
    }

    void take(ondemand::value& value, JsonScreen& target) {
        target.length_ = 0;
        target.isNull_ = value.type() == json_type::null;
        if (const auto text = stringIn(value)) {
            if (target.units_.size() < text->size()) target.units_.resize(text->size());
            target.length_ = static_cast<std::size_t>(decode(*text, target.units_.data()) - target.units_.data());
        } else if (target.isNull_) {
            scalarIn(value);
        } else if (value.type() == json_type::array) {
            std::size_t index = 0;
            for (ondemand::value element : value.get_array()) {
                const auto line = stringIn(element);
                line ? takeLine(*line, index++, target) : refuse(element, wantedScreen);
            }
        } else {
            refuse(value, wantedScreen);
        }
    }

    // Blanks follow every line; they count only where another line does.
    void takeLine(std::string_view line, std::size_t index, JsonScreen& screen) {
        static constexpr auto blanks = [] {
            std::array<char16_t, screenWidth> units{};
            units.fill(u' ');
            return units;
        }();
        const std::size_t start = index * screenWidth;
        const std::size_t enough = start + line.size() + blanks.size();
        if (screen.units_.size() < enough) screen.units_.resize(2 * enough);
        char16_t* const target = screen.units_.data() + start;
        char16_t* const end = decode(line, target);
        std::memcpy(end, blanks.data(), sizeof blanks);
        const auto length = static_cast<std::size_t>(end - target);
        screen.length_ = start + length;
        if (length > screenWidth && fault_->empty()) *fault_ = tooLongLine(index + 1, length);
    }

    // A key that occurs twice keeps its first position and takes its last value.
    void take(ondemand::value& value, JsonCollection& target) {
        target.reset();
        if (value.type() == json_type::null) return void(scalarIn(value));
        if (value.type() != json_type::object) return refuse(value, wantedCollection);
        target = std::make_shared<BuiltInCollection>();
        std::vector<Text> wrongKeys;
        for (ondemand::field field : value.get_object()) {
            const Text key(decoded(keyOf(field)));
            // What verify --positions adds to the results of a screen, which are the state for the next one.
            if (key == u"positions" && field.value().type() == json_type::object) {
                skip(field.value());
                continue;
            }
            std::optional<ItemValue> found = item(field.value());
            if (!wrongKeys.empty()) std::erase(wrongKeys, key);
            if (!found) wrongKeys.push_back(key);
            target->Add(key, found ? std::move(*found) : ItemValue());
        }
        if (!wrongKeys.empty()) *fault_ = inQuotes(wrongKeys.front()) + ": " + wantedItem;
    }

    // Nothing for a value of a wrong kind.
    std::optional<ItemValue> item(ondemand::value& value) {
        if (const auto text = stringIn(value)) return Text(decoded(*text));
        switch (value.type()) {
            case json_type::boolean: return scalarIn(value) == "true";
            case json_type::number: return wholeNumber(scalarIn(value));
            case json_type::array: {
                TextList list;
                return takeList(value, list) ? std::optional<ItemValue>(std::move(list)) : std::nullopt;
            }
            default: skip(value); return std::nullopt;
        }
    }

    void take(ondemand::value& value, JsonCopy& target) {
        target.clear();
        JsonOut out(target);
        open_.clear();
        copyStep(value, out);
        while (!open_.empty()) {
            if (auto* const array = std::get_if<ondemand::array_iterator>(&open_.back())) {
                if (*array != ondemand::array_iterator()) {
                    ondemand::value element = **array;
                    copyStep(element, out);
                    continue;
                }
                out.endArray();
            } else {
                auto& object = std::get<ondemand::object_iterator>(open_.back());
                if (object != ondemand::object_iterator()) {
                    ondemand::field field = *object;
                    out.key(decoded(keyOf(field)));
                    copyStep(field.value(), out);
                    continue;
                }
                out.endObject();
            }
            open_.pop_back();
            if (!open_.empty()) std::visit([](auto& around) { ++around; }, open_.back());
        }
    }

    // Opens an array or an object, or copies another value and goes to the next one.
    void copyStep(ondemand::value& value, JsonOut& out) {
        if (const auto text = stringIn(value)) {
            out.text(decoded(*text));
        } else if (value.type() == json_type::array) {
            out.beginArray();
            open_.emplace_back(value.get_array().begin().value());
            return;
        } else if (value.type() == json_type::object) {
            out.beginObject();
            open_.emplace_back(value.get_object().begin().value());
            return;
        } else {
            out.raw(scalarIn(value));
        }
        if (!open_.empty()) std::visit([](auto& around) { ++around; }, open_.back());
    }

    // The text of a string; valid until the next one is decoded.
    TextView decoded(std::string_view json) {
        if (decoded_.size() < json.size()) decoded_.resize(json.size());
        const char16_t* const end = decode(json, decoded_.data());
        return TextView(decoded_).substr(0, static_cast<std::size_t>(end - decoded_.data()));
    }

    // Writes the text of a string and returns its end.
    char16_t* decode(std::string_view json, char16_t* target) {
        const std::size_t plain = widenPlain(json, '\\', target);
        return plain == json.size() ? target + plain : decodeRest(json.substr(plain), target + plain);
    }

    char16_t* decodeRest(std::string_view json, char16_t* target) {
        const DecodedString rest = decodeString(json, target);
        if (rest.badEscape != nullptr) throw Malformed{rest.badEscape, "JSON has no such escape sequence"};
        hasLoneSurrogate_ |= rest.hasLoneSurrogate;
        return rest.end;
    }

    ondemand::parser parser_;
    std::string* fault_ = nullptr;  // of the member that is being read
    bool hasLoneSurrogate_ = false;
    Text decoded_;
    JsonCopy skipped_;
    std::vector<std::variant<ondemand::array_iterator, ondemand::object_iterator>>
        open_;  // around a value to be copied
};

JsonInput::JsonInput() : parser_(std::make_unique<Parser>()) {}
JsonInput::~JsonInput() = default;

JsonOutcome JsonInput::readObject(std::span<char> text, std::span<JsonMember> members) {
    return parser_->readObject(text, members);
}

JsonOutcome JsonInput::readValue(std::string_view text, JsonMember& member) { return parser_->readValue(text, member); }

}  // namespace vantro
