// The commands elements and notes.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

const std::filesystem::path profiles = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles";

std::string sample(const std::string& name) { return (profiles / (name + ".txt")).string(); }

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

void expectRefused(const Finished& run, int status, const std::string& words) {
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    EXPECT_NE(run.err.find(words), std::string::npos) << run.err;
}

TEST(Elements, AFamilyIsPrintedAsItsTwoLists) {
    const Finished run = runTool({"elements", "PHI", sample("traveller")});
    EXPECT_EQ(run.out, R"json({"strKeyElement()":["","BREAKFAST MUST BE INCLUDED","FREE CANCELLATION ONLY"],)json"
                       R"json("strKeyElementNr()":["","25","26"]})json"
                       "\n");
    EXPECT_EQ(run.status, 0);
}

TEST(Elements, AnIndexAsksForOne) {
    EXPECT_EQ(runTool({"elements", "RM", "--index", "1"}, contentOf(sample("traveller"))).out,
              R"json({"strKeyElement":"RM  PREFERS RAIL WHEN UNDER THREE HOURS","strKeyElementNr":"13"})json"
              "\n");
    EXPECT_EQ(runTool({"elements", "SR", "--index", "2", sample("traveller")}).out,
              R"json({"strKeyElement":"SR  FQTVXQ 88301442","strKeyElementNr":"19","strKeyCode":"FQTV",)json"
              R"json("strKeyAirline":"XQ","strKeyFFNbr":"88301442","strKeyFreeText":"","blnKeyAsterix":false})json"
              "\n");
}

TEST(Elements, HeaderValuesHaveAPrefixToo) {
    EXPECT_EQ(runTool({"elements", "RECLOC", sample("traveller")}).out, "{\"strKeyElement\":\"H4T9QZ\"}\n");
    EXPECT_EQ(runTool({"elements", "PSL", "--table", sample("traveller")}).out,
              "KEY              VALUE\n"
              "---------------  -----\n"
              "strKeyElement    2\n"
              "strKeyElementNr  4\n");
}

TEST(Elements, AllAcceptsASelectionAndAQualifier) {
    const auto numbers = [](std::vector<std::string> options) {
        options.insert(options.begin(), {"elements", "ALL"});
        options.push_back(sample("traveller"));
        return runTool(options).out;
    };
    EXPECT_EQ(numbers({}), "{\"strKeyElNbrsArray\":[\"\"]}\n");
    EXPECT_EQ(numbers({"--selection", "RM"}), "{\"strKeyElNbrsArray\":[\"\",\"13\",\"14\"]}\n");
    EXPECT_EQ(numbers({"--selection", "A  FFN", "--selection", "SR"}),
              "{\"strKeyElNbrsArray\":[\"\",\"17\",\"20\"]}\n");
    EXPECT_EQ(numbers({"--selection", "", "--qualifier", "AP"}), "{\"strKeyElNbrsArray\":[\"\",\"11\",\"12\"]}\n");
}

TEST(Elements, AFailedQueryIsOneLineAndStatus1) {
    // The traveller has two remarks.
    expectRefused(runTool({"elements", "RM", "--index", "3", sample("traveller")}), 1,
                  "error 5260 from VantroProfileUtils: An error has occurred while verifying the profile.");
    expectRefused(runTool({"elements", "RM", sample("traveller")}), 1,
                  ", display 1: name the RM element's index with --index; without it the query failed with error 91 ");
    expectRefused(runTool({"elements", "", sample("traveller")}), 1, "error 5065 ");
}

TEST(Elements, AnUnknownPrefixIsReportedWithTheKnownOnes) {
    const Finished run = runTool({"elements", "XX", sample("traveller")});
    expectRefused(run, 1, "no query has the prefix 'XX'; there are NM RECLOC OFFID PCN PIN PSL ALL SR RM ");
    EXPECT_NE(run.err.find(" PFO"), std::string::npos);
    EXPECT_EQ(run.out, "");
}

TEST(Elements, AnUnknownPrefixNamesTheNearest) {
    expectRefused(runTool({"elements", "phx", sample("traveller")}), 1,
                  "no query has the prefix 'phx'; did you mean PHI? There are NM RECLOC ");
}

TEST(Elements, HelpSaysWhatEachPrefixAsksFor) {
    const std::string help = runTool({"elements", "--help"}).out;
    EXPECT_NE(help.find("\n  NM      name of the profile: "), std::string::npos);
    EXPECT_NE(help.find("\n  PHI     hotel travel policy "), std::string::npos);
    EXPECT_NE(help.find("\n  RECLOC  record locator of the profile\n"), std::string::npos);
    EXPECT_NE(help.find("\n  PFO     follow-up element\n"), std::string::npos);
    const std::string unwrapped = std::regex_replace(help, std::regex(" *\n *"), " ");
    EXPECT_NE(unwrapped.find("SR, RM, AP, OS, FFN, ST and RC return one element only"), std::string::npos);
}

TEST(Elements, BadUsageIsStatus2) {
    expectRefused(runTool({"elements"}), 2, "PREFIX");
    expectRefused(runTool({"elements", "RM", "--index", "99999", sample("traveller")}), 2, "--index");
    expectRefused(runTool({"elements", "RM", "/no/such/file"}), 2, "'/no/such/file'");
}

// notes

TEST(Notes, AreThreeLists) {
    EXPECT_EQ(runTool({"notes", sample("company")}).out,
              R"json({"strKeyElement()":["","MEETING WITH THE PURCHASER EVERY MARCH","ASK FOR INGRID"],)json"
              R"json("strKeyElementNr()":["","1","2"],"strKeyQualifier()":["","M ","M "]})json"
              "\n");
}

TEST(Notes, AreFilteredByTextAndQualifierAndKeepTheirNumbers) {
    EXPECT_EQ(runTool({"notes", "--qualifier", "B", sample("traveller")}).out,
              R"json({"strKeyElement()":["","INVOICES ARE PAID BY THE 25TH"],"strKeyElementNr()":["","3"],)json"
              R"json("strKeyQualifier()":["","B "]})json"
              "\n");
    EXPECT_EQ(runTool({"notes", "--search", "SPEAKS", "--qualifier", "A", sample("traveller")}).out,
              R"json({"strKeyElement()":["","SPEAKS SWEDISH, FINNISH AND ENGLISH"],"strKeyElementNr()":["","2"],)json"
              R"json("strKeyQualifier()":["","A "]})json"
              "\n");
    EXPECT_EQ(runTool({"notes", "--search", "SPEAKS", "--qualifier", "B", sample("traveller")}).out,
              R"json({"strKeyElement()":[""],"strKeyElementNr()":[""],"strKeyQualifier()":[""]})json"
              "\n");
}

TEST(Notes, WithoutAnEndFail) {
    expectRefused(runTool({"notes", "--quiet"}, "PDR\n------- PROFILE NOTES\nA ONE\n"), 1, "error 5500 ");
}

// files of many displays

TEST(ManyDisplays, EachGetsAnAnswer) {
    const TemporaryFile file(contentOf(sample("traveller")) + contentOf(sample("minimal")) +
                             contentOf(sample("company")));
    EXPECT_EQ(runTool({"elements", "RECLOC", file.path()}).out,
              "{\"strKeyElement\":\"H4T9QZ\"}\n{\"strKeyElement\":\"AA11BB\"}\n{\"strKeyElement\":\"C7M3XB\"}\n");
    const Finished notes = runTool({"notes", "--search", "INGRID", file.path()});
    EXPECT_EQ(notes.status, 0);
    const auto lines = linesOf(notes.out);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], lines[1]);
    EXPECT_EQ(lines[2], R"json({"strKeyElement()":["","ASK FOR INGRID"],"strKeyElementNr()":["","2"],)json"
                        R"json("strKeyQualifier()":["","M "]})json");
}

TEST(ManyDisplays, HaveTheirNumbersAboveTheirTables) {
    const TemporaryFile file(contentOf(sample("traveller")) + contentOf(sample("minimal")));
    EXPECT_EQ(runTool({"elements", "RECLOC", "--table", file.path()}).out,
              file.path() + ", display 1\n\nKEY            VALUE\n-------------  ------\nstrKeyElement  H4T9QZ\n\n" +
                  file.path() +
                  ", display 2\n\nKEY            VALUE\n-------------  ------\nstrKeyElement  AA11BB\n\n");
}

TEST(ManyDisplays, OneWithoutAnAnswerDoesNotAffectTheOthers) {
    // The minimal display has no remarks.
    const std::string minimal = contentOf(sample("minimal"));
    const Finished run = runTool({"elements", "RM", "--index", "1"}, minimal + contentOf(sample("traveller")));
    EXPECT_EQ(run.out, R"json({"strKeyElement":"RM  PREFERS RAIL WHEN UNDER THREE HOURS","strKeyElementNr":"13"})json"
                       "\n");
    expectRefused(run, 1, "standard input, display 1: the query failed with error 5260 ");
}

TEST(ManyDisplays, OneThatCannotBeReadDoesNotAffectTheOthers) {
    const std::string minimal = contentOf(sample("minimal"));
    const Finished run = runTool({"elements", "RECLOC"}, minimal + "A\n" + std::string(81, 'x') + "\n>\n" + minimal);
    EXPECT_EQ(run.out, "{\"strKeyElement\":\"AA11BB\"}\n{\"strKeyElement\":\"AA11BB\"}\n");
    expectRefused(run, 1,
                  "standard input, display 2: line 6 has 81 characters, a screen line has 80 at most. "
                  "The display is left out, the others are not.\n");
}

TEST(ManyDisplays, AnUnknownPrefixIsReportedOnce) {
    expectRefused(runTool({"notes"}, ""), 1, "standard input contains no display.\n");
    expectRefused(runTool({"elements", "XX"}, contentOf(sample("minimal")) + contentOf(sample("traveller"))), 1,
                  "'XX'");
}

}  // namespace

}  // namespace vantro::test
