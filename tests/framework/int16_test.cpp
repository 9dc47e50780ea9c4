#include "framework/int16.h"

#include "tests/framework/raised.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

struct TextCase {
    const char* rule;
    TextView text;
    int expected;
};

class NumberInText : public testing::TestWithParam<TextCase> {};

INSTANTIATE_TEST_SUITE_P(Int16, NumberInText,
                         testing::Values(TextCase{"Digits", u"12", 12}, TextCase{"Minus", u"-12", -12},
                                         TextCase{"Plus", u"+12", 12}, TextCase{"LeadingZeros", u"000000000012", 12},
                                         TextCase{"BlanksAtBothEnds", u"  12 ", 12},
                                         TextCase{"BlanksAroundASign", u"  -12 ", -12},
                                         TextCase{"NegativeZero", u"-0", 0}, TextCase{"Highest", u"32767", 32767},
                                         TextCase{"Lowest", u"-32768", -32768}),
                         [](const auto& test) { return std::string(test.param.rule); });

TEST_P(NumberInText, Converts) { EXPECT_EQ(toInt16(GetParam().text), GetParam().expected); }

struct RaisingCase {
    const char* rule;
    TextView text;
    int number;
};

class NoNumberInText : public testing::TestWithParam<RaisingCase> {};

INSTANTIATE_TEST_SUITE_P(
    Int16, NoNumberInText,
    testing::Values(RaisingCase{"Empty", u"", 13}, RaisingCase{"OnlyBlanks", u"   ", 13},
                    RaisingCase{"OnlyASign", u"-", 13}, RaisingCase{"TwoSigns", u"--1", 13},
                    RaisingCase{"BlankAfterTheSign", u"- 1", 13}, RaisingCase{"BlankInside", u"1 2", 13},
                    RaisingCase{"Letters", u"A1", 13}, RaisingCase{"Point", u"1.0", 13},
                    RaisingCase{"TruthWord", u"True", 13}, RaisingCase{"Tab", u"\t1", 13},
                    RaisingCase{"JustTooHigh", u"32768", 6}, RaisingCase{"JustTooLow", u"-32769", 6},
                    RaisingCase{"BeyondAnyInteger", u"123456789012345678901234567890", 6},
                    RaisingCase{"NegativeBeyondAnyInteger", u"-123456789012345678901234567890", 6}),
    [](const auto& test) { return std::string(test.param.rule); });

TEST_P(NoNumberInText, Raises) {
    EXPECT_EQ(raisedNumber([] { toInt16(GetParam().text); }), GetParam().number);
}

TEST(Int16, AnIntegerIsUnchanged) {
    EXPECT_EQ(toInt16(ItemValue(std::int16_t{-32768})), -32768);
    EXPECT_EQ(toInt16(ItemValue(std::int16_t{32767})), 32767);
}

TEST(Int16, TrueIsMinusOneAndFalseIsZero) {
    EXPECT_EQ(toInt16(ItemValue(true)), -1);
    EXPECT_EQ(toInt16(ItemValue(false)), 0);
}

TEST(Int16, AStoredTextIsConverted) {
    EXPECT_EQ(toInt16(ItemValue(Text(u" 7 "))), 7);
    EXPECT_EQ(raisedNumber([] { toInt16(ItemValue(Text(u"40000"))); }), 6);
    EXPECT_EQ(raisedNumber([] { toInt16(ItemValue(Text())); }), 13);
}

TEST(Int16, AListRaises13) {
    EXPECT_EQ(raisedNumber([] { toInt16(ItemValue(TextList{u"1"})); }), 13);
    EXPECT_EQ(raisedNumber([] { toInt16(ItemValue(TextList{})); }), 13);
}

TEST(Int16, ANumberOutside16BitsRaises6) {
    EXPECT_EQ(toInt16(32767LL), 32767);
    EXPECT_EQ(toInt16(-32768LL), -32768);
    EXPECT_EQ(raisedNumber([] { toInt16(32768LL); }), 6);
    EXPECT_EQ(raisedNumber([] { toInt16(-32769LL); }), 6);
}

TEST(Counter, StartsAtZeroByDefault) {
    EXPECT_EQ(Counter().value(), 0);
    EXPECT_EQ(Counter(4).value(), 4);
}

TEST(Counter, StepsUpAndDown) {
    Counter counter(3);
    EXPECT_EQ((++counter).value(), 4);
    EXPECT_EQ((--counter).value(), 3);
    EXPECT_EQ((counter + 2).value(), 5);
    EXPECT_EQ((counter + -4).value(), -1);
    EXPECT_EQ(counter.value(), 3);
}

TEST(Counter, AStepPast32767Raises6AndChangesNothing) {
    Counter counter(32766);
    ++counter;
    EXPECT_EQ(raisedNumber([&] { ++counter; }), 6);
    EXPECT_EQ(counter.value(), 32767);
    EXPECT_EQ(raisedNumber([&] { static_cast<void>(counter + 1); }), 6);
}

TEST(Counter, AStepBelowMinus32768Raises6AndChangesNothing) {
    Counter counter(-32768);
    EXPECT_EQ(raisedNumber([&] { --counter; }), 6);
    EXPECT_EQ(counter.value(), -32768);
}

TEST(Counter, ComparesByValue) {
    EXPECT_EQ(Counter(2), Counter(2));
    EXPECT_LT(Counter(2), Counter(3));
}

}  // namespace
}  // namespace vantro
