#include "vantro/error.h"

#include "framework/error_frame.h"
#include "tests/framework/raised.h"
#include "vantro/built_in_terminal.h"
#include "vantro/interfaces.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace vantro {
namespace {

constexpr TextView title = u"VantroProfileUtils";

struct FailureCase {
    const char* name;
    Failure failure;
    int number;
};

class FailingStep : public testing::TestWithParam<FailureCase> {};

INSTANTIATE_TEST_SUITE_P(Error, FailingStep,
                         testing::Values(FailureCase{"InvalidProcedureCall", Failure::InvalidProcedureCall, 5},
                                         FailureCase{"Overflow", Failure::Overflow, 6},
                                         FailureCase{"SubscriptOutOfRange", Failure::SubscriptOutOfRange, 9},
                                         FailureCase{"TypeMismatch", Failure::TypeMismatch, 13},
                                         FailureCase{"ObjectNotSet", Failure::ObjectNotSet, 91},
                                         FailureCase{"CannotCreateObject", Failure::CannotCreateObject, 429}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(FailingStep, HasItsNumberTheLibrarysSourceAndADescription) {
    const auto error = raised([] { fail(GetParam().failure); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), GetParam().number);
    EXPECT_EQ(error->source(), title);
    EXPECT_FALSE(error->description().empty());
}

TEST(Error, ContainsNumberSourceAndDescription) {
    const Error error(5075, u"source", u"description");
    EXPECT_EQ(error.number(), 5075);
    EXPECT_EQ(error.source(), u"source");
    EXPECT_EQ(error.description(), u"description");
}

TEST(Error, TheLogLineIsPlainAscii) {
    EXPECT_EQ(std::string_view(Error(91, u"", u"Object not set").what()), "error 91: Object not set");
    EXPECT_EQ(std::string_view(Error(7, u"", u"a\u00E9\nb").what()), "error 7: a??b");
}

TEST(ErrorFrame, ReturnsTheResultOfASuccessfulOperation) {
    EXPECT_EQ(raiseAs(5010, u"text", [] { return 42; }), 42);
    EXPECT_EQ(raiseAs(TransErrors::passesThrough, u"text", [] { return 42; }), 42);
}

TEST(ErrorFrame, TurnsAnyFailureIntoTheOperationsError) {
    for (const Failure failure : {Failure::InvalidProcedureCall, Failure::Overflow, Failure::ObjectNotSet}) {
        const auto error = raised([&] { raiseAs(5010, u"text", [&]() -> int { fail(failure); }); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), 5010);
        EXPECT_EQ(error->source(), title);
        EXPECT_EQ(error->description(), u"text");
    }
}

TEST(ErrorFrame, WithoutANumberTheStepsErrorPassesUnchanged) {
    const auto error = raised([] {
        raiseAs(TransErrors::passesThrough, u"text", []() -> int { throw Error(1234, u"elsewhere", u"its text"); });
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 1234);
    EXPECT_EQ(error->source(), u"elsewhere");
    EXPECT_EQ(error->description(), u"its text");
}

TEST(ErrorFrame, TheInnerOperationsNumberIsReplacedByTheOuterOne) {
    EXPECT_EQ(raisedNumber([] {
                  raiseAs(5500, u"outer",
                          [] { return raiseAs(5505, u"inner", []() -> int { fail(Failure::Overflow); }); });
              }),
              5500);
}

TEST(ReportedErrors, AFailingReaderIsReportedOnceAndSwallowed) {
    std::vector<int> reported;
    BuiltInTerminal terminal([&](const Error& error) { reported.push_back(error.number()); });
    EXPECT_FALSE(reportErrors(terminal, [] { fail(Failure::TypeMismatch); }));
    EXPECT_EQ(reported, std::vector<int>{13});
}

TEST(ReportedErrors, ASuccessfulReaderReportsNothing) {
    std::vector<int> reported;
    BuiltInTerminal terminal([&](const Error& error) { reported.push_back(error.number()); });
    bool ran = false;
    EXPECT_TRUE(reportErrors(terminal, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(reported.empty());
}

TEST(Descriptions, AreTheFixedOnes) {
    EXPECT_EQ(description::creatingCommand, u"An error has occurred while creating a profile command.");
    EXPECT_EQ(description::verifyingProfile, u"An error has occurred while verifying the profile.");
    EXPECT_EQ(description::readingNotes, u"An error has occurred while reading Profile Notes");
}

}  // namespace
}  // namespace vantro
