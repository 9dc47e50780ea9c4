#include "common/alternating.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace vantro::bench {

namespace {

constexpr std::size_t slices = 50;

/// Contenders whose pass takes longer, in seconds, run in fewer rounds.
constexpr double longPass = 0.04;

/// Processor time of this process, so that other programs on the machine count less.
double processorSeconds() {
    std::timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Keeps the allocator from returning memory to the system. In a program that has other things in memory it hardly ever
/// does; here it would for every few displays, within the timed part. The second setting is for large blocks, which
/// the allocator returns at once when the first one is changed.
void keepFreedMemory() {
#if defined(__GLIBC__)
    constexpr int everything = 1 << 30;
    constexpr int mostFromHeap = 1 << 25;  // the most that is accepted
    mallopt(M_TRIM_THRESHOLD, everything);
    mallopt(M_MMAP_THRESHOLD, mostFromHeap);
#endif
}

bool takes(std::string_view argument, std::string_view option, std::string& value) {
    if (!argument.starts_with(option)) return false;
    value = argument.substr(option.size());
    return true;
}

}  // namespace

Alternating::Alternating(std::string_view task, int argc, char** argv) : task_(task) {
    keepFreedMemory();
    for (int i = 1; i < argc; ++i) {
        std::string rounds;
        if (takes(argv[i], "--rounds=", rounds)) {
            rounds_ = std::max(1, std::atoi(rounds.c_str()));
        } else if (!takes(argv[i], "--record=", recordFile_)) {
            std::fprintf(stderr, "Usage: %s [--record=FILE] [--rounds=N]\n", argv[0]);
            std::exit(2);
        }
    }
}

void Alternating::add(std::string name, Pass pass, std::function<void()> prepare) {
    contenders_.push_back({std::move(name), std::move(pass), std::move(prepare), {}});
}

void Alternating::runOnce(Contender& contender, std::size_t inputs) {
    const std::size_t count = std::min(slices, inputs);
    contender.times.resize(count);
    if (contender.prepare) contender.prepare();
    for (std::size_t i = 0; i < count; ++i) {
        const double start = processorSeconds();
        contender.pass(inputs * i / count, inputs * (i + 1) / count);
        contender.times[i].push_back(processorSeconds() - start);
    }
}

void Alternating::run(std::string_view group, std::size_t inputs) {
    for (Contender& contender : contenders_) {
        const double start = processorSeconds();
        runOnce(contender, inputs);
        contender.interval = std::max(1, static_cast<int>((processorSeconds() - start) / longPass));
    }
    std::vector<Contender*> order;
    for (Contender& contender : contenders_) order.push_back(&contender);
    std::mt19937 random;  // the same order in every run of the program
    for (int round = 0; round < rounds_; ++round) {
        std::shuffle(order.begin(), order.end(), random);
        for (Contender* const contender : order) {
            if (round % contender->interval == 0) runOnce(*contender, inputs);
        }
    }
    std::printf("%-60.*s %12s %12s\n", static_cast<int>(group.size()), group.data(), "best, us", "median, us");
    for (Contender& contender : contenders_) report(contender, group, static_cast<double>(inputs));
    std::printf("\n");
    std::fflush(stdout);
    contenders_.clear();
}

void Alternating::report(Contender& contender, std::string_view group, double inputs) const {
    double best = 0;
    double median = 0;
    for (std::vector<double>& slice : contender.times) {
        std::sort(slice.begin(), slice.end());
        best += slice.front() / inputs;
        median += slice[slice.size() / 2] / inputs;
    }
    std::printf("  %-58s %12.3f %12.3f\n", contender.name.c_str(), best * 1e6, median * 1e6);
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, "%.9g\t%.9g", best, median);
    write("time\t" + task_ + "\t" + std::string(group) + "\t" + contender.name + "\t" + numbers);
}

void Alternating::figure(std::string_view name, double value) {
    std::printf("%-60.*s %12g\n", static_cast<int>(name.size()), name.data(), value);
    char number[32];
    std::snprintf(number, sizeof number, "%.9g", value);
    write("figure\t" + task_ + "\t" + std::string(name) + "\t" + number);
}

void Alternating::write(const std::string& line) const {
    if (recordFile_.empty()) return;
    std::FILE* const file = std::fopen(recordFile_.c_str(), "a");
    if (file == nullptr) {
        std::perror(recordFile_.c_str());
        std::exit(1);
    }
    std::fprintf(file, "%s\n", line.c_str());
    std::fclose(file);
}

}  // namespace vantro::bench
