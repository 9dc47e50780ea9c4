#include "cli/commands/parameters.h"

#include "cli/io/failure.h"
#include "cli/json/collection.h"

#include <gtest/gtest.h>

namespace vantro {

namespace {

std::string collectionJson(const CollectionPtr& collection) {
    std::string json;
    JsonOut out(json);
    writeCollection(collection, out);
    return json;
}

std::string collected(const std::vector<std::string>& pairs) {
    const auto collection = std::make_shared<BuiltInCollection>();
    addParameters(pairs, *collection);
    return collectionJson(collection);
}

std::string refused(const std::string& pair) {
    BuiltInCollection collection;
    try {
        addParameters({pair}, collection);
    } catch (const UsageError& problem) {
        return problem.what();
    }
    return "";
}

TEST(Parameters, AStrKeyIsAText) {
    EXPECT_EQ(collected({"strKeyName=SMITH", "strA=", "strB=x=y"}), R"({"strKeyName":"SMITH","strA":"","strB":"x=y"})");
    EXPECT_EQ(collected({"strKeyName=\xC3\x89VA"}), "{\"strKeyName\":\"\xC3\x89VA\"}");
}

TEST(Parameters, ABlnKeyIsABoolean) {
    EXPECT_EQ(collected({"blnA=true", "blnB=FALSE", "blnC=1", "blnD=0", "blnE=Yes", "blnF=no"}),
              R"({"blnA":true,"blnB":false,"blnC":true,"blnD":false,"blnE":true,"blnF":false})");
    EXPECT_EQ(refused("blnA="), "blnA is a boolean; give true or false, not ''");
    EXPECT_EQ(refused("blnA=2"), "blnA is a boolean; give true or false, not '2'");
}

TEST(Parameters, AnIntKeyIsA16BitInteger) {
    EXPECT_EQ(collected({"intA=32767", "intB=-32768"}), R"({"intA":32767,"intB":-32768})");
    for (const char* pair : {"intA=", "intA=32768", "intA=-32769", "intA=1.0", "intA= 1", "intA=x", "intA=1x"}) {
        EXPECT_NE(refused(pair).find("16-bit integer"), std::string::npos) << pair;
    }
}

TEST(Parameters, TheArraySizeIsAText) {
    EXPECT_EQ(collected({"intKeyArraySize=2"}), R"({"intKeyArraySize":"2"})");
    EXPECT_EQ(collected({"intKeyArraySize="}), R"({"intKeyArraySize":""})");
}

TEST(Parameters, AKeyInParenthesesCollectsItsRepetitions) {
    EXPECT_EQ(collected({"strA()=1", "strK=x", "strB()=b", "strA()=", "strA()=3"}),
              R"json({"strA()":["1","","3"],"strK":"x","strB()":["b"]})json");
}

TEST(Parameters, AListReplacesTheOneOfTheState) {
    BuiltInCollection collection;
    collection.Add(u"strA()", TextList{u"old", u"older"});
    addParameters({"strA()=new"}, collection);
    EXPECT_EQ(std::get<TextList>(collection.Item(u"strA()")->Value()), TextList{u"new"});
}

TEST(Parameters, TextThatIsNoPairIsRefused) {
    EXPECT_EQ(refused("strKeyName"), "'strKeyName' is not KEY=VALUE; write for example strKeyName=SMITH");
}

TEST(Parameters, AKeyWithoutAKindIsRefused) {
    EXPECT_EQ(refused("name=x"), "the key 'name' tells no kind; keys begin with str, bln or int, or end in ()");
    EXPECT_EQ(refused("=x"), "the key '' tells no kind; keys begin with str, bln or int, or end in ()");
}

TEST(Parameters, ARepeatedKeyOfOneValueIsRefused) { EXPECT_THROW(collected({"strA=1", "strA=2"}), UsageError); }

TEST(Parameters, BytesThatAreNotUtf8AreRefused) { EXPECT_EQ(refused("strA=\xFF"), "a parameter is not UTF-8"); }

std::string controlIn(ItemValue value) {
    BuiltInCollection collection;
    collection.Add(u"strBefore", Text(u"plain"));
    collection.Add(u"strKey", std::move(value));
    try {
        refuseControlCharacters(collection);
    } catch (const UsageError& problem) {
        const std::string words = problem.what();
        return words.substr(0, words.find(','));
    }
    return "";
}

TEST(ControlCharacters, AreFoundFromBothBlocks) {
    for (const char16_t control : {u'\x00', u'\t', u'\n', u'\r', u'\x1F', u'\x7F', u'\x80', u'\x85', u'\x9F'}) {
        EXPECT_NE(controlIn(Text(1, control)), "") << static_cast<int>(control);
    }
    for (const char16_t plain : {u' ', u'~', u'\u00A0', u'\u0100', u'\u2028', u'\uFFFD'}) {
        EXPECT_EQ(controlIn(Text(1, plain)), "") << static_cast<int>(plain);
    }
}

TEST(ControlCharacters, AreReportedWithKeyAndPosition) {
    EXPECT_EQ(controlIn(Text(u"SMITH\nPX3")), "strKey contains the control character U+000A at position 6");
    EXPECT_EQ(controlIn(Text(u"\u0085")), "strKey contains the control character U+0085 at position 1");
    EXPECT_EQ(controlIn(TextList{u"", u"\U0001F600\r"}),
              "entry 1 of strKey contains the control character U+000D at position 2");
    EXPECT_EQ(controlIn(true), "");
    EXPECT_EQ(controlIn(std::int16_t{10}), "");
}

TEST(CollectionJson, WrittenCollectionsAreReadBackUnchanged) {
    const std::string json = R"json({"strB":"x\ny","blnA":false,"intC":38,"strD()":["","1"],"strE()":[]})json";
    EXPECT_EQ(collectionJson(collectionFromJson(json, "state")), json);
    EXPECT_EQ(collectionFromJson("null", "state"), nullptr);
}

TEST(CollectionJson, AnythingElseIsRefusedWithTheNameOfItsSource) {
    for (const char* json : {"", "[]", "7", "{\"a\":1.5}", "{\"a\":null}", "{\"a\":[1]}", "{\"a\":\"\\ud800\"}"}) {
        try {
            collectionFromJson(json, "the state");
            ADD_FAILURE() << json;
        } catch (const UsageError& problem) {
            EXPECT_EQ(std::string(problem.what()).rfind("the state: ", 0), 0U) << problem.what();
        }
    }
}

}  // namespace

}  // namespace vantro
