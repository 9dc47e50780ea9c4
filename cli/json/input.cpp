#include "cli/json/input.h"

#include "cli/io/utf.h"
#include "cli/json/text_checks.h"

#if defined(__SSE2__)
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace vantro {

namespace {

class EventAdapter {
public:
    explicit EventAdapter(JsonEvents& events) : events_(events) {}

    bool Null() { return pass({JsonKind::Null}); }
    bool Bool(bool truth) { return pass({JsonKind::Boolean, {}, truth}); }
    bool RawNumber(const char* digits, rapidjson::SizeType length, bool /*copy*/) {
        return pass({JsonKind::Number, {digits, length}});
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return pass({JsonKind::String, {text, length}});
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return pass({JsonKind::Key, {text, length}});
    }
    bool StartObject() { return pass({JsonKind::StartObject}); }
    bool EndObject(rapidjson::SizeType /*members*/) { return pass({JsonKind::EndObject}); }
    bool StartArray() { return pass({JsonKind::StartArray}); }
    bool EndArray(rapidjson::SizeType /*elements*/) { return pass({JsonKind::EndArray}); }

    // Numbers arrive as text (RawNumber); the parser requires these functions to compile.
    bool Int(int /*number*/) { return false; }
    bool Uint(unsigned /*number*/) { return false; }
    bool Int64(std::int64_t /*number*/) { return false; }
    bool Uint64(std::uint64_t /*number*/) { return false; }
    bool Double(double /*number*/) { return false; }

private:
    bool pass(const JsonEvent& event) {
        events_.take(event);
        return true;
    }

    JsonEvents& events_;
};

constexpr unsigned readerFlags =
    rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;

// `why` is a sentence.
std::string notJson(std::size_t offset, std::string_view why) {
    if (why.ends_with('.')) why.remove_suffix(1);
    return "not JSON at byte " + std::to_string(offset + 1) + ": " + std::string(why);
}

}  // namespace

JsonOutcome readJson(std::span<char> text, JsonEvents& events) {
    // The parser ends at a zero byte, accepts some control characters inside strings when it reads many bytes at
    // once, stops at an unpaired high surrogate and accepts an unpaired low one. So these are checked before it runs.
    if (containsStrayControl(text)) return {false, "not JSON: a control character stands in the text"};
    const bool paired = mendUnpairedSurrogates(text);
    const bool sound = isUtf8({text.data(), text.size()});

    text.data()[text.size()] = '\0';
    rapidjson::InsituStringStream stream(text.data());
    rapidjson::Reader reader;
    EventAdapter adapter(events);
    const rapidjson::ParseResult result = reader.Parse<readerFlags>(stream, adapter);
    if (result.IsError()) {
        return {false, notJson(result.Offset(), rapidjson::GetParseError_En(result.Code()))};
    }
    if (!sound) return {true, "the text is not UTF-8"};
    if (!paired) return {true, "a string contains an unpaired surrogate"};
    return {true, {}};
}

}  // namespace vantro
