#include "vantro/built_in_terminal.h"

#include "tests/framework/raised.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

/// A stored item with this value, as item operations receive it.
ItemPtr itemOf(ItemValue value) { return std::make_shared<BuiltInCollection::Entry>(u"key", std::move(value)); }

// The collection

TEST(BuiltInCollection, KeysKeepTheOrderOfTheirFirstAdd) {
    BuiltInCollection collection;
    collection.Add(u"b", Text(u"1"));
    collection.Add(u"a", Text(u"2"));
    collection.Add(u"c", Text(u"3"));
    collection.Add(u"b", std::int16_t{4});

    ASSERT_EQ(collection.entries().size(), 3U);
    EXPECT_EQ(collection.entries()[0].key(), u"b");
    EXPECT_EQ(collection.entries()[0].Value(), ItemValue(std::int16_t{4})) << "the value is the new one";
    EXPECT_EQ(collection.entries()[1].key(), u"a");
    EXPECT_EQ(collection.entries()[2].key(), u"c");
}

TEST(BuiltInCollection, AnAbsentKeyReturnsAnAbsentItem) {
    BuiltInCollection collection;
    collection.Add(u"strKeyName", Text(u"SMITH"));
    EXPECT_EQ(collection.Item(u"strKeyCompany"), nullptr);
    EXPECT_EQ(collection.Item(u"strkeyname"), nullptr) << "case counts";
    EXPECT_EQ(collection.Item(u""), nullptr);
}

TEST(BuiltInCollection, AnItemContainsTheStoredValue) {
    BuiltInCollection collection;
    collection.Add(u"strKeyElement()", TextList{u"", u"AISLE"});
    const ItemPtr item = collection.Item(u"strKeyElement()");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Value(), ItemValue(TextList{u"", u"AISLE"}));
}

TEST(BuiltInCollection, ASharedValueIsNotCopied) {
    BuiltInCollection collection;
    const auto value = std::make_shared<const ItemValue>(TextList{u"", u"AISLE"});
    collection.AddShared(u"strKeyElement()", value);
    EXPECT_EQ(&collection.Item(u"strKeyElement()")->Value(), value.get());
}

TEST(BuiltInCollection, SharedAndOwnValuesReplaceEachOther) {
    BuiltInCollection collection;
    const auto shared = std::make_shared<const ItemValue>(Text(u"SHARED"));
    const auto valueNow = [&] { return collection.Item(u"strKeyName")->Value(); };
    collection.Add(u"strKeyName", Text(u"OWN"));
    collection.AddShared(u"strKeyName", shared);
    EXPECT_EQ(valueNow(), *shared);
    collection.Add(u"strKeyName", Text(u"OWN AGAIN"));
    EXPECT_EQ(valueNow(), ItemValue(Text(u"OWN AGAIN")));
    EXPECT_EQ(shared.use_count(), 1);
    EXPECT_EQ(collection.entries().size(), 1U);
}

TEST(BuiltInCollection, SharedValuesAreFoundAmongManyKeys) {
    BuiltInCollection collection;
    constexpr char16_t count = 100;
    for (char16_t key = 1; key <= count; ++key) {
        collection.AddShared(Text(1, key), std::make_shared<const ItemValue>(static_cast<std::int16_t>(key)));
    }
    for (char16_t key = 1; key <= count; ++key) {
        EXPECT_EQ(collection.Item(Text(1, key))->Value(), ItemValue(static_cast<std::int16_t>(key)));
    }
}

// Items as text

class BuiltInFunctions : public testing::Test {
protected:
    TextView textOf(ItemValue value) { return functions.ItemText(itemOf(std::move(value)), store); }
    bool booleanOf(TextView text) { return functions.ItemBoolean(itemOf(Text(text))); }

    BuiltInTerminal terminal;
    TerminalFunctions& functions = terminal.functions();
    TextStore store;
};

TEST_F(BuiltInFunctions, ItemTextOfAnAbsentItemIsEmpty) { EXPECT_EQ(functions.ItemText(nullptr, store), u""); }

TEST_F(BuiltInFunctions, ItemTextReturnsATextUnchanged) {
    BuiltInCollection collection;
    collection.Add(u"strKeyName", Text(u" smith/ANNA "));
    const ItemPtr item = collection.Item(u"strKeyName");
    EXPECT_EQ(functions.ItemText(item, store), u" smith/ANNA ");
    EXPECT_EQ(functions.ItemText(item, store).data(), std::get<Text>(item->Value()).data()) << "a view, not a copy";
}

TEST_F(BuiltInFunctions, ItemTextConvertsOtherKinds) {
    EXPECT_EQ(textOf(true), u"True");
    EXPECT_EQ(textOf(false), u"False");
    EXPECT_EQ(textOf(std::int16_t{0}), u"0");
    EXPECT_EQ(textOf(std::int16_t{32767}), u"32767");
    EXPECT_EQ(textOf(std::int16_t{-32768}), u"-32768");
}

TEST_F(BuiltInFunctions, ItemTextOfAListRaises13) {
    EXPECT_EQ(raisedNumber([&] { textOf(TextList{u"A"}); }), 13);
    EXPECT_EQ(raisedNumber([&] { textOf(TextList{}); }), 13);
}

// Items as boolean

TEST_F(BuiltInFunctions, ItemBooleanOfAnAbsentItemIsFalse) { EXPECT_FALSE(functions.ItemBoolean(nullptr)); }

TEST_F(BuiltInFunctions, ItemBooleanAcceptsBooleansAndIntegers) {
    EXPECT_TRUE(functions.ItemBoolean(itemOf(true)));
    EXPECT_FALSE(functions.ItemBoolean(itemOf(false)));
    EXPECT_FALSE(functions.ItemBoolean(itemOf(std::int16_t{0})));
    EXPECT_TRUE(functions.ItemBoolean(itemOf(std::int16_t{-1})));
    EXPECT_TRUE(functions.ItemBoolean(itemOf(std::int16_t{2})));
}

TEST_F(BuiltInFunctions, ItemBooleanAcceptsTrueAndFalseInAnyCase) {
    for (const TextView text : {u"True", u"true", u"TRUE", u"tRuE"}) EXPECT_TRUE(booleanOf(text));
    for (const TextView text : {u"False", u"false", u"FALSE", u"fAlSe"}) EXPECT_FALSE(booleanOf(text));
}

TEST_F(BuiltInFunctions, ItemBooleanAcceptsWholeNumbersOfAnyLength) {
    for (const TextView text : {u"1", u"-1", u"+1", u"0001", u"10", u"100000000000000000000000000000"}) {
        EXPECT_TRUE(booleanOf(text));
    }
    for (const TextView text : {u"0", u"-0", u"+0", u"000000000000000000000000000000"}) EXPECT_FALSE(booleanOf(text));
}

TEST_F(BuiltInFunctions, ItemBooleanOfTheEmptyTextIsFalse) { EXPECT_FALSE(booleanOf(u"")); }

TEST_F(BuiltInFunctions, ItemBooleanOfAnyOtherTextRaises13) {
    for (const TextView text : {u" ", u" True", u"True ", u" 1", u"1 ", u"Yes", u"T", u"Tru", u"Truer", u"+", u"-",
                                u"--1", u"+ 1", u"1.0", u"0x1", u"-True"}) {
        EXPECT_EQ(raisedNumber([&] { booleanOf(text); }), 13) << Text(text).size();
    }
}

TEST_F(BuiltInFunctions, ItemBooleanOfAListRaises13) {
    EXPECT_EQ(raisedNumber([&] { functions.ItemBoolean(itemOf(TextList{u"True"})); }), 13);
    EXPECT_EQ(raisedNumber([&] { functions.ItemBoolean(itemOf(TextList{})); }), 13);
}

// Screens

TEST_F(BuiltInFunctions, ScreenLineIs80CharactersUntrimmed) {
    const Text screen = Text(80, u'a') + u"   SECOND" + Text(71, u' ') + u"end ";
    EXPECT_EQ(functions.ScreenLine(screen, 0, store), Text(80, u'a'));
    EXPECT_EQ(functions.ScreenLine(screen, 1, store), u"   SECOND" + Text(71, u' '));
    EXPECT_EQ(functions.ScreenLine(screen, 2, store), u"end ") << "the last line may be shorter";
    EXPECT_EQ(functions.ScreenLine(screen, 1, store).data(), screen.data() + 80) << "a view, not a copy";
}

TEST_F(BuiltInFunctions, ScreenLineAfterTheEndIsEmpty) {
    const Text screen(80, u'a');
    EXPECT_EQ(functions.ScreenLine(screen, 1, store), u"");
    EXPECT_EQ(functions.ScreenLine(screen, 32767, store), u"");
    EXPECT_EQ(functions.ScreenLine(u"", 0, store), u"");
}

TEST_F(BuiltInFunctions, ScreenLineBelowZeroRaises5) {
    EXPECT_EQ(raisedNumber([&] { functions.ScreenLine(u"SCREEN", -1, store); }), 5);
}

TEST_F(BuiltInFunctions, FindMarkerSearchesTheWholeScreenWhateverTheLine) {
    const Text screen = Text(800, u' ') + u"*T*";
    for (const auto line : std::initializer_list<std::int16_t>{0, 4, 6, 10, 32767, -1}) {
        EXPECT_TRUE(functions.FindMarker(screen, u"*T*", line)) << line;
        EXPECT_FALSE(functions.FindMarker(screen, u"*C*", line)) << line;
    }
}

TEST_F(BuiltInFunctions, FindMarkerCountsCaseAndTrailingBlanks) {
    EXPECT_FALSE(functions.FindMarker(u"*t*", u"*T*", 4));
    EXPECT_FALSE(functions.FindMarker(u"IGNORED    ", u"IGNORED     ", 4));
    EXPECT_TRUE(functions.FindMarker(u"IGNORED      ", u"IGNORED     ", 4));
}

struct FieldCase {
    const char* rule;
    TextView text;
    std::int16_t number;
    TextView separator;
    TextView expected;
};

class BuiltInTextField : public testing::TestWithParam<FieldCase> {};

INSTANTIATE_TEST_SUITE_P(Fields, BuiltInTextField,
                         testing::Values(FieldCase{"FirstIsBeforeTheSeparator", u"SSR VGML", 1, u" ", u"SSR"},
                                         FieldCase{"Second", u"SSR VGML", 2, u" ", u"VGML"},
                                         FieldCase{"ThereIsNoThird", u"SSR VGML", 3, u" ", u""},
                                         FieldCase{"WithoutSeparatorAllIsTheFirst", u"VGML", 1, u" ", u"VGML"},
                                         FieldCase{"WithoutSeparatorThereIsNoSecond", u"VGML", 2, u" ", u""},
                                         FieldCase{"NeighbouringSeparatorsEncloseAnEmptyField", u"A  B", 2, u" ", u""},
                                         FieldCase{"FieldAfterAnEmptyOne", u"A  B", 3, u" ", u"B"},
                                         FieldCase{"LeadingSeparatorMakesTheFirstEmpty", u" A", 1, u" ", u""},
                                         FieldCase{"LongSeparator", u"A--B-C--D", 2, u"--", u"B-C"},
                                         FieldCase{"EmptySeparatorSplitsNothing", u"A B", 1, u"", u"A B"},
                                         FieldCase{"EmptySeparatorHasNoSecond", u"A B", 2, u"", u""},
                                         FieldCase{"EmptyText", u"", 1, u" ", u""},
                                         FieldCase{"NumberZero", u"A B", 0, u" ", u""},
                                         FieldCase{"NegativeNumber", u"A B", -1, u" ", u""}),
                         [](const auto& test) { return std::string(test.param.rule); });

TEST_P(BuiltInTextField, ReturnsTheFieldOrEmpty) {
    BuiltInTerminal terminal;
    TextStore store;
    const FieldCase& test = GetParam();
    EXPECT_EQ(terminal.functions().TextField(test.text, test.number, test.separator, store), test.expected);
}

// Reported errors

TEST(BuiltInReporter, PassesTheCurrentErrorToTheSink) {
    std::vector<int> numbers;
    BuiltInTerminal terminal([&](const Error& error) { numbers.push_back(error.number()); });
    terminal.errorReporter().ReportError(Error(13, u"here", u"wrong kind"), nullptr);
    EXPECT_EQ(numbers, std::vector<int>{13});
}

TEST(BuiltInReporter, PassesAnExplicitErrorToTheSinkInstead) {
    std::vector<Error> errors;
    BuiltInTerminal terminal([&](const Error& error) { errors.push_back(error); });
    const Error given(5130, u"title", u"text");
    terminal.errorReporter().ReportError(Error(13, u"here", u"wrong kind"), &given);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].number(), 5130);
    EXPECT_EQ(errors[0].source(), u"title");
    EXPECT_EQ(errors[0].description(), u"text");
}

TEST(BuiltInReporter, DropsErrorsWithoutASink) {
    BuiltInTerminal terminal;
    EXPECT_NO_THROW(terminal.errorReporter().ReportError(Error(13, u"", u""), nullptr));
}

TEST(BuiltInTerminal, CreatesAnEmptyCollectionEachTime) {
    BuiltInTerminal terminal;
    const CollectionPtr first = terminal.createCollection();
    const CollectionPtr second = terminal.createCollection();
    ASSERT_NE(first, nullptr);
    first->Add(u"strKeyName", Text(u"SMITH"));
    EXPECT_EQ(second->Item(u"strKeyName"), nullptr);
}

}  // namespace
}  // namespace vantro
