// The entries of a list on the command line: verify --rows.
#include "cli/commands/rows_view.h"
#include "cli/io/utf.h"
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

const std::string companies =
    "PDN/KES\n"
    "SIMILAR COMPANY NAME LIST\n"
    "     COMPANY                         RECLOC     OFFICE\n"
    "   1 KESTRELLO, TOOLS AND CO         Q2W3E4     NCEVN0900\n"
    "   2 KESTERSON MARINE INSURANCE AND  R5T6Y7     NCEVN0901\n"
    "     SURVEY\n"
    "END OF BLOCK - USE PDMD\n"
    ">";

const std::string continuation =
    "PDMD\n"
    "\n"
    "   3 KESWICK INKS                    J8K9L1     NCEVN0900\n"
    ">";

Finished rows(std::vector<std::string> options, const std::string& screen) {
    options.insert(options.begin(), {"verify", "CPDNTrans", "--rows"});
    return runTool(options, screen);
}

TEST(Rows, AreOneArrayOfObjects) {
    const Finished run = rows({}, companies);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out,
              R"([{"line":3,"kind":"company","number":"1","name":"KESTRELLO, TOOLS AND CO","recordLocator":"Q2W3E4",)"
              R"("company":"","office":"NCEVN0900"},)"
              R"({"line":4,"kind":"company","number":"2","name":"KESTERSON MARINE INSURANCE AND SURVEY",)"
              R"("recordLocator":"R5T6Y7","company":"","office":"NCEVN0901"}])"
              "\n");
}

TEST(Rows, AreCsvWithTheNamesOfTheColumns) {
    EXPECT_EQ(rows({"--csv"}, companies).out,
              "line,kind,number,name,recordLocator,company,office\n"
              "3,company,1,\"KESTRELLO, TOOLS AND CO\",Q2W3E4,,NCEVN0900\n"
              "4,company,2,KESTERSON MARINE INSURANCE AND SURVEY,R5T6Y7,,NCEVN0901\n");
}

TEST(Rows, AreATableThatSaysWhenTheListContinues) {
    const auto lines = linesOf(rows({"--table"}, companies).out);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0],
              "LINE  KIND     NUMBER  NAME                                   RECORD LOCATOR  COMPANY  OFFICE");
    EXPECT_EQ(lines[2],
              "3     company  1       KESTRELLO, TOOLS AND CO                Q2W3E4                   NCEVN0900");
    EXPECT_EQ(lines[4], "The list continues: send PDMD for its next block.");
}

TEST(Rows, ThatContinueAreNotedBesidesJsonAndCsv) {
    const std::string note =
        "vantro-profile: the list continues: send PDMD for its next block, and read that with --state and the results "
        "of "
        "this screen (verify without --rows).\n";
    EXPECT_EQ(rows({}, companies).err, note);
    EXPECT_EQ(rows({"--csv", "--strict"}, companies).err, note);
    EXPECT_EQ(rows({"--csv", "--strict"}, companies).status, 0) << "a note is no warning";
    EXPECT_EQ(rows({"--table"}, companies).err, "") << "the table says it";
    EXPECT_EQ(rows({"--quiet"}, companies).err, "");
    EXPECT_EQ(rows({}, companies.substr(0, companies.find("END OF"))).err, "");
}

TEST(Rows, OfATitleAloneAreNoneAndAWarning) {
    const std::string title = companies.substr(0, companies.find("   1 KES")) + ">";
    const Finished run = rows({}, title);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.err,
              "vantro-profile: warning: the screen shows the title of a list, but CPDNTrans read no entry of it; "
              "'vantro-profile identify' says which class reads the screen.\n");
    EXPECT_EQ(rows({"--strict"}, title).status, 5);
}

TEST(Rows, OfAContinuationAreReadWithTheState) {
    const TemporaryFile state(runTool({"verify", "CPDNTrans"}, companies).out);
    const std::string expected =
        "line,kind,number,name,recordLocator,company,office\n"
        "2,company,3,KESWICK INKS,J8K9L1,,NCEVN0900\n";
    EXPECT_EQ(rows({"--csv", "--state", state.path()}, continuation).out, expected);
    EXPECT_EQ(rows({"--csv", "blnKeyEndOfBlock=true", "strKeyRecLocPos=38"}, continuation).out, expected);
}

// The class itself reads nothing on a continuation that ends before line 9.
TEST(Rows, MakeAShortContinuationAScreenThatIsRecognised) {
    const std::vector<std::string> verify{"verify", "CPDNTrans", "blnKeyEndOfBlock=true"};
    std::vector<std::string> withColumn = verify;
    withColumn.emplace_back("strKeyRecLocPos=38");
    EXPECT_EQ(runTool(withColumn, continuation).status, 0);
    EXPECT_EQ(runTool(verify, "PDMD\n").status, 4);
    withColumn.back() = "strKeyRecLocPos=X";
    EXPECT_EQ(runTool(withColumn, continuation).status, 4);
}

TEST(Rows, AScreenWithoutAListHasNoneAndAWarning) {
    const Finished run = rows({"--json"}, continuation);
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1);
    EXPECT_NE(run.err.find("warning: the screen shows no list that CPDNTrans reads"), std::string::npos) << run.err;
    EXPECT_EQ(rows({"--csv"}, continuation).out, "line,kind,number,name,recordLocator,company,office\n");
}

TEST(Rows, OfLinkedProfilesHaveTheirPassengers) {
    EXPECT_EQ(runTool({"verify", "CRLPTrans", "--rows"}, "RLP\nRP/NCEVN0900\nT/KQ4R7T /P12\nC/Q2W3E4\n>").out,
              R"([{"line":2,"kind":"traveller","recordLocator":"KQ4R7T","passenger":"12"},)"
              R"({"line":3,"kind":"company","recordLocator":"Q2W3E4","passenger":""}])"
              "\n");
}

TEST(Rows, AClassThatReadsNoListIsBadUsageAndThoseThatDoAreNamed) {
    const Finished run = runTool({"verify", "CPXTrans", "--rows"}, "X");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "vantro-profile: CPXTrans reads no list; --rows is for CPDATrans, CPDNTrans, CPDTrans, CPLCTrans, "
              "CPLTTrans, CRLPTrans.\n");
}

TEST(Rows, AStateThatCannotBeReadIsAFailedCall) {
    const Finished run = rows({"blnKeyEndOfBlock=true", "strKeyRecLocPos=X"}, continuation);
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("error 13"), std::string::npos) << run.err;
}

TEST(Rows, OptionsThatContradictEachOtherAreBadUsage) {
    EXPECT_EQ(rows({"--csv", "--json"}, companies).status, 2);
    EXPECT_EQ(rows({"--csv", "--table"}, companies).status, 2);
    EXPECT_EQ(rows({"--count"}, companies).status, 2);
    EXPECT_EQ(runTool({"verify", "CPDNTrans", "--csv"}, companies).status, 2);
}

TEST(Rows, TheColumnsOfAClassAreDescribed) {
    const std::string text = runTool({"describe", "CPLCTrans"}).out;
    EXPECT_NE(text.find("Columns of a list, with verify --rows:\n"
                        "  line           The line of the screen, counted from 0.\n"
                        "  kind           Whose profile it is: traveller or company.\n"
                        "  number         The number of the entry in the list.\n"
                        "  name           The name of the traveller or the company.\n"
                        "  recordLocator  The profile's record locator.\n"
                        "  office         The office to which the company's profile belongs.\n"),
              std::string::npos)
        << text;
    EXPECT_NE(runTool({"describe", "CRLPTrans", "--json"})
                  .out.find(R"("columns":[{"name":"line","meaning":"the line of the screen, counted from 0"},)"),
              std::string::npos);
    EXPECT_EQ(runTool({"describe", "CPXTrans", "--json"}).out.find("columns"), std::string::npos);
}

TEST(Rows, TheColumnsOfEveryClassAreInTheDocument) {
    std::ifstream file(VANTRO_SOURCE_DIR "/docs/rows.md");
    const std::string document{std::istreambuf_iterator<char>(file), {}};
    std::size_t classes = 0;
    for (const ClassRow& row : classTable()) {
        std::string names;
        for (const NamedColumn& column : columnsOf(row)) names += (names.empty() ? "" : ", ") + toUtf8(column.name);
        const bool isNamed = document.find("\n| `" + toUtf8(row.name) + "` | ") != std::string::npos;
        EXPECT_EQ(isNamed, !names.empty()) << toUtf8(row.name);
        if (names.empty()) continue;
        EXPECT_NE(document.find(" | " + names + " |\n", document.find("| `" + toUtf8(row.name) + "`")),
                  std::string::npos)
            << names;
        ++classes;
    }
    EXPECT_EQ(classes, 6U);
}

}  // namespace
}  // namespace vantro::test
