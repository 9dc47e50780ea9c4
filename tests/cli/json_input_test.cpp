#include "cli/json/input.h"
#include "cli/json/text_checks.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro {

namespace {

struct Mended {
    std::string text;
    bool paired;
};

Mended mend(std::string text) {
    const bool paired = mendUnpairedSurrogates(text);
    return {text, paired};
}

TEST(JsonText, TabsAndLineEndsAreNoStrayControls) { EXPECT_FALSE(containsStrayControl(std::string("{\t\r\n}"))); }

TEST(JsonText, EveryOtherControlIsStrayAtEveryPosition) {
    for (int control = 0; control < 0x20; ++control) {
        if (control == '\t' || control == '\n' || control == '\r') continue;
        for (const std::size_t place : {0U, 63U, 64U, 99U}) {
            std::string text(100, 'x');
            text[place] = static_cast<char>(control);
            EXPECT_TRUE(containsStrayControl(text)) << control << " at " << place;
        }
    }
    EXPECT_FALSE(containsStrayControl(std::string("\x7F\x80\xFF")));
}

TEST(JsonText, SurrogatePairsStay) {
    const Mended mended = mend(R"("\ud83d\ude00 \uD83D\uDE00")");
    EXPECT_TRUE(mended.paired);
    EXPECT_EQ(mended.text, R"("\ud83d\ude00 \uD83D\uDE00")");
}

TEST(JsonText, AHighSurrogateAloneIsReplaced) {
    const Mended mended = mend(R"("\ud83dx \ud83d\n \ud83d\u0041 \ud83d")");
    EXPECT_FALSE(mended.paired);
    EXPECT_EQ(mended.text, R"("\uFFFDx \uFFFD\n \uFFFD\u0041 \uFFFD")");
}

TEST(JsonText, ALowSurrogateAloneIsReplaced) {
    const Mended mended = mend(R"("\ude00 \ude00\ud83d\ude00")");
    EXPECT_FALSE(mended.paired);
    EXPECT_EQ(mended.text, R"("\uFFFD \uFFFD\ud83d\ude00")");
}

TEST(JsonText, TwoHighSurrogatesBeforeALowOneLeaveAPair) {
    EXPECT_EQ(mend(R"("\ud83d\ud83d\ude00")").text, R"("\uFFFD\ud83d\ude00")");
}

TEST(JsonText, AnEscapedBackslashBeforeUIsNoSurrogate) {
    EXPECT_TRUE(mend(R"("\\ud83d")").paired);
    EXPECT_FALSE(mend(R"("\\\ud83d")").paired);
}

TEST(JsonText, AnIncompleteEscapeIsLeftToTheParser) {
    for (const char* text : {"\\", "\\u", "\\ud83", "\\ud83\"", "\"\\ud83d\\"}) {
        EXPECT_EQ(mend(text).text.size(), std::string(text).size());
    }
}

class Recorder final : public JsonEvents {
public:
    void take(const JsonEvent& event) override {
        constexpr const char* names = "nb#sk{}[]";
        events += names[static_cast<int>(event.kind)];
        events += std::string(event.text) + (event.truth ? "true" : "");
        events += ' ';
    }

    std::string events;
};

struct Outcome {
    bool isJson;
    std::string problem;
    std::string events;
};

Outcome readText(std::string text) {
    Recorder recorder;
    const std::size_t length = text.size();
    text.append(jsonPadding, '\0');
    const JsonOutcome outcome = readJson(std::span(text).first(length), recorder);
    return {outcome.isJson, outcome.problem, recorder.events};
}

TEST(JsonIn, EventsComeInTheOrderOfTheText) {
    EXPECT_EQ(readText(R"({"a":[1,-2.50e+3,"x"],"b":{"c":null},"d":true,"e":false})").events,
              "{ ka [ #1 #-2.50e+3 sx ] kb { kc n } kd btrue ke b } ");
}

TEST(JsonIn, EscapesAreDecoded) {
    EXPECT_EQ(readText(R"(["\"\\\/\b\f\n\r\t\u0041\u00e9\ud83d\ude00"])").events,
              "[ s\"\\/\b\f\n\r\tA\xC3\xA9\xF0\x9F\x98\x80 ] ");
}

class NotJson : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(JsonIn, NotJson,
                         testing::Values("", " ", "x", "{", "{}}", "{} {}", "[1,]", "{\"a\":1,}", "{\"a\" 1}", "{a:1}",
                                         "'a'", "01", "1.", ".5", "+1", "-", "1e", "tru", "nul", "\"", "\"\\x\"",
                                         "\"\\u12g4\"", "\"\\", "[\"a\tb\"]", "[\"a\rb\"]",
                                         "[\"0123456789abcdefghi\x1F"
                                         "0123456789abcdefghi\"]",
                                         std::string("{\0}", 3), std::string("{}\0", 3), std::string("[\"a\0b\"]", 7),
                                         "NaN", "[1] // remark", "\xFF", "\xEF\xBB\xBF{}"));

TEST_P(NotJson, IsReportedAsNotJson) {
    const Outcome outcome = readText(GetParam());
    EXPECT_FALSE(outcome.isJson);
    EXPECT_EQ(outcome.problem.rfind("not JSON", 0), 0U) << outcome.problem;
}

TEST(JsonIn, BytesThatAreNotUtf8InAStringAreAProblemOfTheText) {
    const Outcome outcome = readText("[\"a\xFFz\",1]");
    EXPECT_TRUE(outcome.isJson);
    EXPECT_EQ(outcome.problem, "the text is not UTF-8");
    EXPECT_EQ(outcome.events.substr(outcome.events.size() - 5), "#1 ] ");
}

TEST(JsonIn, AnUnpairedSurrogateIsAProblemOfTheText) {
    for (const char* text : {R"(["\ud83d",1])", R"(["\ude00",1])", R"({"\ud83d":1})"}) {
        const Outcome outcome = readText(text);
        EXPECT_TRUE(outcome.isJson) << text;
        EXPECT_EQ(outcome.problem, "a string contains an unpaired surrogate") << text;
    }
}

TEST(JsonIn, NestingUsesNoStack) {
    constexpr std::size_t depth = 1'000'000;
    EXPECT_TRUE(readText(std::string(depth, '[') + std::string(depth, ']')).problem.empty());
    EXPECT_FALSE(readText(std::string(depth, '[')).isJson);
}

TEST(JsonIn, LongNumbersKeepTheirSpelling) {
    EXPECT_EQ(readText("123456789012345678901234567890.10").events, "#123456789012345678901234567890.10 ");
}

}  // namespace

}  // namespace vantro
