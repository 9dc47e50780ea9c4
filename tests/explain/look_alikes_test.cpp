// Lines that look like elements and are none, and the decisions about them.
#include "tests/explain/story.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantro::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr ReadingRule found{"found", u"an element"};
constexpr ReadingRule none{"none", u"no element"};
constexpr ReadingRule again{"again", u"the search goes on"};
constexpr ReadingRule over{"over", u"the search is over"};

constexpr ReadingStep queryBegins{.kind = StepKind::QueryBegins, .family = Family::PHI, .name = u"PHI"};
constexpr ReadingStep queryEnds{.kind = StepKind::QueryEnds, .family = Family::PHI, .name = u"PHI"};

constexpr ReadingStep decided(const ReadingRule& rule, std::int32_t line) {
    return {.kind = StepKind::Decided, .line = line, .rule = &rule};
}

/// Pieces in the first column of these lines, for steps that are passed at once.
const std::vector<ValuePiece> inLine2{{u"A", Place{2, 1, 1}}};
const std::vector<ValuePiece> inLines2To3{{u"A", Place{2, 1, 1}}, {u" ", {}}, {u"B", Place{3, 1, 1}}};
const std::vector<ValuePiece> inLine3{{u"B", Place{3, 1, 1}}};

ReadingStep read(const std::vector<ValuePiece>& pieces, std::int32_t element) {
    return {.kind = StepKind::ValueRead, .family = Family::PHI, .name = u"text", .index = element, .pieces = pieces};
}

TEST(LookAlikes, AreDecidedByTheLastDecisionAboutTheirLine) {
    const Explanation explanation =
        story(screenAt({{2, u"  1 PHI/ A"}}),
              {queryBegins, decided(again, 2), decided(none, 2), decided(over, 3), queryEnds});
    const std::vector<LookAlike> lines = lookAlikes(explanation);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].line, 2);
    EXPECT_EQ(lines[0].family, Family::PHI);
    EXPECT_EQ(lines[0].tag, (Place{2, 5, 4}));
    EXPECT_EQ(lines[0].rule, &none);
    EXPECT_EQ(lines[0].decidedIn, 2);
    EXPECT_EQ(lines[0].decidedAt, DecisionAt::Line);
    EXPECT_THAT(sentencesOf(lines), ElementsAre("PHI in line 2: no element"));
}

TEST(LookAlikes, AreNotTheLinesInWhichAnElementBegins) {
    const Text screen = screenAt({{2, u"  1 PHI/ A"}, {3, u"        B"}});
    const Explanation explanation =
        story(screen, {queryBegins, decided(found, 2), decided(over, 4), read(inLines2To3, 1), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), IsEmpty());
}

TEST(LookAlikes, AreNotTheLinesThatContinueAnElementAndBeginAnother) {
    const Text screen = screenAt({{2, u"  1 PHI/ A"}, {3, u"    PHI/ B"}});
    const Explanation explanation = story(screen, {queryBegins, decided(found, 2), decided(found, 3), decided(over, 4),
                                                   read(inLines2To3, 1), read(inLine3, 2), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), IsEmpty());
}

TEST(LookAlikes, AreTheFurtherLinesOfAnElementWithATag) {
    const Text screen = screenAt({{2, u"  1 PHI/ A"}, {3, u"    PHI/ B"}});
    const Explanation explanation = story(
        screen, {queryBegins, decided(found, 2), decided(over, 4), read(inLines2To3, 1), read(inLine3, 1), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PHI in line 3: the text belongs to the element of line 2: an element"));
}

// The decision about the line comes before the one about the element's first line.
TEST(LookAlikes, OfAnElementAreDecidedByADecisionOfTheirOwn) {
    const Text screen = screenAt({{3, u"    PHI/ B"}});
    const Explanation explanation =
        story(screen, {queryBegins, decided(found, 2), decided(none, 3), read(inLines2To3, 1), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), ElementsAre("PHI in line 3: no element"));
}

TEST(LookAlikes, BelowTheSearchAreDecidedByItsEnd) {
    const Explanation explanation = story(
        screenAt({{4, u"PHI/"}}), {queryBegins, decided(found, 2), decided(over, 3), read(inLine2, 1), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PHI in line 4: the search ended in line 3: the search is over"));
}

TEST(LookAlikes, BetweenTwoDecisionsNameTheUpperOne) {
    const Explanation explanation =
        story(screenAt({{4, u"PHI/"}}), {queryBegins, decided(again, 3), decided(over, 6), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PHI in line 4: the last decision above it is that about line 3: the search goes on"));
}

TEST(LookAlikes, AboveAllDecisionsNameTheFirst) {
    const Explanation explanation = story(
        screenAt({{1, u"PHI/"}}), {queryBegins, decided(found, 3), decided(none, 3), decided(over, 6), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PHI in line 1: the search passed over it, to line 3: an element"));
}

TEST(LookAlikes, OfASearchWithoutALineNameTheSearch) {
    const Explanation explanation = story(screenAt({{1, u"PHI/"}}), {queryBegins, decided(over, noLine), queryEnds});
    const std::vector<LookAlike> lines = lookAlikes(explanation);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].decidedIn, noLine);
    EXPECT_EQ(lines[0].decidedAt, DecisionAt::LineBelow);
    EXPECT_THAT(sentencesOf(lines), ElementsAre("PHI in line 1: the search is over"));
}

TEST(LookAlikes, AreThoseOfTheFamiliesThatWereAskedFor) {
    const Explanation explanation = story(screen({u"PPH/"}), {queryBegins, decided(over, 0), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), IsEmpty());
}

TEST(LookAlikes, OfAQueryWithoutDecisionsAreNone) {
    const Explanation explanation = story(screen({u"PHI/"}), {queryBegins, queryEnds, decided(over, 0)});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), IsEmpty());
}

TEST(LookAlikes, AreThoseOfTheLastQueryOfAFamily) {
    const Explanation explanation =
        story(screen({u"PHI/"}), {queryBegins, decided(none, 0), queryEnds, queryBegins, decided(over, 0), queryEnds});
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)), ElementsAre("PHI in line 0: the search is over"));
}

// Real displays

TEST(LookAlikes, OfADisplayAreInItsOrder) {
    const Explanation explanation = explained(screen({
        u"   1 PPH/ ABOVE THE SECTION",
        u"------- TRAVEL POLICIES - HOTEL",
        u"   2 PHI/ BREAKFAST",
        u"         WITH PHI/ INSIDE",
        u"------- FOLLOW UP",
        u"   3 PHI/ BELOW THE SECTION",
        u"END OF DISPLAY",
    }));
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PPH in line 0: the search passed over it, to line 1: the header of the section",
                            "PHI in line 3: nine blanks at the beginning: the line continues the element above",
                            "PHI in line 5: the search ended in line 4: seven hyphens: the section ends"));
}

// The prefix itself is read as the number then.
TEST(LookAlikes, AreNotTheElementsWithoutText) {
    const Text display = screen({u"------- PRIORITY", u"     PPR/", u"END OF DISPLAY"});
    ASSERT_EQ(parseProfile(display).elements(Family::PPR).size(), 1U);
    EXPECT_THAT(sentencesOf(lookAlikes(explained(display))), IsEmpty());
}

// The line that the host prints above a display counts.
TEST(LookAlikes, OfADisplayBelowAHostLineHaveTheLinesOfTheScreen) {
    const Explanation explanation = explained(screen({
        u"4505 HOST LINE",
        u"------- TRAVEL POLICIES - HOTEL",
        u"   2 PHI/ BREAKFAST",
        u"------- FOLLOW UP",
        u"   3 PHI/ BELOW THE SECTION",
        u"END OF DISPLAY",
    }));
    EXPECT_THAT(sentencesOf(lookAlikes(explanation)),
                ElementsAre("PHI in line 4: the search ended in line 3: seven hyphens: the section ends"));
}

// Confidential remarks are searched for from the first line, so that the first header of another section ends it.
TEST(LookAlikes, OfASampleExplainWhyItsConfidentialRemarkIsNotRead) {
    const Text display = sampleDisplay("traveller");
    EXPECT_THAT(parseProfile(display).elements(Family::RemarkConf), IsEmpty());
    EXPECT_THAT(sentencesOf(lookAlikes(explained(display))),
                Contains(StartsWith("RC in line 28: the search ended in line 7: ")));
}

TEST(LookAlikes, OfTheSamplesSayWhereTheMarkIsAndWhatDecided) {
    for (const std::string& name : sampleNames()) {
        SCOPED_TRACE(name);
        const Explanation explanation = explained(sampleDisplay(name));
        for (const LookAlike& line : lookAlikes(explanation)) {
            ASSERT_NE(line.rule, nullptr);
            const std::size_t begin =
                static_cast<std::size_t>(line.line) * 80 + static_cast<std::size_t>(line.tag.column) - 1;
            EXPECT_EQ(utf8(explanation.screen().substr(begin, static_cast<std::size_t>(line.tag.length))),
                      utf8(factsOf(line.family).tag));
        }
    }
}

}  // namespace
}  // namespace vantro::test
