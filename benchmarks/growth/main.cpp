// Time against the length of the display, and the cost of a display without an end marker.
#include "common/alternating.h"
#include "common/displays.h"
#include "common/element_set.h"
#include "common/host_format.h"
#include "whole_profile/lean_scanner.h"

#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <algorithm>
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

/// Fetches, trims and tests all 16-bit line numbers: what a plain search costs that runs on to the last line number of
/// a display without an end.
std::size_t sweepEmptyLines(View display) {
    std::size_t empty = 0;
    for (std::int32_t number = 0; number <= 32767; ++number) {
        View line = screenLine(display, static_cast<std::size_t>(number));
        line = line.substr(0, line.find_last_not_of(u' ') + 1);
        keep(line);
        if (line.find(u'>') != View::npos || line.find(endOfDisplay) != View::npos) break;
        if (line.find(u"------- PRIORITY") == View::npos) ++empty;
    }
    return empty;
}

ScannedTexts scanTexts(const Text& display) {
    ScannedTexts result;
    scanLean<Depth::Everything>(display, result);
    return result;
}

void checkAll() {
    for (const std::size_t lines : lengths) {
        const Text& display = displayOf(lines).utf16;
        const std::size_t printed = (display.size() + lineUnits - 1) / lineUnits;
        requireEqual("the generator", lines, printed == lines ? "" : "the display has another length");
        requireEqual("by hand", lines,
                     difference(elementSetOf(parseProfile(display)), elementSetOf(scanTexts(display))));
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

template <class Call>
void add(Alternating& runner, const char* name, Call call) {
    runner.add(name, [call](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) keep(call());
    });
}

void growWith(Alternating& runner, std::size_t lines) {
    const Text& display = displayOf(lines).utf16;
    add(runner, "parseProfile", [&display] { return parseProfile(display); });
    add(runner, "by hand", [&display] { return scanTexts(display); });
    add(runner, "PFOElementsCount", [&display] { return profiles().count(u"PFOElementsCount", display); });
    runner.run(std::to_string(lines) + " lines", std::max<std::size_t>(50, 100'000 / lines));
}

void searchWithoutEnd(Alternating& runner) {
    add(runner, "16-bit sweep of empty lines", [] { return sweepEmptyLines(brokenOffDisplay()); });
    add(runner, "4 lines: PPRElementsCount", [] { return profiles().count(u"PPRElementsCount", brokenOffDisplay()); });
    add(runner, "4 lines: parseProfile", [] { return parseProfile(brokenOffDisplay()); });
    add(runner, "199 lines: ProfileNotesElementsCount",
        [] { return profileNotes().count(u"ProfileNotesElementsCount", endlessDisplay()); });
    add(runner, "199 lines: parseProfile", [] { return parseProfile(endlessDisplay()); });
    runner.run("no end", 100);
}

}  // namespace

int main(int argc, char** argv) {
    Alternating runner("growth", argc, argv);
    checkAll();
    for (const std::size_t lines : lengths) growWith(runner, lines);
    searchWithoutEnd(runner);
}
