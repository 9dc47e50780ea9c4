// Lines by what the steps say about them.
#include "tests/explain/story.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace vantro::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ReadingRule rule{"rule", u"a rule"};
const std::vector<ValuePiece> inLines2And3{{u"A", Place{2, 1, 1}}, {u",", {}}, {u"B", Place{3, 1, 1}}};

TEST(LinesLookedAt, AreThoseThatStepsName) {
    const Text lines = screenAt({{9, u"END"}});
    const Explanation explanation = story(lines, {
                                                     {.kind = StepKind::Decided, .line = 5, .rule = &rule},
                                                     {.kind = StepKind::Decided, .rule = &rule},
                                                     {.kind = StepKind::ValueRead, .pieces = inLines2And3},
                                                     {.kind = StepKind::MarkSearched, .line = 7, .lastLine = 20},
                                                 });
    EXPECT_THAT(linesLookedAt(explanation), ElementsAre(2, 3, 5, 7, 8, 9));
}

TEST(LinesLookedAt, OfAnEmptyScreenAreNone) { EXPECT_THAT(linesLookedAt(explained(Text())), IsEmpty()); }

TEST(UnreadLines, AreThoseWithoutAValueAndAMark) {
    const Text lines = screen({u"A", u"", u"B", u"C", u"D"});
    const Explanation explanation = story(lines, {
                                                     {.kind = StepKind::Decided, .line = 0, .rule = &rule},
                                                     {.kind = StepKind::ValueRead, .pieces = inLines2And3},
                                                 });
    EXPECT_THAT(unreadLines(explanation), ElementsAre(0, 4));
}

// The line that ends a section or the display is one with a mark.
TEST(UnreadLines, AreNotTheEndsOfSections) {
    const Explanation explanation = explained(screen({
        u"------- TRAVEL POLICIES - HOTEL",
        u"   1 PHI/ BREAKFAST",
        u"   2 PXX/ OF NO FAMILY",
        u"------- OF NO SECTION",
        u"NO SECTION",
        u"END OF DISPLAY",
    }));
    EXPECT_THAT(unreadLines(explanation), ElementsAre(2, 4));
}

// Each of the marks that end a section, and with them the display.
TEST(UnreadLines, AreNotTheLinesWithAnEnd) {
    for (const TextView end : {u"-------", u"END OF DISPLAY", u">", u"  END OF DISPLAY"}) {
        const Explanation explanation = explained(screen({u"------- PRIORITY", u"   1 PPR/ A", end}));
        EXPECT_THAT(unreadLines(explanation), IsEmpty()) << utf8(end);
    }
}

// Whatever is read, the line that ends its section is one with a mark.
TEST(UnreadLines, AreNotTheEndsOfOtherSections) {
    EXPECT_THAT(unreadLines(explained(screen({u"", u"------- DOCUMENTS", u"------- OTHER", u">"}))), IsEmpty());
    EXPECT_THAT(unreadLines(explained(screen({u"------- PNR TRANSFERABLE DATA", u"------- OTHER", u">"}))), IsEmpty());
}

TEST(UnreadLines, OfTheSamplesAreNotBlankAndNotRead) {
    for (const std::string& name : sampleNames()) {
        const Explanation explanation = explained(sampleDisplay(name));
        const std::vector<std::int32_t> unread = unreadLines(explanation);
        for (const KeptStep& step : explanation.steps()) {
            for (const KeptPiece& piece : step.pieces) {
                const bool isUnread = piece.place && std::ranges::binary_search(unread, piece.place->line);
                EXPECT_FALSE(isUnread) << name;
            }
        }
    }
}

}  // namespace
}  // namespace vantro::test
