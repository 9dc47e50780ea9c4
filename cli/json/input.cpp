#include "cli/json/input.h"

#include "cli/io/screen_input.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "cli/json/strings.h"

// The checks of a debug build limit the depth of nesting.
#define SIMDJSON_DEVELOPMENT_CHECKS 0
#include <simdjson.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <new>
#include <optional>
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

/// Raised where a text is not JSON.
struct Malformed {
    const char* at;
    std::string_view why;
};

// A token ends where the next one begins, so blanks may follow it.
std::string_view tokenOf(ondemand::value& value) {
    const std::string_view token = value.raw_json_token();
    return token.substr(0, token.find_last_not_of(" \t\r\n") + 1);
}

// A string between its quotation marks, as it is spelled.
std::string_view stringOf(ondemand::value& value) {
    const std::string_view token = tokenOf(value);
    value.get_raw_json_string().value();  // takes the token
    return token.substr(1, token.size() - 2);
}

std::string_view keyOf(ondemand::field& field) {
    const char* const begin = field.key().raw();
    const char* end = begin;
    while (*end != '"') end += *end == '\\' ? 2 : 1;
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool isNumber(std::string_view text) {
    const auto skip = [&text](std::string_view any) {
        const bool isThere = !text.empty() && any.find(text.front()) != std::string_view::npos;
        if (isThere) text.remove_prefix(1);
        return isThere;
    };
    const auto skipDigits = [&text] {
        const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
        text.remove_prefix(digits);
        return digits > 0;
    };
    skip("-");
    if (!skip("0") && !skipDigits()) return false;
    if (skip(".") && !skipDigits()) return false;
    if (!skip("eE")) return text.empty();
    skip("+-");
    return skipDigits() && text.empty();
}

// The library's own numbers have a limited range.
std::string_view numberOf(ondemand::value& value) {
    const std::string_view token = tokenOf(value);
    if (!isNumber(token)) throw Malformed{token.data(), "the number is malformed"};
    return token;
}

bool booleanOf(ondemand::value& value) {
    const std::string_view token = tokenOf(value);
    bool truth = false;
    if (value.get_bool().get(truth) != SUCCESS) throw Malformed{token.data(), "a value is expected"};
    return truth;
}

void takeNull(ondemand::value& value) {
    const std::string_view token = tokenOf(value);
    bool isNull = false;
    if (value.is_null().get(isNull) != SUCCESS) throw Malformed{token.data(), "a value is expected"};
}

// The conversion stops before a fraction or an exponent and fails for a number out of range.
std::optional<std::int16_t> wholeNumber(std::string_view spelled) {
    std::int16_t number = 0;
    const char* const end = spelled.data() + spelled.size();
    const auto [stop, problem] = std::from_chars(spelled.data(), end, number);
    if (problem != std::errc{} || stop != end) return std::nullopt;
    return number;
}

bool isAtEnd(ondemand::document& document) { return document.current_location().error() == OUT_OF_BOUNDS; }

// The first control character in a string; the end of the text for none.
const char* controlInString(std::string_view text) {
    bool inString = false;
    for (const char* at = text.data(); at != text.data() + text.size(); ++at) {
        if (inString && static_cast<unsigned char>(*at) < 0x20) return at;
        if (*at == '"') inString = !inString;
        if (inString && *at == '\\') ++at;
    }
    return text.data() + text.size();
}

}  // namespace

class JsonInput::Parser {
public:
    JsonOutcome readObject(std::span<char> text, std::span<JsonMember> members);
    JsonOutcome readValue(std::string_view text, JsonMember& member);

private:
    using Level = std::variant<ondemand::array_iterator, ondemand::object_iterator>;

    template <class Take>
    JsonOutcome readElement(std::string_view text, Take take);
    template <class Take>
    std::string readElementOf(std::string_view array, Take take);
    ondemand::document parse(std::string_view text);
    JsonOutcome sound(bool isObject) const;

    void takeMembers(ondemand::object object, std::span<JsonMember> members);
    void takeMember(ondemand::value value, JsonMember& member);
    void take(ondemand::value& value, Text& target);
    void take(ondemand::value& value, TextList& target);
    void take(ondemand::value& value, JsonScreen& target);
    void take(ondemand::value& value, JsonCollection& target);
    void take(ondemand::value& value, JsonCopy& target);
    void takeLine(std::string_view line, std::size_t index, JsonScreen& screen);
    std::optional<ItemValue> item(ondemand::value& value);
    bool takeList(ondemand::value& value, TextList& list);

    void refuse(ondemand::value& value, const char* fault);
    void skip(ondemand::value& value) { walk(value, nullptr); }
    void walk(ondemand::value& value, JsonOut* copy);
    void walkStep(ondemand::value& value, JsonOut* copy);
    void walkScalar(ondemand::value& value, JsonOut* copy);

    TextView decoded(std::string_view json);
    char16_t* decode(std::string_view json, char16_t* target);

    ondemand::parser parser_;
    std::string* fault_ = nullptr;  // of the member that is being read
    bool hasLoneSurrogate_ = false;
    Text decoded_;
    std::vector<Level> open_;  // the arrays and objects around a value of any kind
};

JsonInput::JsonInput() : parser_(std::make_unique<Parser>()) {}
JsonInput::~JsonInput() = default;

JsonOutcome JsonInput::readObject(std::span<char> text, std::span<JsonMember> members) {
    return parser_->readObject(text, members);
}

JsonOutcome JsonInput::readValue(std::string_view text, JsonMember& member) { return parser_->readValue(text, member); }

// The text is read once, and a second time when it is no sound object, to find out why.
JsonOutcome JsonInput::Parser::readObject(std::span<char> text, std::span<JsonMember> members) {
    text.data()[text.size()] = '\0';
    try {
        ondemand::document document = parse({text.data(), text.size()});
        takeMembers(document.get_object(), members);
        if (isAtEnd(document)) return sound(true);
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

JsonOutcome JsonInput::Parser::readValue(std::string_view text, JsonMember& member) {
    return readElement(text, [&](ondemand::value& value) { takeMember(value, member); });
}

JsonOutcome JsonInput::Parser::sound(bool isObject) const {
    return {true, isObject, hasLoneSurrogate_ ? "a string contains an unpaired surrogate" : ""};
}

ondemand::document JsonInput::Parser::parse(std::string_view text) {
    hasLoneSurrogate_ = false;
    if (parser_.capacity() < text.size()) {
        const error_code failed = parser_.allocate(std::max(text.size(), 2 * parser_.capacity()));
        if (failed != SUCCESS) throw std::bad_alloc();
    }
    return parser_.iterate(text.data(), text.size(), text.size() + jsonPadding);
}

// The text as the only element of an array: a value of any kind then ends at a bracket, and every fault has a position.
template <class Take>
JsonOutcome JsonInput::Parser::readElement(std::string_view text, Take take) {
    const auto inArray = [](std::string_view element) {
        std::string array = "[" + std::string(element) + "]";
        array.append(jsonPadding, '\0');
        return array;
    };
    const bool isSound = isUtf8(text);
    std::string array = inArray(text);
    if (!isSound) mendUtf8(array);  // keeps every byte in its place
    const std::string problem = readElementOf(array, take);
    if (!problem.empty()) return {false, false, "not JSON" + problem};
    if (isSound) return sound(false);
    readElementOf(inArray(toUtf8(toUtf16(text))), take);
    return {true, false, "the text is not UTF-8"};
}

/// Returns what is wrong and where.
template <class Take>
std::string JsonInput::Parser::readElementOf(std::string_view array, Take take) {
    array.remove_suffix(jsonPadding);
    const char* const end = array.data() + array.size() - 1;
    // The bracket precedes the text, so the text's bytes are counted from 1 here.
    const auto at = [&](const char* place, std::string_view why) {
        return " at byte " + std::to_string(place - array.data()) + ": " + std::string(why);
    };
    ondemand::document document;
    try {
        document = parse(array);
        bool isTaken = false;
        for (ondemand::value element : document.get_array()) {
            if (std::exchange(isTaken, true)) throw Malformed{tokenOf(element).data(), "the value has ended before"};
            take(element);
        }
        if (!isTaken) throw Malformed{end, "the text is empty"};
        if (!isAtEnd(document)) throw Malformed{end, "the value has ended before"};
        return {};
    } catch (const Malformed& malformed) {
        return at(malformed.at, malformed.why);
    } catch (const simdjson_error& failed) {
        switch (failed.error()) {
            case MEMALLOC: throw std::bad_alloc();
            case UNCLOSED_STRING: return at(end, "a string is not closed");
            case UNESCAPED_CHARS: return at(controlInString(array), "a control character stands in a string");
            default: break;
        }
        const char* place = end;
        if (failed.error() != INCOMPLETE_ARRAY_OR_OBJECT && !isAtEnd(document)) place = document.current_location();
        return place < end ? at(place, "an unexpected character") : at(end, "the text ends too early");
    }
}

void JsonInput::Parser::takeMembers(ondemand::object object, std::span<JsonMember> members) {
    for (JsonMember& member : members) member.isGiven = false;
    for (ondemand::field field : object) {
        std::string_view name = keyOf(field);
        std::string spelledOut;
        if (name.find('\\') != std::string_view::npos) name = spelledOut = toUtf8(decoded(name));
        const auto member = std::ranges::find(members, name, &JsonMember::name);
        member == members.end() ? skip(field.value()) : takeMember(field.value(), *member);
    }
}

void JsonInput::Parser::takeMember(ondemand::value value, JsonMember& member) {
    member.isGiven = true;
    member.fault.clear();
    fault_ = &member.fault;
    std::visit([&](auto* target) { take(value, *target); }, member.target);
}

/// Only a member's first fault is recorded.
void JsonInput::Parser::refuse(ondemand::value& value, const char* fault) {
    if (fault_->empty()) *fault_ = fault;
    skip(value);
}

void JsonInput::Parser::take(ondemand::value& value, Text& target) {
    if (value.type() != json_type::string) return refuse(value, wantedText);
    target = decoded(stringOf(value));
}

void JsonInput::Parser::take(ondemand::value& value, TextList& target) {
    target.clear();
    if (value.type() != json_type::array) return refuse(value, wantedList);
    if (!takeList(value, target)) *fault_ = wantedList;
}

// False when an element is no text.
bool JsonInput::Parser::takeList(ondemand::value& value, TextList& list) {
    bool isGood = true;
    for (ondemand::value element : value.get_array()) {
        isGood = isGood && element.type() == json_type::string;
        isGood ? list.emplace_back(decoded(stringOf(element))), void() : skip(element);
    }
    return isGood;
}

void JsonInput::Parser::take(ondemand::value& value, JsonScreen& target) {
    target.length_ = 0;
    target.isNull_ = false;
    switch (value.type()) {
        case json_type::null: target.isNull_ = true; return takeNull(value);
        case json_type::string: {
            const std::string_view text = stringOf(value);
            if (target.units_.size() < text.size()) target.units_.resize(text.size());
            target.length_ = static_cast<std::size_t>(decode(text, target.units_.data()) - target.units_.data());
            return;
        }
        case json_type::array: break;
        default: return refuse(value, wantedScreen);
    }
    std::size_t index = 0;
    for (ondemand::value line : value.get_array()) {
        if (line.type() != json_type::string || !fault_->empty()) {
            refuse(line, wantedScreen);
        } else {
            takeLine(stringOf(line), index++, target);
        }
    }
}

// Every line begins as 80 blanks; the last one ends where its text does.
void JsonInput::Parser::takeLine(std::string_view line, std::size_t index, JsonScreen& screen) {
    static constexpr auto blanks = [] {
        std::array<char16_t, screenWidth> units{};
        units.fill(u' ');
        return units;
    }();
    const std::size_t start = index * screenWidth;
    const std::size_t enough = start + std::max(line.size(), screenWidth);
    if (screen.units_.size() < enough) screen.units_.resize(2 * enough);
    char16_t* const target = screen.units_.data() + start;
    std::memcpy(target, blanks.data(), sizeof blanks);
    const auto length = static_cast<std::size_t>(decode(line, target) - target);
    screen.length_ = start + length;
    if (length > screenWidth) *fault_ = tooLongLine(index + 1, length);
}

// A key that occurs twice keeps its first position and takes its last value.
void JsonInput::Parser::take(ondemand::value& value, JsonCollection& target) {
    target.reset();
    if (value.type() == json_type::null) return takeNull(value);
    if (value.type() != json_type::object) return refuse(value, wantedCollection);
    target = std::make_shared<BuiltInCollection>();
    std::vector<Text> wrongKeys;
    for (ondemand::field field : value.get_object()) {
        const Text key(decoded(keyOf(field)));
        std::optional<ItemValue> found = item(field.value());
        if (!wrongKeys.empty()) std::erase(wrongKeys, key);
        if (!found) wrongKeys.push_back(key);
        target->Add(key, found ? std::move(*found) : ItemValue());
    }
    if (!wrongKeys.empty()) *fault_ = inQuotes(wrongKeys.front()) + ": " + wantedItem;
}

// Nothing for a value of another kind.
std::optional<ItemValue> JsonInput::Parser::item(ondemand::value& value) {
    switch (value.type()) {
        case json_type::string: return Text(decoded(stringOf(value)));
        case json_type::boolean: return booleanOf(value);
        case json_type::number: return wholeNumber(numberOf(value));
        case json_type::array: {
            TextList list;
            if (takeList(value, list)) return list;
            return std::nullopt;
        }
        default: skip(value); return std::nullopt;
    }
}

void JsonInput::Parser::take(ondemand::value& value, JsonCopy& target) {
    if (value.type() == json_type::number) {
        target = numberOf(value);
        return;
    }
    target.clear();
    JsonOut out(target);
    walk(value, &out);
}

/// Reads a value of any kind and writes it to `copy`, if there is one.
void JsonInput::Parser::walk(ondemand::value& value, JsonOut* copy) {
    open_.clear();
    walkStep(value, copy);
    while (!open_.empty()) {
        if (auto* const array = std::get_if<ondemand::array_iterator>(&open_.back())) {
            if (*array != ondemand::array_iterator()) {
                ondemand::value element = **array;
                walkStep(element, copy);
                continue;
            }
            if (copy != nullptr) copy->endArray();
        } else {
            auto& object = std::get<ondemand::object_iterator>(open_.back());
            if (object != ondemand::object_iterator()) {
                ondemand::field field = *object;
                const TextView key = decoded(keyOf(field));
                if (copy != nullptr) copy->key(key);
                walkStep(field.value(), copy);
                continue;
            }
            if (copy != nullptr) copy->endObject();
        }
        open_.pop_back();
        if (!open_.empty()) std::visit([](auto& around) { ++around; }, open_.back());
    }
}

// Opens an array or an object; reads another value and goes to the next one.
void JsonInput::Parser::walkStep(ondemand::value& value, JsonOut* copy) {
    switch (value.type()) {
        case json_type::array:
            if (copy != nullptr) copy->beginArray();
            open_.emplace_back(value.get_array().begin().value());
            return;
        case json_type::object:
            if (copy != nullptr) copy->beginObject();
            open_.emplace_back(value.get_object().begin().value());
            return;
        default:
            walkScalar(value, copy);
            if (!open_.empty()) std::visit([](auto& around) { ++around; }, open_.back());
    }
}

void JsonInput::Parser::walkScalar(ondemand::value& value, JsonOut* copy) {
    switch (value.type()) {
        case json_type::string: {
            const TextView text = decoded(stringOf(value));
            if (copy != nullptr) copy->text(text);
            return;
        }
        case json_type::number: {
            const std::string_view number = numberOf(value);
            if (copy != nullptr) copy->raw(number);
            return;
        }
        case json_type::boolean: {
            const bool truth = booleanOf(value);
            if (copy != nullptr) copy->boolean(truth);
            return;
        }
        default:
            takeNull(value);
            if (copy != nullptr) copy->null();
    }
}

/// The text of a string; valid until the next one is decoded.
TextView JsonInput::Parser::decoded(std::string_view json) {
    if (decoded_.size() < json.size()) decoded_.resize(json.size());
    const char16_t* const end = decode(json, decoded_.data());
    return TextView(decoded_).substr(0, static_cast<std::size_t>(end - decoded_.data()));
}

char16_t* JsonInput::Parser::decode(std::string_view json, char16_t* target) {
    const DecodedString string = decodeString(json, target);
    if (string.badEscape != nullptr) throw Malformed{string.badEscape, "JSON has no such escape sequence"};
    hasLoneSurrogate_ = hasLoneSurrogate_ || string.hasLoneSurrogate;
    return string.end;
}

}  // namespace vantro
