#include "cli/io/ordered_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace vantro {

namespace {

void sleepFor(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

/// The numbers from 0 on.
auto upTo(int end) {
    return [number = 0, end]() mutable { return number < end ? std::optional(number++) : std::nullopt; };
}

class OrderedWorkOn : public testing::TestWithParam<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(Threads, OrderedWorkOn, testing::Values(1, 2, 4));

TEST_P(OrderedWorkOn, ReturnsResultsInOrder) {
    std::vector<int> results;
    const auto work = [](int number) {
        if (number % 10 == 0) sleepFor(2);  // early tasks take longest
        return number;
    };
    workInOrder(GetParam(), upTo(100), work, [&](int result) { results.push_back(result); });
    ASSERT_EQ(results.size(), 100U);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(results[static_cast<std::size_t>(i)], i);
}

TEST_P(OrderedWorkOn, WithoutTasksItEnds) {
    workInOrder(
        GetParam(), upTo(0), [](int number) { return number; }, [](int /*result*/) { FAIL(); });
}

TEST_P(OrderedWorkOn, AnExceptionEndsTheWorkAndIsRethrown) {
    const auto failingAt = [](int wanted) {
        return [wanted](int number) { return number == wanted ? throw std::runtime_error("seven") : number; };
    };
    const auto sound = failingAt(-1);
    const auto run = [&](auto next, const std::function<int(int)>& work, const std::function<int(int)>& take) {
        workInOrder(GetParam(), next, work, [&take](int result) { take(result); });
    };
    EXPECT_THROW(run(upTo(200), failingAt(7), sound), std::runtime_error);
    EXPECT_THROW(run(upTo(200), sound, failingAt(7)), std::runtime_error);
    const auto broken = [next = upTo(200)]() mutable {
        const auto number = next();
        return number == 7 ? throw std::runtime_error("seven") : number;
    };
    EXPECT_THROW(run(broken, sound, sound), std::runtime_error);
    EXPECT_NO_THROW(run(upTo(200), sound, sound));
}

TEST_P(OrderedWorkOn, BoundsTheTasksInProgress) {
    std::atomic<int> begun{0};
    int taken = 0;
    int most = 0;
    const auto work = [&](int number) {
        ++begun;
        if (number % 20 == 0) sleepFor(2);  // the other threads could run far ahead of it
        return number;
    };
    workInOrder(GetParam(), upTo(400), work, [&](int /*result*/) {
        most = std::max(most, begun - taken);
        ++taken;
    });
    EXPECT_EQ(taken, 400);
    EXPECT_LE(most, 4 * static_cast<int>(GetParam()));
}

TEST_P(OrderedWorkOn, IsDoneByThatManyThreadsIncludingTheCallers) {
    std::set<std::thread::id> seen;
    const auto work = [](int /*number*/) {
        sleepFor(3);  // long enough for all to take part
        return std::this_thread::get_id();
    };
    workInOrder(GetParam(), upTo(40), work, [&](std::thread::id thread) { seen.insert(thread); });
    EXPECT_EQ(seen.size(), GetParam());
    EXPECT_TRUE(seen.contains(std::this_thread::get_id()));
}

}  // namespace

}  // namespace vantro
