// Prefixed families: the edge cases of the four ways of collecting them.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const Elements nothing{0, {""}, {""}};

const std::string priority = "------- PRIORITY";
const std::string globalSearch = "------- GLOBAL SEARCH";
const std::string preStored = "------- PRE-STORED ENTRIES";
const std::string hotel = "------- TRAVEL POLICIES - HOTEL";
const std::string car = "------- TRAVEL POLICIES - CAR";
const std::string air = "------- TRAVEL POLICIES - AIR";

// Empty and headerless displays

class FamiliesThatKeepTheirLists : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Prefixed, FamiliesThatKeepTheirLists, testing::Values("PPR", "PGL", "PPS", "PHI"),
                         [](const auto& test) { return test.param; });

TEST_P(FamiliesThatKeepTheirLists, AnEmptyDisplayLeavesThemUnchanged) {
    const std::string header = GetParam() == "PPR"   ? priority
                               : GetParam() == "PGL" ? globalSearch
                               : GetParam() == "PPS" ? preStored
                                                     : hotel;
    Parser parser;
    ASSERT_EQ(parser.count(GetParam() + "ElementsCount", ended({header, "  4 " + GetParam() + "/ KEPT"})), 1);
    EXPECT_EQ(parser.count(GetParam() + "ElementsCount", u""), 0);
    EXPECT_EQ(parser.list("str" + GetParam() + "Text"), (Texts{"", "KEPT"}));
    EXPECT_EQ(parser.list("str" + GetParam() + "Number"), (Texts{"", "4"}));
}

TEST(Prefixed, ADisplayWithoutTheHeaderCutsTheLists) {
    Parser parser;
    ASSERT_EQ(parser.count("PPRElementsCount", ended({priority, "  1 PPR/ GONE NEXT TIME"})), 1);
    EXPECT_EQ(parser.count("PPRElementsCount", ended({"  1 PPR/ NO HEADER ABOVE"})), 0);
    EXPECT_EQ(parser.list("strPPRText"), (Texts{""}));
    EXPECT_EQ(parser.list("strPPRNumber"), (Texts{""}));
}

TEST(Prefixed, TheRetiredHotelPropertyReadsNothing) {
    Parser parser;
    const Text text = ended({hotel, "  1 PPH/ NO SMOKING"});
    ASSERT_EQ(parser.count("PPHElementsCount", text), 1);
    EXPECT_EQ(parser.count("PPHElementsCountold", text), 0);
    EXPECT_EQ(parser.count("PPHElementsCountold", u""), 0);
    EXPECT_EQ(parser.count("PPHElementsCountold", display({"NO END"})), 0);
    EXPECT_EQ(parser.list("strPPHText"), (Texts{"", "NO SMOKING"}));
}

// The end of the search and the end of a section

TEST(Prefixed, APromptAnywhereAboveTheSectionEndsTheSearch) {
    for (const std::string above : {"NAME > SHOWN", ">", "TEXT>", "   ) >  "}) {
        EXPECT_EQ(collected("PPR", ended({above, priority, "  1 PPR/ NOT REACHED"})), nothing) << above;
        EXPECT_EQ(collected("PHI", ended({above, hotel, "  1 PHI/ NOT REACHED"})), nothing) << above;
        EXPECT_EQ(collected("PGL", ended({above, globalSearch, "  1 PGL/ NOT REACHED"})), nothing) << above;
    }
}

TEST(Prefixed, TheEndTextAnywhereAboveTheSectionEndsTheSearch) {
    EXPECT_EQ(collected("PPR", ended({"XEND OF DISPLAYX", priority, "  1 PPR/ NOT REACHED"})), nothing);
    EXPECT_EQ(collected("PPR", ended({"END OF  DISPLAY", "end of display", priority, "  1 PPR/ REACHED"})),
              (Elements{1, {"", "REACHED"}, {"", "1"}}));
}

TEST(Prefixed, AHeaderLineWithAPromptIsAnEndNotAHeader) {
    EXPECT_EQ(collected("PPR", ended({priority + " >", "  1 PPR/ NOT REACHED"})), nothing);
}

TEST(Prefixed, InsideTheSectionOnlyAPromptAsFirstCharacterEndsIt) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ A > B", "   > 2 PPR/ BEHIND THE PROMPT", "  3 PPR/ C"})),
              (Elements{1, {"", "A > B"}, {"", "1"}}));
    EXPECT_EQ(collected("PHI", ended({hotel, "  1 PPH/ A > B", "  2 PHI/ C>", ">", "  3 PHI/ D"})),
              (Elements{1, {"", "C>"}, {"", "2"}}));
}

TEST(Prefixed, SevenHyphensAnywhereEndASection) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ ONE", "  2 PPR/ TWO-------", "  3 PPR/ THREE"})),
              (Elements{1, {"", "ONE"}, {"", "1"}}));
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ ONE", "  2 PPR/ TWO------", "  3 PPR/ THREE"})),
              (Elements{3, {"", "ONE", "TWO------", "THREE"}, {"", "1", "2", "3"}}));
}

TEST(Prefixed, TheHeaderMayBeAnywhereInItsLine) {
    EXPECT_EQ(collected("PPR", ended({"XX ------- PRIORITY LINES", "  1 PPR/ ONE"})),
              (Elements{1, {"", "ONE"}, {"", "1"}}));
    EXPECT_EQ(collected("PPR", ended({"------ PRIORITY", "  1 PPR/ ONE"})), nothing);
}

TEST(Prefixed, TheHeaderMayBeOnLine0) {
    EXPECT_EQ(collected("PPS", ended({preStored, "  1 PPS/ ONE"})), (Elements{1, {"", "ONE"}, {"", "1"}}));
}

// The schemes that collect the whole section

TEST(WholeSection, ASectionWithoutAPrefixedLineDoesNotEndTheSearch) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PGS/ OTHER", car, priority, "  2 PPR/ FOUND", hotel})),
              (Elements{1, {"", "FOUND"}, {"", "2"}}));
    EXPECT_EQ(collected("PPS", ended({preStored, car, "  1 PPS/ IN NO SECTION", preStored, "  2 PPS/ FOUND"})),
              (Elements{1, {"", "FOUND"}, {"", "2"}}));
}

TEST(WholeSection, TheLineThatEndedTheSectionIsNotTestedAgain) {
    // The second header ends the first section and does not begin another one.
    EXPECT_EQ(collected("PPR", ended({priority, priority, "  1 PPR/ UNDER THE SECOND"})), nothing);
    EXPECT_EQ(collected("PPR", ended({priority, priority, priority, "  1 PPR/ UNDER THE THIRD"})),
              (Elements{1, {"", "UNDER THE THIRD"}, {"", "1"}}));
    // A prompt that ends a section without a prefixed line does not end the search.
    EXPECT_EQ(collected("PPR", ended({priority, ">", priority, "  1 PPR/ FOUND"})),
              (Elements{1, {"", "FOUND"}, {"", "1"}}));
}

TEST(WholeSection, EveryLineAfterTheFirstPrefixedOneIsAnElement) {
    EXPECT_EQ(collected("PPR", ended({priority, "  8 XYZ/ BEFORE", "  1 PPR/ ONE", "  2 PGS/ TWO", " THREE", "HI"})),
              (Elements{4, {"", "ONE", "TWO", "", ""}, {"", "1", "2", "TH", "HI"}}));
}

TEST(WholeSection, ThePrefixIsSearchedFromTheFirstPosition) {
    EXPECT_EQ(collected("PPR", ended({priority, "PPR/ ONE"})), (Elements{1, {"", "E"}, {"", "PP"}}));
    EXPECT_EQ(collected("PPS", ended({preStored, " SEE PPS/ ONE"})), (Elements{1, {"", "/ ONE"}, {"", "SE"}}));
}

// Continuation lines

TEST(Continuation, WrappedTextIsJoinedWithoutABlank) {
    const Elements joined{1, {"", "LONG TEXTGOES ONAND ON"}, {"", "1"}};
    const std::vector<std::pair<std::string, std::string>> sections{
        {"PPR", priority}, {"PPS", preStored}, {"PHI", hotel}, {"PXT", air}};
    for (const auto& [family, header] : sections) {
        const std::string first = "  1 " + family + "/ LONG TEXT";
        EXPECT_EQ(collected(family, ended({header, first, from(10, "GOES ON"), from(30, "AND ON")})), joined) << family;
    }
}

TEST(Continuation, ALineWithAColonAsThirdCharacterIsJoinedWithABlankExceptInThePrioritySection) {
    const auto lines = [](const std::string& header, const std::string& family) {
        return ended({header, "  1 " + family + "/ CALL", from(12, "09:30")});
    };
    EXPECT_EQ(collected("PPS", lines(preStored, "PPS")), (Elements{1, {"", "CALL 09:30"}, {"", "1"}}));
    EXPECT_EQ(collected("PHI", lines(hotel, "PHI")), (Elements{1, {"", "CALL 09:30"}, {"", "1"}}));
    EXPECT_EQ(collected("PPC", lines(car, "PPC")), (Elements{1, {"", "CALL 09:30"}, {"", "1"}}));
    EXPECT_EQ(collected("PPR", lines(priority, "PPR")), (Elements{1, {"", "CALL09:30"}, {"", "1"}}));
}

TEST(Continuation, OnlyAColonAsThirdCharacterOfTheTrimmedLineCounts) {
    EXPECT_EQ(collected("PPS", ended({preStored, "  1 PPS/ A", from(11, "T:1"), from(12, "123:"), from(20, "AB:")})),
              (Elements{1, {"", "AT:1123: AB:"}, {"", "1"}}));
}

TEST(Continuation, NineBlankColumnsMakeAContinuationLine) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ A", from(10, "B"), from(9, "C")})),
              (Elements{2, {"", "AB", ""}, {"", "1", "C"}}));
}

TEST(Continuation, ABlankLineIsAContinuationLine) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ A", "", from(10, "B")})),
              (Elements{1, {"", "AB"}, {"", "1"}}));
}

TEST(Continuation, APromptOrHyphensInAJoinedLineDoNotEndTheSection) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ A", from(10, "> B"), from(10, "------- C"), "  2 PPR/ D"})),
              (Elements{2, {"", "A> B------- C", "D"}, {"", "1", "2"}}));
}

TEST(Continuation, TheEndTextInAJoinedLineStopsJoining) {
    // The joined line is stored; the next line is a line of its own.
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ A", from(10, "END OF DISPLAY"), from(12, "BCDEFGHI"),
                                      "  2 PPR/ D"})),
              (Elements{3, {"", "AEND OF DISPLAY", "I", "D"}, {"", "1", "BC", "2"}}));
}

TEST(Continuation, TheEndTextMayFormAcrossTwoJoinedLines) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ AT THE END OF", from(10, "DISPLAY"), from(10, "BCDEFGHI")})),
              (Elements{1, {"", "AT THE END OFDISPLAYBCDEFGHI"}, {"", "1"}}));
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/ AT THE END OF DIS", from(10, "PLAY"), from(10, "BCDEFGHI")})),
              (Elements{2, {"", "AT THE END OF DISPLAY", "I"}, {"", "1", "BC"}}));
}

TEST(Continuation, AnElementThatBeginsWithBlankLinesEndsWithAnIndentedPrompt) {
    // The end text lets a blank line begin an element.
    const auto belowEndText = [](Lines lines) {
        lines.insert(lines.begin(), {priority, "  1 PPR/ A", from(10, "END OF DISPLAY"), "", ""});
        return collected("PPR", ended(lines));
    };
    EXPECT_EQ(belowEndText({from(10, ">PDRT/K2"), from(10, "MORE OF IT")}),
              (Elements{3, {"", "AEND OF DISPLAY", "2", "IT"}, {"", "1", ">P", "MO"}}));
    EXPECT_EQ(belowEndText({from(10, "X>PDRT/K2"), from(10, "MORE OF IT")}),
              (Elements{2, {"", "AEND OF DISPLAY", "K2MORE OF IT"}, {"", "1", "X>"}}));
}

TEST(Continuation, BeforeTheFirstElementItIsAnOrdinaryLine) {
    EXPECT_EQ(collected("PPR", ended({priority, from(10, "1 PPR/ A")})), (Elements{1, {"", "A"}, {"", "1"}}));
}

// Numbers and texts

TEST(Prefixed, NumberAndTextAreInFixedColumnsOfTheTrimmedLine) {
    EXPECT_EQ(
        collected("PPR", ended({priority, "1 PPR/ ONE", "      12 PPR/ TWELVE", "  3 PPR/TIGHT", " 123 PPR/ ABC"})),
        (Elements{4, {"", "ONE", "TWELVE", "IGHT", "/ ABC"}, {"", "1", "12", "3", "12"}}));
    EXPECT_EQ(collected("PXA", ended({air, "1 PXA/ ONE", "      12 PXA/ TWELVE"})),
              (Elements{2, {"", "ONE", "TWELVE"}, {"", "1", "12"}}));
}

TEST(Prefixed, AnElementMayBeShortOrEmpty) {
    EXPECT_EQ(collected("PPR", ended({priority, "  1 PPR/", "X"})), (Elements{2, {"", "", ""}, {"", "1", "X"}}));
}

TEST(Prefixed, ALineOf80CharactersIsTakenWhole) {
    const std::string filler(73, 'W');
    EXPECT_EQ(collected("PPR", ended({priority, "1 PPR/ " + filler, "  2 PPR/ NEXT"})),
              (Elements{2, {"", filler, "NEXT"}, {"", "1", "2"}}));
}

// The policy scheme

TEST(Policy, OtherFamiliesAreSkippedWithTheirContinuationLines) {
    const Text text = ended({hotel, "  1 PPH/ OTHER", from(10, "GOES ON"), "  2 PHI/ OWN", from(10, "GOES ON TOO"),
                             "  3 PSH/ OTHER", from(10, "5 PHI/ IN ITS TEXT"), "  4 PHI/ SECOND"});
    EXPECT_EQ(collected("PPH", text), (Elements{1, {"", "OTHERGOES ON"}, {"", "1"}}));
    // A line is tested together with its continuation: if that contains the family's prefix, the line is an element of
    // it.
    EXPECT_EQ(collected("PHI", text),
              (Elements{3, {"", "OWNGOES ON TOO", "OTHER5 PHI/ IN ITS TEXT", "SECOND"}, {"", "2", "3", "4"}}));
    EXPECT_EQ(collected("PSH", text), (Elements{1, {"", "OTHER5 PHI/ IN ITS TEXT"}, {"", "3"}}));
}

TEST(Policy, AnotherFamilysLineAfterAnElementIsSkippedWithItsContinuationLines) {
    EXPECT_EQ(
        collected("PPA", ended({air, "  1 PPA/ A", "  2 PXA/ B", from(10, "NOT A LINE OF ITS OWN"), "  3 PPA/ C"})),
        (Elements{2, {"", "A", "C"}, {"", "1", "3"}}));
}

TEST(Policy, ALineWithBlankTagColumnsIsCollectedWithoutThePrefix) {
    EXPECT_EQ(collected("PHI", ended({hotel, "  1 PHI/ A", "  2      B", "  3 PPH/ C", "  4      D"})),
              (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
}

TEST(Policy, PpcTestsSixTagColumnsItsSiblingsFive) {
    // Trimmed: number in column 1, blanks in 2 to 7, text from 8.
    EXPECT_EQ(collected("PCI", ended({car, "  1 PCI/ A", "  2      B"})),
              (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
    EXPECT_EQ(collected("PPC", ended({car, "  1 PPC/ A", "  2      B"})), (Elements{1, {"", "A"}, {"", "1"}}));
    EXPECT_EQ(collected("PPC", ended({car, "  1 PPC/ A", "  2       B"})),
              (Elements{2, {"", "A", "B"}, {"", "1", "2"}}));
    EXPECT_EQ(collected("PPC", ended({car, "  1 PPC/ A", " 12      B"})),
              (Elements{2, {"", "A", "B"}, {"", "1", "12"}}));
}

TEST(Policy, AShortLineHasBlankTagColumns) {
    EXPECT_EQ(collected("PPT", ended({air, "  1 PPT/ A", "  2", "XY", "XYZ", "  3 PPT/ B"})),
              (Elements{4, {"", "A", "", "", "B"}, {"", "1", "2", "XY", "3"}}));
}

TEST(Policy, ASectionWithoutALineOfTheFamilyEndsTheSearch) {
    EXPECT_EQ(collected("PHI", ended({hotel, "  1 PPH/ OTHER", car, hotel, "  2 PHI/ NOT REACHED"})), nothing);
}

TEST(Policy, OnlyPhiIsSearchedFromTheFirstColumn) {
    // The line is found, but counts as another family's, because its prefix is not found from column 3.
    EXPECT_EQ(collected("PHI", ended({hotel, "PHI/ A", "  1 PHI/ B"})), (Elements{1, {"", "B"}, {"", "1"}}));
    // The difference shows in the next line: one family joins it, for the other it is a line of its own.
    EXPECT_EQ(collected("PHI", ended({hotel, "PHI/ A", from(10, "1 PHI/ B")})),
              (Elements{1, {"", "PHI/ B"}, {"", "PH"}}));
    EXPECT_EQ(collected("PPH", ended({hotel, "PPH/ A", from(10, "1 PPH/ B")})), (Elements{1, {"", "B"}, {"", "1"}}));
}

TEST(Policy, TheFamilysPrefixAnywhereFromColumn3MakesALineItsElement) {
    EXPECT_EQ(collected("PSC", ended({car, "  1 PXC/ SEE PSC/ TOO"})), (Elements{1, {"", "SEE PSC/ TOO"}, {"", "1"}}));
}

TEST(Policy, TheThreeSectionsAreKeptApart) {
    const Text text =
        ended({hotel, "  1 PPC/ IN THE HOTEL SECTION", car, "  2 PPH/ IN THE CAR SECTION", "  3 PPC/ CAR"});
    EXPECT_EQ(collected("PPC", text), (Elements{1, {"", "CAR"}, {"", "3"}}));
    EXPECT_EQ(collected("PPH", text), nothing);
    EXPECT_EQ(collected("PPT", text), nothing);
}

}  // namespace
}  // namespace vantro
