// The whole profile is compared with the single queries: each value is what a query on a new object returns.
#include "tests/profile/effort.h"
#include "tests/profile/profile_comparison.h"
#include "tests/profile/random_displays.h"
#include "tests/profile/samples.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vantro {
namespace {

class WholeProfileOfASample : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Sample, WholeProfileOfASample, testing::ValuesIn(sampleNames()),
                         [](const auto& test) { return test.param; });

TEST_P(WholeProfileOfASample, EqualsTheSingleQueries) { Comparison(sampleDisplay(GetParam())).run(); }

TEST_P(WholeProfileOfASample, EqualsTheSingleQueriesWhenCutShort) {
    const Text whole = sampleDisplay(GetParam());
    for (const std::size_t percent : {20U, 55U, 90U}) {
        const Text part = whole.substr(0, whole.size() * percent / 100);
        Comparison(part).run();
    }
}

TEST(WholeProfile, OfGeneratedSectionsEqualsTheSingleQueries) {
    RandomDisplays random(21);
    for (std::size_t left = effort(1500); left > 0 && !testing::Test::HasFailure(); --left) {
        const Text text = random.sections();
        Comparison(text).run();
    }
}

TEST(WholeProfile, OfGeneratedSoupEqualsTheSingleQueries) {
    RandomDisplays random(22);
    for (std::size_t left = effort(1500); left > 0 && !testing::Test::HasFailure(); --left) {
        const Text text = random.soup();
        Comparison(text).run();
    }
}

// Close to the end of the line counter the transferable families are read one by one.
TEST(WholeProfile, OfADisplayAsLongAsTheLineCounterEqualsTheSingleQueries) {
    const std::size_t filler = std::size_t{32'010} * 80;
    Text above = sampleDisplay("every_family");
    above.resize((above.size() + 79) / 80 * 80, u' ');
    const Text first = above + Text(filler, u'X');
    Comparison(first).run();
    const Text last = Text(filler, u'X') + above;
    Comparison(last).run();
}

TEST(WholeProfile, OfAnEmptyDisplayEqualsTheSingleQueries) {
    const Text empty;
    Comparison(empty).run();
    const Profile profile = parseProfile(empty);
    ASSERT_EQ(profile.problems.size(), 2U);
    EXPECT_EQ(profile.problems[0].query, u"PCN");
    EXPECT_EQ(profile.problems[0].number, 6);
    EXPECT_EQ(profile.problems[1].query, u"PIN");
    EXPECT_EQ(profile.problems[1].number, 6);
}

TEST(WholeProfile, WithoutAnEndEveryQueryThatNeedsOneIsAProblem) {
    const Profile profile = parseProfile(display({"LINE 0", "NO END"}));
    // All but the name, the locator and the office; the notes end at the first blank line.
    EXPECT_EQ(profile.problems.size(), 3U + familyCount);
}

TEST(WholeProfile, AFailingFamilyDoesNotAffectTheOthers) {
    // A priority section without a prefixed line consumes the end text; without a prompt after it the search runs on.
    const Profile profile =
        parseProfile(display({"LINE 0", "------- FOLLOW UP", "  1 PFO/ A", "------- PRIORITY", "END OF DISPLAY"}));
    ASSERT_EQ(profile.problems.size(), 1U);
    EXPECT_EQ(profile.problems[0].query, u"PPR");
    EXPECT_EQ(profile.problems[0].number, 5266);
    EXPECT_EQ(utf8(profile.problems[0].description), "An error has occurred while verifying the profile.");
    ASSERT_EQ(profile.elements(Family::PFO).size(), 1U);
    EXPECT_EQ(profile.elements(Family::PFO)[0].text, u"A");
}

TEST(WholeProfile, TextsStayValidInAMovedOrCopiedProfile) {
    Profile first =
        parseProfile(ended({"LINE 0", "  1 NM SMITH/A", "  2 PCN/ ACME", from(15, "TRADING"), "------- PRIORITY",
                            "  1 PPR/ LONG TEXT THAT GOES", from(10, "ON AND ON AND ON")}));
    const Profile copy = first;
    const Profile moved = std::move(first);
    first = parseProfile(u"");
    for (const Profile& profile : {copy, moved}) {
        EXPECT_EQ(profile.name, u"SMITH/A");
        EXPECT_EQ(profile.companyName.text, u"ACME TRADING");
        ASSERT_EQ(profile.elements(Family::PPR).size(), 1U);
        EXPECT_EQ(profile.elements(Family::PPR)[0].text, u"LONG TEXT THAT GOESON AND ON AND ON");
    }
}

// Tests the generator: searching displays that contain nothing would find nothing.

TEST(RandomDisplays, ContainElementsOfEveryFamilyAndEveryHeaderValue) {
    RandomDisplays random(31);
    std::set<TextView> seen;
    std::set<TextView> seenSeveralTimes;
    std::size_t joined = 0;
    for (int left = 1500; left > 0; --left) {
        const Text text = left % 4 == 0 ? random.soup() : random.sections();
        const Profile profile = parseProfile(text);
        for (const FamilyName& family : familyNames()) {
            if (!profile.elements(family.family).empty()) seen.insert(family.prefix);
            if (profile.elements(family.family).size() > 1) seenSeveralTimes.insert(family.prefix);
            for (const Element& element : profile.elements(family.family)) {
                joined += text.find(element.text) == Text::npos ? 1 : 0;  // joined from several lines
            }
        }
        if (!profile.name.empty()) seen.insert(u"NM");
        if (profile.companyName.number && !profile.companyName.text.empty()) seen.insert(u"PCN");
        if (!profile.pin.text.empty()) seen.insert(u"PIN");
        if (profile.psl) seen.insert(u"PSL");
        if (!profile.officeIdentifier.empty()) seen.insert(u"OFFID");
        if (!profile.notes.empty()) seen.insert(u"ProfileNotes");
    }
    EXPECT_EQ(seen.size(), familyCount + 6);
    for (const FamilyName& family : familyNames())
        EXPECT_TRUE(seenSeveralTimes.contains(family.prefix)) << utf8(family.prefix);
    EXPECT_GT(joined, 100U);
}

}  // namespace
}  // namespace vantro
