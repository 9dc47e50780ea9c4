#include "cli/io/progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace vantro {

namespace {

using std::chrono::milliseconds;

TEST(ProgressLine, ShowsBarPercentageCountAndRate) {
    EXPECT_EQ(progressLine({.bytesDone = 50, .bytesInAll = 100, .count = 1234, .seconds = 2}),
              "[###############---------------]  50 %  1234 displays  617/s  2 s left");
    EXPECT_EQ(progressLine({.bytesDone = 100, .bytesInAll = 100, .count = 9, .seconds = 3}),
              "[##############################] 100 %  9 displays  3/s");
}

TEST(ProgressLine, EstimatesTheTimeLeft) {
    const auto left = [](double seconds) {
        const std::string line = progressLine({.bytesDone = 50, .bytesInAll = 100, .count = 1, .seconds = seconds});
        return line.substr(line.find("/s") + 2);
    };
    EXPECT_EQ(left(0.4), "  0 s left");
    EXPECT_EQ(left(119), "  119 s left");
    EXPECT_EQ(left(120), "  2 min left");
    EXPECT_EQ(left(3'569), "  59 min left");
    EXPECT_EQ(left(3'600), "  1 h 0 min left");
    EXPECT_EQ(left(7'500), "  2 h 5 min left");
}

TEST(ProgressLine, EstimatesNothingBeforeTheFirstByte) {
    EXPECT_EQ(progressLine({.bytesDone = 0, .bytesInAll = 100, .count = 0, .seconds = 2}),
              "[------------------------------]   0 %  0 displays  0/s");
}

TEST(ProgressLine, HasNoBarWhenTheLengthIsUnknown) {
    EXPECT_EQ(progressLine({.bytesDone = 50, .count = 10, .seconds = 2}), "10 displays  5/s");
}

TEST(ProgressLine, StaysAt100PercentWhenAFileHasGrown) {
    EXPECT_EQ(progressLine({.bytesDone = 300, .bytesInAll = 100, .count = 1}),
              "[##############################] 100 %  1 displays");
}

class ProgressShown : public testing::Test {
protected:
    std::string written_;
    Progress::Clock::time_point now_{};
    Progress progress_{200, [this](std::string_view bytes) { written_ += bytes; }, [this] { return now_; }};

    void stepAt(milliseconds time) {
        now_ = Progress::Clock::time_point(time);
        progress_.step(20, 5);
    }
};

TEST_F(ProgressShown, NothingInTheFirstSecond) {
    stepAt(milliseconds(10));
    stepAt(milliseconds(999));
    progress_.hide();
    EXPECT_EQ(written_, "");
}

TEST_F(ProgressShown, TenTimesASecondAtMost) {
    stepAt(milliseconds(1000));
    EXPECT_EQ(written_, "\r[###---------------------------]  10 %  5 displays  5/s  9 s left");
    written_.clear();
    stepAt(milliseconds(1050));
    EXPECT_EQ(written_, "");
    stepAt(milliseconds(1250));
    EXPECT_EQ(written_, "\r[#########---------------------]  30 %  15 displays  12/s  3 s left");
}

TEST_F(ProgressShown, IsErasedWhenHidden) {
    stepAt(milliseconds(1000));
    const std::size_t length = written_.size() - 1;
    written_.clear();
    progress_.hide();
    EXPECT_EQ(written_, "\r" + std::string(length, ' ') + "\r");
}

}  // namespace

}  // namespace vantro
