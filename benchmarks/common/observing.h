// Observers as contenders. A library from before observers existed is measured without them.
#pragma once

#if __has_include("vantro/explanation.h")
#define VANTRO_BENCH_OBSERVERS 1

#include "vantro/explanation.h"
#include "vantro/observer.h"

#include <cstddef>

namespace vantro::bench {

/// Looks at every step and keeps none.
class StepCounter final : public ReadingObserver {
public:
    void observe(const ReadingStep& step) override { count_ += step.pieces.size() + 1; }
    std::size_t count() const { return count_; }

private:
    std::size_t count_ = 0;
};

}  // namespace vantro::bench

#else
#define VANTRO_BENCH_OBSERVERS 0
#endif
