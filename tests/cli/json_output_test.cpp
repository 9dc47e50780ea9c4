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

struct Written {
    char16_t unit;
    std::string json;
};

TEST(JsonOut, ACharacterIsEscapedAtAnyPlaceOfATextOfAnyLength) {
    const Written others[] = {
        {u'"', "\\\""}, {u'\n', "\\n"}, {u'\u001F', "\\u001F"}, {u'\u00FF', "\xC3\xBF"}, {u'\u8022', "\xE8\x80\xA2"}};
    for (const std::size_t length :
         std::initializer_list<std::size_t>{1, 2, 15, 16, 17, 31, 32, 33, 255, 256, 257, 600}) {
        for (std::size_t place = 0; place < length; ++place) {
            for (const auto& [unit, json] : others) {
                Text text(length, u'x');
                text[place] = unit;
                const std::string rest(length - place - 1, 'x');
                ASSERT_EQ(asJson(text), "\"" + std::string(place, 'x') + json + rest + "\"") << length;
            }
        }
    }
}

TEST(JsonOut, APairOfSurrogatesIsOneCharacterAtAnyPlace) {
    for (std::size_t place = 0; place < 300; ++place) {
        ASSERT_EQ(asJson(Text(place, u'x') + u"\U0001F600y"), "\"" + std::string(place, 'x') + "\xF0\x9F\x98\x80y\"");
    }
}

TEST(JsonOut, AValueIsAppendedAndTheTextEndsWithIt) {
    std::string json = "before ";
    JsonOut out(json);
    out.text(Text(5000, u'x'));
    EXPECT_EQ(json, "before \"" + std::string(5000, 'x') + "\"");
    json = "again ";
    out.restart();
    out.beginArray();
    out.beginArray();
    json.clear();
    out.restart();
    out.beginObject();
    out.key("a");
    out.raw("1e2");
    out.key("b");
    out.raw("{}");
    out.endObject();
    EXPECT_EQ(json, R"({"a":1e2,"b":{}})");
}

TEST(IndentedJson, ALevelIsTwoBlanksAndEmptyValuesStayInTheirLine) {
    EXPECT_EQ(indented(R"({"a":[],"b":[-1,true,{"c":{}}],"d":"{\"x\":[1,2]}\\"})"), R"({
  "a": [],
  "b": [
    -1,
    true,
    {
      "c": {}
    }
  ],
  "d": "{\"x\":[1,2]}\\"
})");
    EXPECT_EQ(indented("[]"), "[]");
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
