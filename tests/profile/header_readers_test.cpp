// The single values of a display: name, record locator, office, company name, PIN and PSL line.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

Answer asked(const std::string& prefix, const Text& text) { return Parser().query(text, prefix); }

Answer element(const std::string& text) { return {.added = {{"strKeyElement", "'" + text + "'"}}}; }

Answer elementAndNumber(const std::string& text, const std::string& number) {
    return {.added = {{"strKeyElement", "'" + text + "'"}, {"strKeyElementNr", "'" + number + "'"}}};
}

const Answer overflow{.raised = {6, "VantroProfileUtils", raisedBy([] { fail(Failure::Overflow); }).description}};

Lines blankLines(std::size_t count) { return Lines(count, ""); }

// Name

Answer name(const Lines& lines) { return asked("NM", display(lines)); }

TEST(Name, FollowsItsTag) {
    EXPECT_EQ(name({"", " 1 NM SMITH/JOHN MR"}), element("SMITH/JOHN MR"));
    EXPECT_EQ(name({"", "XY NM SMITH/JOHN MR"}), element("SMITH/JOHN MR"));
    EXPECT_EQ(name({"", " NM   SMITH/JOHN MR   "}), element("SMITH/JOHN MR"));
}

TEST(Name, IsSearchedInLines1To20) {
    EXPECT_EQ(name({"  1 NM ON/LINE 0", ""}), element(""));
    EXPECT_EQ(name(blankLines(20) + Lines{"  1 NM ON/LINE 20"}), element("ON/LINE 20"));
    EXPECT_EQ(name(blankLines(21) + Lines{"  1 NM ON/LINE 21"}), element(""));
}

TEST(Name, TheFirstTagCounts) {
    EXPECT_EQ(name({"", "  1 NM FIRST/A", "  2 NM SECOND/B"}), element("FIRST/A"));
    EXPECT_EQ(name({"", "  1 NM FIRST/A NM B"}), element("FIRST/A NM B"));
}

TEST(Name, TheTagNeedsItsBlanks) {
    EXPECT_EQ(name({"", "NM SMITH/A", "  1NM SMITH/B", "  1 NM/SMITH", "  2 NMSMITH/C"}), element(""));
    // The last line of a display may end with the tag's letters.
    EXPECT_EQ(name({"", "  1 NM"}), element(""));
}

TEST(Name, EndMarksDoNotEndTheSearch) {
    EXPECT_EQ(name({"", ">", "END OF DISPLAY", "  1 NM SMITH/A"}), element("SMITH/A"));
}

TEST(Name, WithoutATagIsTheCompanysNameFromColumn4) {
    const std::string company = "*C*ABCDEFGHIJKLMNOPQRSTUVWXYZ123456789BEYOND";
    EXPECT_EQ(name({"", "", "", company}), element("ABCDEFGHIJKLMNOPQRSTUVWXYZ123456789"));
    EXPECT_EQ(name({"", "*C*  ACME  "}), element("ACME"));
    // The mark may be anywhere in the line; the columns are counted from the line's beginning.
    EXPECT_EQ(name({"", "AB ACME *C*"}), element("ACME *C*"));
}

TEST(Name, TheCompanyMarkIsSearchedInLines1To10) {
    EXPECT_EQ(name({"*C*ON LINE 0", ""}), element(""));
    EXPECT_EQ(name(blankLines(10) + Lines{"*C*ON LINE 10"}), element("ON LINE 10"));
    EXPECT_EQ(name(blankLines(11) + Lines{"*C*ON LINE 11"}), element(""));
}

TEST(Name, AnEmptyNameEndsTheNameSearchAndTheCompanysNameIsUsed) {
    EXPECT_EQ(name({"", "  1 NM ", "  2 NM SECOND/B", "*C*ACME"}), element("ACME"));
    EXPECT_EQ(name({"", "  1 NM ", "  2 NM SECOND/B"}), element(""));
    EXPECT_EQ(name({"", "*C*ACME", "  2 NM SECOND/B"}), element("SECOND/B"));
}

TEST(Name, OfAnEmptyDisplayIsEmptyAndStillAdded) { EXPECT_EQ(asked("NM", u""), element("")); }

// Record locator

Answer locator(const Lines& lines) { return asked("RECLOC", display(lines)); }

TEST(RecordLocator, IsTheEndOfLine1) {
    EXPECT_EQ(locator({"ABC123", "*T* SMITH/JOHN MR      XYZ789   ", "LMN456"}), element("XYZ789"));
    EXPECT_EQ(locator({"", "XY9"}), element("XY9"));
    EXPECT_EQ(locator({"", "AB C 12"}), element("B C 12"));
    EXPECT_EQ(locator({"", "AB   12"}), element("B   12"));
    EXPECT_EQ(locator({"", "ABC     12"}), element("12"));
}

TEST(RecordLocator, IsTheEndOfLine2AfterAHostLine) {
    EXPECT_EQ(locator({"", "MSG PF24 REQST UMSG XYZ789", "*T*  LMN456"}), element("LMN456"));
    EXPECT_EQ(locator({"", "X 4505 XYZ789", "*T*  LMN456"}), element("LMN456"));
    EXPECT_EQ(locator({"", "", "*T*  LMN456  "}), element("LMN456"));
}

TEST(RecordLocator, AHostWordThatIsNotTheWholeMarkDoesNotCount) {
    EXPECT_EQ(locator({"", "X PF24 XYZ789", "*T*  LMN456"}), element("XYZ789"));
    EXPECT_EQ(locator({"", "X 450 5 XYZ789", "*T*  LMN456"}), element("XYZ789"));
}

TEST(RecordLocator, IsEmptyForADisplayWithoutThatLine) {
    EXPECT_EQ(asked("RECLOC", u""), element(""));
    EXPECT_EQ(locator({"XYZ789"}), element(""));
    EXPECT_EQ(locator({"XYZ789", "4505"}), element(""));
}

// Office identifier

Answer office(const Lines& lines) { return asked("OFFID", display(lines)); }

TEST(Office, IsTheEndOfTheRuleUnderTheMarkLine) {
    EXPECT_EQ(office({"", "*T* SMITH", "----- ACTIVE  NCEVN0900"}), element("NCEVN0900"));
    EXPECT_EQ(office({"", "  *C* ACME", "   ------------NCEVN0900   "}), element("NCEVN0900"));
    EXPECT_EQ(office({"", "*T*", "-----NCEVN0900"}), element("NCEVN0900"));
}

TEST(Office, TheMarkIsTheLinesFirstWord) {
    EXPECT_EQ(office({"", "*T*SMITH", "----- NCEVN0900"}), element(""));
    EXPECT_EQ(office({"", "SMITH *T*", "----- NCEVN0900"}), element(""));
    EXPECT_EQ(office({"", "*t* SMITH", "----- NCEVN0900"}), element(""));
}

TEST(Office, TheMarkIsSearchedInLines1To6) {
    const Lines marked{"*T* SMITH", "----- NCEVN0900"};
    EXPECT_EQ(office(marked), element(""));
    EXPECT_EQ(office(blankLines(6) + marked), element("NCEVN0900"));
    EXPECT_EQ(office(blankLines(7) + marked), element(""));
}

TEST(Office, WithoutARuleUnderTheMarkTheSearchGoesOn) {
    EXPECT_EQ(office({"", "*T* A", "NO RULE NCEVN0900", "*C* B", "----- LYSVN1111"}), element("LYSVN1111"));
    EXPECT_EQ(office({"", "*T* A", "---- NCEVN0900", "*T* B", "----- LYSVN1111"}), element("LYSVN1111"));
    EXPECT_EQ(office({"", "*T* A", "*T* B", "----- LYSVN1111"}), element("LYSVN1111"));
}

TEST(Office, AnIdentifierOfAnotherLengthIsDroppedAndEndsTheSearch) {
    EXPECT_EQ(office({"", "*T* A", "-----  NCEVN090", "*T* B", "----- LYSVN1111"}), element(""));
    EXPECT_EQ(office({"", "*T* A", "-----"}), element(""));
    EXPECT_EQ(office({"", "*T* A", "----- OFFICE CEVN0900"}), element(""));
    // Nine characters are enough: they need not be one word or be separated from the rule.
    EXPECT_EQ(office({"", "*T* A", "-----NCEV 0900"}), element("NCEV 0900"));
    EXPECT_EQ(office({"", "*T* A", "---------"}), element("---------"));
}

TEST(Office, OfAnEmptyDisplayIsEmpty) { EXPECT_EQ(asked("OFFID", u""), element("")); }

// Company name

Answer company(const Lines& lines) { return asked("PCN", display(lines + Lines{"END OF DISPLAY"})); }

TEST(CompanyName, WithoutANumberOnlyTheElementIsReturned) {
    EXPECT_EQ(company({"", "     PCN/ ACME"}), element("ACME"));
    EXPECT_EQ(company({"", "  PCN/ ACME"}), element("ACME"));
    // The first two columns are cut off, so a tag that begins there is not found.
    EXPECT_EQ(company({"", " PCN/ ACME"}), elementAndNumber("", ""));
}

TEST(CompanyName, WithANumberBothAreReturned) {
    EXPECT_EQ(company({"", "   1 PCN/ ACME"}), elementAndNumber("ACME", "1"));
    EXPECT_EQ(company({"", "  1 PCN/ ACME  TRADING  "}), elementAndNumber("ACME  TRADING", "1"));
}

TEST(CompanyName, ANumberOfTwoDigitsIsReturnedWhole) {
    EXPECT_EQ(company({"", "  12 PCN/ ACME"}), elementAndNumber("ACME", "12"));
}

TEST(CompanyName, WithoutTheLineBothAreEmpty) {
    EXPECT_EQ(company({"", "NO NAME"}), elementAndNumber("", ""));
    EXPECT_EQ(company({"  1 PCN/ ON LINE 0", ""}), elementAndNumber("", ""));
    EXPECT_EQ(company({"", "  1 PCN/ACME", "  2 PCN/"}), elementAndNumber("", ""));
}

TEST(CompanyName, AnEndMarkAboveTheLineEndsTheSearch) {
    for (const std::string end : {"A > B", ")>", "THE END OF DISPLAY"}) {
        EXPECT_EQ(company({"", end, "  1 PCN/ ACME"}), elementAndNumber("", "")) << end;
    }
    EXPECT_EQ(company({"", "  1 PCN/ ACME > B"}), elementAndNumber("", ""));
    EXPECT_EQ(company({"PDR > X", "  1 PCN/ ACME"}), elementAndNumber("ACME", "1"));
}

TEST(CompanyName, IsCutAtTheLinesFirstSlash) {
    EXPECT_EQ(company({"", "  A/B PCN/ ACME"}), element("B PCN/ ACME"));
    EXPECT_EQ(company({"", "  ABCD/PCN/ ACME"}), elementAndNumber("PCN/ ACME", "AB"));
    EXPECT_EQ(company({"", "  ABC/PCN/ ACME"}), element("PCN/ ACME"));
}

TEST(CompanyName, ContinuationLinesAreJoinedWithABlank) {
    EXPECT_EQ(company({"", "  1 PCN/ ACME", from(15, "TRADING"), from(20, "AND SONS"), "  2 NM A"}),
              elementAndNumber("ACME TRADING AND SONS", "1"));
}

TEST(CompanyName, ContinuationLinesHave14BlankColumns) {
    EXPECT_EQ(company({"", "  1 PCN/ ACME", from(14, "TRADING"), from(15, "AND SONS")}), elementAndNumber("ACME", "1"));
}

TEST(CompanyName, ABlankLineIsAContinuationLine) {
    EXPECT_EQ(company({"", "  1 PCN/ ACME", "", from(15, "TRADING")}), elementAndNumber("ACME  TRADING", "1"));
}

TEST(CompanyName, AnEndMarkInAContinuationLineIsText) {
    EXPECT_EQ(company({"", "  1 PCN/ ACME", from(15, "> END OF DISPLAY")}),
              elementAndNumber("ACME > END OF DISPLAY", "1"));
}

TEST(CompanyName, ALineOf64CharactersIsJoinedWithoutABlank) {
    const std::string full = "  1 PCN/ " + std::string(55, 'W');
    ASSERT_EQ(full.size(), 64U);
    const std::string name(55, 'W');
    EXPECT_EQ(company({"", full, from(15, "ORKS"), from(15, "LTD")}), elementAndNumber(name + "ORKSLTD", "1"));
    EXPECT_EQ(company({"", full + "W", from(15, "ORKS")}), elementAndNumber(name + "W ORKS", "1"));
    EXPECT_EQ(company({"", full.substr(0, 63), from(15, "ORKS")}), elementAndNumber(name.substr(1) + " ORKS", "1"));
}

TEST(CompanyName, OnlyTheFirstLineDecidesHowLinesAreJoined) {
    const std::string full = from(15, std::string(50, 'W'));
    ASSERT_EQ(full.size(), 64U);
    EXPECT_EQ(company({"", "  1 PCN/ ACME", full, from(15, "ORKS")}),
              elementAndNumber("ACME " + std::string(50, 'W') + " ORKS", "1"));
}

TEST(CompanyName, ContinuationLinesAreCutAtTheSlashColumnOfTheCutLine) {
    // After the first two columns are cut off, the slash is the 20th character, so the continuation begins in column
    // 21.
    const std::string first = "  " + std::string(16, 'N') + "PCN/ ACME";
    EXPECT_EQ(company({"", first, from(15, "LOST  KEPT")}), elementAndNumber("ACME KEPT", "NN"));
}

TEST(CompanyName, ADisplayWithoutAnEndOverflows) {
    EXPECT_EQ(asked("PCN", u""), overflow);
    EXPECT_EQ(asked("PCN", display({"", "NO NAME"})), overflow);
    EXPECT_EQ(asked("PCN", display({"", "  1 PCN/ ACME"})), overflow);
}

// PIN line

Answer pin(const Lines& lines) { return asked("PIN", display(lines + Lines{"END OF DISPLAY"})); }

TEST(PinLine, ReturnsElementAndNumber) {
    EXPECT_EQ(pin({"", "   4 PIN/ 9017"}), elementAndNumber("9017", "4"));
    EXPECT_EQ(pin({"", "  14 PIN/9017"}), elementAndNumber("9017", "14"));
}

TEST(PinLine, MayBeOnLine0) { EXPECT_EQ(pin({"  4 PIN/ 9017"}), elementAndNumber("9017", "4")); }

TEST(PinLine, WithoutANumberHasAnEmptyOne) {
    EXPECT_EQ(pin({"    PIN/ 9017"}), elementAndNumber("9017", ""));
    EXPECT_EQ(pin({"  XPIN/ 9017"}), elementAndNumber("9017", "XP"));
    EXPECT_EQ(pin({"  A/B PIN/ 9017"}), elementAndNumber("B PIN/ 9017", ""));
}

TEST(PinLine, TheFirstTwoColumnsAreCutOff) { EXPECT_EQ(pin({" PIN/ 9017"}), elementAndNumber("", "")); }

TEST(PinLine, AnEndMarkEndsTheSearch) {
    for (const std::string end : {"A > B", ")>", "THE END OF DISPLAY", "  4 PIN/ > 9017"}) {
        EXPECT_EQ(pin({end, "  4 PIN/ 9017"}), elementAndNumber("", "")) << end;
    }
}

TEST(PinLine, ContinuationLinesAreNotJoined) {
    EXPECT_EQ(pin({"  4 PIN/ 9017", from(15, "AND MORE")}), elementAndNumber("9017", "4"));
}

TEST(PinLine, ADisplayWithoutAnEndOverflows) {
    EXPECT_EQ(asked("PIN", u""), overflow);
    EXPECT_EQ(asked("PIN", display({"NO PIN"})), overflow);
    EXPECT_EQ(asked("PIN", display({"  4 PIN/ 9017"})), elementAndNumber("9017", "4"));
}

// PSL line

Answer psl(const Lines& lines) { return asked("PSL", display(lines + Lines{"END OF DISPLAY"})); }

TEST(PslLine, ReturnsElementAndFirstNineCharacters) {
    EXPECT_EQ(psl({"", "  7 PSL/ B"}), elementAndNumber("B", "7 PSL/"));
    EXPECT_EQ(psl({"", "     7   PSL/ B"}), elementAndNumber("B", "7"));
    EXPECT_EQ(psl({"PSL/GOLD"}), elementAndNumber("GOLD", "PSL/GOLD"));
}

TEST(PslLine, IsCutAtItsFirstSlashAndKeepsItsFirstColumns) {
    EXPECT_EQ(psl({"  A/B PSL/ C"}), elementAndNumber("B PSL/ C", "A/B PSL"));
}

TEST(PslLine, WithoutTheLineNothingIsAdded) {
    EXPECT_EQ(psl({"  7 PSL B", "SLASH/"}), Answer{});
    EXPECT_EQ(asked("PSL", u""), Answer{});
}

TEST(PslLine, AnEndMarkEndsTheSearch) {
    for (const std::string end : {"A > B", ")>", "THE END OF DISPLAY", "  7 PSL/ > B"}) {
        EXPECT_EQ(psl({end, "  7 PSL/ B"}), Answer{}) << end;
    }
}

TEST(PslLine, ADisplayWithoutAnEndOverflows) { EXPECT_EQ(asked("PSL", display({"NO LEVEL"})), overflow); }

}  // namespace
}  // namespace vantro
