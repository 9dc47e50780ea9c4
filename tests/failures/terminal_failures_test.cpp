// The terminal fails at its k-th call, k = 1, 2, 3, ... until the operation needs no further one, in every way in which
// a call can fail.
#include "tests/failures/outcome.h"
#include "tests/support/text.h"
#include "vantro/families.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

namespace vantro::test {
namespace {

constexpr FailureKind raising[] = {FailureKind::TerminalsError, FailureKind::StandardException,
                                   FailureKind::NoException, FailureKind::OutOfMemory};

/// One input with all its failures. Stops at the first outcome that differs from the rules.
class Tried {
public:
    explicit Tried(const Input& input) : input_(input), normal_(Calling(input).call()) {}

    void failEveryCall() {
        for (std::size_t call = 0; call < normal_.calls.size(); ++call) {
            for (const FailureKind kind : raising) ASSERT_NO_FATAL_FAILURE(failCall(call, kind));
            if (!normal_.calls[call].starts_with("Item ")) continue;
            ASSERT_NO_FATAL_FAILURE(failCall(call, FailureKind::WrongKind));
            ASSERT_NO_FATAL_FAILURE(findNothing(call));
        }
    }

    void failEveryReport() {
        for (std::size_t call = 0; call < normal_.calls.size(); ++call) {
            const Consequence expected = consequence(input_, normal_.calls, call);
            if (!isReported(expected) || !normal_.reports.empty()) continue;
            for (const FailureKind kind : raising) ASSERT_NO_FATAL_FAILURE(failReports(call, kind, expected));
        }
    }

    int tried() const { return tried_; }

private:
    static bool isReported(const Consequence& expected) {
        return expected.fate != Fate::Raises && expected.fate != Fate::Passes;
    }

    static Failing failing(std::size_t call, FailureKind kind, int reports = 0) {
        return {static_cast<int>(call) + 1, kind, reports};
    }

    std::string description(std::size_t call, FailureKind kind) const {
        return input_.name + ": call " + std::to_string(call + 1) + ", " + normal_.calls[call] + ", fails in way " +
               std::to_string(static_cast<int>(kind));
    }

    void failCall(std::size_t call, FailureKind kind) {
        const Consequence expected = consequence(input_, normal_.calls, call);
        if (isReported(expected) && !normal_.reports.empty()) return;  // another failure prevents this one
        SCOPED_TRACE(description(call, kind));
        Calling calling(input_, failing(call, kind));
        const Outcome outcome = calling.call();
        ++tried_;
        switch (expected.fate) {
            case Fate::Raises:
                expectRaised(outcome, described(expected.number, ownSource, expected.description), call, kind);
                break;
            case Fate::Passes: expectRaised(outcome, thrownAs(kind), call, kind); break;
            case Fate::Stops: expectReported(outcome, kind, 1, addedKeys(normal_.calls, call)); break;
            case Fate::GoesOn: expectReported(outcome, kind, 1, addedKeys(normal_.calls, normal_.calls.size())); break;
            case Fate::StopsTwice: expectReported(outcome, kind, 2, {}); break;
        }
        expectParameters(outcome, call);
        if (kind == FailureKind::TerminalsError) {
            const Outcome again = calling.call();
            EXPECT_TRUE(again.sameAnswer(normal_)) << "the failure had a lasting effect: " << again.thrown;
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    // Nothing is done after the failing call.
    void expectRaised(const Outcome& outcome, const std::string& thrown, std::size_t call, FailureKind kind) {
        EXPECT_EQ(outcome.thrown, thrown);
        EXPECT_FALSE(outcome.returnedCollection);
        EXPECT_TRUE(outcome.reports.empty());
        const std::size_t made = kind == FailureKind::WrongKind ? call + 2 : call + 1;  // the next call cannot read it
        EXPECT_EQ(outcome.calls,
                  Calls(normal_.calls.begin(), normal_.calls.begin() + static_cast<std::ptrdiff_t>(made)));
    }

    void expectReported(const Outcome& outcome, FailureKind kind, std::size_t reports,
                        const std::vector<std::string>& keys) {
        EXPECT_EQ(outcome.thrown, "");
        ASSERT_EQ(outcome.reports.size(), reports);
        EXPECT_EQ(outcome.reports[0], reportedAs(kind));
        for (const std::string& given : outcome.reportArguments) EXPECT_EQ(given, reportArguments());
        if (input_.operation == Operation::Count) {
            EXPECT_EQ(outcome.count, 0);
            return;
        }
        EXPECT_TRUE(outcome.returnedCollection);
        std::vector<std::string> found;
        for (const Entry& entry : outcome.results) found.push_back(printedKey(entry));
        EXPECT_EQ(found, keys);
        // A reader that has added a key had read its whole value.
        if (keys.size() < normal_.results.size()) {
            const Entries begun(normal_.results.begin(),
                                normal_.results.begin() + static_cast<std::ptrdiff_t>(keys.size()));
            EXPECT_EQ(outcome.results, begun);
        }
    }

    static std::string printedKey(const Entry& entry) {
        std::string key;
        for (const char16_t character : entry.key) key.push_back(static_cast<char>(character));
        return key;
    }

    std::string reportArguments() const {
        const bool isLinked = input_.className == u"CRLPTrans";
        return isLinked ? described(transRule("CRLPTrans").reported, ownSource, verifyingProfile) : std::string();
    }

    // The keys added before the failure stay in the collection with their values.
    void expectParameters(const Outcome& outcome, std::size_t call) {
        Entries begun = normal_.added;
        const std::size_t added = addedKeys(normal_.calls, call).size();
        if (added < begun.size()) begun.resize(added, Entry(u"", false));
        EXPECT_EQ(outcome.added, begun);
    }

    // An absent item is the same as an absent key.
    void findNothing(std::size_t call) {
        Input without = input_;
        const std::string key = normal_.calls[call].substr(normal_.calls[call].find(' ') + 1);
        std::erase_if(*without.collection, [&](const Entry& entry) { return printedKey(entry) == key; });
        const Outcome outcome = Calling(input_, failing(call, FailureKind::AbsentItem)).call();
        ++tried_;
        SCOPED_TRACE(description(call, FailureKind::AbsentItem));
        Outcome expected = Calling(without).call();
        EXPECT_TRUE(outcome.sameAnswer(expected)) << outcome.thrown << " instead of " << expected.thrown;
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    void failReports(std::size_t call, FailureKind kind, const Consequence& expected) {
        constexpr int all = 1000;
        SCOPED_TRACE(description(call, kind) + ", and so does its report");
        const Outcome none = Calling(input_, failing(call, kind, all)).call();
        const Outcome firstReportFails = Calling(input_, failing(call, kind, 1)).call();
        tried_ += 2;
        expectUnreported(none, kind);
        if (expected.isInner) {
            // The outer reader reports the failed report of the inner one.
            expectReported(firstReportFails, kind, 1, addedKeys(normal_.calls, call));
        } else {
            expectUnreported(firstReportFails, kind);
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    void expectUnreported(const Outcome& outcome, FailureKind kind) {
        const std::string className = printedKey(Entry(input_.className, false));
        const int number = input_.operation == Operation::Count ? passes : transRule(className).verify;
        EXPECT_EQ(outcome.thrown, number == passes ? thrownAs(kind) : described(number, ownSource, verifyingProfile));
        EXPECT_FALSE(outcome.returnedCollection);
        EXPECT_TRUE(outcome.reports.empty());
    }

    const Input& input_;
    Outcome normal_;
    int tried_ = 0;
};

void failEveryCallOf(const std::vector<Input>& inputs) {
    int tried = 0;
    for (const Input& input : inputs) {
        Tried one(input);
        ASSERT_NO_FATAL_FAILURE(one.failEveryCall()) << input.name;
        tried += one.tried();
    }
    std::cout << inputs.size() << " inputs, " << tried << " failures\n";
}

TEST(FailureRules, HaveARowForEveryTransactionAndFamily) {
    for (const ClassRow& row : classTable()) {
        const int wanted = row.hasProfileTrans ? 1 : 0;
        EXPECT_EQ(std::ranges::count(transRules, utf8(row.name), &TransRule::className), wanted) << utf8(row.name);
    }
    for (const FamilyFacts& family : families()) {
        EXPECT_EQ(std::ranges::count(familyRules, utf8(family.word), &FamilyRule::prefix), 1) << utf8(family.word);
    }
}

TEST(FailingTerminal, EveryFailingCallOfATransactionHasTheDocumentedOutcome) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(exchangeInputs()));
}

class FailingTerminalUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Sample, FailingTerminalUnder,
                         testing::Values("every_family", "header_pf24", "minimal", "odd_notes", "odd_prompt",
                                         "prompt_only"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST_P(FailingTerminalUnder, EveryFailingCallOfAQueryHasTheDocumentedOutcome) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(queryInputs(GetParam())));
}

TEST_P(FailingTerminalUnder, EveryFailingCallOfACountHasTheDocumentedOutcome) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(countInputs(GetParam())));
}

TEST(FailingReporter, AFailureThatCannotBeReportedIsRaised) {
    int tried = 0;
    for (const Input& input : exchangeInputs()) {
        Tried one(input);
        ASSERT_NO_FATAL_FAILURE(one.failEveryReport()) << input.name;
        tried += one.tried();
    }
    std::cout << tried << " failures\n";
    EXPECT_GT(tried, 0);
}

}  // namespace
}  // namespace vantro::test
