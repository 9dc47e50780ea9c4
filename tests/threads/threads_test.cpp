// Each thread has its own objects and terminal; screens and displays are shared and only read. Every thread must get
// the results that a single thread gets.
#include "tests/failures/inputs.h"
#include "tests/failures/profile_text.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <string>
#include <thread>
#include <vector>

namespace vantro::test {
namespace {

constexpr std::size_t threads = 8;
constexpr int rounds = 2;

/// Runs the work in all threads, started at the same time, and returns the result of each.
template <class Work>
std::array<std::vector<std::string>, threads> inAllThreads(const Work& work) {
    std::array<std::vector<std::string>, threads> found;
    std::barrier begin(static_cast<std::ptrdiff_t>(threads));
    std::vector<std::jthread> running;
    for (std::vector<std::string>& own : found) {
        running.emplace_back([&begin, &work, &own] {
            begin.arrive_and_wait();
            for (int round = 0; round < rounds; ++round) own = work();
        });
    }
    running.clear();
    return found;
}

std::string written(const CollectionPtr& collection) {
    std::string text;
    for (const Entry& entry : entriesOf(collection)) text += utf8(entry.key) + '=' + printed(entry.value) + ' ';
    return text;
}

/// The result of one call, including errors and reports.
std::string called(const Input& input) {
    std::string text;
    BuiltInTerminal terminal([&text](const Error& error) { text += std::to_string(error.number()) + " reported "; });
    const auto object = createObject(*findClass(input.className), terminal);
    const CollectionPtr given = input.collection ? collection(*input.collection) : nullptr;
    Answer answer;
    answer.selection = input.selection;
    try {
        call(*object, input, given, answer);
    } catch (const Error& error) {
        text += error.what();
    }
    text += utf8(answer.command) + ' ' + std::to_string(answer.count) + ' ';
    if (answer.collection) text += written(answer.collection);
    if (given) text += written(given);
    return text;
}

TEST(Threads, GetTheResultsOfASingleThread) {
    std::vector<Input> inputs = exchangeInputs();
    for (const char* const sample : {"every_family", "header_pf24", "odd"}) {
        for (const std::vector<Input>& more : {queryInputs(sample), countInputs(sample)}) {
            inputs.insert(inputs.end(), more.begin(), more.end());
        }
    }
    const auto callAll = [&inputs] {
        std::vector<std::string> found;
        for (const Input& input : inputs) found.push_back(called(input));
        return found;
    };
    const auto found = inAllThreads(callAll);
    const std::vector<std::string> expected = callAll();
    for (const std::vector<std::string>& own : found) EXPECT_EQ(own, expected);
}

TEST(Threads, ReadWholeProfilesFromSharedDisplays) {
    std::vector<Text> displays;
    for (const char* const sample : {"company", "every_family", "header_4505", "odd_notes", "traveller", "wrapped"}) {
        displays.push_back(sampleDisplay(sample));
    }
    const auto readAll = [&displays = std::as_const(displays)] {
        std::vector<std::string> found;
        for (const Text& display : displays) found.push_back(profileText(parseProfile(display)));
        return found;
    };
    const auto found = inAllThreads(readAll);
    const std::vector<std::string> expected = readAll();
    for (const std::vector<std::string>& own : found) EXPECT_EQ(own, expected);
}

// A profile is not bound to the thread that read it.
TEST(Threads, ShareAProfile) {
    const Profile profile = parseProfile(sampleDisplay("every_family"));
    const auto found = inAllThreads([&profile] {
        const Profile copy = profile;
        return std::vector<std::string>{profileText(profile), profileText(copy)};
    });
    const std::string expected = profileText(profile);
    for (const std::vector<std::string>& own : found) EXPECT_EQ(own, (std::vector<std::string>{expected, expected}));
}

}  // namespace
}  // namespace vantro::test
