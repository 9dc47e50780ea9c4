// The command parse.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vantro::test {

namespace {

namespace fs = std::filesystem;

const fs::path samples = fs::path(VANTRO_SOURCE_DIR) / "samples";

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string sample(const std::string& name) { return (samples / "profiles" / (name + ".txt")).string(); }

std::vector<std::string> sampleNames() {
    std::vector<std::string> names;
    for (const auto& file : fs::directory_iterator(samples / "profiles")) names.push_back(file.path().stem().string());
    std::ranges::sort(names);
    return names;
}

/// JSON without the blanks and line ends between its parts.
std::string compact(const std::string& json) {
    std::string result;
    bool inString = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        if (json[i] == '"' && (i == 0 || json[i - 1] != '\\')) inString = !inString;
        if (inString || (json[i] != ' ' && json[i] != '\n')) result += json[i];
    }
    return result;
}

/// The profile of a sample without its source, indented.
std::string expectedProfile(const std::string& name) { return contentOf(samples / "expected" / (name + ".json")); }

/// Where a display is from.
struct Source {
    std::string file = "-";
    std::size_t display = 1;
    std::size_t line = 1;
};

/// The record of a sample, indented.
std::string expected(const std::string& name, const Source& source) {
    return "{\n  \"source\": {\n    \"file\": \"" + source.file +
           "\",\n    \"display\": " + std::to_string(source.display) +
           ",\n    \"line\": " + std::to_string(source.line) + "\n  },\n" + expectedProfile(name).substr(2);
}

/// The record of a sample in one line.
std::string expectedLine(const std::string& name, const Source& source = {}) {
    return compact(expected(name, source)) + "\n";
}

/// The record of the only display in a sample's file.
std::string expectedLineOfFile(const std::string& name) { return expectedLine(name, {.file = sample(name)}); }

std::string errorLine(const Source& source, const std::string& description) {
    return R"({"source":{"file":")" + source.file + R"(","display":)" + std::to_string(source.display) + R"(,"line":)" +
           std::to_string(source.line) + R"(},"error":{"number":0,"source":"input","description":")" + description +
           "\"}}\n";
}

/// The messages before the totals, which are the last line.
std::string messagesOf(const Finished& run, const std::string& totals) {
    const std::string last = "vantro-profile: " + totals + ".\n";
    EXPECT_TRUE(run.err.ends_with(last)) << run.err;
    return run.err.substr(0, run.err.size() - std::min(last.size(), run.err.size()));
}

/// With totals, they are the last line of standard error, otherwise there are none.
void expectRefused(const Finished& run, int status, const std::string& words, const std::string& totals = {}) {
    const std::string messages = totals.empty() ? run.err : messagesOf(run, totals);
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(std::ranges::count(messages, '\n'), 1) << run.err;
    EXPECT_NE(messages.find(words), std::string::npos) << run.err;
}

class ParseSample : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Sample, ParseSample, testing::ValuesIn(sampleNames()),
                         [](const auto& test) { return test.param; });

TEST_P(ParseSample, PrettyIsTheExpectedFileByteForByte) {
    const Finished run = runTool({"parse", "--quiet", "--pretty", sample(GetParam())});
    EXPECT_EQ(run.out, expected(GetParam(), {.file = sample(GetParam())}));
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST_P(ParseSample, IsOneLineWithoutPretty) {
    EXPECT_EQ(runTool({"parse", sample(GetParam())}).out, expectedLineOfFile(GetParam()));
}

TEST_P(ParseSample, IsTheSameFromStandardInputWithCarriageReturns) {
    std::string text;
    for (const std::string& line : linesOf(contentOf(sample(GetParam())))) text += line + "\r\n";
    EXPECT_EQ(runTool({"parse"}, text).out, expectedLine(GetParam()));
    EXPECT_EQ(runTool({"parse", "-"}, text).out, expectedLine(GetParam()));
}

TEST_P(ParseSample, IsTheSameAsAnUnbrokenText) {
    std::string text;
    for (std::string line : linesOf(contentOf(sample(GetParam())))) {
        line.resize(80, ' ');
        text += line;
    }
    EXPECT_EQ(runTool({"parse"}, text).out, expectedLine(GetParam()));
}

TEST(Parse, ManyFilesAreJsonLinesInTheirOrderOnAnyNumberOfThreads) {
    std::string expectedLines;
    std::vector<std::string> arguments{"parse"};
    for (int round = 0; round < 5; ++round) {
        for (const std::string& name : sampleNames()) {
            arguments.push_back(sample(name));
            expectedLines += expectedLineOfFile(name);
        }
    }
    for (const char* threads : {"1", "2", "4"}) {
        std::vector<std::string> all = arguments;
        all.insert(all.end(), {"-j", threads});
        const Finished run = runTool(all);
        EXPECT_EQ(run.out, expectedLines) << threads;
        EXPECT_EQ(run.status, 0);
    }
}

/// True when a text is the lines of these samples in turn, this many times, of displays in one file.
bool areInTurn(const std::string& text, const std::string& file, const std::vector<std::string>& names,
               std::size_t times) {
    std::size_t at = 0;
    Source source{.file = file};
    for (std::size_t i = 0; i < times * names.size(); ++i) {
        const std::string& name = names[i % names.size()];
        static std::map<std::string, std::pair<std::string, std::size_t>> known;  // the profile, the number of lines
        if (!known.contains(name)) {
            known[name] = {expectedLine(name).substr(expectedLine(name).find(R"("name":)")),
                           linesOf(contentOf(sample(name))).size()};
        }
        const std::string line = R"({"source":{"file":")" + source.file + R"(","display":)" +
                                 std::to_string(source.display) + R"(,"line":)" + std::to_string(source.line) + "}," +
                                 known[name].first;
        if (text.compare(at, line.size(), line) != 0) return false;
        at += line.size();
        ++source.display;
        source.line += known[name].second;
    }
    return at == text.size();
}

TEST(Parse, ManyDisplaysInOneFileAreReadInBoundedMemoryOnAnyNumberOfThreads) {
    constexpr std::size_t times = 5000;  // some 22 MB
    const std::string displays = contentOf(sample("traveller")) + contentOf(sample("wrapped"));
    const TemporaryFile file("");
    std::ofstream stream(file.path(), std::ios::binary);
    for (std::size_t i = 0; i < times; ++i) stream << displays;
    stream.close();
    // The memory of this process counts for the processes that it starts.
    [[maybe_unused]] const long before = runTool({"--version"}).peakKilobytes;
    const Finished first = runTool({"parse", "-j", "2", file.path()});
    EXPECT_TRUE(areInTurn(first.out, file.path(), {"traveller", "wrapped"}, times));
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(first.peakKilobytes, before + 40'000);  // all of it would be 44 MB of UTF-16 and as much of JSON
#endif
    for (const char* threads : {"1", "4"}) {
        EXPECT_TRUE(runTool({"parse", "-j", threads, file.path()}).out == first.out) << threads;
    }
}

TEST(Parse, PrettyDisplaysFollowOneAnother) {
    EXPECT_EQ(
        runTool({"parse", "--pretty", sample("minimal"), sample("prompt_only")}).out,
        expected("minimal", {.file = sample("minimal")}) + expected("prompt_only", {.file = sample("prompt_only")}));
}

TEST(Parse, TheLastLineOfADisplayDoesNotPadTheNextOne) {
    // Otherwise the second display's header lines would be one line too low.
    const std::string two = contentOf(sample("minimal")) + contentOf(sample("traveller"));
    EXPECT_EQ(runTool({"parse"}, two).out,
              expectedLine("minimal") + expectedLine("traveller", {.display = 2, .line = 5}));
}

TEST(Parse, ALineThatIsTooLongAffectsItsDisplayOnly) {
    const std::string minimal = contentOf(sample("minimal"));
    const TemporaryFile file(minimal + "PDR/X\n" + std::string(81, 'X') + "\n>\n" + minimal);
    const Finished run = runTool({"parse", file.path(), sample("every_family")});
    EXPECT_EQ(run.out, expectedLine("minimal", {.file = file.path()}) +
                           errorLine({.file = file.path(), .display = 2, .line = 5},
                                     "line 6 has 81 characters, a screen line has 80 at most") +
                           expectedLine("minimal", {.file = file.path(), .display = 3, .line = 8}) +
                           expectedLineOfFile("every_family"));
    expectRefused(run, 1, file.path() + ", display 2: line 6 has 81 characters",
                  "2 files, 3 profiles, 1 display could not be read");
}

TEST(Parse, BytesThatAreNotUtf8AffectTheirDisplayOnly) {
    const Finished run = runTool({"parse"}, "PDR/\xFF\n>\n" + contentOf(sample("minimal")));
    const std::string problem =
        "line 1 is not UTF-8; name its encoding with --encoding, for example windows-1252, or replace such bytes with "
        "--lenient";
    EXPECT_EQ(run.out, errorLine({}, problem) + expectedLine("minimal", {.display = 2, .line = 3}));
    expectRefused(run, 1, "standard input, display 1: " + problem, "1 profile, 1 display could not be read");
}

TEST(Parse, QueriesWithoutAnAnswerAreListedAndReported) {
    const std::string unended = "PDR/H4T9QZ\n*T*                    H4T9QZ\n------- PROFILE NOTES\nA ONE\n";
    const Finished run = runTool({"parse", "--quiet"}, contentOf(sample("minimal")) + unended);
    ASSERT_EQ(linesOf(run.out).size(), 2U);
    EXPECT_EQ(linesOf(run.out)[0] + "\n", expectedLine("minimal"));
    // The notes' own number is for a direct count; the query raises 5500.
    EXPECT_NE(linesOf(run.out)[1].find(R"json({"query":"ProfileNotes","number":5500,)json"
                                       R"json("description":"An error has occurred while reading Profile Notes"})json"),
              std::string::npos)
        << run.out;
    EXPECT_NE(linesOf(run.out)[1].find(R"json("notes":[],"problems":[)json"), std::string::npos) << run.out;
    // All families but RC, whose search ends at the header; the company name, PIN, PSL and the notes.
    const std::string unanswered = "vantro-profile: 2 profiles, 32 queries without an answer.\n";
    expectRefused(run, 1, "standard input, display 2: no answer to ");
    EXPECT_TRUE(runTool({"parse"}, contentOf(sample("minimal")) + unended).err.ends_with(unanswered));
    EXPECT_NE(run.err.find("ProfileNotes (error 5500)"), std::string::npos) << run.err;
}

TEST(Parse, AFileWithoutADisplayIsReported) {
    const TemporaryFile blank("\n   \n");
    const Finished run = runTool({"parse", blank.path(), sample("minimal")});
    EXPECT_EQ(run.out, expectedLineOfFile("minimal"));
    expectRefused(run, 1, blank.path() + " contains no display", "2 files, 1 profile");
    expectRefused(runTool({"parse"}), 1, "standard input contains no display");
}

TEST(Parse, AFileThatCannotBeReadDoesNotStopTheOthers) {
    const Finished run = runTool({"parse", sample("minimal"), "/no/such/file", sample("every_family")});
    EXPECT_EQ(run.out, expectedLineOfFile("minimal") + expectedLineOfFile("every_family"));
    expectRefused(run, 2, "cannot read the file '/no/such/file'", "3 files, 2 profiles, 1 file could not be read");
    expectRefused(runTool({"parse", "/"}), 2, "'/'");
}

TEST(Parse, BadUsageIsStatus2) {
    expectRefused(runTool({"parse", "-j", "0"}), 2, "--jobs");
    expectRefused(runTool({"parse", "-j", "many"}), 2, "--jobs");
    expectRefused(runTool({"parse", "--table", "--json"}), 2, "--table");
    expectRefused(runTool({"parse", "-", "-"}), 2, "standard input can be read once only");
}

TEST(Parse, ATableNamesTheFileAndShowsTheProfile) {
    const Finished run = runTool({"parse", "--table", sample("prompt_only"), sample("traveller")});
    EXPECT_EQ(run.out.rfind(sample("prompt_only") + ", display 1\n\nWHAT ", 0), 0U) << run.out;
    const auto lines = linesOf(run.out);
    const auto contains = [&](const std::string& start, const std::string& end) {
        return std::ranges::any_of(lines, [&](const std::string& line) {
            return line.rfind(start, 0) == 0 && line.size() >= end.size() &&
                   line.compare(line.size() - end.size(), end.size(), end) == 0;
        });
    };
    EXPECT_TRUE(contains("PPR ", "CALL THE MOBILE BEFORE ANY CHANGE")) << run.out;
    EXPECT_TRUE(contains("RM      13 ", "  kind A")) << run.out;
    EXPECT_TRUE(contains("SR      19 ", "kind S, code FQTV, airline XQ, number 88301442")) << run.out;
    EXPECT_TRUE(contains("note    3 ", "qualifier B")) << run.out;
    EXPECT_FALSE(contains("PCI", "")) << run.out;
}

}  // namespace

}  // namespace vantro::test
