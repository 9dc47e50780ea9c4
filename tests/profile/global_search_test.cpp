// The global search: the line after its header and at most ten unprefixed lines after that.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string globalSearch = "------- GLOBAL SEARCH";

const Elements nothing{0, {""}, {""}};

Lines numbered(int first, int last) {
    Lines lines;
    for (int number = first; number <= last; ++number) {
        const std::string digits = std::to_string(number);
        lines.push_back(from(5 - digits.size(), digits + "      NAME" + digits));
    }
    return lines;
}

TEST(GlobalSearch, TwelveLinesYieldElevenElements) {
    const Elements eleven{
        11,
        {"", "FIRST", "NAME2", "NAME3", "NAME4", "NAME5", "NAME6", "NAME7", "NAME8", "NAME9", "NAME10", "NAME11"},
        {"", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}};
    const Lines first{globalSearch, "  1 PGL/ FIRST"};
    EXPECT_EQ(collected("PGL", ended(first + numbered(2, 11))), eleven);
    EXPECT_EQ(collected("PGL", ended(first + numbered(2, 12))), eleven);
    EXPECT_EQ(collected("PGL", ended(first + numbered(2, 14))), eleven);
}

TEST(GlobalSearch, OnlyTheLineRightAfterTheHeaderIsTested) {
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 REM/ A", "  2 PGL/ B"})), nothing);
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 REM/ A", globalSearch, "  2 PGL/ B"})),
              (Elements{1, {"", "B"}, {"", "2"}}));
}

TEST(GlobalSearch, TheLineAfterTheHeaderIsNotTestedAgain) {
    // It no longer counts as the end or as a header.
    EXPECT_EQ(collected("PGL", ended({globalSearch, ">", globalSearch, "  2 PGL/ B"})),
              (Elements{1, {"", "B"}, {"", "2"}}));
    EXPECT_EQ(collected("PGL", ended({globalSearch, globalSearch, "  2 PGL/ B"})), nothing);
    EXPECT_EQ(collected("PGL", ended({globalSearch, globalSearch, globalSearch, "  2 PGL/ B"})),
              (Elements{1, {"", "B"}, {"", "2"}}));
}

TEST(GlobalSearch, ThePrefixIsSearchedFromColumn3) {
    EXPECT_EQ(collected("PGL", ended({globalSearch, "PGL/ A"})), nothing);
    EXPECT_EQ(collected("PGL", ended({globalSearch, "1 PGL/ A"})), (Elements{1, {"", "A"}, {"", "1"}}));
    EXPECT_EQ(collected("PGL", ended({globalSearch, " SEE PGL/ A"})), (Elements{1, {"", "/ A"}, {"", "SE"}}));
}

TEST(GlobalSearch, AnEndMarkInThePrefixedLineIsText) {
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 PGL/ A > B END OF DISPLAY", "  2      C"})),
              (Elements{2, {"", "A > B END OF DISPLAY", "C"}, {"", "1", "2"}}));
}

TEST(GlobalSearch, FollowersHaveFiveBlanksFromColumn3) {
    // Trimmed, "12     ABC" and "3      D" have blanks in columns 3 to 7; "4     E" only in columns 2 to 6.
    EXPECT_EQ(collected("PGL", ended({globalSearch, " 11 PGL/ A", " 12     ABC", "  3      D", "  4     E"})),
              (Elements{3, {"", "A", "ABC", "D"}, {"", "11", "12", "3"}}));
}

TEST(GlobalSearch, AShortOrBlankLineEndsTheFollowers) {
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 PGL/ A", "  2", "  3      C"})),
              (Elements{1, {"", "A"}, {"", "1"}}));
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 PGL/ A", "", "  3      C"})),
              (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(GlobalSearch, AnEndMarkInAFollowerIsText) {
    EXPECT_EQ(
        collected("PGL", ended({globalSearch, "  1 PGL/ A", "  2      > B", "  3      END OF DISPLAY", "  4      D"})),
        (Elements{4, {"", "A", "> B", "END OF DISPLAY", "D"}, {"", "1", "2", "3", "4"}}));
}

TEST(GlobalSearch, WrappedTextIsNotJoined) {
    EXPECT_EQ(collected("PGL", ended({globalSearch, "  1 PGL/ A", from(12, "WRAPPED"), "  2      B"})),
              (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(GlobalSearch, ItNeedsNoEndAfterItsElements) {
    EXPECT_EQ(collected("PGL", display({globalSearch, "  1 PGL/ A"})), (Elements{1, {"", "A"}, {"", "1"}}));
}

}  // namespace
}  // namespace vantro
