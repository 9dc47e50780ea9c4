#include "cli/io/warnings.h"

#include "cli/io/failure.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

TEST(Warnings, AreOneSentencePerLineOnStandardError) {
    Warnings warnings;
    testing::internal::CaptureStderr();
    warnings.add("line 3 contains a tab");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "vantro-profile: warning: line 3 contains a tab.\n");
}

TEST(Warnings, AreCountedAndNotPrintedWhenQuiet) {
    Warnings warnings(true);
    testing::internal::CaptureStderr();
    warnings.add("line 3 contains a tab");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(warnings.statusAfter(success, true), warned);
}

TEST(Warnings, ChangeTheStatusOnlyOfAStrictRunThatSucceeded) {
    Warnings warnings;
    EXPECT_EQ(warnings.statusAfter(success, true), success);
    testing::internal::CaptureStderr();
    warnings.add("line 3 contains a tab");
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(warnings.count(), 1U);
    EXPECT_EQ(warnings.statusAfter(success, false), success);
    EXPECT_EQ(warnings.statusAfter(success, true), warned);
    EXPECT_EQ(warnings.statusAfter(callFailed, true), callFailed);
}

}  // namespace
}  // namespace vantro
