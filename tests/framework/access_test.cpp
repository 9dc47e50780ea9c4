#include "framework/access.h"

#include "tests/framework/raised.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

constexpr Key<Text> text{u"strKeyName"};
constexpr Key<bool> flag{u"blnKeyError"};
constexpr Key<std::int16_t> number{u"intKeyIndex"};
constexpr Key<TextList> list{u"strKeyElement()"};

class ParametersTest : public testing::Test {
protected:
    void given(TextView key, ItemValue value) { collection->Add(key, std::move(value)); }
    Parameters parameters() { return Parameters(terminal, collection); }

    BuiltInTerminal terminal;
    CollectionPtr collection = terminal.createCollection();
};

TEST_F(ParametersTest, AbsentTextIsEmpty) { EXPECT_EQ(parameters().read(text), u""); }

TEST_F(ParametersTest, AbsentBooleanIsFalse) { EXPECT_FALSE(parameters().read(flag)); }

TEST_F(ParametersTest, AbsentIntegerRaises91) {
    EXPECT_EQ(raisedNumber([&] { parameters().read(number); }), 91);
}

TEST_F(ParametersTest, TheTextOfAnAbsentIntegerIsEmpty) { EXPECT_EQ(parameters().readAsText(number), u""); }

TEST_F(ParametersTest, ReadsATextUnchanged) {
    given(u"strKeyName", Text(u" SMITH/ANNA "));
    EXPECT_EQ(parameters().read(text), u" SMITH/ANNA ");
}

TEST_F(ParametersTest, ReadsOtherKindsAsTheTerminalsText) {
    Parameters given_ = parameters();
    given(u"strKeyName", true);
    EXPECT_EQ(given_.read(text), u"True");
    given(u"strKeyName", std::int16_t{-7});
    EXPECT_EQ(given_.read(text), u"-7");
}

TEST_F(ParametersTest, TextsReadEarlierStayValid) {
    given(u"strKeyName", std::int16_t{11});
    given(u"strKeyItemNr", std::int16_t{22});
    Parameters given_ = parameters();
    const TextView first = given_.read(text);
    const TextView second = given_.read(key::strKeyItemNr);
    EXPECT_EQ(first, u"11");
    EXPECT_EQ(second, u"22");
}

TEST_F(ParametersTest, AListReadAsTextOrBooleanRaises13) {
    given(u"strKeyName", TextList{u"A"});
    given(u"blnKeyError", TextList{});
    EXPECT_EQ(raisedNumber([&] { parameters().read(text); }), 13);
    EXPECT_EQ(raisedNumber([&] { parameters().read(flag); }), 13);
}

TEST_F(ParametersTest, KeysAreCaseSensitive) {
    given(u"strkeyname", Text(u"SMITH"));
    EXPECT_EQ(parameters().read(text), u"");
}

TEST_F(ParametersTest, ReadsIntegersByConversion) {
    given(u"intKeyIndex", std::int16_t{3});
    EXPECT_EQ(parameters().read(number), 3);
    given(u"intKeyIndex", Text(u" 4 "));
    EXPECT_EQ(parameters().read(number), 4);
    given(u"intKeyIndex", true);
    EXPECT_EQ(parameters().read(number), -1);
}

TEST_F(ParametersTest, AnIntegerThatDoesNotConvertRaises6Or13) {
    given(u"intKeyIndex", Text(u"32768"));
    EXPECT_EQ(raisedNumber([&] { parameters().read(number); }), 6);
    given(u"intKeyIndex", Text());
    EXPECT_EQ(raisedNumber([&] { parameters().read(number); }), 13);
    given(u"intKeyIndex", TextList{});
    EXPECT_EQ(raisedNumber([&] { parameters().read(number); }), 13);
}

TEST_F(ParametersTest, ReadsAListsEntriesFromZero) {
    given(u"strKeyElement()", TextList{u"", u"AISLE", u"WINDOW"});
    EXPECT_EQ(parameters().readEntry(list, 0).text, u"");
    EXPECT_EQ(parameters().readEntry(list, 2).text, u"WINDOW");
}

TEST_F(ParametersTest, AnIndexOutsideAListRaises9) {
    given(u"strKeyElement()", TextList{u"", u"AISLE"});
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, 2); }), 9);
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, -1); }), 9);
    given(u"strKeyElement()", TextList{});
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, 0); }), 9);
}

TEST_F(ParametersTest, AnAbsentListRaises91) {
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, 0); }), 91);
}

TEST_F(ParametersTest, AListKeyWithAnotherValueRaises13) {
    given(u"strKeyElement()", Text(u"AISLE"));
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, 0); }), 13);
    given(u"strKeyElement()", std::int16_t{1});
    EXPECT_EQ(raisedNumber([&] { parameters().readEntry(list, 0); }), 13);
}

TEST(ParametersWithoutCollection, EveryReadRaises91) {
    BuiltInTerminal terminal;
    Parameters parameters(terminal, nullptr);
    EXPECT_EQ(raisedNumber([&] { parameters.read(text); }), 91);
    EXPECT_EQ(raisedNumber([&] { parameters.read(flag); }), 91);
    EXPECT_EQ(raisedNumber([&] { parameters.read(number); }), 91);
    EXPECT_EQ(raisedNumber([&] { parameters.readAsText(number); }), 91);
    EXPECT_EQ(raisedNumber([&] { parameters.readEntry(list, 0); }), 91);
}

TEST(ResultsTest, AddsEachKindUnderItsKeyInOrder) {
    BuiltInCollection collection;
    Results results(collection);
    results.add(flag, true);
    results.add(text, TextView(u"KESTREL"));
    results.add(list, TextList{u"", u"AISLE"});
    results.addNumber(key::strKeyRecLocPos, 38);

    ASSERT_EQ(collection.entries().size(), 4U);
    EXPECT_EQ(collection.entries()[0].key(), u"blnKeyError");
    EXPECT_EQ(collection.entries()[0].Value(), ItemValue(true));
    EXPECT_EQ(collection.entries()[1].key(), u"strKeyName");
    EXPECT_EQ(collection.entries()[1].Value(), ItemValue(Text(u"KESTREL")));
    EXPECT_EQ(collection.entries()[2].key(), u"strKeyElement()");
    EXPECT_EQ(collection.entries()[2].Value(), ItemValue(TextList{u"", u"AISLE"}));
    EXPECT_EQ(collection.entries()[3].key(), u"strKeyRecLocPos");
    EXPECT_EQ(collection.entries()[3].Value(), ItemValue(std::int16_t{38}));
}

TEST(ResultsTest, MovesAText) {
    BuiltInCollection collection;
    Results(collection).add(text, Text(u"KESTREL"));
    EXPECT_EQ(collection.entries()[0].Value(), ItemValue(Text(u"KESTREL")));
}

// Collections that do not share values.
TEST(ResultsTest, ACollectionMayCopyASharedList) {
    class Copying final : public KeyedCollection {
    public:
        void Add(TextView key, ItemValue value) override { added.emplace_back(key, std::move(value)); }
        ItemPtr Item(TextView /*key*/) const override { return nullptr; }

        std::vector<std::pair<Text, ItemValue>> added;
    };
    Copying collection;
    const auto shared = std::make_shared<const ItemValue>(TextList{u"", u"AISLE"});
    Results(collection).addShared(list, shared);
    ASSERT_EQ(collection.added.size(), 1U);
    EXPECT_EQ(collection.added[0].first, u"strKeyElement()");
    EXPECT_EQ(collection.added[0].second, *shared);
}

// A list with a lower bound above 0, as a terminal may store one.
class RaisedList final : public KeyedCollection, public KeyedItem {
public:
    void Add(TextView /*key*/, ItemValue /*value*/) override {}
    ItemPtr Item(TextView /*key*/) const override { return ItemPtr(std::shared_ptr<void>(), this); }
    const ItemValue& Value() const override { return value_; }
    std::size_t firstIndex() const override { return 1; }

private:
    ItemValue value_ = TextList{u"", u"ONE"};
};

TEST_F(ParametersTest, AnEntryBelowTheListsLowerBoundRaises9) {
    collection = std::make_shared<RaisedList>();
    Parameters given = parameters();
    EXPECT_EQ(given.readEntry(list, 1).text, u"ONE");
    EXPECT_EQ(raisedNumber([&] { given.readEntry(list, 0); }), 9);
}

// A collection whose items exist only as long as someone has a pointer to them.
class FreshItems final : public KeyedCollection {
public:
    void Add(TextView /*key*/, ItemValue /*value*/) override {}
    ItemPtr Item(TextView /*key*/) const override {
        const auto made = std::make_shared<RaisedList>();
        last_ = made;
        return made;
    }
    bool isLastGone() const { return last_.expired(); }

private:
    mutable std::weak_ptr<RaisedList> last_;
};

TEST_F(ParametersTest, AnEntryKeepsAnItemThatTheTerminalCreatesForTheCall) {
    const auto fresh = std::make_shared<FreshItems>();
    collection = fresh;
    {
        const ListEntry entry = parameters().readEntry(list, 1);
        EXPECT_FALSE(fresh->isLastGone());
        EXPECT_EQ(entry.text, u"ONE");
    }
    EXPECT_TRUE(fresh->isLastGone());
}

}  // namespace
}  // namespace vantro
