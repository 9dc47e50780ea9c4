#include "framework/text_ops.h"

#include "tests/framework/raised.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

struct MidCase {
    const char* rule;
    TextView text;
    int column;
    int width;
    TextView expected;
};

class Mid : public testing::TestWithParam<MidCase> {};

INSTANTIATE_TEST_SUITE_P(TextOps, Mid,
                         testing::Values(MidCase{"FirstCharacterIsColumn1", u"KESTREL", 1, 1, u"K"},
                                         MidCase{"InnerPart", u"KESTREL", 3, 4, u"STRE"},
                                         MidCase{"LastCharacter", u"KESTREL", 7, 1, u"L"},
                                         MidCase{"WidthPastTheEndIsCut", u"KESTREL", 6, 20, u"EL"},
                                         MidCase{"ColumnJustBeyondTheEndIsEmpty", u"KESTREL", 8, 1, u""},
                                         MidCase{"ColumnFarBeyondTheEndIsEmpty", u"KESTREL", 9000, 1, u""},
                                         MidCase{"WidthZeroIsEmpty", u"KESTREL", 3, 0, u""},
                                         MidCase{"NegativeWidthIsEmpty", u"KESTREL", 3, -5, u""},
                                         MidCase{"EmptyTextIsEmpty", u"", 1, 3, u""},
                                         MidCase{"BlanksAreKept", u"A  B ", 2, 4, u"  B "}),
                         [](const auto& test) { return std::string(test.param.rule); });

TEST_P(Mid, CutsFromAColumn) {
    const MidCase& test = GetParam();
    EXPECT_EQ(mid(test.text, Column{test.column}, Width{test.width}), test.expected);
}

TEST(TextOps, MidWithoutWidthGoesToTheEnd) {
    EXPECT_EQ(mid(u"PPR/AISLE", Column{5}), u"AISLE");
    EXPECT_EQ(mid(u"PPR/AISLE", Column{1}), u"PPR/AISLE");
    EXPECT_EQ(mid(u"PPR/AISLE", Column{10}), u"");
}

TEST(TextOps, MidBelowColumn1Raises5) {
    EXPECT_EQ(raisedNumber([] { mid(u"TEXT", Column{0}); }), 5);
    EXPECT_EQ(raisedNumber([] { mid(u"TEXT", Column{-3}); }), 5);
    EXPECT_EQ(raisedNumber([] { mid(u"TEXT", Column{0}, Width{2}); }), 5);
    EXPECT_EQ(raisedNumber([] { mid(u"", Column{0}, Width{0}); }), 5) << "the column is tested before the width";
}

TEST(TextOps, ResultsAreViewsOfTheArgument) {
    const Text text = u"  KESTREL  ";
    EXPECT_EQ(mid(text, Column{4}, Width{2}).data(), text.data() + 3);
    EXPECT_EQ(trimmed(text).data(), text.data() + 2);
    EXPECT_EQ(right(text, Width{3}).data(), text.data() + 8);
}

TEST(TextOps, LeftAndRightReturnAtMostTheText) {
    EXPECT_EQ(left(u"KQ4R7T", Width{2}), u"KQ");
    EXPECT_EQ(left(u"KQ", Width{6}), u"KQ");
    EXPECT_EQ(left(u"KQ", Width{0}), u"");
    EXPECT_EQ(right(u"MS KQ4R7T", Width{6}), u"KQ4R7T");
    EXPECT_EQ(right(u"KQ", Width{6}), u"KQ");
    EXPECT_EQ(right(u"KQ", Width{2}), u"KQ");
    EXPECT_EQ(right(u"", Width{6}), u"");
}

TEST(TextOps, TrimmingRemovesBlanksAtBothEnds) {
    EXPECT_EQ(trimmed(u"  A B  "), u"A B");
    EXPECT_EQ(trimmed(u"AB"), u"AB");
    EXPECT_EQ(trimmed(u"    "), u"");
    EXPECT_EQ(trimmed(u""), u"");
    EXPECT_EQ(rightTrimmed(u"  A B  "), u"  A B");
    EXPECT_EQ(rightTrimmed(u"   "), u"");
}

TEST(TextOps, TextsWithoutPaddingAreRightTrimmed) {
    for (std::size_t margin = 0; margin < 40; ++margin) {
        for (std::size_t blanks = 0; blanks < 40; ++blanks) {
            for (const Text& end : {Text(u"A"), Text(u"\u0120"), Text(u"\u2020"), Text()}) {
                const Text kept = end.empty() ? Text() : Text(margin, u' ') + end;
                EXPECT_EQ(withoutPadding(kept + Text(blanks, u' ')), kept) << margin << " and " << blanks;
            }
        }
    }
}

TEST(TextOps, OnlyU0020IsABlank) {
    EXPECT_EQ(trimmed(u"\tA\t"), u"\tA\t");
    EXPECT_EQ(trimmed(u" \u00A0A\u00A0 "), u"\u00A0A\u00A0");
    EXPECT_EQ(trimmed(u"A\n "), u"A\n");
    EXPECT_FALSE(isBlank(u"  \t "));
    EXPECT_FALSE(isBlank(u"\u3000"));
}

TEST(TextOps, BlankTextIsEmptyOrOnlyBlanks) {
    EXPECT_TRUE(isBlank(u""));
    EXPECT_TRUE(isBlank(u"     "));
    EXPECT_FALSE(isBlank(u"    ."));
}

TEST(TextOps, OneOtherCharacterAnywhereMakesATextNotBlank) {
    for (std::size_t length = 1; length < 50; ++length) {
        Text text(length, u' ');
        EXPECT_TRUE(isBlank(text)) << length;
        for (std::size_t position = 0; position < length; ++position) {
            text[position] = u'.';
            EXPECT_FALSE(isBlank(text)) << position << " of " << length;
            text[position] = u' ';
        }
    }
}

TEST(TextOps, FindReturnsTheFirstColumn) {
    EXPECT_EQ(find(u"PX3 PX4", u"PX"), Column{1});
    EXPECT_EQ(find(u"PX3 PX4", u"PX4"), Column{5});
    EXPECT_EQ(find(u"PX3 PX4", u"PX5"), Column{0});
    EXPECT_EQ(find(u"PX3 PX4", u"px"), Column{0}) << "case counts";
    EXPECT_EQ(find(u"", u"PX"), Column{0});
}

TEST(TextOps, FindFindsTextsThatBeginOrEndOutsideAscii) {
    const Text line = Text(20, u'A') + u"\u00C4B" + Text(20, u'A') + u"B\u00C4" + Text(20, u'A');
    EXPECT_EQ(find(line, u"\u00C4B"), Column{21});
    EXPECT_EQ(find(line, u"B\u00C4"), Column{43});
    EXPECT_EQ(find(line, u"\u00C4C"), Column{0});
    EXPECT_EQ(find(line, u"C\u00C4"), Column{0});
    EXPECT_EQ(find(line, u"\u01C4B"), Column{0}) << "the same low byte";
}

TEST(TextOps, FindComparesBlanksAtBothEndsToo) {
    for (const TextView searched : {u"  A  ", u"  AB C ", u" A", u"A ", u"   "}) {
        for (std::size_t blanks = 0; blanks < 80; ++blanks) {
            const Text line = Text(80, u'X') + Text(searched) + Text(blanks, u'X');
            EXPECT_EQ(find(line.substr(blanks), searched), Column{static_cast<int>(81 - blanks)}) << blanks;
            EXPECT_EQ(find(line.substr(0, 79 + searched.size()), searched), Column{0}) << blanks;
        }
    }
    EXPECT_EQ(find(Text(60, u' '), u"     A     "), Column{0});
    EXPECT_EQ(find(Text(60, u' '), u"     "), Column{1});
}

TEST(TextOps, FindStartsAtTheGivenColumn) {
    EXPECT_EQ(find(u"PX3 PX4", u"PX", Column{1}), Column{1});
    EXPECT_EQ(find(u"PX3 PX4", u"PX", Column{2}), Column{5});
    EXPECT_EQ(find(u"PX3 PX4", u"PX", Column{5}), Column{5});
    EXPECT_EQ(find(u"PX3 PX4", u"PX", Column{6}), Column{0});
}

TEST(TextOps, FindAfterTheEndFindsNothing) {
    EXPECT_EQ(find(u"PX", u"X", Column{3}), Column{0});
    EXPECT_EQ(find(u"PX", u"X", Column{30000}), Column{0});
}

TEST(TextOps, FindBelowColumn1Raises5) {
    EXPECT_EQ(raisedNumber([] { find(u"PX", u"X", Column{0}); }), 5);
}

TEST(TextOps, ContainsSearchesTheWholeTextOrFromAColumn) {
    EXPECT_TRUE(contains(u" 12 PPR/AISLE", u"PPR/"));
    EXPECT_FALSE(contains(u" 12 PPR/AISLE", u"PPS/"));
    EXPECT_TRUE(containsFrom(u" 12 PPR/AISLE", u"PPR/", Column{5}));
    EXPECT_FALSE(containsFrom(u" 12 PPR/AISLE", u"PPR/", Column{6}));
}

TEST(TextOps, NumericMeansOneOrMoreDigitsOnly) {
    for (const TextView text : {u"0", u"9", u"007", u"123456789012345678901234567890"}) {
        EXPECT_TRUE(isNumeric(text)) << Text(text).size();
    }
    for (const TextView text : {u"", u" 1", u"1 ", u"-1", u"+1", u"1.", u"1A", u"\u0661", u"\u00B2"}) {
        EXPECT_FALSE(isNumeric(text)) << Text(text).size();
    }
}

TEST(TextOps, ACharacterIsOneCodeUnit) {
    const TextView pair = u"\U0001F6EBX";  // a surrogate pair, then X
    EXPECT_EQ(find(pair, u"X"), Column{3});
    EXPECT_EQ(mid(pair, Column{3}, Width{1}), u"X");
}

TEST(TextOps, ConcatJoinsItsParts) {
    EXPECT_EQ(concat({u"PDN", u"/", u"", u"KES"}), u"PDN/KES");
    EXPECT_EQ(concat({}), u"");
    EXPECT_EQ(concat({u"PX", onlyIf(true, u"3"), onlyIf(false, u"4")}), u"PX3");
}

TEST(TextOps, ColumnsAdvanceByCharacters) {
    EXPECT_EQ(Column{5} + 80, Column{85});
    EXPECT_LT(Column{5}, Column{6});
}

}  // namespace
}  // namespace vantro
