// Time against the length of the display, and the cost of a display without an end marker.
#include "common/displays.h"
#include "common/element_set.h"
#include "common/lines.h"
#include "common/run.h"
#include "one_family/scanner.h"
#include "whole_profile/lean_scanner.h"

#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <cstdio>
#include <map>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr std::size_t lengths[] = {24, 50, 100, 200, 400, 1000, 3000, 10'000, 30'000};

const Display& displayOf(std::size_t lines) {
    static std::map<std::size_t, Display> made;
    const auto found = made.find(lines);
    return found != made.end() ? found->second : made.emplace(lines, displayOfLines(lines, 7)).first->second;
}

/// A display without its last line, which has the end marker.
const Text& endlessDisplay() {
    static const Text text = [] {
        Text display = displayOf(200).utf16;
        display.resize((display.size() - 1) / 80 * 80);
        return display;
    }();
    return text;
}

/// Only the first lines of a display: every query runs on to the last line number.
const Text& brokenOffDisplay() {
    static const Text text = endlessDisplay().substr(0, std::size_t{4} * 80);
    return text;
}

/// An object of a class with count properties.
class Counting {
public:
    explicit Counting(TextView className) : row_(*findClass(className)), object_(createObject(row_, terminal_)) {}

    /// -1 for a failed count.
    int count(TextView property, TextView display) {
        try {
            return findCount(row_, property)->call(*object_, {display, {}, {}});
        } catch (const Error&) {
            return -1;
        }
    }

private:
    BuiltInTerminal terminal_;
    const ClassRow& row_;
    std::unique_ptr<ProfileObject> object_;
};

Counting& profiles() {
    static Counting the(u"CProfile");
    return the;
}

Counting& profileNotes() {
    static Counting the(u"CProfileNotes");
    return the;
}

/// Fetches, trims and tests all 16-bit line numbers: the least that a search costs which runs on to the last line
/// number of a display without an end.
std::size_t sweepEmptyLines(View display) {
    std::size_t empty = 0;
    for (std::int32_t number = 0; number <= 32767; ++number) {
        const View line = rightTrimmed(screenLine(display, static_cast<std::size_t>(number)));
        benchmark::DoNotOptimize(line.data());
        if (findUnit(line, u'>') != View::npos || line.find(endOfDisplay) != View::npos) break;
        if (line.find(u"------- PRIORITY") == View::npos) ++empty;
    }
    return empty;
}

void checkAll() {
    for (const std::size_t lines : lengths) {
        const Text& display = displayOf(lines).utf16;
        requireEqual("the generator", lines, lineCount(display) == lines ? "" : "the display has another length");
        ScannedTexts scanned;
        scanned.prepare(0);
        scanLean<Depth::Everything>(display, scanned);
        requireEqual("by hand", lines, difference(elementSetOf(parseProfile(display)), elementSetOf(scanned)));
    }
    // Past the end every line is blank, so only the overflow of the line number ends a search.
    const bool fails = profiles().count(u"PPRElementsCount", brokenOffDisplay()) == -1 &&
                       profileNotes().count(u"ProfileNotesElementsCount", endlessDisplay()) == -1 &&
                       !parseProfile(endlessDisplay()).problems.empty() &&
                       parseProfile(brokenOffDisplay()).problems.size() >= familyCount;
    requireEqual("a display without an end", 0, fails ? "" : "the search did not run to the last line number");
    requireEqual("the sweep", 0, sweepEmptyLines(brokenOffDisplay()) > 32'700 ? "" : "stopped early");
    std::printf("displays of %zu to %zu lines; all contenders agree\n\n", *std::begin(lengths),
                *(std::end(lengths) - 1));
}

std::string named(const char* what, std::size_t lines) { return what + (", " + std::to_string(lines) + " lines"); }

template <class Work>
void add(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
        for (auto _ : state) work();
    })->Unit(benchmark::kMicrosecond);
}

void registerAll() {
    for (const std::size_t lines : lengths) {
        const Text& display = displayOf(lines).utf16;
        add(named("parseProfile", lines), [&display] { benchmark::DoNotOptimize(parseProfile(display)); });
        add(named("by hand", lines), [&display] {
            ScannedTexts result;
            scanLean<Depth::Everything>(display, result);
            benchmark::DoNotOptimize(result);
        });
        add(named("PFOElementsCount", lines),
            [&display] { benchmark::DoNotOptimize(profiles().count(u"PFOElementsCount", display)); });
    }
    add("16-bit sweep of empty lines", [] { benchmark::DoNotOptimize(sweepEmptyLines(brokenOffDisplay())); });
    add("no end, 4 lines: PPRElementsCount",
        [] { benchmark::DoNotOptimize(profiles().count(u"PPRElementsCount", brokenOffDisplay())); });
    add("no end, 4 lines: parseProfile", [] { benchmark::DoNotOptimize(parseProfile(brokenOffDisplay())); });
    add("no end, 199 lines: ProfileNotesElementsCount",
        [] { benchmark::DoNotOptimize(profileNotes().count(u"ProfileNotesElementsCount", endlessDisplay())); });
    add("no end, 199 lines: parseProfile", [] { benchmark::DoNotOptimize(parseProfile(endlessDisplay())); });
}

// Linear growth is the ratio of the numbers of lines. Short displays stay in the nearest cache and have fewer sections,
// so the comparison begins with the longest ordinary ones and allows twice the ratio for the caches.
constexpr Ratio ratios[] = {
    {"parseProfile, 30000 lines", "parseProfile, 400 lines", 75 * 2.0},
    {"parseProfile, 30000 lines", "parseProfile, 3000 lines", 10 * 2.0},
    {"PFOElementsCount, 30000 lines", "PFOElementsCount, 400 lines", 75 * 2.0},
    {"parseProfile, 30000 lines", "by hand, 30000 lines", 1.0},
    {"no end, 4 lines: PPRElementsCount", "16-bit sweep of empty lines", 1.0},
    {"no end, 4 lines: parseProfile", "16-bit sweep of empty lines", 1.0},
    {"no end, 199 lines: ProfileNotesElementsCount", "16-bit sweep of empty lines", 1.0},
    {"no end, 199 lines: parseProfile", "16-bit sweep of empty lines", 1.0},
};

}  // namespace

int main(int argc, char** argv) {
    checkAll();
    registerAll();
    return run("growth", argc, argv, ratios);
}
