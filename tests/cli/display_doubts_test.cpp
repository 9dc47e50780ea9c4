// What makes a display doubtful.
#include "cli/commands/display_doubts.h"
#include "cli/io/utf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace vantro {

namespace {

using Lines = std::vector<std::size_t>;

DisplayDoubts doubtsAbout(const std::string& chunk, const Splitting& splitting = {}) {
    ChunkDisplays displays(chunk, splitting);
    auto found = displays.next();
    const TextView text = found->text;
    DisplayDoubts doubts = doubtsOf(*found, text);
    const Profile profile = parseProfile(std::move(found->text));
    addElements(profile, doubts);
    addUnread(profile, *found, text, doubts);
    return doubts;
}

Text textOf(const std::string& chunk) {
    ChunkDisplays displays(chunk);
    return displays.next()->text;
}

const std::string head = "PDR/H4T9QZ\n*T* TRAVELLER      H4T9QZ\n----- ACTIVE   OFFICE     NCEVN0900\n";
const std::string end = "END OF DISPLAY\n";

TEST(BeginsLikeDisplay, WithAMarkInItsFirstSevenLinesOrTheEchoOfACommand) {
    for (const char* text : {"*T*", "*C* NAME", "\n\nX\nX\nX\nX\n*T* NAME", "PDR/H4T9QZ", ">PDRT/H4T9QZ", "> PD3", "PD",
                             "PDN/-SMITH", "PM", "RLP", "\nPDR*1"}) {
        EXPECT_TRUE(beginsLikeDisplay(textOf(text))) << text;
    }
    for (const char* text : {"A\nA\nA\nA\nA\nA\nA\n*T*", " *T*", "PDMD", ">PDMD", "   5 PHI/ RATE", "------- PRIORITY",
                             "S     13     RM  TEXT", "P PREFERS TRAINS", "PROFILE", "AP/", "P/", "X*T*"}) {
        EXPECT_FALSE(beginsLikeDisplay(textOf(text))) << text;
    }
}

TEST(Doubts, NoProfileIsWhatHasNoMarkAndNoSectionAndNoElement) {
    EXPECT_FALSE(doubtsAbout("hello\n").isProfile);
    EXPECT_FALSE(doubtsAbout("UNABLE TO PROCESS\n>\n").isProfile);
    EXPECT_FALSE(doubtsAbout("------- OF ANOTHER KIND\n>\n").isProfile);
    EXPECT_TRUE(doubtsAbout("X\n*C* NAME\n>\n").isProfile);
    EXPECT_TRUE(doubtsAbout("X\n------- TRAVEL POLICIES - CAR\n>\n").isProfile);
    EXPECT_TRUE(doubtsAbout("X\n------- PROFILE NOTES\n>\n").isProfile);
    // Confidential remarks are found without a section.
    EXPECT_TRUE(doubtsAbout("X\nS      7     RC  CREDIT LIMIT 400000\n>\n").isProfile);
}

TEST(Doubts, ASecondHeadIsAMarkWithARuleBelow) {
    EXPECT_EQ(doubtsAbout(head + "------- PRIORITY\n" + head + end).secondHead, 5U);
    EXPECT_EQ(doubtsAbout(head + head + head + end).secondHead, 4U);
    EXPECT_EQ(doubtsAbout(head + "\n" + head.substr(head.find('\n') + 1) + end).secondHead, 5U);  // without an echo
    EXPECT_EQ(doubtsAbout(head + end).secondHead, 0U);
    EXPECT_EQ(doubtsAbout(head + "------- PROFILE NOTES\n*T* IS A MARK\n" + end).secondHead, 0U);
    EXPECT_EQ(doubtsAbout(head + "------- PROFILE NOTES\n*T* IS A MARK\n------- PRIORITY\n" + end).secondHead, 0U);
    EXPECT_EQ(doubtsAbout(head + " *T* NAME\n-----\n" + end).secondHead, 0U);
}

TEST(Doubts, AMoveDownInsideADisplayIsNoted) {
    EXPECT_EQ(doubtsAbout(head + ">PDMD\n------- PRIORITY\n> PDMD\n" + end).moveDown, 4U);
    EXPECT_EQ(doubtsAbout(">PDMD\n" + head + end).moveDown, 0U);
    EXPECT_EQ(doubtsAbout(head + ">PDMD\n------- PRIORITY\n" + end, {.pages = true}).moveDown, 0U);
}

// The samples say themselves which of their lines are lost.
TEST(UnreadLines, OfTheSamplesAreThoseThatNoQueryReturns) {
    const std::map<std::string, Lines> expected{
        {"company", {43}},
        {"every_family", {}},
        {"header_4505", {}},
        {"header_pf24", {}},
        {"long_400", {}},
        {"minimal", {}},
        {"odd", {11, 13, 14, 16, 35, 36, 41, 45, 46, 48, 59, 71, 72, 99, 105, 107, 108, 109, 112}},
        {"odd_notes", {16}},
        {"odd_prompt", {11, 12, 13, 15, 17, 19, 24, 26}},
        {"prompt_only", {}},
        {"traveller", {29}},
        {"wrapped", {20, 25, 47, 48, 84, 85, 88}},
    };
    const auto folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles";
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const std::string name = file.path().stem().string();
        std::ostringstream text;
        text << std::ifstream(file.path(), std::ios::binary).rdbuf();
        ASSERT_TRUE(expected.contains(name)) << name;
        EXPECT_EQ(doubtsAbout(text.str()).unread, expected.at(name)) << name;
    }
}

TEST(UnreadLines, CountOnlyInSectionsOfADisplayWithAnEnd) {
    const std::string lost = "   1 XYZ/ OF NO FAMILY\n";
    EXPECT_EQ(doubtsAbout(head + lost + "------- PRIORITY\n" + lost + end).unread, Lines{6});
    EXPECT_EQ(doubtsAbout(head + "------- UNKNOWN\n" + lost + "\n" + lost + end).unread, (Lines{5, 7}));
    EXPECT_EQ(doubtsAbout(head + "------- PRIORITY\n" + lost).unread, Lines{});
}

TEST(UnreadLines, AreConfidentialRemarksIfAllOfThemAre) {
    const std::string sections = "------- PRIORITY\n------- PNR TRANSFERABLE DATA\n";
    const std::string remark = "S      4     RC  PAYS WITH TWO CARDS\n";
    const DisplayDoubts remarks = doubtsAbout(head + sections + remark + remark + end);
    EXPECT_EQ(remarks.unread, (Lines{6, 7}));
    EXPECT_TRUE(remarks.areUnreadRemarks);
    const DisplayDoubts others = doubtsAbout(head + sections + remark + "   1 XYZ/ OF NO FAMILY\n" + end);
    EXPECT_EQ(others.unread, (Lines{6, 7}));
    EXPECT_FALSE(others.areUnreadRemarks);
    EXPECT_FALSE(doubtsAbout(head + sections + end).areUnreadRemarks);
}

TEST(UnreadLines, AWrappedElementCoversItsLines) {
    // Two elements of one number, both wrapped, and the same number again.
    const std::string section = "------- TRAVEL POLICIES - HOTEL\n   4 PHI/ RATE CEILING\n          120 EUR\n";
    const std::string other =
        "------- TRAVEL POLICIES - CAR\n   4 PCI/ COVER IS\n          12:00 BOUGHT\n   4 XYZ/ LOST\n";
    EXPECT_EQ(doubtsAbout(head + section + other + end).unread, Lines{10});
    const std::string transferable =
        "------- PNR TRANSFERABLE DATA\nS      4     OS  XQ ONE\n                 TWO\n                 THREE\n";
    EXPECT_EQ(doubtsAbout(head + section + transferable + end).unread, Lines{10});
}

}  // namespace

}  // namespace vantro
