// The numbers of the transferable elements that a selection names.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string header = "------- PNR TRANSFERABLE DATA";

Answer scanned(const Text& text, TextList* selection, TextView qualifier = {}) {
    Request request = wanting("ALL");
    request.selection = selection;
    request.qualifier = qualifier;
    return Parser().query(text, request);
}

std::string numbers(const Text& text, TextList selection, TextView qualifier = {}) {
    const Answer answer = scanned(text, &selection, qualifier);
    if (answer.raised.number != 0 || answer.returnedCollection || answer.added.size() != 1) return "no single list";
    return answer.added.front().first == "strKeyElNbrsArray" ? answer.added.front().second : "another key";
}

const Text shown = ended({
    header,
    transferable('S', "1", "RM  FIRST"),
    transferable('A', "12", "RM  second"),
    transferable('S', "103", "OS  THIRD"),
    transferable('A', "4", "AP  FOURTH"),
});

// The selection

TEST(Selection, WithoutOneNothingIsReturned) {
    EXPECT_EQ(scanned(shown, nullptr), (Answer{.added = {{"strKeyElNbrsArray", "['']"}}}));
    EXPECT_EQ(numbers(shown, {}), "['']");
}

TEST(Selection, MatchesTheBeginningsOfTexts) {
    EXPECT_EQ(numbers(shown, {u"RM"}), "['', '1', '12']");
    EXPECT_EQ(numbers(shown, {u"RM  F"}), "['', '1']");
    EXPECT_EQ(numbers(shown, {u"M"}), "['']");
    EXPECT_EQ(numbers(shown, {u"RM F"}), "['']");
    EXPECT_EQ(numbers(shown, {u"RM  FIRST AND MORE"}), "['']");
}

TEST(Selection, KeepsTheOrderOfTheDisplayAndReturnsEachElementOnce) {
    EXPECT_EQ(numbers(shown, {u"OS", u"RM", u"RM  F", u"OS"}), "['', '1', '12', '103']");
}

TEST(Selection, AnEmptyEntryMatchesEverything) { EXPECT_EQ(numbers(shown, {u""}), "['', '1', '12', '103', '4']"); }

TEST(Selection, IsComparedInUpperCaseOnBothSides) {
    EXPECT_EQ(numbers(shown, {u"rm  first"}), "['', '1']");
    EXPECT_EQ(numbers(shown, {u"RM  SECOND"}), "['', '12']");
}

TEST(Selection, IsChangedInPlace) {
    TextList selection{u"rm  First", u"s  os", u"A  ap  x ", u"s ", u"S  ", u"  os", u"\u00E4 z"};
    scanned(shown, &selection);
    EXPECT_EQ(selection, (TextList{u"RM  FIRST", u"OS", u"AP  X", u"S ", u"", u"  OS", u"\u00E4 Z"}));
}

TEST(Selection, IsChangedEvenWhereNothingIsRead) {
    TextList selection{u"s  rm"};
    EXPECT_EQ(scanned(Text(), &selection).raised.number, 6);
    EXPECT_EQ(selection, (TextList{u"RM"}));
}

TEST(Selection, OtherPrefixesLeaveItUnchanged) {
    TextList selection{u"s  rm"};
    Request request = wanting("NM");
    request.selection = &selection;
    Parser().query(shown, request);
    EXPECT_EQ(selection, (TextList{u"s  rm"}));
}

// Kinds

TEST(Kinds, TwoBlanksAfterTheLetterNarrowTheScan) {
    EXPECT_EQ(numbers(shown, {u"S  RM"}), "['', '1']");
    EXPECT_EQ(numbers(shown, {u"A  RM"}), "['', '12']");
    EXPECT_EQ(numbers(shown, {u"a  rm"}), "['', '12']");
    EXPECT_EQ(numbers(shown, {u"S  "}), "['', '1', '103']");
    EXPECT_EQ(numbers(shown, {u"S  RM", u"A  RM"}), "['', '1', '12']");
}

TEST(Kinds, TheKindOfOneEntryAppliesToAll) { EXPECT_EQ(numbers(shown, {u"OS", u"A  RM", u"AP"}), "['', '12', '4']"); }

TEST(Kinds, OneBlankIsNotEnough) { EXPECT_EQ(numbers(shown, {u"S RM", u"A", u"AP"}), "['', '4']"); }

// The qualifier

TEST(Qualifier, MustEqualTheCode) {
    EXPECT_EQ(numbers(shown, {u""}, u"RM"), "['', '1', '12']");
    EXPECT_EQ(numbers(shown, {u""}, u"R"), "['']");
    EXPECT_EQ(numbers(shown, {u""}, u"rm"), "['']");
    EXPECT_EQ(numbers(shown, {u""}, u"RM "), "['']");
    EXPECT_EQ(numbers(shown, {u"OS", u"RM"}, u"OS"), "['', '103']");
}

TEST(Qualifier, AnEmptyOneMatchesEverything) { EXPECT_EQ(numbers(shown, {u""}, u""), "['', '1', '12', '103', '4']"); }

TEST(Qualifier, TheCodeIsComparedAsDisplayed) {
    const Text lower = ended({header, transferable('S', "1", "rm  X"), transferable('S', "2", "RM  X")});
    EXPECT_EQ(numbers(lower, {u"RM"}, u"rm"), "['', '1']");
    EXPECT_EQ(numbers(lower, {u"RM"}, u"RM"), "['', '2']");
}

// Lines

TEST(ScannedLine, ContinuationLinesAreAppendedWithoutASeparator) {
    const Text text = ended({header, transferable('S', "1", "RM  ONE"), from(18, "TWO"), from(25, "THREE  "),
                             transferable('S', "2", "RM  ONE")});
    EXPECT_EQ(numbers(text, {u"RM  ONETWOTHREE"}), "['', '1']");
    EXPECT_EQ(numbers(text, {u"RM  ONE"}), "['', '1', '2']");
}

TEST(ScannedLine, ABlankLineContinuesTheElement) {
    EXPECT_EQ(numbers(ended({header, transferable('S', "1", "RM  ONE"), "", from(18, "TWO")}), {u"RM  ONETWO"}),
              "['', '1']");
}

TEST(ScannedLine, TheCodeMayBeSplitOverTwoLines) {
    const Text text = ended({header, transferable('S', "1", "R"), from(18, "M  ONE")});
    EXPECT_EQ(numbers(text, {u"RM"}, u"RM"), "['', '1']");
}

TEST(ScannedLine, AnyOtherLineEndsTheElement) {
    const Text text = ended({header, transferable('S', "1", "RM  ONE"), from(17, "X"), from(18, "TWO"),
                             transferable('S', "2", "RM  ONE"), "B    3     RM  ONE", from(18, "TWO")});
    EXPECT_EQ(numbers(text, {u"RM  ONE"}), "['', '1', '2']");
    EXPECT_EQ(numbers(text, {u"RM  ONETWO"}), "['']");
}

TEST(ScannedLine, TheNumberIsInColumns6To8) {
    EXPECT_EQ(numbers(ended({header, "S   1234567  RM"}), {u"RM"}), "['', '234']");
    EXPECT_EQ(numbers(ended({header, transferable('S', "", "RM")}), {u"RM"}), "['', '']");
    EXPECT_EQ(numbers(ended({header, "S"}), {u""}), "['', '']");
}

TEST(ScannedLine, TheKindIsInColumn1) {
    EXPECT_EQ(numbers(ended({header, " S  1      RM", "s    1     RM", "X    1     RM"}), {u"", u"RM"}), "['']");
    EXPECT_EQ(numbers(ended({header, "SOMETHING ELSE"}), {u"E"}), "['', 'HIN']");
}

TEST(ScannedLine, TheTextIsTrimmedAndBeginsInColumn14) {
    EXPECT_EQ(numbers(ended({header, transferable('S', "1", "   RM  X")}), {u"RM"}), "['', '1']");
    EXPECT_EQ(numbers(ended({header, "S    1      RM"}), {u"M"}), "['', '1']");
}

// The section

TEST(ScannedSection, BeginsAfterItsHeaderOnLine0OrLater) {
    EXPECT_EQ(
        numbers(ended({"LINE 0", transferable('S', "9", "RM"), "XX " + header + " XX", transferable('S', "1", "RM")}),
                {u"RM"}),
        "['', '1']");
    EXPECT_EQ(numbers(ended({"S    1     RM  " + header, from(18, "MORE")}), {u"RM"}), "['']");
}

TEST(ScannedSection, AnEndMarkAboveItEndsTheSearch) {
    EXPECT_EQ(numbers(ended({"A > B", header, transferable('S', "1", "RM")}), {u"RM"}), "['']");
    EXPECT_EQ(numbers(ended({"THE END OF DISPLAY", header, transferable('S', "1", "RM")}), {u"RM"}), "['']");
    EXPECT_EQ(numbers(ended({header + " >", transferable('S', "1", "RM")}), {u"RM"}), "['']");
}

TEST(ScannedSection, EndsAtAPromptTheEndTextOrSixHyphens) {
    for (const std::string end :
         {">", "A > B", "THE END OF DISPLAY", "------", "------- PRIORITY", "------- PNR TRANSFERABLE DATA"}) {
        const Text text = ended({header, transferable('S', "1", "RM"), end, transferable('S', "2", "RM")});
        EXPECT_EQ(numbers(text, {u"RM"}), "['', '1']") << end;
    }
    EXPECT_EQ(numbers(ended({header, "-----", " ------", transferable('S', "2", "RM")}), {u"RM"}), "['', '2']");
}

TEST(ScannedSection, AnEndMarkInAnElementOrItsContinuationEndsIt) {
    EXPECT_EQ(numbers(ended({header, transferable('S', "1", "RM  A > B"), transferable('S', "2", "RM")}), {u"RM"}),
              "['']");
    const Text text = ended({header, transferable('S', "1", "RM  A"), from(18, "> B"), transferable('S', "2", "RM")});
    EXPECT_EQ(numbers(text, {u"RM"}), "['', '1']");
    EXPECT_EQ(numbers(text, {u"RM  A>"}), "['']");
}

TEST(ScannedSection, OnlyTheFirstIsRead) {
    EXPECT_EQ(
        numbers(ended({header, transferable('S', "1", "RM"), "------- PRIORITY", header, transferable('S', "2", "RM")}),
                {u"RM"}),
        "['', '1']");
}

TEST(ScannedSection, ADisplayWithoutAnEndOverflowsAndAddsNothing) {
    for (const Text& endless : {Text(), display({"NO SECTION"}), display({header, transferable('S', "1", "RM")})}) {
        TextList selection{u"RM"};
        const Answer answer = scanned(endless, &selection);
        EXPECT_EQ(answer.raised.number, 6) << drawn(endless);
        EXPECT_EQ(answer.added, Entries{}) << drawn(endless);
    }
}

}  // namespace
}  // namespace vantro
