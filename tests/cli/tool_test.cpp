// The tool on the command line: its output, its messages and its exit status.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace vantro::test {

namespace {

const std::string deactivated = "PX3\nPROFILE WILL BE DEACTIVATED\n";

// One line, after the tool's name.
void expectComplaint(const Finished& run, int status, const std::string& words) {
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    EXPECT_EQ(run.err.rfind("vantro-profile: ", 0), 0U) << run.err;
    EXPECT_NE(run.err.find(words), std::string::npos) << run.err;
}

TEST(Tool, HelpOnEveryLevelHasAnExample) {
    for (const char* command : {"", "classes", "describe", "command", "verify", "identify", "replay", "record", "batch",
                                "parse", "elements", "notes"}) {
        std::vector<std::string> arguments{"--help"};
        if (*command != '\0') arguments.insert(arguments.begin(), command);
        const Finished run = runTool(arguments);
        EXPECT_EQ(run.status, 0) << command;
        EXPECT_NE(run.out.find("Example"), std::string::npos) << run.out;
        EXPECT_NE(run.out.find("vantro-profile " + std::string(command)), std::string::npos) << run.out;
        EXPECT_EQ(run.err, "");
    }
}

TEST(Tool, PrintsItsVersion) {
    const Finished run = runTool({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.rfind("vantro-profile ", 0), 0U);
    EXPECT_EQ(std::ranges::count(run.out, '.'), 2);
}

TEST(Tool, BadUsageIsStatus2AndOneLine) {
    expectComplaint(runTool({}), 2, "see vantro-profile --help");
    expectComplaint(runTool({"frob"}), 2, "'frob'");
    expectComplaint(runTool({"--frob"}), 2, "'--frob'");
    expectComplaint(runTool({"command"}), 2, "see vantro-profile command --help");
    expectComplaint(runTool({"verify", "CPXTrans", "--json", "--table"}), 2, "--table");
    expectComplaint(runTool({"verify", "CPXTrans", "--screen"}), 2, "--screen");
    expectComplaint(runTool({"verify", "CPXTrans", "--screen", "/no/such/file"}), 2, "'/no/such/file'");
    expectComplaint(runTool({"verify", "CPXTrans", "--screen", "/"}), 2, "'/'");
}

TEST(Tool, AnUnknownClassIsBadUsageAndATransactionCodeNamesItsClass) {
    expectComplaint(runTool({"command", "Frobnicate"}), 2, "'vantro-profile describe' lists the classes");
    expectComplaint(runTool({"command", "CPDNTran"}), 2, "did you mean CPDNTrans?");
    expectComplaint(runTool({"command", "PX"}), 2, "the class of PX is CPXTrans");
    expectComplaint(runTool({"command", "CProfile"}), 2, "CProfile parses displays");
    expectComplaint(runTool({"verify", "CPYTrans"}), 2, "no class is named 'CPYTrans'");
}

TEST(Tool, AnUnknownSubcommandOrOptionNamesTheNearest) {
    expectComplaint(runTool({"verfy", "CPXTrans"}), 2, "'verfy'; did you mean 'verify'? See vantro-profile --help.");
    expectComplaint(runTool({"--versoin"}), 2, "did you mean '--version'?");
    expectComplaint(runTool({"prase"}), 2, "'prase'; did you mean 'parse'?");
    expectComplaint(runTool({"parse", "--onyl", "RM"}), 2, "'--onyl'; did you mean '--only'?");
    expectComplaint(runTool({"verify", "CPXTrans", "--tabel"}, deactivated), 2,
                    "there is no option '--tabel'; did you mean '--table'? See vantro-profile verify --help.");
    expectComplaint(runTool({"verify", "CPXTrans", "--scren=x"}), 2, "did you mean '--screen'?");
    expectComplaint(runTool({"verify", "--tabel"}), 2, "did you mean '--table'?");
    expectComplaint(runTool({"verify", "CPXTrans", "--frobnicate"}, deactivated), 2,
                    "there is no option '--frobnicate'; see vantro-profile verify --help.");
    expectComplaint(runTool({"describe", "CPXTrans", "CPDTrans"}), 2, "CPDTrans");
}

TEST(Tool, AnOptionBeforeItsSubcommandIsToldToFollowIt) {
    expectComplaint(runTool({"--strict", "parse", "f"}), 2,
                    "'--strict' is an option of parse and follows the subcommand: vantro-profile parse --strict; see");
    expectComplaint(runTool({"-q", "parse", "f"}), 2, "'-q' is an option of parse and follows");
    expectComplaint(runTool({"--only=RM"}), 2, "'--only=RM' is an option of subcommands such as parse and follows");
    expectComplaint(runTool({"--rows", "parse", "f"}), 2, "there is no option '--rows'");
}

TEST(Tool, TheHelpOfAClassDescribesIt) {
    const std::string described = runTool({"describe", "CPDNTrans"}).out;
    for (const char* command : {"command", "verify"}) {
        const Finished run = runTool({command, "CPDNTrans", "--help"});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out, runTool({command, "--help"}).out + "\n" + described);
        expectComplaint(runTool({command, "CPDNTran", "--help"}), 1, "did you mean CPDNTrans?");
    }
    EXPECT_EQ(runTool({"command", "--help", "CPDNTrans", "strKeyName=X"}).out,
              runTool({"command", "CPDNTrans", "--help"}).out);
}

TEST(Tool, ListsTheClasses) {
    const Finished run = runTool({"classes"});
    EXPECT_EQ(run.status, 0);
    const auto lines = linesOf(run.out);
    ASSERT_EQ(lines.size(), 2U + 19U);
    EXPECT_EQ(lines[0].rfind("CLASS ", 0), 0U);
    EXPECT_EQ(lines[2].rfind("CPBITrans      IProfileTrans ", 0), 0U) << lines[2];
    EXPECT_NE(run.out.find("PM, PME, PE, PEE, PI, PIE"), std::string::npos);
    EXPECT_EQ(lines.back().rfind("CProfileNotes  IProfileTrans, IProfileGet  PN, PNE, PNL", 0), 0U) << lines.back();
}

TEST(Tool, ListsTheClassesAsJson) {
    const Finished run = runTool({"classes", "--json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(R"({"class":"CRLPTrans","interfaces":["IProfileTrans"],"transactions":["RLP"],)"
                           R"("counts":["RecLocCount"],"creatable":true})"),
              std::string::npos)
        << run.out;
}

TEST(Tool, PrintsACommandAndALineEnd) {
    const Finished run =
        runTool({"command", "CPDNTrans", "strKeyName=SMITH", "strKeyOfficeID=NCEVN0950", "blnKeyExactMatch=yes"});
    EXPECT_EQ(run.out, "PDN/NCEVN0950/-SMITH/\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(Tool, ListsAreReadFromRepeatedParameters) {
    EXPECT_EQ(runTool({"command", "CPTTrans", "intKeyArraySize=1", "strKeyElArray()=1", "strKeyElArray()=4",
                       "strKeySegArray()=", "strKeySegArray()=2", "strKeyPasArray()=", "strKeyPasArray()=1"})
                  .out,
              "PT1//4/S2/P1\n");
}

TEST(Tool, AnEmptyCommandIsAnEmptyLineAndAHint) {
    const Finished run = runTool({"command", "CPDNTrans"});
    EXPECT_EQ(run.out, "\n");
    EXPECT_NE(run.err.find("the parameters are not sufficient"), std::string::npos);
    EXPECT_EQ(run.status, 3);
}

TEST(Tool, AParameterThatCannotBeReadIsBadUsage) {
    expectComplaint(runTool({"command", "CPDNTrans", "SMITH"}), 2, "'SMITH' is not KEY=VALUE");
    const TemporaryFile screen("PDN\n*T*\n");
    expectComplaint(runTool({"verify", "CPDNTrans", screen.path()}), 2,
                    "'" + screen.path() + "' is not KEY=VALUE, but a file; name a screen's file with --screen");
    expectComplaint(runTool({"verify", "CPDNTrans", "/no/such/file"}), 2, "'/no/such/file' is not KEY=VALUE; write");
    expectComplaint(runTool({"command", "CPDNTrans", "blnKeyExactMatch=maybe"}), 2, "blnKeyExactMatch is a boolean");
}

TEST(Tool, AFailedCallIsStatus1) {
    expectComplaint(runTool({"verify", "CProfileMode"}, "x"), 1,
                    "error 5045 from VantroProfileUtils: An error has occurred while verifying the profile.");
}

TEST(Tool, ReadsAScreenFromStandardInputOrAFile) {
    const TemporaryFile screen(deactivated);
    const std::string results = "{\"blnKeyResponseOK\":true}\n";
    EXPECT_EQ(runTool({"verify", "CPXTrans"}, deactivated).out, results);
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--screen", "-"}, deactivated).out, results);
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--screen", screen.path()}).out, results);
}

TEST(Tool, PrintsResultsAsATableWhenAskedTo) {
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--table"}, deactivated).out,
              "KEY               VALUE\n"
              "----------------  -----\n"
              "blnKeyResponseOK  True\n");
}

TEST(Tool, ListsInATableHaveOneRowPerEntry) {
    const TemporaryFile state(R"json({"strList()":["","b"],"intN":-3,"strEmpty()":[],"blnKeyEnter":true})json");
    EXPECT_EQ(runTool({"verify", "CProfileMode", "--table", "--state", state.path()}, "PM\n*PROFILE MODE*").out,
              "KEY                VALUE\n"
              "-----------------  --------------\n"
              "strList() 0\n"
              "strList() 1        b\n"
              "intN               -3\n"
              "strEmpty()         (no entries)\n"
              "blnKeyEnter        True\n"
              "blnKeyResponseOK   True\n"
              "strKeyErrorString  *PROFILE MODE*\n");
}

TEST(Tool, AnEmptyScreenHasNoResults) {
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--json"}, "").out, "null\n");
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--table"}, "").out, "no results: the response is empty\n");
}

TEST(Tool, AScreenThatCannotBeReadIsBadUsage) {
    expectComplaint(runTool({"verify", "CPXTrans"}, "A\n" + std::string(81, 'x') + "\nB\n"), 2,
                    "line 2 has 81 characters");
    expectComplaint(runTool({"verify", "CPXTrans"}, "\xFF"), 2, "not UTF-8");
}

TEST(Tool, TheResultsOfOneScreenAreTheStateOfTheNext) {
    const std::string header = "     COMPANY                         RECLOC     OFFICE\n";
    const std::string firstScreen = "PDN/KES\nSIMILAR COMPANY NAME LIST\n" + header +
                                    "   1 KESTREL TOOLS                   Q2W3E4\nEND OF BLOCK - USE PDMD\n>\n";
    const TemporaryFile state(runTool({"verify", "CPDNTrans"}, firstScreen).out);
    std::string secondScreen = "PDMD\n" + header;
    for (const char number : {'2', '3', '4', '5', '6', '7', '8', '9'}) {
        secondScreen += std::string("   ") + number + " KESWICK INKS                    B1N2M" + number + "\n";
    }
    const std::string name = "KESWICK INKS";
    EXPECT_EQ(runTool({"verify", "CPDNTrans", "--state", state.path()}, secondScreen + ">\n").out,
              R"({"blnKeyTrList":false,"blnKeyTrProfile":false,"blnKeyCompanyList":false,"blnKeyCoProfile":false,)"
              R"("blnKeyMerge":false,"strKeyCoNames":")" +
                  name + "," + name + "," + name + "," + name + "," + name + "," + name + "," + name + "," + name +
                  R"(","blnKeyEndOfBlock":false,"strKeyRecLocPos":"38"})"
                  "\n");
}

TEST(Tool, ParametersAreAddedOverTheState) {
    const TemporaryFile state(R"({"blnKeyEnter":false,"blnKeyExit":false})");
    EXPECT_EQ(
        runTool({"verify", "CProfileMode", "blnKeyEnter=true", "--state", state.path()}, "PM\n*PROFILE MODE*").out,
        R"({"blnKeyEnter":true,"blnKeyExit":false,"blnKeyResponseOK":true,"strKeyErrorString":"*PROFILE MODE*"})"
        "\n");
}

TEST(Tool, AnInvalidStateIsBadUsage) {
    const TemporaryFile state("[1]");
    expectComplaint(runTool({"verify", "CPDNTrans", "--state", state.path()}, "x"), 2, state.path());
    expectComplaint(runTool({"verify", "CPDNTrans", "--state", "/no/such/file"}, "x"), 2, "/no/such/file");
    expectComplaint(runTool({"verify", "CPDNTrans", "--state", "-"}, "{}"), 2, "both screen and state");
}

TEST(Tool, CountsWhatAClassCounts) {
    const std::string screen = "RLP\nRP/NCEVN0950/\n\nT/ABC123 /P1\nC/XYZ789\n>\n";
    EXPECT_EQ(runTool({"verify", "CRLPTrans", "--count"}, screen).out, "{\"RecLocCount\":2}\n");
    expectComplaint(runTool({"verify", "CPXTrans", "--count"}, "x"), 2, "leave --count out");
}

TEST(Tool, ReportedErrorsAreWrittenToStandardError) {
    const Finished run = runTool({"verify", "CRLPTrans", "strKeyIndex=9"}, "RLP\nRP/NCEVN0950/\nT/ABC123 /P1\n>\n");
    EXPECT_EQ(run.out, "{}\n");
    EXPECT_NE(run.err.find("error 5130"), std::string::npos) << run.err;
    EXPECT_EQ(run.status, 0);
}

}  // namespace

}  // namespace vantro::test
