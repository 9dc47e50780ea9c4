// Runs the fuzz targets in the ordinary suite: over every earlier finding, over the seeds, and over mutations of the
// seeds that are the same in every run.
#include "fuzz/common/line_mutator.h"
#include "fuzz/seeds.h"
#include "tests/profile/effort.h"

#include <gtest/gtest.h>

#include <set>

namespace vantro::fuzz {
namespace {

class FuzzTarget : public testing::TestWithParam<Target> {
protected:
    static std::string run(std::string_view input) { return GetParam().run(bytesOf(input)); }

    static std::vector<std::string> seeds() {
        std::vector<std::string> all = sampleSeeds(GetParam().name);
        for (const KeptInput& kept : keptInputs("seeds", GetParam().name)) all.push_back(kept.bytes);
        return all;
    }
};

INSTANTIATE_TEST_SUITE_P(, FuzzTarget, testing::ValuesIn(targets().begin(), targets().end()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(FuzzTarget, NoLongerFailsOnEarlierFindings) {
    for (const KeptInput& find : keptInputs("finds", GetParam().name)) EXPECT_EQ(run(find.bytes), "") << find.name;
}

TEST_P(FuzzTarget, FindsNothingInItsSeeds) {
    ASSERT_FALSE(seeds().empty());
    for (const std::string& seed : seeds()) ASSERT_EQ(run(seed), "") << seed;
}

TEST_P(FuzzTarget, AcceptsArbitraryBytes) {
    for (const std::string_view input : {"", "\n", ";", "\f\n\f\n\f\n\f\n\f\n", "ZZZZ;;;;;\n\xFF\xFE\x80", "AAAP\n>"}) {
        EXPECT_EQ(run(input), "") << input;
    }
}

TEST_P(FuzzTarget, FindsNothingInMutatedSeeds) {
    const std::vector<std::string> all = seeds();
    for (std::uint32_t number = 0; number < effort(2000); ++number) {
        LineMutator mutator(number + 1, GetParam().marks);
        const std::string& seed = all[number % all.size()];
        std::string input = mutator.mutated(bytesOf(seed));
        if (number % 4 == 0)
            input = mutator.crossed(bytesOf(input), bytesOf(all[number * std::size_t{7} % all.size()]));
        for (std::size_t again = number % 8; again > 0; --again) input = mutator.mutated(bytesOf(input));
        ASSERT_EQ(run(input), "") << "change " << number << ":\n" << input;
    }
}

TEST(LineMutator, ChangesTheSameInputInManyWays) {
    constexpr std::string_view input = "AAAA;Ai1\n------- PRIORITY\n  1 PPR/ WINDOW";
    std::set<std::string> changed;
    for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
        changed.insert(LineMutator(seed, findTarget("profile_queries")->marks).mutated(bytesOf(input)));
    }
    EXPECT_GT(changed.size(), 700U);
}

TEST(LineMutator, ChangesTheSameWayForTheSameSeed) {
    const auto changed = [] { return LineMutator(7, {}).mutated(bytesOf("AAAA\nA LINE\nANOTHER LINE")); };
    EXPECT_EQ(changed(), changed());
}

}  // namespace
}  // namespace vantro::fuzz
