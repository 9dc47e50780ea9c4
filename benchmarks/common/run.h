// Runs the benchmarks of a program and prints, under Google Benchmark's own table, what was measured against what.
#pragma once

#include <span>
#include <string_view>

#include <benchmark/benchmark.h>

namespace vantro::bench {

/// "Contender takes at most `target` times the baseline"; both are names of benchmarks.
struct Ratio {
    std::string_view contender;
    std::string_view baseline;
    double target;  ///< 0 for a ratio that is only shown
};

/// Takes Google Benchmark's arguments and `--record=FILE`, which adds the times and ratios to a file of tab-separated
/// lines for the report. Times are medians over the repetitions.
int run(std::string_view task, int argc, char** argv, std::span<const Ratio> ratios);

/// Registers a benchmark whose iteration is one pass over all displays; what is shown and compared is the time
/// of one display. `pass` takes no argument.
template <class Pass>
benchmark::internal::Benchmark* overDisplays(const char* name, double displayCount, Pass pass) {
    return benchmark::RegisterBenchmark(name,
                                        [=](benchmark::State& state) {
                                            for (auto _ : state) pass();
                                            using benchmark::Counter;
                                            state.counters["display"] = Counter(
                                                displayCount, Counter::kIsIterationInvariantRate | Counter::kInvert);
                                        })
        ->Unit(benchmark::kMillisecond);
}

/// A line of the record beside times and ratios: a figure that is not a time, with what it may be at most.
void recordFigure(std::string_view name, double value, double target);

/// Processor time of this process in seconds.
double processorSeconds();

}  // namespace vantro::bench
