// The width and the colours of the terminal, and the end of a pipe.
#include "cli/io/terminal.h"

#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <string>
#include <vector>

namespace vantro {

namespace {

using test::Finished;
using test::linesOf;
using test::runTool;
using test::runToolOnTerminal;
using test::TemporaryVariable;

bool isColored(const std::string& text) { return text.find('\x1B') != std::string::npos; }

std::size_t longestLine(const std::string& text) {
    std::size_t longest = 0;
    for (const std::string& line : linesOf(text)) longest = std::max(longest, line.size());
    return longest;
}

TEST(Color, TheOptionDecides) {
    EXPECT_TRUE(wantsColor(ColorChoice::Always, {.noColor = "1"}, false));
    EXPECT_FALSE(wantsColor(ColorChoice::Never, {.cliColorForce = "1"}, true));
}

TEST(Color, WithoutTheOptionATerminalHasColor) {
    EXPECT_TRUE(wantsColor(ColorChoice::Auto, {}, true));
    EXPECT_FALSE(wantsColor(ColorChoice::Auto, {}, false));
    EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.term = "dumb"}, true));
    EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.cliColor = "0"}, true));
    EXPECT_TRUE(wantsColor(ColorChoice::Auto, {.cliColor = "1"}, true));
    EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.cliColor = "1"}, false));
}

TEST(Color, AnyNoColorButAnEmptyOneTurnsItOff) {
    for (const char* value : {"1", "0", "x"}) {
        EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.noColor = value}, true)) << value;
        EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.noColor = value, .cliColorForce = "1"}, true)) << value;
    }
}

TEST(Color, ForceColorsFilesAndPipes) {
    EXPECT_TRUE(wantsColor(ColorChoice::Auto, {.cliColorForce = "1"}, false));
    EXPECT_TRUE(wantsColor(ColorChoice::Auto, {.cliColorForce = "1", .cliColor = "0", .term = "dumb"}, false));
    EXPECT_FALSE(wantsColor(ColorChoice::Auto, {.cliColorForce = "0"}, false));
}

TEST(Color, WarningsAndErrorsWithANumberAreColored) {
    EXPECT_EQ(withColoredWords("tool: warning: a tab."), "tool: \x1B[33mwarning\x1B[0m: a tab.");
    EXPECT_EQ(withColoredWords("NM (error 6), SR (error 5245)"),
              "NM (\x1B[31merror\x1B[0m 6), SR (\x1B[31merror\x1B[0m 5245)");
    EXPECT_EQ(withColoredWords("an error of the disk, or an error"), "an error of the disk, or an error");
}

TEST(Terminal, TablesKeepToItsWidth) {
    for (const std::size_t columns : {60U, 80U, 100U}) {
        const std::string out = runToolOnTerminal(columns, {"classes", "--color", "never"}).out;
        EXPECT_LE(longestLine(out), columns) << out;
        EXPECT_GT(longestLine(out), columns - 20) << out;
        EXPECT_NE(out.find("PM, PME,"), std::string::npos) << out;
    }
}

TEST(Terminal, ProfilesAndResultsKeepToItsWidthToo) {
    const test::TemporaryFile file(test::contentOf(VANTRO_SOURCE_DIR "/samples/profiles/traveller.txt"));
    const std::string& profile = file.path();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"parse", profile}, {"elements", "PPR", profile}, {"notes", profile}}) {
        std::vector<std::string> withoutColor = arguments;
        withoutColor.insert(withoutColor.end(), {"--color", "never", "--quiet"});
        std::string out = runToolOnTerminal(60, withoutColor).out;
        if (const std::size_t name = out.find(profile); name != std::string::npos) out.erase(name, profile.size());
        EXPECT_LE(longestLine(out), 60U) << out;
        withoutColor.emplace_back("--table");
        EXPECT_EQ(runToolOnTerminal(200, withoutColor).out, runTool(withoutColor).out);
    }
}

TEST(Terminal, AWideOneAndAPipeShowTablesInFull) {
    const std::string inPipe = runTool({"classes"}).out;
    EXPECT_GT(longestLine(inPipe), 80U);
    EXPECT_EQ(runToolOnTerminal(200, {"classes", "--color", "never"}).out, inPipe);
    const TemporaryVariable columns("COLUMNS", "80");
    EXPECT_EQ(runTool({"classes"}).out, inPipe);
}

TEST(Terminal, ColumnsCountsWhereTheTerminalDoesNotSay) {
    const TemporaryVariable columns("COLUMNS", "80");
    EXPECT_LE(longestLine(runToolOnTerminal(0, {"classes", "--color=never"}).out), 80U);
    EXPECT_EQ(runToolOnTerminal(200, {"classes", "--color=never"}).out, runTool({"classes"}).out);
}

TEST(Terminal, HeadingsAndMessagesHaveColorAndJsonHasNone) {
    const TemporaryVariable term("TERM", "xterm");
    EXPECT_EQ(linesOf(runToolOnTerminal(200, {"classes"}).out).front().rfind("\x1B[1mCLASS", 0), 0U);
    EXPECT_FALSE(isColored(runToolOnTerminal(80, {"classes", "--json", "--color", "always"}).out));
    EXPECT_FALSE(isColored(runToolOnTerminal(80, {"classes", "--color", "never"}).out));
    EXPECT_FALSE(isColored(runTool({"classes"}).out));
    EXPECT_TRUE(isColored(runTool({"classes", "--color", "always"}).out));
    EXPECT_TRUE(isColored(runTool({"command", "CPDNTrans", "strKeyNam=X", "--color", "always"}).err));
    EXPECT_FALSE(isColored(runTool({"command", "CPDNTrans", "strKeyNam=X"}).err));
}

TEST(Terminal, TheVariablesForColorAreRead) {
    {
        const TemporaryVariable force("CLICOLOR_FORCE", "1");
        EXPECT_TRUE(isColored(runTool({"classes"}).out));
        const TemporaryVariable none("NO_COLOR", "1");
        EXPECT_FALSE(isColored(runTool({"classes"}).out));
    }
    const TemporaryVariable term("TERM", "dumb");
    EXPECT_FALSE(isColored(runToolOnTerminal(80, {"classes"}).out));
}

TEST(Terminal, AnUnknownColorIsBadUsage) {
    const Finished run = runTool({"classes", "--color", "blue"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("auto, always or never"), std::string::npos) << run.err;
}

// Whoever starts the tool may ignore the signal of a closed pipe, as some services do for all that they start.
TEST(ClosedPipe, EndsTheToolWithoutAMessage) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    const Finished run = test::runToolIntoClosedPipe({"classes"});
    std::signal(SIGPIPE, before);
    EXPECT_EQ(run.status, 141);
    EXPECT_EQ(run.err, "");
}

}  // namespace

}  // namespace vantro
