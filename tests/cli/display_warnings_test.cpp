// Warnings about displays.
#include "cli/commands/display_warnings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro {

namespace {

using Said = std::vector<std::string>;

class DisplayWarningsTest : public testing::Test {
protected:
    void add(const DisplayDoubts& doubts) { warnings_.add(doubts, "f: ", 100); }

    static DisplayDoubts profile(std::size_t line = 1) {
        return {.line = line, .beginsLikeDisplay = true, .isProfile = true, .end = DisplayEnd::EndText};
    }
    static DisplayDoubts page(std::size_t line) { return {.line = line, .end = DisplayEnd::Prompt}; }

    Said said_;
    DisplayWarnings warnings_{[this](const std::string& what) { said_.push_back(what); }};
};

TEST_F(DisplayWarningsTest, ThereAreNoneAboutAGoodDisplay) {
    add(profile());
    warnings_.endFile("f");
    EXPECT_EQ(said_, Said{});
}

TEST_F(DisplayWarningsTest, EachKindIsOneSentenceWithTheLinesOfTheFile) {
    DisplayDoubts doubts = profile(3);
    doubts.controlLines = {4};
    doubts.secondHead = 7;
    doubts.end = DisplayEnd::None;
    doubts.unread = {8, 9};
    add(doubts);
    EXPECT_EQ(said_, (Said{
                         "f: tabs or other control characters in line 104; each counts as one column, so text may be "
                         "read from wrong columns",
                         "f: line 107 seems to begin another display, without an end of the one above; see --separator",
                         "f: the display from line 103 on has no end, neither END OF DISPLAY nor a prompt",
                         "f: nothing was read from lines 108 and 109",
                     }));
}

TEST_F(DisplayWarningsTest, ThreeLinesAreNamed) {
    DisplayDoubts doubts = profile();
    doubts.unread = {1, 2, 3};
    add(doubts);
    doubts.unread = {1, 2, 3, 4, 5};
    add(doubts);
    EXPECT_EQ(said_, (Said{"f: nothing was read from lines 101, 102 and 103",
                           "f: nothing was read from lines 101, 102, 103 and 2 more"}));
}

TEST_F(DisplayWarningsTest, UnreadConfidentialRemarksAreExplained) {
    DisplayDoubts doubts = profile();
    doubts.unread = {8};
    doubts.areUnreadRemarks = true;
    add(doubts);
    EXPECT_EQ(said_, Said{"f: nothing was read from line 108; confidential remarks (RC) are read above or in the first "
                          "section only"});
}

TEST_F(DisplayWarningsTest, WhatIsNoProfileIsSaidAlone) {
    DisplayDoubts doubts{.line = 2};
    doubts.controlLines = {2};
    EXPECT_EQ(warnings_.refusal(doubts, 100),
              "this is no profile display; from line 102 on there is no mark *T* or *C*, no section and no element");
    add(doubts);
    EXPECT_EQ(said_, Said{"f: " + warnings_.refusal(doubts, 100)});
    EXPECT_EQ(warnings_.refusal(profile(), 100), "");
}

TEST_F(DisplayWarningsTest, TextAfterAPromptIsAPageUnlessItBeginsLikeADisplay) {
    DisplayDoubts first = profile();
    first.end = DisplayEnd::Prompt;
    add(first);
    add(page(23));
    add(page(45));
    EXPECT_EQ(said_, (Said{"f: line 123 seems to begin a further page of the display above; --pages joins pages",
                           "f: line 145 seems to begin a further page of the display above; --pages joins pages"}));
    said_.clear();
    add(first);
    add(page(67));
    EXPECT_EQ(said_.size(), 1U);
}

TEST_F(DisplayWarningsTest, NoPageFollowsAnEndTextOrWhatIsNoProfileOrAnotherFile) {
    add(profile());
    EXPECT_NE(warnings_.refusal(page(5), 0), "");
    add(page(5));
    EXPECT_NE(warnings_.refusal(page(6), 0), "");
    DisplayDoubts first = profile();
    first.end = DisplayEnd::Prompt;
    add(first);
    EXPECT_EQ(warnings_.refusal(page(5), 0), "");
    warnings_.skip();
    EXPECT_NE(warnings_.refusal(page(5), 0), "");
    add(first);
    warnings_.endFile("f");
    EXPECT_NE(warnings_.refusal(page(5), 0), "");
}

TEST_F(DisplayWarningsTest, OfOneKindInAFileFiveAreSaidAndTheOthersCounted) {
    DisplayDoubts endless = profile();
    endless.end = DisplayEnd::None;
    for (int i = 0; i < 6; ++i) add(endless);
    EXPECT_EQ(said_.size(), 5U);
    warnings_.endFile("f");
    ASSERT_EQ(said_.size(), 6U);
    EXPECT_EQ(said_.back(), "f: 1 more display without an end");
    for (int i = 0; i < 8; ++i) add(endless);
    warnings_.endFile("g");
    EXPECT_EQ(said_.back(), "g: 3 more displays without an end");
}

}  // namespace

}  // namespace vantro
