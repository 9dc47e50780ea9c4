// Which sections a display shows, and the kinds of transferable elements.
#include "tests/profile/displays.h"
#include "vantro/families.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

TEST(Sections, AFamilyHasThreeAnswers) {
    const Profile profile = parseProfile(
        ended({"LINE 0", "------- TRAVEL POLICIES - HOTEL", "   1 PHI/ BREAKFAST INCLUDED", "------- PRIORITY"}));
    EXPECT_TRUE(profile.isShown(Family::PHI));
    EXPECT_EQ(profile.elements(Family::PHI).size(), 1U);

    EXPECT_TRUE(profile.isShown(Family::PPH));
    EXPECT_TRUE(profile.elements(Family::PPH).empty());
    EXPECT_TRUE(profile.isShown(Family::PPR));

    EXPECT_FALSE(profile.isShown(Family::PCI));
    EXPECT_FALSE(profile.isShown(Family::Remark));
    EXPECT_FALSE(profile.isShown(Section::Notes));
}

TEST(Sections, AnEmptyDisplayShowsNone) { EXPECT_TRUE(parseProfile(u"").sections.none()); }

TEST(Sections, EachIsShownByItsHeaderAlone) {
    for (const FamilyFacts& family : families()) {
        const Profile profile = parseProfile(ended({"LINE 0", utf8(family.section)}));
        EXPECT_TRUE(profile.isShown(family.inSection)) << utf8(family.word);
        EXPECT_EQ(profile.sections.count(), 1U) << utf8(family.word);
        for (const FamilyFacts& other : families()) {
            EXPECT_EQ(profile.isShown(*other.family), other.section == family.section) << utf8(other.word);
        }
    }
    EXPECT_TRUE(parseProfile(ended({"LINE 0", "------- PROFILE NOTES"})).isShown(Section::Notes));
}

TEST(Sections, BelowTheEndOfTheDisplayNoneIsShown) {
    EXPECT_TRUE(parseProfile(display({"LINE 0", "END OF DISPLAY", "------- PRIORITY"})).sections.none());
    EXPECT_TRUE(parseProfile(display({"LINE 0", "> ", "------- PRIORITY", "END OF DISPLAY"})).sections.none());
}

// Confidential remarks are searched for from the first line on.
TEST(Sections, AnElementAboveItsSectionShowsItsFamily) {
    const Profile profile = parseProfile(ended({transferable('S', "7", " RC SECRET"), "------- PRIORITY"}));
    ASSERT_EQ(profile.elements(Family::RemarkConf).size(), 1U);
    EXPECT_TRUE(profile.isShown(Family::RemarkConf));
    EXPECT_FALSE(profile.isShown(Section::Transferable));
    EXPECT_FALSE(profile.isShown(Family::Remark));
}

TEST(Sections, HaveTitles) {
    EXPECT_EQ(titleOf(Section::Priority), u"PRIORITY");
    EXPECT_EQ(titleOf(Section::Car), u"TRAVEL POLICIES - CAR");
    EXPECT_EQ(titleOf(Section::Notes), u"PROFILE NOTES");
    for (const FamilyFacts& family : families()) {
        EXPECT_EQ(family.section, Text(u"------- ").append(titleOf(family.inSection)));
    }
}

TEST(Kinds, AreTheLettersInColumn1OfTransferableElements) {
    const Profile profile = parseProfile(
        ended({"LINE 0", "------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM  ONE"),
               transferable('A', "2", "RM  TWO"), from(18, "AND MORE"), transferable(' ', "3", "RM  THREE"),
               transferable('X', "4", "RM  FOUR"), "------- PRIORITY", "A  5 PPR/ FIVE"}));
    const auto remarks = profile.elements(Family::Remark);
    ASSERT_EQ(remarks.size(), 4U);
    EXPECT_EQ(remarks[0].kind, u'S');
    EXPECT_EQ(remarks[1].kind, u'A');
    EXPECT_EQ(utf8(remarks[1].text), "RM  TWOAND MORE");
    EXPECT_EQ(remarks[2].kind, 0);
    EXPECT_EQ(remarks[3].kind, 0);
    ASSERT_EQ(profile.elements(Family::PPR).size(), 1U);
    EXPECT_EQ(profile.elements(Family::PPR)[0].kind, 0);
}

// The host's continuation lines are tested again as lines of their own.
TEST(Kinds, AContinuationLineReadAsAnElementHasNone) {
    const Profile profile = parseProfile(
        ended({"LINE 0", "------- PNR TRANSFERABLE DATA", transferable('S', "1", "OS  XQ A"), from(18, "X OS Y")}));
    const auto elements = profile.elements(Family::OtherService);
    ASSERT_EQ(elements.size(), 2U);
    EXPECT_EQ(elements[0].kind, u'S');
    EXPECT_EQ(elements[1].kind, 0);
}

}  // namespace
}  // namespace vantro
