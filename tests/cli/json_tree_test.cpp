// JSON with the positions of its values.
#include "cli/json/tree.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro {
namespace {

using Kind = JsonNode::Kind;

// "at: what", or "" for JSON.
std::string faultIn(std::string_view text) {
    try {
        readTree(text);
        return "";
    } catch (const JsonFault& fault) {
        return std::to_string(fault.at) + ": " + fault.what;
    }
}

bool same(std::string_view one, std::string_view other) { return isSame(readTree(one), readTree(other)); }

TEST(JsonTree, ValuesKnowTheirSpellingAndTheirPosition) {
    const std::string text =
        " { \"a\" : [ 1.5e3, \"x\\u0041\\n\" , true ],\n \"\\u0062\":{ } , \"c\":null,\"d\":false }\n";
    const JsonNode root = readTree(text);
    EXPECT_EQ(root.kind, Kind::Object);
    EXPECT_EQ(root.names, (std::vector<std::string>{"a", "b", "c", "d"}));
    const JsonNode& list = *root.member("a");
    ASSERT_EQ(list.items.size(), 3U);
    EXPECT_EQ(list.text, "[ 1.5e3, \"x\\u0041\\n\" , true ]");
    EXPECT_EQ(list.items[0].kind, Kind::Number);
    EXPECT_EQ(list.items[0].text, "1.5e3");
    EXPECT_EQ(list.items[0].text.data(), text.data() + text.find("1.5"));
    EXPECT_EQ(list.items[1].string(), u"xA\n");
    EXPECT_EQ(list.items[2].kind, Kind::True);
    EXPECT_EQ(list.items[2].string(), u"");
    EXPECT_EQ(root.member("b")->kind, Kind::Object);
    EXPECT_EQ(root.member("c")->kind, Kind::Null);
    EXPECT_EQ(root.member("d")->kind, Kind::False);
    EXPECT_EQ(root.member("e"), nullptr);
}

TEST(JsonTree, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(faultIn(""), "0: a value is missing");
    EXPECT_EQ(faultIn("[1,]"), "3: not a value; texts are in quotation marks");
    EXPECT_EQ(faultIn("[1 2]"), "3: a comma or the closing bracket is missing");
    EXPECT_EQ(faultIn("{a:1}"), "1: a name in quotation marks is expected");
    EXPECT_EQ(faultIn("{\"a\" 1}"), "5: a colon is missing");
    EXPECT_EQ(faultIn("{\"a\":1"), "6: a comma or the closing bracket is missing");
    EXPECT_EQ(faultIn("\"a\\\""), "0: a text has no closing quotation mark");
    EXPECT_EQ(faultIn("\"a\tb\""), "2: a control character in a text");
    EXPECT_EQ(faultIn("\"\\q\""), "0: JSON has no such escape sequence");
    EXPECT_EQ(faultIn("\"\\uD800\""), "0: an unpaired surrogate in a text");
    EXPECT_EQ(faultIn("01"), "0: not a value; texts are in quotation marks");
    EXPECT_EQ(faultIn("1 1"), "2: the value has ended before");
    EXPECT_EQ(faultIn(std::string(90, '[') + std::string(90, ']')), "");
    EXPECT_EQ(faultIn(std::string(200, '[')), "101: values are nested too deeply");
}

TEST(JsonTree, TheSameValuesMayBeSpelledInDifferentWays) {
    EXPECT_TRUE(same("[\"A\", 1]", "[ \"\\u0041\",1 ]"));
    EXPECT_FALSE(same("[\"A\"]", "[\"B\"]"));
    EXPECT_FALSE(same("[\"A\"]", "[\"A\",\"A\"]"));
    EXPECT_FALSE(same("1", "\"1\""));
    EXPECT_FALSE(same("null", "\"\""));
    EXPECT_TRUE(same("{\"a\":1,\"b\":2}", "{\"b\":2,\"a\":1}"));
    EXPECT_FALSE(same("{\"a\":1}", "{\"a\":2}"));
    EXPECT_FALSE(same("{\"a\":1}", "{\"a\":1,\"b\":2}"));
    EXPECT_FALSE(same("{\"a\":1,\"b\":2}", "{\"a\":1}"));
}

TEST(JsonTree, WhatIsEmptyMayBeAbsent) {
    for (const char* const empty : {"null", "false", "\"\"", "[]", "{}", "{\"x\":{\"y\":\"\"}}"}) {
        EXPECT_TRUE(same("{\"a\":1,\"b\":" + std::string(empty) + "}", "{\"a\":1}")) << empty;
    }
    for (const char* const value : {"true", "0", "\" \"", "[0]"}) {
        EXPECT_FALSE(same("{\"b\":" + std::string(value) + "}", "{}")) << value;
    }
}

TEST(JsonTree, InOneLineIsWithoutBlanksOutsideOfTexts) {
    EXPECT_EQ(inOneLine("{ \"a b\" : [ 1,\r\n\t\"c \\\" d\" ] }"), "{\"a b\":[1,\"c \\\" d\"]}");
}

}  // namespace
}  // namespace vantro
