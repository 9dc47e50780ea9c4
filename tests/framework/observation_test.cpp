// Calls with an observer that throws.
#include "framework/observation.h"

#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <stdexcept>

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
