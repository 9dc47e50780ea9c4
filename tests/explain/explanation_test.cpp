// What an explanation keeps.
#include "tests/explain/story.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

void observeCall(Explanation& explanation, TextView name, TextView screen) {
    explanation.observe({.kind = StepKind::CallBegins, .name = name, .text = screen});
    explanation.observe({.kind = StepKind::CallEnds, .name = name});
}

TEST(AnExplanation, HasTheScreenOfTheFirstCallWithOne) {
    Explanation explanation;
    observeCall(explanation, u"CreateCommand", u"");
    EXPECT_EQ(explanation.screen(), u"");
    observeCall(explanation, u"VerifyResponse", u"PDN/-SMITH");
    observeCall(explanation, u"VerifyResponse", u"PDN/-JONES");
    EXPECT_EQ(explanation.screen(), u"PDN/-SMITH");
    EXPECT_EQ(explanation.steps().size(), 6U);
}

TEST(AnExplanation, IsEmptyAfterClear) {
    Explanation explanation = story(u"PDN", {});
    explanation.clear();
    EXPECT_EQ(explanation.screen(), u"");
    EXPECT_TRUE(explanation.steps().empty());
    observeCall(explanation, u"VerifyResponse", u"PDR");
    EXPECT_EQ(explanation.screen(), u"PDR");
}

TEST(AnExplanation, KeepsTheTextsOfAStep) {
    Explanation explanation;
    {
        const Text name = u"strKeyRecLoc";
        const Text value = u"KQ4R7T,A";
        const std::vector<ValuePiece> pieces{{TextView(value).substr(0, 6), Place{1, 75, 6}},
                                             {TextView(value).substr(6), {}}};
        explanation.observe({.kind = StepKind::KeyAdded, .name = name, .text = value, .pieces = pieces});
    }
    const KeptStep& step = explanation.steps().front();
    EXPECT_EQ(step.name, u"strKeyRecLoc");
    EXPECT_EQ(step.text, u"KQ4R7T,A");
    ASSERT_EQ(step.pieces.size(), 2U);
    EXPECT_EQ(step.pieces[0].text, u"KQ4R7T");
    EXPECT_EQ(step.pieces[0].place, (Place{1, 75, 6}));
    EXPECT_EQ(step.pieces[1].place, std::nullopt);
    EXPECT_TRUE(step.isPlaced());
    EXPECT_FALSE(KeptStep{}.isPlaced());
}

}  // namespace
}  // namespace vantro::test
