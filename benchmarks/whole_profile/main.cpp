// All elements of a display, header values and notes included.
#include "common/alternating.h"
#include "common/displays.h"
#include "common/element_set.h"
#include "common/observing.h"
#include "whole_profile/lean_scanner.h"
#include "whole_profile/pcre2_reader.h"
#include "whole_profile/re2_reader.h"

#include "vantro/profile.h"

#include <cstdio>
#include <cstring>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr const char* floorViews = "floor, views";
constexpr const char* floorTexts = "floor, owned strings";
constexpr const char* exactViews = "exact, views";
constexpr const char* exactTexts = "exact, owned strings";

/// A new result for each display, as the library returns one. Only the memory for joined texts stays.
template <Depth depth, class String>
Scanned<String> scan(const Display& display) {
    static std::u16string joined;
    Scanned<String> result;
    joined.clear();
    joined.reserve(display.utf16.size());
    result.joined.swap(joined);
    scanLean<depth>(display.utf16, result);
    result.joined.swap(joined);
    return result;
}

void check(Corpus corpus) {
    Pcre2Reader pcre2;
    Re2Reader re2;
    for (std::size_t i = 0; i < displays(corpus).size(); ++i) {
        const Display& display = displays(corpus)[i];
        const Profile profile = parseProfile(display.utf16);
        const ElementSet ours = elementSetOf(profile);
        const ElementSet elements = elementsOnly(ours);
        requireEqual("parseProfile", i, profile.problems.empty() ? "" : "a query failed");
#if VANTRO_BENCH_OBSERVERS
        StepCounter counter;
        requireEqual("parseProfile, observed", i, difference(ours, elementSetOf(parseProfile(display.utf16, counter))));
#endif
        requireEqual(floorViews, i,
                     difference(elements, elementSetOf(scan<Depth::Elements, std::u16string_view>(display))));
        requireEqual(floorTexts, i, difference(elements, elementSetOf(scan<Depth::Elements, std::u16string>(display))));
        requireEqual(exactViews, i,
                     difference(ours, elementSetOf(scan<Depth::Everything, std::u16string_view>(display))));
        requireEqual(exactTexts, i, difference(ours, elementSetOf(scan<Depth::Everything, std::u16string>(display))));
        requireEqual("PCRE2", i, difference(ours, elementSetOf(pcre2.read(display.utf16))));
        requireEqual("RE2", i, difference(ours, elementSetOf(re2.read(display.utf8))));

        const Display odd = withOddText(display);
        requireEqual("exact, odd text", i,
                     difference(elementSetOf(parseProfile(odd.utf16)),
                                elementSetOf(scan<Depth::Everything, std::u16string_view>(odd))));
    }
}

/// Calls `read` for each display and keeps what it returns.
template <class Read>
auto overSlice(Corpus corpus, Read read) {
    return [corpus, read](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) keep(read(displays(corpus)[i]));
    };
}

void addContenders(Alternating& runner, Corpus corpus) {
    const auto add = [&](const char* name, auto read) { runner.add(name, overSlice(corpus, read)); };
    add("memcpy of the text", [](const Display& display) {
        static std::u16string room(40'000, u' ');
        std::memcpy(room.data(), display.utf16.data(), display.utf16.size() * sizeof(char16_t));
        return room.data();
    });
    add(floorViews, scan<Depth::Elements, std::u16string_view>);
    add(exactViews, scan<Depth::Everything, std::u16string_view>);
    add(floorTexts, scan<Depth::Elements, std::u16string>);
    add(exactTexts, scan<Depth::Everything, std::u16string>);
    add("PCRE2 with JIT", [](const Display& display) {
        static Pcre2Reader reader;
        return &reader.read(display.utf16);
    });
    add("RE2", [](const Display& display) {
        static Re2Reader reader;
        return &reader.read(display.utf8);
    });
    add("parseProfile, text copied", [](const Display& display) { return parseProfile(display.utf16); });
    static std::vector<std::u16string> texts;
    const auto copyTexts = [corpus] {
        texts.clear();
        for (const Display& display : displays(corpus)) texts.push_back(display.utf16);
    };
    const auto parseMoved = [](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) keep(parseProfile(std::move(texts[i])));
    };
    runner.add("parseProfile, text moved in", parseMoved, copyTexts);
#if VANTRO_BENCH_OBSERVERS
    add("parseProfile, steps counted", [](const Display& display) {
        StepCounter counter;
        parseProfile(display.utf16, counter);
        return counter.count();
    });
    add("parseProfile, explained", [](const Display& display) {
        static Explanation explanation;
        explanation.clear();
        parseProfile(display.utf16, explanation);
        return explanation.steps().size();
    });
#endif
}

}  // namespace

int main(int argc, char** argv) {
    Alternating runner("whole_profile", argc, argv);
    for (const Corpus corpus : corpora) {
        printFigures(corpus);
        check(corpus);
        addContenders(runner, corpus);
        runner.run(nameOf(corpus), displays(corpus).size());
    }
}
