// All elements of a display, header values and notes included.
#include "common/displays.h"
#include "common/element_set.h"
#include "common/run.h"
#include "whole_profile/pcre2_reader.h"
#include "whole_profile/re2_reader.h"
#include "whole_profile/scanner.h"

#include "vantro/profile.h"

#include <cstdio>
#include <cstring>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr const char* memcpyName = "memcpy of the text";
constexpr const char* viewsName = "by hand, views";
constexpr const char* textsName = "by hand, owned strings";
constexpr const char* pcre2Name = "PCRE2 with JIT";
constexpr const char* re2Name = "RE2";
constexpr const char* oursName = "parseProfile, text moved in";
constexpr const char* oursCopyName = "parseProfile, text copied";

void checkAll() {
    Pcre2Reader pcre2;
    Re2Reader re2;
    std::size_t elements = 0;
    for (std::size_t i = 0; i < displays().size(); ++i) {
        const Display& display = displays()[i];
        const Profile profile = parseProfile(display.utf16);
        const ElementSet ours = elementSetOf(profile);
        elements += ours.elementCount();
        requireEqual("parseProfile", i, profile.problems.empty() ? "" : "a query failed");

        ScannedViews views;
        scanProfile(display.utf16, views);
        requireEqual(viewsName, i, difference(ours, elementSetOf(views)));
        ScannedTexts texts;
        scanProfile(display.utf16, texts);
        requireEqual(textsName, i, difference(ours, elementSetOf(texts)));
        requireEqual(pcre2Name, i, difference(ours, elementSetOf(pcre2.read(display.utf16))));
        requireEqual(re2Name, i, difference(ours, elementSetOf(re2.read(display.utf8))));
    }
    const Totals sum = totals();
    std::printf("%zu displays, %zu characters, %zu lines, %.1f elements a display; all contenders agree\n\n",
                sum.displays, sum.characters, sum.lines,
                static_cast<double>(elements) / static_cast<double>(sum.displays));
}

void copyTexts() {
    static std::u16string room(40'000, u' ');
    for (const Display& display : displays()) {
        std::memcpy(room.data(), display.utf16.data(), display.utf16.size() * sizeof(char16_t));
        benchmark::DoNotOptimize(room.data());
        benchmark::ClobberMemory();
    }
}

void scanViews() {
    static ScannedViews result;
    for (const Display& display : displays()) {
        result.clear();
        scanProfile(display.utf16, result);
        benchmark::DoNotOptimize(result);
    }
}

void scanTexts() {
    for (const Display& display : displays()) {
        ScannedTexts result;
        scanProfile(display.utf16, result);
        benchmark::DoNotOptimize(result);
    }
}

void parseCopies() {
    for (const Display& display : displays()) benchmark::DoNotOptimize(parseProfile(display.utf16));
}

/// The texts are moved in, so each pass needs new ones; making them is not timed. One more text stays alive meanwhile;
/// otherwise the allocator would return the memory of all of them to the system within the timed part.
void parseMoved(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::u16string> texts;
        texts.reserve(displays().size() + 1);
        for (const Display& display : displays()) texts.push_back(display.utf16);
        texts.push_back(displays().front().utf16);
        const double start = processorSeconds();
        for (std::size_t i = 0; i < displays().size(); ++i) {
            benchmark::DoNotOptimize(parseProfile(std::move(texts[i])));
        }
        state.SetIterationTime(processorSeconds() - start);
    }
    using benchmark::Counter;
    state.counters["display"] =
        Counter(static_cast<double>(displays().size()), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void registerAll() {
    const double count = static_cast<double>(displays().size());
    overDisplays(memcpyName, count, copyTexts);
    overDisplays(viewsName, count, scanViews);
    overDisplays(textsName, count, scanTexts);
    overDisplays(pcre2Name, count, [] {
        static Pcre2Reader reader;
        for (const Display& display : displays()) benchmark::DoNotOptimize(reader.read(display.utf16));
    });
    overDisplays(re2Name, count, [] {
        static Re2Reader reader;
        for (const Display& display : displays()) benchmark::DoNotOptimize(reader.read(display.utf8));
    });
    benchmark::RegisterBenchmark(oursName, parseMoved)->UseManualTime()->Unit(benchmark::kMillisecond);
    overDisplays(oursCopyName, count, parseCopies);
}

constexpr Ratio ratios[] = {
    {oursName, textsName, 1.0}, {oursCopyName, textsName, 1.0}, {oursName, viewsName, 0},
    {oursName, pcre2Name, 0},   {oursName, re2Name, 0},         {textsName, memcpyName, 0},
};

}  // namespace

int main(int argc, char** argv) {
    checkAll();
    registerAll();
    return run("whole_profile", argc, argv, ratios);
}
