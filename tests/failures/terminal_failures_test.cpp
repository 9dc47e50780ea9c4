// A terminal that fails at its k-th call, k = 1, 2, 3, ... until the operation needs no further one, in every way in
// which a call can fail.
#include "tests/failures/outcome.h"

#include <gtest/gtest.h>

#include <iostream>

namespace vantro::test {
namespace {

constexpr FailureKind raising[] = {FailureKind::TerminalsError, FailureKind::StandardException,
                                   FailureKind::NoException, FailureKind::OutOfMemory};

/// One input with all its failures. Stops at the first that has not the consequence of the rules.
class Tried {
public:
    explicit Tried(const Input& input) : input_(input), sound_(Calling(input).call()) {}

    void failEveryCall() {
        for (std::size_t call = 0; call < sound_.calls.size(); ++call) {
            for (const FailureKind kind : raising) ASSERT_NO_FATAL_FAILURE(failCall(call, kind));
            if (!sound_.calls[call].starts_with("Item ")) continue;
            ASSERT_NO_FATAL_FAILURE(failCall(call, FailureKind::WrongKind));
            ASSERT_NO_FATAL_FAILURE(findNothing(call));
        }
    }

    void failEveryReport() {
        for (std::size_t call = 0; call < sound_.calls.size(); ++call) {
            const Consequence due = consequence(input_, sound_.calls, call);
            if (!isReported(due) || !sound_.reports.empty()) continue;
            for (const FailureKind kind : raising) ASSERT_NO_FATAL_FAILURE(failReports(call, kind, due));
        }
    }

    int tried() const { return tried_; }

private:
    static bool isReported(const Consequence& due) { return due.fate != Fate::Raises && due.fate != Fate::Passes; }

    static Failing failing(std::size_t call, FailureKind kind, int reports = 0) {
        return {static_cast<int>(call) + 1, kind, reports};
    }

    std::string place(std::size_t call, FailureKind kind) const {
        return input_.name + ": call " + std::to_string(call + 1) + ", " + sound_.calls[call] + ", fails in way " +
               std::to_string(static_cast<int>(kind));
    }

    void failCall(std::size_t call, FailureKind kind) {
        const Consequence due = consequence(input_, sound_.calls, call);
        if (isReported(due) && !sound_.reports.empty()) return;  // a second failure stands in the way of this one
        SCOPED_TRACE(place(call, kind));
        Calling calling(input_, failing(call, kind));
        const Outcome outcome = calling.call();
        ++tried_;
        switch (due.fate) {
            case Fate::Raises:
                expectRaised(outcome, described(due.number, ownSource, due.description), call, kind);
                break;
            case Fate::Passes: expectRaised(outcome, thrownAs(kind), call, kind); break;
            case Fate::Stops: expectReported(outcome, kind, 1, addedKeys(sound_.calls, call)); break;
            case Fate::GoesOn: expectReported(outcome, kind, 1, addedKeys(sound_.calls, sound_.calls.size())); break;
            case Fate::StopsTwice: expectReported(outcome, kind, 2, {}); break;
        }
        expectGivenCollection(outcome, call);
        if (kind == FailureKind::TerminalsError) {
            const Outcome again = calling.call();
            EXPECT_TRUE(again.sameAnswer(sound_)) << "the failure left something behind: " << again.thrown;
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    // Nothing is done after the failing call.
    void expectRaised(const Outcome& outcome, const std::string& thrown, std::size_t call, FailureKind kind) {
        EXPECT_EQ(outcome.thrown, thrown);
        EXPECT_FALSE(outcome.gaveCollection);
        EXPECT_TRUE(outcome.reports.empty());
        const std::size_t made = kind == FailureKind::WrongKind ? call + 2 : call + 1;  // the next call cannot read it
        EXPECT_EQ(outcome.calls, Calls(sound_.calls.begin(), sound_.calls.begin() + static_cast<std::ptrdiff_t>(made)));
    }

    void expectReported(const Outcome& outcome, FailureKind kind, std::size_t reports,
                        const std::vector<std::string>& keys) {
        EXPECT_EQ(outcome.thrown, "");
        ASSERT_EQ(outcome.reports.size(), reports);
        EXPECT_EQ(outcome.reports[0], reportedAs(kind));
        for (const std::string& given : outcome.givenToReports) EXPECT_EQ(given, givenToReports());
        if (input_.operation == Operation::Count) {
            EXPECT_EQ(outcome.count, 0);
            return;
        }
        EXPECT_TRUE(outcome.gaveCollection);
        std::vector<std::string> found;
        for (const Entry& entry : outcome.results) found.push_back(printedKey(entry));
        EXPECT_EQ(found, keys);
        // A reader that has added a key had read all of its value.
        if (keys.size() < sound_.results.size()) {
            const Entries begun(sound_.results.begin(),
                                sound_.results.begin() + static_cast<std::ptrdiff_t>(keys.size()));
            EXPECT_EQ(outcome.results, begun);
        }
    }

    static std::string printedKey(const Entry& entry) {
        std::string key;
        for (const char16_t character : entry.key) key.push_back(static_cast<char>(character));
        return key;
    }

    std::string givenToReports() const {
        const bool isLinked = input_.className == u"CRLPTrans";
        return isLinked ? described(transRule("CRLPTrans").reported, ownSource, verifyingProfile) : std::string();
    }

    // The keys added to the given collection before the failure stay, with their values.
    void expectGivenCollection(const Outcome& outcome, std::size_t call) {
        Entries begun = sound_.added;
        const std::size_t added = addedKeys(sound_.calls, call).size();
        if (added < begun.size()) begun.resize(added, Entry(u"", false));
        EXPECT_EQ(outcome.added, begun);
    }

    // An item that is absent is a key that is not there.
    void findNothing(std::size_t call) {
        Input without = input_;
        const std::string key = sound_.calls[call].substr(sound_.calls[call].find(' ') + 1);
        std::erase_if(*without.collection, [&](const Entry& entry) { return printedKey(entry) == key; });
        const Outcome outcome = Calling(input_, failing(call, FailureKind::AbsentItem)).call();
        ++tried_;
        SCOPED_TRACE(place(call, FailureKind::AbsentItem));
        Outcome due = Calling(without).call();
        EXPECT_TRUE(outcome.sameAnswer(due)) << outcome.thrown << " instead of " << due.thrown;
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    void failReports(std::size_t call, FailureKind kind, const Consequence& due) {
        constexpr int all = 1000;
        SCOPED_TRACE(place(call, kind) + ", and so does its report");
        const Outcome none = Calling(input_, failing(call, kind, all)).call();
        const Outcome notTheFirst = Calling(input_, failing(call, kind, 1)).call();
        tried_ += 2;
        expectUnreported(none, kind);
        if (due.isInner) {
            // The outer reader reports the failure of the inner one's report.
            expectReported(notTheFirst, kind, 1, addedKeys(sound_.calls, call));
        } else {
            expectUnreported(notTheFirst, kind);
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }

    void expectUnreported(const Outcome& outcome, FailureKind kind) {
        const std::string className = printedKey(Entry(input_.className, false));
        const int number = input_.operation == Operation::Count ? passes : transRule(className).verify;
        EXPECT_EQ(outcome.thrown, number == passes ? thrownAs(kind) : described(number, ownSource, verifyingProfile));
        EXPECT_FALSE(outcome.gaveCollection);
        EXPECT_TRUE(outcome.reports.empty());
    }

    const Input& input_;
    Outcome sound_;
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

TEST(FailingTerminal, EveryCallOfEveryTransactionHasItsConsequence) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(exchangeInputs()));
}

class FailingTerminalUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Sample, FailingTerminalUnder,
                         testing::Values("every_family", "header_pf24", "minimal", "odd_notes", "odd_prompt",
                                         "prompt_only"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST_P(FailingTerminalUnder, EveryCallOfEveryQueryHasItsConsequence) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(queryInputs(GetParam())));
}

TEST_P(FailingTerminalUnder, EveryCallOfEveryCountHasItsConsequence) {
    ASSERT_NO_FATAL_FAILURE(failEveryCallOf(countInputs(GetParam())));
}

TEST(FailingReporter, AFailureThatCannotBeReportedIsTheOperations) {
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
