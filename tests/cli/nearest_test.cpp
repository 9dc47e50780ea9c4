#include "cli/classes/nearest.h"

#include <gtest/gtest.h>

#include <vector>

namespace vantro::test {
namespace {

TEST(EditDistance, CountsWhatIsPutInTakenOutAndReplaced) {
    EXPECT_EQ(editDistance(u"", u""), 0U);
    EXPECT_EQ(editDistance(u"", u"abc"), 3U);
    EXPECT_EQ(editDistance(u"abc", u""), 3U);
    EXPECT_EQ(editDistance(u"abc", u"abc"), 0U);
    EXPECT_EQ(editDistance(u"abc", u"abxc"), 1U);
    EXPECT_EQ(editDistance(u"abc", u"ac"), 1U);
    EXPECT_EQ(editDistance(u"abc", u"axc"), 1U);
    EXPECT_EQ(editDistance(u"kitten", u"sitting"), 3U);
    EXPECT_EQ(editDistance(u"sitting", u"kitten"), 3U);
}

TEST(EditDistance, CountsTwoSwappedNeighboursAsOneEdit) {
    EXPECT_EQ(editDistance(u"abc", u"bac"), 1U);
    EXPECT_EQ(editDistance(u"abc", u"acb"), 1U);
    EXPECT_EQ(editDistance(u"abcd", u"badc"), 2U);
    EXPECT_EQ(editDistance(u"Prase", u"pARse"), 1U);
    EXPECT_EQ(editDistance(u"abc", u"cba"), 2U) << "no neighbours";
}

TEST(EditDistance, DoesNotCountCase) {
    EXPECT_EQ(editDistance(u"strKeyName", u"STRKEYNAME"), 0U);
    EXPECT_EQ(editDistance(u"@Z[", u"`z{"), 2U) << "letters alone have a case";
}

TEST(NearestName, IsTheFirstOfTheNearest) {
    const std::vector<TextView> names{u"strKeyCompany", u"strKeyName", u"strKeyNames"};
    EXPECT_EQ(nearestName(u"strKeyNam", names), u"strKeyName");
    EXPECT_EQ(nearestName(u"strkeynames", names), u"strKeyNames");
    EXPECT_EQ(nearestName(u"strKeyNamed", names), u"strKeyName");
}

TEST(NearestName, IsNoneWhereAThirdOfItWouldChange) {
    const std::vector<TextView> names{u"abcdef"};
    EXPECT_EQ(nearestName(u"abcdxf", names), u"abcdef");
    EXPECT_EQ(nearestName(u"abcdxx", names), std::nullopt);
    EXPECT_EQ(nearestName(u"", names), std::nullopt);
    EXPECT_EQ(nearestName(u"abc", {}), std::nullopt);
}

TEST(NearestName, MayHaveTwoLettersSwapped) {
    const std::vector<TextView> names{u"batch", u"parse", u"--only"};
    EXPECT_EQ(nearestName(u"prase", names), u"parse");
    EXPECT_EQ(nearestName(u"--onyl", names), u"--only");
}

TEST(NearestName, OfAShortNameMayDifferInOneCharacter) {
    const std::vector<TextView> names{u"PPR", u"RM"};
    EXPECT_EQ(nearestName(u"PPX", names), u"PPR");
    EXPECT_EQ(nearestName(u"rn", names), u"RM");
    EXPECT_EQ(nearestName(u"XX", names), std::nullopt);
    EXPECT_EQ(nearestName(u"PXX", names), std::nullopt);
}

}  // namespace
}  // namespace vantro::test
