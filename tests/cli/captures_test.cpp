// Captures of profile displays as they come: page by page, without ends, with text that is no display.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

std::string sample(const std::string& name) {
    const auto file = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles" / (name + ".txt");
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// The capture with a break after every 22 lines.
std::string paged(const std::string& display, const std::string& pageBreak = ">\n") {
    std::string text;
    std::size_t lines = 0;
    for (const std::string& line : linesOf(display)) {
        text += line + "\n";
        if (++lines % 22 == 0) text += pageBreak;
    }
    return text;
}

/// The warnings without the words before the first colon but one: "display 2: line 24 ...".
std::vector<std::string> warningsIn(const Finished& run) {
    const std::string start = "vantro-profile: warning: standard input";
    std::vector<std::string> warnings;
    for (const std::string& line : linesOf(run.err)) {
        if (line.find(" profiles") != std::string::npos) continue;  // the totals
        EXPECT_TRUE(line.starts_with(start)) << line;
        warnings.push_back(line.substr(std::min(line.size(), start.size() + 2)));
    }
    return warnings;
}

using Lines = std::vector<std::string>;

/// Records without their sources: where a display is depends on the lines above it.
std::string withoutSources(std::string records) {
    const std::string start = R"({"source":)";
    for (std::size_t at = records.find(start); at != std::string::npos; at = records.find(start, at + 1)) {
        records.erase(at + 1, records.find("},", at) + 1 - at);
    }
    return records;
}

TEST(Captures, PagesAreJoinedWithPagesOnly) {
    const std::string display = sample("every_family");
    const Finished whole = runTool({"parse"}, display);
    for (const std::string pageBreak : {">\n", "\n>\n\n", ">PDMD\n", ">\nPDMD\n"}) {
        const Finished run = runTool({"parse", "--pages", "--strict"}, paged(display, pageBreak));
        EXPECT_EQ(run.out, whole.out) << pageBreak;
        EXPECT_EQ(run.err, "") << pageBreak;
        EXPECT_EQ(run.status, 0) << pageBreak;
    }
}

TEST(Captures, PagesThatAreNotJoinedAreTold) {
    const Finished run = runTool({"parse"}, paged(sample("every_family")));
    EXPECT_EQ(linesOf(run.out).size(), 4U);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(warningsIn(run),
              (Lines{"display 2: line 24 seems to begin a further page of the display above; --pages joins pages.",
                     "display 3: line 47 seems to begin a further page of the display above; --pages joins pages.",
                     "display 4: line 70 seems to begin a further page of the display above; --pages joins pages."}));
    const Finished moved = runTool({"parse"}, paged(sample("every_family"), ">PDMD\n"));
    EXPECT_EQ(warningsIn(moved),
              Lines{"display 1: line 23 seems to begin a further page of the display above; --pages joins pages."});
}

TEST(Captures, PagesOfManyDisplaysAreJoinedOnAnyNumberOfThreads) {
    std::string displays;
    std::string pages;
    for (int i = 0; i < 200; ++i) {
        displays += sample("every_family") + sample("minimal");
        pages += paged(sample("every_family")) + sample("minimal");
    }
    const Finished whole = runTool({"parse"}, displays);
    for (const char* threads : {"1", "3"}) {
        const Finished run = runTool({"parse", "--pages", "-j", threads}, pages);
        EXPECT_TRUE(withoutSources(run.out) == withoutSources(whole.out)) << threads;
        EXPECT_EQ(run.err, "vantro-profile: 400 profiles.\n");
    }
}

TEST(Captures, DisplaysWithoutAnEndBetweenThemAreToldAndSplitAtSeparators) {
    std::string endless = sample("traveller");
    endless.resize(endless.find("END OF DISPLAY"));
    const std::size_t lines = linesOf(endless).size();
    const Finished run = runTool({"parse"}, endless + sample("minimal"));
    EXPECT_EQ(linesOf(run.out).size(), 1U);
    const Lines warnings = warningsIn(run);
    const std::string told = "display 1: line " + std::to_string(lines + 1) +
                             " seems to begin another display, without an end of the one above; see --separator.";
    EXPECT_EQ(std::ranges::count(warnings, told), 1) << run.err;

    const std::string separated = "### one\n" + sample("every_family") + "### two\n" + sample("minimal");
    const Finished both = runTool({"parse", "--separator", "###", "--strict"}, separated);
    const Finished ended = runTool({"parse"}, sample("every_family") + sample("minimal"));
    EXPECT_EQ(withoutSources(both.out), withoutSources(ended.out));
    EXPECT_EQ(both.err, "vantro-profile: 2 profiles.\n");
    EXPECT_EQ(both.status, 0);
}

TEST(Captures, ASeparatorMayBeginWithHyphensButNotLikeLinesOfADisplay) {
    const std::string separated = "--- 8< x\n" + sample("minimal") + "--- 8< y\n" + sample("minimal");
    EXPECT_EQ(linesOf(runTool({"parse", "--separator", "--- 8<"}, separated).out).size(), 2U);
    EXPECT_EQ(linesOf(runTool({"parse", "--separator=--- 8<"}, separated).out).size(), 2U);
    const Finished blank = runTool({"parse", "--separator", " "}, separated);
    EXPECT_EQ(blank.status, 2);
    EXPECT_NE(blank.err.find("a separator is the beginning of a line and not blank"), std::string::npos) << blank.err;
    for (const char* text : {"-", "-----", "-------", ">", "PDR/", "PDNA/SMITH"}) {
        const Finished refused = runTool({"parse", "--separator", text}, separated);
        EXPECT_EQ(refused.status, 2) << text;
        EXPECT_NE(refused.err.find("lines of displays begin with it"), std::string::npos) << refused.err;
    }
}

TEST(Captures, ATitleWithoutADisplayIsAFailureOfItsOwn) {
    const Finished run = runTool({"parse", "--separator", "##"}, "## one\n\n## two\n" + sample("minimal"));
    EXPECT_EQ(run.err,
              "vantro-profile: standard input, display 1: no display follows the separator in line 1. The other "
              "displays are not affected.\n"
              "vantro-profile: 1 profile, 1 display could not be read.\n");
    EXPECT_EQ(linesOf(run.out).size(), 2U);
    EXPECT_EQ(run.status, 1);
}

TEST(Captures, WhatIsNoProfileDisplayIsSaidInOneMessage) {
    const Finished endless = runTool({"parse"}, "hello\n");
    EXPECT_EQ(endless.err,
              "vantro-profile: standard input, display 1: this is no profile display; from line 1 on there is no mark "
              "*T* or *C*, no section and no element.\n");
    EXPECT_EQ(endless.status, 1);  // no query can be answered without an end
    EXPECT_NE(endless.out.find("\"problems\":[{"), std::string::npos) << endless.out;
    const Finished ended = runTool({"parse"}, "UNABLE TO PROCESS\n>\n");
    EXPECT_EQ(
        warningsIn(ended),
        Lines{"display 1: this is no profile display; from line 1 on there is no mark *T* or *C*, no section and no "
              "element."});
    EXPECT_EQ(ended.status, 0);
}

TEST(Captures, WarningsChangeNothingButTheStatusOfAStrictRun) {
    std::string text = sample("every_family");
    text.replace(text.find("CONFIRM BY"), 10, "CONFIRM\tBY");
    const Finished run = runTool({"parse"}, text);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(warningsIn(run),
              Lines{"display 1: tabs or other control characters in line 25; each counts as one column, "
                    "so text may be read from wrong columns."});
    const Finished strict = runTool({"parse", "--strict"}, text);
    EXPECT_EQ(strict.status, 5);
    EXPECT_EQ(strict.err, run.err);
    EXPECT_EQ(strict.out, run.out);
    const Finished quiet = runTool({"parse", "--strict", "--quiet"}, text);
    EXPECT_EQ(quiet.status, 5);
    EXPECT_EQ(quiet.err, "");
    EXPECT_EQ(quiet.out, run.out);
}

TEST(Captures, LenientCutsLongLinesAndReplacesBadBytesAndSaysSo) {
    std::string text = sample("minimal");
    const std::size_t mark = text.find("*T*");
    text.insert(text.find('\n', mark), std::string(80, ' ') + "X");
    text.insert(text.find('\n') + 1, "\xFF\n");
    EXPECT_EQ(runTool({"parse"}, text).status, 1);
    const Finished run = runTool({"parse", "--lenient", "--only", "NM"}, text);
    EXPECT_EQ(withoutSources(run.out), "{\"name\":\"\"}\n");
    EXPECT_EQ(warningsIn(run), (Lines{"display 1: line 3 cut after 80 characters.",
                                      "display 1: bytes that are not UTF-8 replaced in line 2."}));
    EXPECT_EQ(run.status, 0);
    const Finished notes = runTool({"elements", "RECLOC", "--lenient", "--strict"}, text);
    EXPECT_EQ(notes.status, 5);
    EXPECT_EQ(notes.err, run.err);
}

TEST(Captures, WarningsAreInTheOrderOfTheDisplaysOnAnyNumberOfThreads) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += sample("every_family") + (i % 100 == 99 ? "hello\n>\n" : "");
    const Finished one = runTool({"parse"}, text);
    const Lines warnings = warningsIn(one);
    ASSERT_EQ(warnings.size(), 4U) << one.err;
    EXPECT_TRUE(warnings[1].starts_with("display 202: this is no profile display; from line 15803 on")) << warnings[1];
    EXPECT_EQ(runTool({"parse", "-j", "4"}, text).err, one.err);
}

TEST(Captures, OneQueryWarnsAndJoinsLikeTheWholeProfile) {
    const std::string display = sample("every_family");
    const Finished joined = runTool({"elements", "PID", "--pages", "--strict"}, paged(display));
    EXPECT_EQ(joined.out, runTool({"elements", "PID"}, display).out);
    EXPECT_EQ(joined.status, 0);
    EXPECT_EQ(runTool({"elements", "PID", "--strict", "--quiet"}, paged(display)).status, 5);
    const Finished notes = runTool({"notes"}, "hello\n>\n");
    EXPECT_EQ(notes.status, 0);
    EXPECT_EQ(warningsIn(notes).size(), 1U) << notes.err;
    EXPECT_EQ(linesOf(runTool({"notes", "--separator", "##"}, "## a\n" + display + "## b\n" + display).out).size(), 2U);
}

}  // namespace

}  // namespace vantro::test
