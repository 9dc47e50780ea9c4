// Which displays are read in one pass, and that their profiles equal the single queries like all others.
#include "readers/forward_pass.h"
#include "display/display.h"
#include "tests/profile/profile_comparison.h"
#include "tests/profile/random_displays.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vantro {
namespace {

bool isRegular(const Text& text) {
    BuiltInTerminal terminal;
    Display lines(terminal, text);
    Joiner joiner(lines);
    FoundElements found(lines.scratchMemory());
    std::vector<Note> notes;
    return passForward(joiner, found, notes).has_value();
}

struct Case {
    const char* name;
    Text display;
};

void PrintTo(const Case& sample, std::ostream* out) { *out << sample.name; }

std::string nameOf(const testing::TestParamInfo<Case>& test) { return test.param.name; }

const Lines head{"PDR/ABC123",
                 "*T* TRAVELLER PROFILE                     ABC123",
                 "----- CREATED 04FEB / 05FEB             NCEVN0900",
                 "   1 NM SMITH/JOHN MR",
                 "   2 PCN/ ACME",
                 from(15, "TRADING"),
                 "   3 PIN/ 1234",
                 "   4     PSL/ 2"};
const Lines endText{"END OF DISPLAY"};
const Lines prompt{">"};

Text below(const Lines& above, const Lines& lines) { return display(above + lines + endText); }
Text sections(const Lines& lines) { return below(head, lines); }

class RegularDisplay : public testing::TestWithParam<Case> {};

TEST_P(RegularDisplay, IsReadInOnePassAndEqualsTheSingleQueries) {
    EXPECT_TRUE(isRegular(GetParam().display)) << drawn(GetParam().display);
    Comparison(GetParam().display).run();
}

INSTANTIATE_TEST_SUITE_P(
    Prefixed, RegularDisplay,
    testing::Values(
        Case{"Wrapped", sections({"------- PRIORITY", "   1 PPR/ AISLE", from(10, "SEAT"), "   2 PPR/ WINDOW", "",
                                  from(12, "AT:NOON"), "   3      EXIT", "------- PRE-STORED ENTRIES",
                                  "  10 PPS/ RM ORDER", from(10, "AT:NOON"), "  11      4711"})},
        Case{"WrappedInAFewCharacters", sections({"------- TRAVEL POLICIES - CAR", "   1 PPC/ A", "1", "", "2",
                                                  from(10, "B"), "1 2", from(10, "345678"), "   3      C"})},
        Case{"WithoutAnElementAboveAnother", sections({"------- PRIORITY", "   1 NO TAG", "------- PRE-STORED ENTRIES",
                                                       "------- FOLLOW UP", "   2 PFO/ X"})},
        Case{"Policies",
             sections({"------- TRAVEL POLICIES - HOTEL", "   1 NO TAG", "PHI/ FROM COLUMN 1", "   1 PHI/ A",
                       "   2      B", "   3 PPH/ C", "   4     D", "  12      E", "   5 PHI/ SEE PPH/ F",
                       from(10, "WRAPPED, NEAR PORT/STATION"), from(10, "AT:NOON"), "   6      G"})},
        Case{"PoliciesWithSixBlankColumns", sections({"------- TRAVEL POLICIES - CAR", "   1 PPC/ A", "   2      FIVE",
                                                      "   3       SIX", "   4 PPC/ B", "  12      C", "   5       D",
                                                      from(10, "WRAPPED"), "   6      E", from(10, "WRAPPED")})},
        Case{"GlobalSearch", sections({"------- GLOBAL SEARCH", "   1 PGL/ A", "   2      B", "   3     C", "", "4"})},
        Case{"GlobalSearchWithElevenMore",
             sections({"------- GLOBAL SEARCH", "   1 PGL/ A", "   2      A", "   3      A", "   4      A",
                       "   5      A", "   6      A", "   7      A", "   8      A", "   9      A", "  10      A",
                       "  11      LAST", "  12      NOT READ"})},
        Case{"GlobalSearchWithoutATag", sections({"------- GLOBAL SEARCH", "   1      A", "   2 PGL/ B"})},
        Case{"GlobalSearchOfNoLine", sections({"------- GLOBAL SEARCH", "------- FOLLOW UP", "   1 PFO/ X"})}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Documents, RegularDisplay,
    testing::Values(Case{"Runs", sections({"------- DOCUMENTS", "   1 PAS/ A", "   2      B PIV/ C", "  10      PAS/ D",
                                           "   3 PAS/ NOT READ", "   4      NOT READ", "   5 PCE/ E", "",
                                           "   6      NOT READ", "------- FOLLOW UP", "   1 PFO/ X"})},
                    Case{"EndAtFiveHyphens", sections({"------- DOCUMENTS", "   1 PAS/ A", "  ----- PIV/ B",
                                                       "   2      C", "   3 PCE/ D"})}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Transferable, RegularDisplay,
                         testing::Values(Case{"Wrapped", sections({"------- PRIORITY",
                                                                   "   1 PPR/ A",
                                                                   "------- PNR TRANSFERABLE DATA",
                                                                   transferable('S', "  1", "RM  A"),
                                                                   from(18, "B"),
                                                                   from(18, "C"),
                                                                   from(18, "D"),
                                                                   transferable('A', " 12", "AP  LYS"),
                                                                   from(18, "B"),
                                                                   "",
                                                                   transferable('A', "   ", "OS  XQ"),
                                                                   transferable('S', "3", "FFN XQ 123    GOLD"),
                                                                   transferable('S', "  4", "SR  FQTVXQ 12-GOLD"),
                                                                   transferable('S', "  5", "RC  NOT READ"),
                                                                   transferable('S', "  6", "X SR *VGML RM B"),
                                                                   transferable('S', "  7", "X"),
                                                                   transferable('S', "  8", "X R"),
                                                                   from(18, "M ARISES"),
                                                                   transferable('S', "  9", "ST  WINDOW"),
                                                                   from(18, "B")})},
                                         Case{"FirstSection",
                                              sections({"------- PNR TRANSFERABLE DATA   RM X", from(18, "B RC C"),
                                                        transferable('S', "  5", "RC  SECRET"), "------ PNR",
                                                        transferable('S', "  5", "RM  OUT"), "------- DOCUMENTS",
                                                        "   1 PAS/ A"})}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Other, RegularDisplay,
    testing::Values(
        Case{"Notes", sections({"------- PROFILE NOTES", "A NOTE / ONE", "B", "", "------ SIX", "C THE DISPLAY"})},
        Case{"PromptBelowNotes", display(head + Lines{"------- PROFILE NOTES", "A NOTE"} + prompt)},
        Case{"PromptBelowNotesAboveABlankLine", display(head + Lines{"------- PROFILE NOTES", "A NOTE", ">", "", "X"})},
        Case{"PromptAboveOtherLines",
             display(head + Lines{"------- FOLLOW UP", "   1 PFO/ A", ">", "   2 PFO/ > B", "------- NOTES"})},
        Case{"EndTextAboveOtherLines",
             sections({"------- FOLLOW UP", "   1 PFO/ A", "END OF DISPLAY > ---", "   5 NM X/Y"})},
        Case{"UnknownSections", sections({"-------", "   9 PIN/ 3", "------- HISTORY", "   1 PPR/ A",
                                          "-------- FOLLOW UP", "   1 PFO/ A", "---------------", "   2 PFO/ B"})},
        Case{"BlankFirstLine", below({""}, {"------- PROFILE NOTES", "A NOTE"})},
        Case{"CompanyWithoutAName",
             below({"PDR", "*C* ACME", "----- NCEVN0900", ""}, {"------- FOLLOW UP", "   1 PFO/ A"})}),
    nameOf);

class IrregularDisplay : public testing::TestWithParam<Case> {};

TEST_P(IrregularDisplay, EqualsTheSingleQueriesToo) {
    EXPECT_FALSE(isRegular(GetParam().display)) << drawn(GetParam().display);
    Comparison(GetParam().display).run();
}

const Lines followUp{"------- FOLLOW UP", "   1 PFO/ A"};

INSTANTIATE_TEST_SUITE_P(
    End, IrregularDisplay,
    testing::Values(Case{"None", display(head + followUp)},
                    Case{"NoneInTheLastPiece", display(head + followUp + Lines{"   2      B"})},
                    Case{"PromptNotAlone", display(head + followUp + Lines{"> X"})},
                    Case{"PromptInColumn2", display(head + followUp + Lines{" >"})},
                    Case{"EndTextInColumn2", display(head + followUp + Lines{" END OF DISPLAY"})},
                    Case{"EndTextWithAHeader", sections(followUp + Lines{"END OF DISPLAY ------- PRIORITY"})},
                    Case{"EndTextWithASlash", sections({"------- DOCUMENTS", "END OF DISPLAY PAS/ A"})},
                    Case{"InLine0", display({">"})}, Case{"AboveTheFirstHeader", display(head + prompt + followUp)},
                    Case{"PromptBetweenNotes",
                         sections({"------- PROFILE NOTES", "A NOTE", ">", "------- PROFILE NOTES", "B NOTE"})}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Marks, IrregularDisplay,
    testing::Values(
        Case{"PromptInALine", sections({"------- PRIORITY", "   1 PPR/ A > B", "   2 PPR/ C"})},
        Case{"EndTextInALine", sections({"------- PRIORITY", "   1 PPR/ END OF DISPLAY", "   2 PPR/ C"})},
        Case{"EndTextArises",
             sections({"------- PRIORITY", "   1 PPR/ END OF DIS", from(10, "PLAY"), from(10, "PPR/ C")})},
        Case{"EndTextArisesInAWholeElement",
             sections({"------- PRIORITY", "   1 PPR/ END OF DIS", from(10, "PLAY"), "   2 PPR/ C"})},
        Case{"RuleInColumn2", sections({"------- PRIORITY", "   1 PPR/ A", " ------- FOLLOW UP", "   2 PFO/ B"})},
        Case{"RuleInAContinuationLine",
             sections({"------- PRIORITY", "   1 PPR/ A", from(10, "-------"), "   2 PPR/ B"})},
        Case{"RuleInLine0", display({"------- PRIORITY", "   1 PPR/ A", "------- FOLLOW UP", "   1 PFO/ A", ">"})},
        Case{"TwoHeaders", sections({"------- PRIORITY ------- FOLLOW UP", "   1 PPR/ A", "   2 PFO/ B"})},
        Case{"HeaderWithASlash", sections({"------- DOCUMENTS", "------- FOLLOW UP PAS/ A", "   1 PFO/ B"})},
        Case{"HeaderAgain", sections(followUp + followUp)},
        Case{"RuleBelowTheNotes", sections(Lines{"------- PROFILE NOTES", "A NOTE"} + followUp)}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Lines, IrregularDisplay,
    testing::Values(
        Case{"BlankAboveTheNotes", sections(followUp + Lines{"", "------- PROFILE NOTES", "A NOTE"})},
        Case{"RemarkConfInTheHead", below({"PDR", "             RC SECRET"}, followUp)},
        Case{"RemarkConfMayAriseInTheHead", below({"PDR", "             R", from(18, "C SECRET")}, followUp)},
        Case{"SixHyphensInTheHead",
             below({"PDR", "------ CREATED"}, {"------- PNR TRANSFERABLE DATA", transferable('S', "  5", "RC  X")})},
        Case{"PinBelowTheHead", below({"PDR"}, followUp + Lines{"   3 PIN/ 1234"})},
        Case{"PrefixInAContinuationLine",
             sections({"------- TRAVEL POLICIES - HOTEL", "   1 PHI/ A", from(10, "PPH/ B"), "   2      C"})},
        Case{"PrefixArises",
             sections({"------- TRAVEL POLICIES - HOTEL", "   1 PHI/ A", "   2 ABC PH", from(10, "I/ C")})},
        Case{"GlobalSearchAtTheEnd", sections({"------- GLOBAL SEARCH"})},
        Case{"PrioritiesWithoutAnElementAtTheEnd", sections({"------- PRIORITY", "   1 A"})}),
    nameOf);

// A generator that made irregular displays only would not test the pass.
TEST(ForwardPass, ReadsManyGeneratedDisplays) {
    RandomDisplays random(23);
    int regular = 0;
    for (int left = 500; left > 0; --left) regular += isRegular(random.sections()) ? 1 : 0;
    EXPECT_GT(regular, 50);
    EXPECT_LT(regular, 450);
}

}  // namespace
}  // namespace vantro
