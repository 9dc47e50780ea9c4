// Help, manual pages and completions: all three say the same about every option.
#include "cli/shell/help_text.h"
#include "cli/shell/man_page.h"
#include "cli/shell/page.h"
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace vantro {

namespace {

using test::Finished;
using test::linesOf;
using test::runTool;
using test::TemporaryFile;
using test::TemporaryVariable;

using Names = std::set<std::string>;

/// The subcommands in the order of the help.
std::vector<std::string> subcommands() {
    std::vector<std::string> names;
    for (const std::string& page : linesOf(runTool({"man", "--list"}).out)) {
        if (page != "vantro-profile") names.push_back(page.substr(std::string("vantro-profile-").size()));
    }
    return names;
}

/// All matches of the first group.
Names allOf(const std::string& text, const char* pattern) {
    const std::regex searched(pattern);
    Names names;
    for (std::sregex_iterator match(text.begin(), text.end(), searched), end; match != end; ++match) {
        names.insert((*match)[1]);
    }
    return names;
}

std::string helpOf(const std::string& command) {
    return runTool(command.empty() ? std::vector<std::string>{"--help"} : std::vector{command, std::string("--help")})
        .out;
}

/// The options in the rows of the help: "-j, --jobs N".
Names optionsInHelp(const std::string& command) {
    const std::string help = helpOf(command);
    const std::size_t start = help.find("\nOptions:\n");
    Names names;
    for (const std::string& line : linesOf(help.substr(start + 1))) {
        if (line.empty()) break;
        if (line.rfind("  -", 0) != 0) continue;
        const std::string row = line.substr(2, line.find("  ", 2) - 2);
        names.merge(allOf(row, "(--?[A-Za-z0-9][a-z-]*)"));
    }
    return names;
}

bool hasProgram(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
}

/// What the function of the completion answers to these words, the last of which is completed.
Names completed(const std::vector<std::string>& words) {
    static const TemporaryFile script(runTool({"completion", "bash"}).out);
    const TemporaryFile answers("");
    std::string command = "COMP_WORDS=(vantro-profile";
    for (const std::string& word : words) command += " \"" + word + "\"";
    command +=
        "); COMP_CWORD=" + std::to_string(words.size()) + "; _vantro_profile; printf '%s\\n' \"${COMPREPLY[@]}\"";
    const TemporaryFile run("source " + script.path() + "\n" + command + " >" + answers.path() + "\n");
    EXPECT_EQ(std::system(("bash " + run.path()).c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
    const std::vector<std::string> lines = linesOf(test::contentOf(answers.path()));
    Names names(lines.begin(), lines.end());
    names.erase("");
    return names;
}

// ---- Help

TEST(Help, FitsTheWidthOfTheTerminal) {
    std::vector<std::string> commands = subcommands();
    commands.emplace_back();
    for (const std::size_t columns : {80U, 100U, 200U}) {
        const TemporaryVariable variable("COLUMNS", std::to_string(columns));
        std::size_t longest = 0;
        for (const std::string& command : commands) {
            for (const std::string& line : linesOf(helpOf(command))) {
                EXPECT_LE(line.size(), std::min<std::size_t>(columns, 100)) << command << ": " << line;
                longest = std::max(longest, line.size());
            }
        }
        EXPECT_GT(longest, columns == 80 ? 75U : 95U) << "the width is used";
    }
}

TEST(Help, BeginsWithExamples) {
    std::vector<std::string> commands = subcommands();
    commands.emplace_back();
    for (const std::string& command : commands) {
        const std::string help = helpOf(command);
        const std::size_t examples = help.find("\n\nExample");
        EXPECT_LT(examples, help.find("\n\nUsage:")) << help;
        EXPECT_LT(help.find("\n\nUsage:"), help.find("\n\nOptions:")) << help;
    }
}

TEST(Help, ListsTheExitStatuses) {
    std::vector<std::string> commands = subcommands();
    commands.emplace_back();
    for (const std::string& command : commands) {
        EXPECT_NE(helpOf(command).find("\n\nExit status:\n  0 "), std::string::npos) << command;
    }
}

TEST(Help, OfTheToolNamesTheOptionsForWarnings) {
    const std::string help = helpOf("");
    EXPECT_NE(help.find("--quiet after their name"), std::string::npos) << help;
    EXPECT_NE(help.find("--strict makes the exit status 5"), std::string::npos) << help;
}

TEST(Help, HelpAndItsOptionPrintTheSame) {
    EXPECT_EQ(runTool({"help"}).out, helpOf(""));
    EXPECT_EQ(runTool({"help", "parse"}).out, helpOf("parse"));
    const Finished run = runTool({"help", "pars"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "vantro-profile: there is no subcommand 'pars'; did you mean 'parse'?\n");
}

TEST(Help, VersionHasAShortOption) { EXPECT_EQ(runTool({"-V"}).out, runTool({"--version"}).out); }

TEST(HelpSections, ParagraphsAreJoinedAndIndentedLinesAreNot) {
    const auto sections = sectionsOf(
        "One line\nand its end.\nExit status: 0 done,\n2 not.\n\nPrefixes:\n  A  one\n  B  two\n\nMore.\n\nEven "
        "more.\n\n"
        "Examples:\n  tool a \\\n      b\n  tool c");
    ASSERT_EQ(sections.size(), 5U);
    EXPECT_EQ(sections[0].title, "");
    EXPECT_EQ(sections[0].lines, std::vector<std::string>{"One line and its end."});
    EXPECT_EQ(sections[1].title, "Exit status");
    EXPECT_EQ(sections[1].lines, std::vector<std::string>{"0 done, 2 not."});
    EXPECT_EQ(sections[2].title, "Prefixes");
    EXPECT_EQ(sections[2].lines, (std::vector<std::string>{"  A  one", "  B  two"}));
    EXPECT_EQ(sections[3].lines, (std::vector<std::string>{"More.", "Even more."}));
    EXPECT_EQ(sections[4].title, "Examples");
    EXPECT_EQ(sections[4].lines, (std::vector<std::string>{"  tool a b", "  tool c"}));
}

CommandPage samplePage() {
    CommandPage page{
        .name = "tool do",
        .summary = "Do it",
        .arguments = {{.names = {}, .value = "FILE", .text = "What to do", .isRepeated = true}},
        .options = {{.names = {"-n", "--name"}, .value = "TEXT", .text = "A \"word  or\" two of it"}},
        .sections = sectionsOf("It is done - now.\n\nExample:\n  tool do --name 'a  b' first.txt second.txt"),
        .commands = {}};
    return page;
}

TEST(HelpText, WrapsTextsInTheirColumnAndExamplesForAShell) {
    EXPECT_EQ(helpText(samplePage(), 40),
              "Do it\n"
              "\n"
              "Example:\n"
              "  tool do --name 'a  b' first.txt \\\n"
              "      second.txt\n"
              "\n"
              "Usage: tool do [OPTIONS] [FILE...]\n"
              "\n"
              "Arguments:\n"
              "  FILE...          What to do\n"
              "\n"
              "Options:\n"
              "  -n, --name TEXT  A \"word  or\" two of\n"
              "                   it\n"
              "\n"
              "It is done - now.\n");
}

// ---- Manual pages

TEST(ManPage, HasTheUsualSections) {
    EXPECT_EQ(manPage(samplePage(), "1.2"),
              ".TH \"TOOL\\-DO\" 1 \"\" \"tool 1.2\" \"User Commands\"\n.nh\n"
              ".SH NAME\ntool\\-do \\- Do it\n"
              ".SH SYNOPSIS\n\\fBtool do\\fR [OPTIONS] [FILE...]\n"
              ".SH DESCRIPTION\nDo it.\n.PP\nIt is done \\- now.\n"
              ".SH ARGUMENTS\n.TP\n\\fIFILE\\fR...\nWhat to do\n"
              ".SH OPTIONS\n.TP\n\\fB\\-n\\fR, \\fB\\-\\-name\\fR \\fITEXT\\fR\nA \"word  or\" two of it\n"
              ".SH EXAMPLE\n.PP\n.nf\ntool do \\-\\-name \\(aqa  b\\(aq first.txt second.txt\n.fi\n"
              ".SH SEE ALSO\n\\fBtool\\fR(1)\n");
}

TEST(ManPage, EveryOptionOfTheHelpAndNoOther) {
    std::vector<std::string> commands = subcommands();
    commands.emplace_back();
    for (const std::string& command : commands) {
        std::string page =
            runTool(command.empty() ? std::vector<std::string>{"man"} : std::vector{std::string("man"), command}).out;
        const std::size_t start = page.find(".SH OPTIONS\n");
        page = page.substr(start, page.find("\n.SH ", start + 1) - start);
        page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
        EXPECT_EQ(allOf(page, R"(\\fB(--?[A-Za-z0-9][a-z-]*)\\fR)"), optionsInHelp(command)) << command;
    }
}

TEST(ManPage, UsesKnownMacrosAndEndsWhatItBegins) {
    const std::regex macro(R"(\.(TH .*|nh|SH [A-Z -]+|TP|PP|nf|fi))");
    for (const std::string& command : subcommands()) {
        bool isVerbatim = false;
        for (const std::string& line : linesOf(runTool({"man", command}).out)) {
            EXPECT_FALSE(line.empty()) << command;
            if (line.rfind('.', 0) != 0) continue;
            EXPECT_TRUE(std::regex_match(line, macro)) << line;
            if (line == ".nf" || line == ".fi") {
                EXPECT_EQ(isVerbatim, line == ".fi") << command;
                isVerbatim = !isVerbatim;
            }
            EXPECT_FALSE(line.rfind(".SH", 0) == 0 && isVerbatim) << command;
        }
        EXPECT_FALSE(isVerbatim) << command;
    }
}

TEST(ManPage, IsFormattedWithoutWarnings) {
    if (!hasProgram("groff")) GTEST_SKIP() << "groff is not installed";
    for (const std::string& command : subcommands()) {
        const TemporaryFile page(runTool({"man", command}).out);
        const TemporaryFile messages("");
        const std::string format = "groff -man -Tutf8 -ww -z " + page.path() + " 2>" + messages.path();
        EXPECT_EQ(std::system(format.c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
        EXPECT_EQ(test::contentOf(messages.path()), "") << command;
    }
}

// ---- Completions

TEST(Completion, EveryOptionOfTheHelpAndNoOther) {
    const std::string bash = runTool({"completion", "bash"}).out;
    const std::string zsh = runTool({"completion", "zsh"}).out;
    const std::string fish = runTool({"completion", "fish"}).out;
    for (const std::string& command : subcommands()) {
        const Names expected = optionsInHelp(command);
        EXPECT_GE(expected.size(), 3U) << command;

        const std::string row = "\n        " + command + ") words=(";
        const std::size_t words = bash.find(row) + row.size();
        EXPECT_EQ(allOf(bash.substr(words, bash.find(')', words) - words), R"((-[^ ]+))"), expected) << command;

        const std::size_t rows = zsh.find("\n        " + command + ")\n");
        const std::string described = zsh.substr(rows, zsh.find(";;", rows) - rows);
        EXPECT_EQ(allOf(described, R"('(?:\([^)]*\))?(--?[A-Za-z0-9][a-z-]*))"), expected) << command;

        Names inFish;
        for (const std::string& line : linesOf(fish)) {
            if (line.find("-n '__vantro_profile_in \\'" + command + "\\''") == std::string::npos) continue;
            const std::string options = line.substr(0, line.find(" -d "));
            for (const std::string& name : allOf(options, " -s ([^ ]+)")) inFish.insert("-" + name);
            for (const std::string& name : allOf(options, " -l ([^ ]+)")) inFish.insert("--" + name);
        }
        EXPECT_EQ(inFish, expected) << command;
    }
}

class BashCompletion : public testing::Test {
protected:
    void SetUp() override {
        if (!hasProgram("bash")) GTEST_SKIP() << "bash is not installed";
    }
};

TEST_F(BashCompletion, CompletesSubcommandsAndOptions) {
    const std::vector<std::string> commands = subcommands();
    EXPECT_EQ(completed({""}), Names(commands.begin(), commands.end()));
    EXPECT_EQ(completed({"pa"}), Names{"parse"});
    EXPECT_EQ(completed({"--color", "never", "pa"}), Names{"parse"});
    EXPECT_EQ(completed({"help", "pars"}), Names{"parse"});
    for (const std::string& command : commands) EXPECT_EQ(completed({command, "-"}), optionsInHelp(command)) << command;
}

TEST_F(BashCompletion, CompletesTheValuesOfOptions) {
    EXPECT_EQ(completed({"parse", "--color", "a"}), (Names{"always", "auto"}));
    EXPECT_EQ(completed({"parse", "--color", "=", "n"}), Names{"never"});
    EXPECT_EQ(completed({"parse", "--color", "="}), (Names{"always", "auto", "never"}));
    EXPECT_EQ(completed({"parse", "--max-line", ""}), Names{});
    EXPECT_EQ(completed({"verify", "CPXTrans", "--encoding", "utf-16l"}), Names{"utf-16le"});
    const TemporaryFile file("");
    EXPECT_EQ(completed({"verify", "CPXTrans", "--screen", file.path()}), Names{file.path()});
    EXPECT_EQ(completed({"parse", "-j", "4", file.path()}), Names{file.path()});
}

TEST_F(BashCompletion, CompletesClassesKeysAndValues) {
    EXPECT_EQ(completed({"command", "CPDN"}), Names{"CPDNTrans"});
    EXPECT_EQ(completed({"describe", "CProfile"}), (Names{"CProfile", "CProfileMode", "CProfileNotes"}));
    EXPECT_EQ(completed({"describe", "PH"}), Names{"PHI"});
    EXPECT_EQ(completed({"describe", "pro"}), Names{});
    EXPECT_EQ(completed({"command", "CProfile"}), (Names{"CProfileMode", "CProfileNotes"}));
    EXPECT_EQ(completed({"command", "CPDRTrans", ""}), (Names{"strKeyIndicator=", "strKeyRecLoc="}));
    EXPECT_EQ(completed({"verify", "CPDATrans", "--max-line", "1M", ""}), Names{"blnKeyEndOfBlock="});
    EXPECT_EQ(completed({"command", "CPDRTrans", "strKeyIndicator", "="}), (Names{"C", "T"}));
    EXPECT_EQ(completed({"command", "CPDNTrans", "blnKeyExactMatch", "=", "T"}), Names{"True"});
    EXPECT_EQ(completed({"command", "CPTTrans", "strKeyElements", "=", "1", "strKeyElA"}),
              Names{R"(strKeyElArray\(\)=)"});
    EXPECT_EQ(completed({"command", "CPTTrans", "'strKeyElA"}), Names{"strKeyElArray()="});
}

TEST_F(BashCompletion, CompletesPrefixes) {
    EXPECT_EQ(completed({"elements", "PH"}), Names{"PHI"});
    EXPECT_EQ(completed({"elements", "R"}), (Names{"RC", "RECLOC", "RM"}));
}

TEST_F(BashCompletion, CompletesListsOfPartsOfAProfile) {
    EXPECT_EQ(completed({"parse", "--only", "R"}), (Names{"RC", "RECLOC", "RM"}));
    EXPECT_EQ(completed({"parse", "--only", "n"}), (Names{"name", "notes"}));
    EXPECT_EQ(completed({"parse", "--only", "AL"}), Names{});  // the numbers that a selection names
    EXPECT_EQ(completed({"parse", "--only", "="}).size(), 29U + 7U + 7U);
    // A comma does not cut words, so that the whole list is replaced.
    EXPECT_EQ(completed({"parse", "--only", "PPR,notes,PH"}), Names{"PPR,notes,PHI"});
    EXPECT_EQ(completed({"parse", "--only", "=", "PPR,na"}), Names{"PPR,name"});
    EXPECT_EQ(completed({"parse", "--only", "'PPR,na"}), Names{"PPR,name"});
}

TEST(Completion, EveryPartOfAProfileIsAccepted) {
    const std::string bash = runTool({"completion", "bash"}).out;
    const std::string start = "'parse --only') kind=list words=(";
    const std::size_t words = bash.find(start) + start.size();
    const std::string parts = bash.substr(words, bash.find(')', words) - words);
    const std::string list = std::regex_replace(parts, std::regex(" "), ",");
    EXPECT_EQ(runTool({"parse", "--only", list}, "*T*\n").err.find("--only"), std::string::npos) << list;
    EXPECT_NE(runTool({"completion", "zsh"}).out.find(":LIST: _values -s , part " + parts), std::string::npos);
    EXPECT_NE(runTool({"completion", "fish"}).out.find("(__vantro_profile_list " + parts + ")"), std::string::npos);
}

TEST(Completion, EachShellReadsItsScript) {
    struct Check {
        const char* shell;
        const char* command;
    };
    for (const Check& check : {Check{"bash", "bash -n "}, {"zsh", "zsh -n "}, {"fish", "fish --no-execute "}}) {
        if (!hasProgram(check.shell)) continue;
        const TemporaryFile script(runTool({"completion", check.shell}).out);
        EXPECT_EQ(std::system((check.command + script.path()).c_str()), 0)
            << check.shell;  // NOLINT(concurrency-mt-unsafe)
    }
    EXPECT_EQ(runTool({"completion", "tcsh"}).status, 2);
}

}  // namespace

}  // namespace vantro
