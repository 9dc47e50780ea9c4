#include "cli/ordered_workers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace vantro {

namespace {

class OrderedWorkOn : public testing::TestWithParam<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(Threads, OrderedWorkOn, testing::Values(1, 2, 4));

TEST_P(OrderedWorkOn, GivesResultsInOrder) {
    std::vector<int> results;
    OrderedWork<int> work(GetParam(), [&](int result) { results.push_back(result); });
    for (int i = 0; i < 100; ++i) {
        work.add([i] {
            // Early tasks take longest.
            if (i % 10 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
            return i;
        });
    }
    work.finish();
    ASSERT_EQ(results.size(), 100U);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(results[static_cast<std::size_t>(i)], i);
}

TEST_P(OrderedWorkOn, HandsOnWhatATaskThrows) {
    const auto run = [&] {
        OrderedWork<int> work(GetParam(), [](int) {});
        for (int i = 0; i < 20; ++i) {
            work.add([i]() -> int { return i == 7 ? throw std::runtime_error("seven") : i; });
        }
        work.finish();
    };
    EXPECT_THROW(run(), std::runtime_error);
}

TEST_P(OrderedWorkOn, BoundsWhatIsUnderWay) {
    std::atomic<int> begun{0};
    int taken = 0;
    int most = 0;
    OrderedWork<int> work(GetParam(), [&](int) {
        most = std::max(most, begun - taken);
        ++taken;
    });
    for (int i = 0; i < 200; ++i) work.add([&] { return ++begun; });
    work.finish();
    EXPECT_EQ(taken, 200);
    EXPECT_LE(most, 4 * static_cast<int>(GetParam()) + 1);
}

TEST(Workers, AreAsManyThreadsAsAskedForTheCallersAmongThem) {
    for (const std::size_t threads : {1U, 2U, 3U}) {
        std::set<std::thread::id> seen;
        OrderedWork<std::thread::id> work(threads, [&](std::thread::id result) { seen.insert(result); });
        for (int i = 0; i < 40; ++i) {
            work.add([] {
                std::this_thread::sleep_for(std::chrono::milliseconds(3));  // long enough for all to take part
                return std::this_thread::get_id();
            });
        }
        work.finish();
        EXPECT_EQ(seen.size(), threads);
        EXPECT_TRUE(seen.contains(std::this_thread::get_id())) << threads;
    }
}

}  // namespace

}  // namespace vantro
