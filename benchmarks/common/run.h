// Runs the benchmarks of a program and prints the ratios after Google Benchmark's own table.
#pragma once

#include <span>
#include <string_view>

#include <benchmark/benchmark.h>

namespace vantro::bench {

/// "The contender takes at most `target` times as long as the baseline"; both are names of benchmarks.
struct Ratio {
    std::string_view contender;
    std::string_view baseline;
    double target;  ///< 0 for a ratio that is only shown
};

/// Accepts Google Benchmark's arguments and `--record=FILE`, which appends the times and ratios to a file of
/// tab-separated lines for the report. Times are medians over the repetitions.
int run(std::string_view task, int argc, char** argv, std::span<const Ratio> ratios);

/// Registers a benchmark whose iteration is one pass over all displays; shown and compared is the time per display.
/// `pass` takes no argument.
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

/// Appends a figure that is not a time to the record, with its highest allowed value.
void recordFigure(std::string_view name, double value, double target);

/// Processor time of this process in seconds.
double processorSeconds();

}  // namespace vantro::bench
