#include "cli/json/output.h"

#include "cli/json/collection.h"

#include <gtest/gtest.h>

namespace vantro {

namespace {

std::string asJson(TextView text) {
    std::string json;
    JsonOut(json).text(text);
    return json;
}

TEST(JsonOut, CommasAreWrittenBetweenMembersAndElementsOnly) {
    std::string json;
    JsonOut out(json);
    out.beginObject();
    out.key("a");
    out.beginArray();
    out.endArray();
    out.key(u"b");
    out.beginArray();
    out.number(-1);
    out.boolean(true);
    out.null();
    out.beginObject();
    out.endObject();
    out.endArray();
    out.endObject();
    EXPECT_EQ(json, R"({"a":[],"b":[-1,true,null,{}]})");
}

TEST(JsonOut, ControlCharactersQuotationMarksAndBackslashesAreEscaped) {
    EXPECT_EQ(asJson(u"a\"b\\c/\b\t\n\f\r\u0001\u001F\u007F"), "\"a\\\"b\\\\c/\\b\\t\\n\\f\\r\\u0001\\u001F\x7F\"");
    EXPECT_EQ(asJson(TextView(u"\0", 1)), "\"\\u0000\"");
}

TEST(JsonOut, EverythingElseIsUtf8) {
    EXPECT_EQ(asJson(u"\u00E9\u20AC\U0001F600"), "\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\"");
}

TEST(JsonOut, AnUnpairedSurrogateIsTheReplacementCharacter) {
    EXPECT_EQ(asJson(Text{u'a', char16_t{0xD83D}}), "\"a\xEF\xBF\xBD\"");
}

std::string collectionJson(const CollectionPtr& collection) {
    std::string json;
    JsonOut out(json);
    writeCollection(collection, out);
    return json;
}

TEST(CollectionJson, KeysKeepTheirOrderAndValuesTheirKind) {
    const auto collection = std::make_shared<BuiltInCollection>();
    collection->Add(u"strB", Text(u"x"));
    collection->Add(u"blnA", true);
    collection->Add(u"intC", std::int16_t{-32768});
    collection->Add(u"strD()", TextList{u"", u"1"});
    EXPECT_EQ(collectionJson(collection), R"json({"strB":"x","blnA":true,"intC":-32768,"strD()":["","1"]})json");
    EXPECT_EQ(collectionJson(nullptr), "null");
    EXPECT_EQ(collectionJson(std::make_shared<BuiltInCollection>()), "{}");
}

}  // namespace

}  // namespace vantro
