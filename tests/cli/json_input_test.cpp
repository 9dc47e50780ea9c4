#include "cli/json/input.h"
#include "cli/json/spelling.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace vantro {

namespace {

struct Decoded {
    Text text;
    bool hasLoneSurrogate;
    std::ptrdiff_t badEscape;  // its index, or -1
};

Decoded decode(std::string_view json) {
    Text text(json.size(), u'?');
    const DecodedString string = decodeString(json, text.data());
    text.resize(static_cast<std::size_t>(string.end - text.data()));
    return {text, string.hasLoneSurrogate, string.badEscape == nullptr ? -1 : string.badEscape - json.data()};
}

TEST(JsonString, EscapesAreDecoded) {
    EXPECT_EQ(decode(R"(\"\\\/\b\f\n\r\t\u0041\u00e9\u0000)").text, Text(u"\"\\/\b\f\n\r\tA\u00E9\0", 11));
    EXPECT_EQ(decode("").text, u"");
}

TEST(JsonString, EscapesStandAnywhereInALongText) {
    const std::string filler = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (std::size_t before = 0; before <= filler.size(); ++before) {
        for (std::size_t after = 0; after <= filler.size(); ++after) {
            const std::string head = filler.substr(0, before);
            const std::string tail = filler.substr(0, after);
            Text wanted(head.begin(), head.end());
            wanted += u"\n\u00E9\u20AC";
            wanted.append(tail.begin(), tail.end());
            EXPECT_EQ(decode(head + "\\n\xC3\xA9\\u20aC" + tail).text, wanted);
        }
    }
}

TEST(JsonString, ASurrogatePairIsOneCharacter) {
    const Decoded decoded = decode(R"(\ud83d\ude00 \uD83D\uDE00)");
    EXPECT_EQ(decoded.text, u"\U0001F600 \U0001F600");
    EXPECT_FALSE(decoded.hasLoneSurrogate);
}

TEST(JsonString, AHighSurrogateAloneIsReplaced) {
    const Decoded decoded = decode(R"(\ud83dx \ud83d\n \ud83d\u0041 \ud83d)");
    EXPECT_TRUE(decoded.hasLoneSurrogate);
    EXPECT_EQ(decoded.text, u"\uFFFDx \uFFFD\n \uFFFDA \uFFFD");
}

TEST(JsonString, ALowSurrogateAloneIsReplaced) {
    const Decoded decoded = decode(R"(\ude00 \ude00\ud83d\ude00)");
    EXPECT_TRUE(decoded.hasLoneSurrogate);
    EXPECT_EQ(decoded.text, u"\uFFFD \uFFFD\U0001F600");
}

TEST(JsonString, TwoHighSurrogatesBeforeALowOneLeaveAPair) {
    EXPECT_EQ(decode(R"(\ud83d\ud83d\ude00)").text, u"\uFFFD\U0001F600");
}

TEST(JsonString, AnEscapedBackslashBeforeUIsNoSurrogate) {
    EXPECT_FALSE(decode(R"(\\ud83d)").hasLoneSurrogate);
    EXPECT_TRUE(decode(R"(\\\ud83d)").hasLoneSurrogate);
}

TEST(JsonString, ABadEscapeIsFound) {
    for (const char* json : {R"(ab\x)", R"(ab\)", R"(ab\u)", R"(ab\u123)", R"(ab\u12g4)", R"(ab\u+123)", R"(ab\u0x1)",
                             R"(ab\U0041)", R"(ab\')", R"(ab\0)"}) {
        EXPECT_EQ(decode(json).badEscape, 2) << json;
    }
    EXPECT_EQ(decode(R"(\ud83d\u12)").badEscape, 6);
    EXPECT_EQ(decode(R"(\u00e9)").badEscape, -1);
}

// The outcome of reading a text of any kind and its copy.
struct Copied {
    bool isJson;
    std::string problem;
    std::string json;
};

Copied copy(const std::string& text) {
    JsonCopy json;
    JsonMember member{"text", &json};
    const JsonOutcome outcome = JsonInput().readValue(text, member);
    return {outcome.isJson, outcome.problem, json};
}

TEST(JsonIn, ValuesKeepTheirOrderAndNumbersTheirSpelling) {
    const std::string json = R"({"a":[1,-2.50e+3,"x"],"b":{"c":null},"d":true,"e":false,"a":{},"f":[[],[{}]]})";
    EXPECT_EQ(copy(json).json, json);
    EXPECT_EQ(copy(" [ 1 ,\t{ \"a\" :\r[ ] } ]\n").json, R"([1,{"a":[]}])");
}

TEST(JsonIn, EscapesAreWrittenInTheirShortestForm) {
    EXPECT_EQ(copy(R"(["\"\\\/\b\f\n\r\t\u0041\u00e9\ud83d\ude00"])").json,
              "[\"\\\"\\\\/\\b\\f\\n\\r\\tA\xC3\xA9\xF0\x9F\x98\x80\"]");
}

TEST(JsonIn, NumbersMayBeOfAnySize) {
    for (const std::string number : {"0", "-0", "123456789012345678901234567890.10", "1e400", "-1E-400", "0.0e+07"}) {
        EXPECT_EQ(copy(number).json, number);
        EXPECT_EQ(copy("[" + number + "]").json, "[" + number + "]");
    }
}

class NotJson : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(JsonIn, NotJson,
                         testing::Values("", " ", "x", "{", "{}}", "{} {}", "[1,]", "{\"a\":1,}", "{\"a\" 1}", "{a:1}",
                                         "'a'", "01", "1.", ".5", "+1", "-", "1e", "tru", "nul", "\"", "\"\\x\"",
                                         "\"\\u12g4\"", "\"\\", "[\"a\tb\"]", "[\"a\rb\"]",
                                         "[\"0123456789abcdefghi\x1F"
                                         "0123456789abcdefghi\"]",
                                         std::string("{\0}", 3), std::string("{}\0", 3), std::string("[\"a\0b\"]", 7),
                                         "NaN", "[1] // remark", "\xFF", "\xEF\xBB\xBF{}", "truex", "nullx", "1x",
                                         "1 2", "1,2", "{}]", "1]", "[[\"a\":1]]]", "{\"a\":[1}", "[1,2",
                                         "{\"a\":{\"b\":1}", "[\"a\"x]", "[\"a\"\"b\"]", "{\"a\"}", "{1:2}", "{,}",
                                         "[,1]", "[\f]"));

TEST_P(NotJson, IsReportedAsNotJson) {
    const Copied copied = copy(GetParam());
    EXPECT_FALSE(copied.isJson);
    EXPECT_EQ(copied.problem.rfind("not JSON at byte ", 0), 0U) << copied.problem;
}

TEST_P(NotJson, IsNotJsonAsAnIgnoredMemberEither) {
    std::string text = "{\"a\":" + GetParam() + "}";
    if (GetParam() == "{}}") return;  // the bracket ends the object
    const std::size_t length = text.size();
    text.append(jsonPadding, '\0');
    const JsonOutcome outcome = JsonInput().readObject(std::span(text).first(length), {});
    EXPECT_FALSE(outcome.isJson);
    EXPECT_FALSE(outcome.isObject);
}

TEST(JsonIn, WhatIsWrongHasAPlace) {
    const std::array<std::pair<const char*, const char*>, 14> faults{{
        {"", "1: the text is empty"},
        {"  ", "3: the text is empty"},
        {R"({"a":1)", "7: the text ends too early"},
        {R"({"a":[1,2)", "10: the text ends too early"},
        {R"({"a" 1})", "6: an unexpected character"},
        {R"({"a":1} x)", "9: an unexpected character"},
        {R"({"a":1}})", "8: an unexpected character"},
        {R"(1,2)", "3: the value has ended before"},
        {R"({"a":tru})", "6: an invalid value"},
        {R"({"a":01})", "6: an invalid value"},
        {R"({"a":"b\x"})", "8: JSON has no such escape sequence"},
        {"{\"a\":\"b\tc\"}", "8: a control character stands in a string"},
        {R"({"a":"b)", "8: a string is not closed"},
        {"{\"\xFF\":\"\xFF\" 1}", "10: an unexpected character"},
    }};
    for (const auto& [text, problem] : faults) {
        EXPECT_EQ(copy(text).problem, std::string("not JSON at byte ") + problem) << text;
    }
}

TEST(JsonIn, BytesThatAreNotUtf8InAStringAreAProblemOfTheText) {
    const Copied copied = copy("[\"a\xFFz\xE2\x82\",1]");
    EXPECT_TRUE(copied.isJson);
    EXPECT_EQ(copied.problem, "the text is not UTF-8");
    EXPECT_EQ(copied.json, "[\"a\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD\",1]");
}

TEST(JsonIn, AnUnpairedSurrogateIsAProblemOfTheText) {
    for (const char* text : {R"(["\ud83d",1])", R"(["\ude00",1])", R"({"\ud83d":1})"}) {
        const Copied copied = copy(text);
        EXPECT_TRUE(copied.isJson) << text;
        EXPECT_EQ(copied.problem, "a string contains an unpaired surrogate") << text;
    }
}

TEST(JsonIn, NestingUsesNoStack) {
    constexpr std::size_t depth = 1'000'000;
    EXPECT_TRUE(copy(std::string(depth, '[') + std::string(depth, ']')).problem.empty());
    EXPECT_FALSE(copy(std::string(depth, '[')).isJson);
}

}  // namespace

}  // namespace vantro
