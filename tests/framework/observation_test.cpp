// Calls with an observer, and the watch of a call without one.
#include "framework/observation.h"

#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace vantro {
namespace {

/// Throws at the first step of this kind.
class ThrowingObserver final : public ReadingObserver {
public:
    explicit ThrowingObserver(StepKind kind) : kind_(kind) {}

    void observe(const ReadingStep& step) override {
        if (step.kind != kind_ || hasThrown_) return;
        hasThrown_ = true;
        throw std::runtime_error("observer");
    }

private:
    StepKind kind_;
    bool hasThrown_ = false;
};

/// Counts the steps, and calls an operation while it receives the first one.
class CallingObserver final : public ReadingObserver {
public:
    void observe(const ReadingStep& /*step*/) override {
        ++count;
        if (call) std::exchange(call, nullptr)();
    }

    std::function<void()> call;
    int count = 0;
};

// An observer may call the library. The texts of the call that it observes stay known.
TEST(Observation, KeepsTheTextsOfACallDuringAnotherOne) {
    BuiltInTerminal builtIn;
    CallingObserver observer;
    ObservedTerminal terminal(builtIn, &observer);
    const Text screen = u"*T* SMITH";
    const auto line = observed(&terminal, u"VerifyResponse", screen, [&] {
        Watch(terminal).readsScreen(screen);
        observer.call = [&] { observed(&terminal, u"CreateCommand", {}, [] { return Text(); }); };
        Watch(terminal).reported(errorOf(Failure::Overflow));
        return terminal.observation()->sources().lineOf(screen);
    });
    EXPECT_EQ(line, 0);
    EXPECT_EQ(observer.count, 5);  // both calls begin and end, and a report
}

// Nothing of what readers say needs an observer.
TEST(Watch, DoesNothingForACallThatNobodyObserves) {
    BuiltInTerminal terminal;
    Watch watch(terminal);
    const Text text = u"*T*";
    const JoinedPart part{text, false};
    watch.readsScreen(text);
    watch.fetched(text, 0);
    watch.copied(text, text);
    watch.joined(text, {&part, 1});
    watch.searched(u"*T*", MarkSearch::OnScreen, text);
    watch.searched(u"*T*", MarkSearch::InLine, 0, 1, text);
    watch.read(u"name", text);
    watch.read(u"text", text, 1, Family::PHI);
    watch.queryBegins(u"PHI", Family::PHI);
    watch.queryEnds(u"PHI", Family::PHI);
    watch.reported(errorOf(Failure::Overflow));
    EXPECT_FALSE(watch);
    EXPECT_EQ(terminal.observation(), nullptr);
}

TEST(Place, IsEqualToOneWithTheSameLineColumnAndLength) {
    const Place place{1, 2, 3};
    EXPECT_EQ(place, (Place{1, 2, 3}));
    EXPECT_NE(place, (Place{0, 2, 3}));
    EXPECT_NE(place, (Place{1, 1, 3}));
    EXPECT_NE(place, (Place{1, 2, 2}));
}

// The texts of a call are forgotten when the next one begins, also after a call that the observer interrupted.
TEST(Observation, ForgetsTheTextsOfACallAfterAnObserverThrew) {
    for (const StepKind kind : {StepKind::CallBegins, StepKind::CallEnds}) {
        BuiltInTerminal builtIn;
        ThrowingObserver observer(kind);
        ObservedTerminal terminal(builtIn, &observer);
        const Text screen = u"*T* SMITH";
        const auto call = [&] {
            return observed(&terminal, u"VerifyResponse", screen, [&] {
                Watch(terminal).readsScreen(screen);
                return terminal.observation()->sources().lineOf(screen);
            });
        };
        EXPECT_THROW(call(), std::runtime_error);
        EXPECT_EQ(call(), 0);
        const auto lineInNextCall = observed(&terminal, u"VerifyResponse", screen,
                                             [&] { return terminal.observation()->sources().lineOf(screen); });
        EXPECT_EQ(lineInNextCall, noLine);
    }
}

}  // namespace
}  // namespace vantro
