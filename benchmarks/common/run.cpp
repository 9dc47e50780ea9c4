#include "common/run.h"

#include <cstdio>
#include <ctime>
#include <map>
#include <string>
#include <vector>

namespace vantro::bench {

namespace {

/// The console's table. Keeps the medians by name, or the single times where nothing is repeated.
class CollectingReporter final : public benchmark::ConsoleReporter {
public:
    CollectingReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const bool isMedian = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if (isMedian || run.run_type == Run::RT_Iteration) times_[run.run_name.function_name] = perItem(run);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::map<std::string, double>& times() const { return times_; }

    /// In seconds; 0 when the benchmark did not run.
    double time(std::string_view name) const {
        const auto found = times_.find(std::string(name));
        return found == times_.end() ? 0 : found->second;
    }

private:
    // With a "display" counter the time per display, else per iteration.
    static double perItem(const Run& run) {
        const auto counter = run.counters.find("display");
        if (counter != run.counters.end()) return counter->second.value;
        const bool byHand = run.run_name.time_type == "manual_time";
        const double adjusted = byHand ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        return adjusted / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }

    std::map<std::string, double> times_;
};

struct Figure {
    std::string name;
    double value;
    double target;
};

std::vector<Figure>& figures() {
    static std::vector<Figure> all;
    return all;
}

/// The `--record=FILE` argument, removed from the arguments.
std::string takeRecordArgument(int& argc, char** argv) {
    constexpr std::string_view option = "--record=";
    std::string file;
    int kept = 0;
    for (int i = 0; i < argc; ++i) {
        if (std::string_view(argv[i]).starts_with(option)) {
            file = argv[i] + option.size();
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    return file;
}

int width(std::string_view text) { return static_cast<int>(text.size()); }

void print(const CollectingReporter& reporter, std::span<const Ratio> ratios) {
    std::printf("\n%-40s %11s   %-34s %11s   %6s %7s\n", "contender", "us", "against", "us", "ratio", "target");
    for (const Ratio& ratio : ratios) {
        const double ours = reporter.time(ratio.contender);
        const double theirs = reporter.time(ratio.baseline);
        if (ours <= 0 || theirs <= 0) continue;
        std::printf("%-40.*s %11.3f   %-34.*s %11.3f   %6.2f ", width(ratio.contender), ratio.contender.data(),
                    ours * 1e6, width(ratio.baseline), ratio.baseline.data(), theirs * 1e6, ours / theirs);
        if (ratio.target > 0) std::printf("%7.2f%s", ratio.target, ours / theirs <= ratio.target ? "" : "  missed");
        std::printf("\n");
    }
    for (const Figure& figure : figures()) {
        std::printf("%-60s %8.2f  (at most %.2f)\n", figure.name.c_str(), figure.value, figure.target);
    }
}

void record(const std::string& path, std::string_view task, const CollectingReporter& reporter,
            std::span<const Ratio> ratios) {
    std::FILE* const file = std::fopen(path.c_str(), "a");
    if (file == nullptr) return std::perror(path.c_str());
    for (const auto& [name, seconds] : reporter.times()) {
        std::fprintf(file, "time\t%.*s\t%s\t%.9g\n", width(task), task.data(), name.c_str(), seconds);
    }
    for (const Ratio& ratio : ratios) {
        std::fprintf(file, "ratio\t%.*s\t%.*s\t%.*s\t%g\n", width(task), task.data(), width(ratio.contender),
                     ratio.contender.data(), width(ratio.baseline), ratio.baseline.data(), ratio.target);
    }
    for (const Figure& figure : figures()) {
        std::fprintf(file, "figure\t%.*s\t%s\t%g\t%g\n", width(task), task.data(), figure.name.c_str(), figure.value,
                     figure.target);
    }
    std::fclose(file);
}

}  // namespace

int run(std::string_view task, int argc, char** argv, std::span<const Ratio> ratios) {
    const std::string recordFile = takeRecordArgument(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    print(reporter, ratios);
    if (!recordFile.empty()) record(recordFile, task, reporter, ratios);
    benchmark::Shutdown();
    return 0;
}

void recordFigure(std::string_view name, double value, double target) {
    figures().push_back({std::string(name), value, target});
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace vantro::bench
