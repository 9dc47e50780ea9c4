// Documents and follow-up: one run of lines per family.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string header = "------- DOCUMENTS";

/// The passports of these lines, which begin at line 1.
Elements passports(const Lines& lines) { return collected("PAS", ended(Lines{"LINE 0"} + lines)); }

const Elements nothing{0, {""}, {""}};

TEST(Documents, AHeaderOnLine0IsIgnored) {
    EXPECT_EQ(collected("PAS", ended({header, "  1 PAS/ A"})), nothing);
    EXPECT_EQ(collected("PAS", ended({"LINE 0", header, "  1 PAS/ A"})), (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(Documents, ASectionWithoutThePrefixEndsAtItsEnd) {
    for (const std::string end : {"-----", "   ------- FOLLOW UP", ">", "TEXT > TEXT", "THE END OF DISPLAY LINE"}) {
        EXPECT_EQ(passports({header, "  1 PIV/ A", end, "  2 PAS/ NOT REACHED"}), nothing) << end;
    }
    EXPECT_EQ(passports({header, "  1 PIV/ A", "----", "X -----", "  2 PAS/ B"}), (Elements{1, {"", "B"}, {"", "2"}}));
}

TEST(Documents, TheLineWithThePrefixIsAnElementWhateverElseItContains) {
    EXPECT_EQ(passports({header, "----- PAS/ A > END OF DISPLAY"}),
              (Elements{1, {"", "A > END OF DISPLAY"}, {"", "--"}}));
}

TEST(Documents, IndentedLinesAfterTheFirstElementAreElements) {
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2      B", " 13      C", "  4     D"}),
              (Elements{4, {"", "A", "B", "C", "D"}, {"", "1", "2", "13", "4"}}));
}

TEST(Documents, FiveBlanksFromColumn2OrFromColumn3AreNeeded) {
    // Trimmed, "2    B" has four blanks in columns 2 to 5, "33    B" four in 3 to 6, "444     B" five from column 4.
    for (const std::string last : {"  2    B", " 33    B", "444     B", "", "2", "X"}) {
        EXPECT_EQ(passports({header, "  1 PAS/ A", last, "  3      C"}), (Elements{1, {"", "A"}, {"", "1"}})) << last;
    }
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2     B"}), (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
    EXPECT_EQ(passports({header, "  1 PAS/ A", " 33     B"}), (Elements{2, {"", "A", "B"}, {"", "1", "33"}}));
}

TEST(Documents, TheTextOfAnIndentedLineBeginsAfterItsFirstFiveBlanks) {
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2      TWO     GAPS"}),
              (Elements{2, {"", "A", "TWO     GAPS"}, {"", "1", "2"}}));
    EXPECT_EQ(passports({header, "  1 PAS/ A", "XY     B"}), (Elements{2, {"", "A", "B"}, {"", "1", "XY"}}));
}

TEST(Documents, AnIndentedLineWithThePrefixIsCutAtItsFirstSlash) {
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2      1/2 PAS/ B"}),
              (Elements{2, {"", "A", "2 PAS/ B"}, {"", "1", "2"}}));
}

TEST(Documents, TheTextOfThePrefixedLineIsCutAtTheFirstSlashOfTheLine) {
    EXPECT_EQ(passports({header, "  1/2 PAS/ A"}), (Elements{1, {"", "2 PAS/ A"}, {"", "1/"}}));
}

TEST(Documents, AnotherFamilysLineEndsTheRun) {
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2 PIV/ B", "  3 PAS/ NOT REACHED"}),
              (Elements{1, {"", "A"}, {"", "1"}}));
    // When indented it belongs to the run.
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2      PIV/ B"}), (Elements{2, {"", "A", "PIV/ B"}, {"", "1", "2"}}));
}

TEST(Documents, OnlyTheFirstRunIsCollected) {
    EXPECT_EQ(passports({header, "  1 PAS/ A", "  2 PAS/ B"}), (Elements{1, {"", "A"}, {"", "1"}}));
    EXPECT_EQ(passports({header, "  1 PAS/ A", "NOT INDENTED", "  2 PAS/ B", header, "  3 PAS/ C"}),
              (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(Documents, TheLinesOfTheRunAreNotTestedForAnEnd) {
    EXPECT_EQ(passports({header, "  1 PAS/ A > END OF DISPLAY", "  2      > END OF DISPLAY", "-      C"}),
              (Elements{3, {"", "A > END OF DISPLAY", "> END OF DISPLAY", "C"}, {"", "1", "2", "-"}}));
}

TEST(Documents, AnEndMarkAboveTheHeaderEndsTheSearch) {
    EXPECT_EQ(passports({"A > B", header, "  1 PAS/ NOT REACHED"}), nothing);
    EXPECT_EQ(passports({"END OF DISPLAY", header, "  1 PAS/ NOT REACHED"}), nothing);
}

TEST(Documents, AnEndMarkOnLine0IsIgnored) {
    EXPECT_EQ(collected("PAS", ended({"PDR > END OF DISPLAY", header, "  1 PAS/ A"})),
              (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(Documents, AfterAHeaderWithAnEndMarkOneMoreLineIsRead) {
    for (const std::string mark : {" >", " END OF DISPLAY"}) {
        EXPECT_EQ(passports({header + mark, "  1 PAS/ A", "  2      B"}),
                  (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
        EXPECT_EQ(passports({header + mark, "  1 PIV/ A", "  2 PAS/ NOT REACHED"}), nothing);
        EXPECT_EQ(collected("PAS", display({"LINE 0", header + mark})), nothing)
            << "the line after the display is empty";
    }
}

TEST(Documents, TheHeaderMayBeAnywhereInItsLine) {
    EXPECT_EQ(passports({"XX ------- DOCUMENTS YY", "  1 PAS/ A"}), (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(Documents, ThePrefixMayBeAnywhereInItsLine) {
    EXPECT_EQ(passports({header, "PAS/ A"}), (Elements{1, {"", "A"}, {"", "PA"}}));
    EXPECT_EQ(passports({header, "  1 SEE PAS/ A"}), (Elements{1, {"", "A"}, {"", "1"}}));
}

TEST(Documents, ARunAtTheDisplaysVeryEndNeedsNoEnd) {
    EXPECT_EQ(collected("PAS", display({"LINE 0", header, "  1 PAS/ A", "  2      B"})),
              (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
}

}  // namespace
}  // namespace vantro
