// Which class reads a screen.
#include "cli/classes/identify.h"

#include "cli/classes/screen_marks.h"
#include "cli/io/utf.h"
#include "tests/cli/process.h"
#include "tests/support/collections.h"
#include "tests/support/exchange_file.h"
#include "tests/support/screens.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Names = std::vector<std::string>;

Names classesOf(TextView screen) {
    Names names;
    for (const Candidate& candidate : identify(joinLines(screen).screen)) names.push_back(toUtf8(candidate.row->name));
    return names;
}

// Class, line from 1 and mark of each reason.
Names reasonsOf(TextView screen) {
    Names reasons;
    for (const Candidate& candidate : identify(joinLines(screen).screen)) {
        for (const Reason& reason : candidate.reasons) {
            reasons.push_back(toUtf8(candidate.row->name) + " " + std::to_string(reason.line + 1) + " " +
                              toUtf8(reason.mark));
        }
    }
    return reasons;
}

TEST(Identify, KnowsAScreenByTheCommandAndTheMark) {
    EXPECT_EQ(reasonsOf(u"PX3\nPROFILE WILL BE DEACTIVATED\n"),
              (Names{"CPXTrans 1 PX3", "CPXTrans 2 WILL BE DEACTIVATED"}));
    EXPECT_EQ(reasonsOf(u">PDN/-SMITH\n\nSIMILAR TRAVELLER NAME LIST\n"),
              (Names{"CPDNTrans 1 PDN/-SMITH", "CPDNTrans 3 SIMILAR TRAVELLER NAME LIST"}));
}

TEST(Identify, AnswersThatAClassDoesNotRecogniseAreKnownByTheCommand) {
    EXPECT_EQ(reasonsOf(u"PX9\nELEMENT DOES NOT EXIST\n"),
              (Names{"CPXTrans 1 PX9", "CPDTrans 2 ELEMENT DOES NOT EXIST", "CPHTrans 2 ELEMENT DOES NOT EXIST"}));
    EXPECT_EQ(classesOf(u"PDMD\n     COMPANY                         RECLOC     OFFICE\n"), Names{"CPDMDTrans"});
}

TEST(Identify, AScreenThatContinuesAListIsReadByTheClassesOfLists) {
    EXPECT_EQ(classesOf(u"PDMD\n     COMPANY\nEND OF BLOCK - USE PDMD\n"),
              (Names{"CPDMDTrans", "CPDATrans", "CPDNTrans"}));
}

TEST(Identify, AProfilesDisplayIsReadByTheParser) {
    const TextView display = u"PDRT/H4T9QZ\n*T* TRAVELLER PROFILE\n------- PRIORITY\n   5 PPR/ CALL\nEND OF DISPLAY\n";
    EXPECT_EQ(classesOf(display), (Names{"CPDRTrans", "CProfile"}));
    const Names withoutCommand = classesOf(u"\n*C* KESTRELLO TOOLS\n");
    ASSERT_GE(withoutCommand.size(), 2U);
    EXPECT_EQ(withoutCommand.front(), "CProfile");
    EXPECT_EQ(std::ranges::count(withoutCommand, "CPLCTrans"), 1);
    EXPECT_EQ(std::ranges::count(withoutCommand, "CPDTTrans"), 0) << "it looks for a traveller's profile";
}

TEST(Identify, TheFurtherPageOfADisplayIsKnownByASection) {
    EXPECT_EQ(reasonsOf(u"  10 OFFICE\n------- PRIORITY\n------- GLOBAL SEARCH\nEND OF DISPLAY\n"),
              Names{"CProfile 2 ------- "});
    const Text above = Text(9, u'\n');
    EXPECT_EQ(classesOf(above + u"*C* KESTRELLO\n").front(), "CProfile");
    EXPECT_EQ(classesOf(u"\n" + above + u"*C* KESTRELLO\n"), Names{"CPCNTrans"}) << "line 11 has no title";
}

TEST(Identify, AMarkInTheFirstLineIsThatOfADisplayOnlyWithARule) {
    const auto isDisplay = [](TextView lines) {
        const Names classes = classesOf(lines);
        return std::ranges::count(classes, "CProfile") > 0;
    };
    EXPECT_FALSE(isDisplay(u"*T* PDN/SMYTHE\nNAME NOT FOUND\n>\n"));
    EXPECT_FALSE(isDisplay(u"*C* KESTRELLO\nNAME NOT FOUND ---------\n"));
    EXPECT_TRUE(isDisplay(u"*T* SMITH/ANNA\n---------\n"));
    EXPECT_TRUE(isDisplay(u"*C* KESTRELLO\n\n------- PRIORITY\n"));

    const auto folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";
    for (const Candidate& each : identify(*readExchange(folder / "pdn_not_found.exchange").front().screen)) {
        EXPECT_NE(each.row->name, u"CProfile");
    }
}

TEST(Identify, ACommandIsNotAWordThatBeginsLikeOne) {
    EXPECT_EQ(classesOf(u"PHONE NUMBERS\n"), Names{});
    EXPECT_EQ(classesOf(u"PDT/X\n"), Names{}) << "PDT takes nothing";
    EXPECT_EQ(classesOf(u"PTO*4/S2\n"), Names{"CPTTrans"});
    EXPECT_EQ(classesOf(u"PTX4\n"), Names{});
    EXPECT_EQ(classesOf(u"hello\n"), Names{});
    EXPECT_EQ(classesOf(u""), Names{});
    EXPECT_EQ(classesOf(u">\n"), Names{});
}

TEST(Identify, MarksCountAtTheirPositionsOnly) {
    EXPECT_EQ(classesOf(u"\n\n\n\nWILL BE DEACTIVATED\n"), Names{"CPXTrans"});
    EXPECT_EQ(classesOf(u"\n\n\n\n\nWILL BE DEACTIVATED\n"), Names{}) << "line 6 is not tested";
    EXPECT_EQ(classesOf(u"IGNORED     \nPROFILE MODE EXITED     \n"), Names{"CProfileMode"});
    EXPECT_EQ(classesOf(u"\nT/ABC123\n"), Names{}) << "no PNR is shown";
}

TEST(Identify, FindsTheClassOfEverySample) {
    const auto folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";
    int screens = 0;
    for (const auto& file : filesIn(folder, ".exchange")) {
        for (const ExchangeStep& step : readExchange(file)) {
            const std::string line = step.screen ? toUtf8(step.screen->substr(0, 80)) : "";
            const bool isForeign = line.find_first_not_of(' ') == std::string::npos || line.starts_with("PDMD") ||
                                   file.filename() == "pdn_not_found.exchange" ||
                                   file.filename() == "rlp_echo.exchange";
            if (isForeign) continue;
            const auto candidates = identify(*step.screen);
            ASSERT_FALSE(candidates.empty()) << file;
            EXPECT_EQ(toUtf8(candidates.front().row->name), toUtf8(step.className)) << file;
            ++screens;
        }
    }
    EXPECT_GT(screens, 90);
}

TEST(Recognised, IsWhatAClassSaysAboutItsSamples) {
    const auto folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";
    for (const auto& file : filesIn(folder, ".exchange")) {
        for (const ExchangeStep& step : readExchange(file)) {
            if (!step.screen || !step.results) continue;
            const ClassRow& row = *findClass(step.className);
            const auto results = collection(entriesOf(step.results->entries));
            if (step.statePrevious || flagsOf(results).empty()) continue;  // a flag may be that of the state
            EXPECT_TRUE(isRecognised(row, *step.screen, results)) << file;
        }
    }
}

TEST(Recognised, IsAMarkThatSetsNoFlag) {
    const ClassRow& row = *findClass(u"CPDTrans");
    const auto nothing = collection({{u"blnKeyList", false}});
    EXPECT_TRUE(isRecognised(row, joinLines(u"PD2\nTRAVELLER NAME NOT FOUND").screen, nothing));
    EXPECT_FALSE(isRecognised(row, joinLines(u"PD2\n TRAVELLER NAME NOT FOUND").screen, nothing));
}

TEST(Recognised, IsNotTheState) {
    const ClassRow& row = *findClass(u"CPDNTrans");
    EXPECT_FALSE(isRecognised(row, u"x", collection({{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", u"38"}})));
    EXPECT_TRUE(isRecognised(row, u"x", collection({{u"strKeyCoNames", u"KESTRELLO"}})));
    EXPECT_FALSE(isRecognised(row, u"x", {}));
}

TEST(Recognised, IsNoListWithEntry0Alone) {
    const ClassRow& row = *findClass(u"CPLTTrans");
    EXPECT_FALSE(isRecognised(row, u"x", collection({{u"strKeyNoCoAssoArray()", TextList{u""}}})));
}

// The program

const std::string deactivated = "PX3\nPROFILE WILL BE DEACTIVATED\n";

TEST(IdentifyCommand, PrintsARowPerReason) {
    const Finished run = runTool({"identify", "--table"}, deactivated);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "CLASS     LINE  MARK                 MEANING\n"
              "--------  ----  -------------------  -----------------------------------------\n"
              "CPXTrans  1     PX3                  the screen answers a command of the class\n"
              "CPXTrans  2     WILL BE DEACTIVATED  the host will deactivate the profile\n");
}

TEST(IdentifyCommand, PrintsJson) {
    EXPECT_EQ(runTool({"identify"}, deactivated).out,
              R"({"source":"standard input","candidates":[{"class":"CPXTrans","reasons":[)"
              R"({"line":1,"mark":"PX3","meaning":"the screen answers a command of the class"},)"
              R"({"line":2,"mark":"WILL BE DEACTIVATED","meaning":"the host will deactivate the profile",)"
              R"("flag":"blnKeyResponseOK"}]}]})"
              "\n");
}

TEST(IdentifyCommand, PrintsARowPerFileAndGoesOnAfterABadOne) {
    const TemporaryFile known(deactivated);
    const TemporaryFile display("PDR/ABC123\n*T* SMITH/ANNA\n");
    const Finished run = runTool({"identify", "--table", known.path(), "/no/such/file", display.path()});
    EXPECT_EQ(run.status, 2);
    const auto lines = linesOf(run.out);
    ASSERT_EQ(lines.size(), 4U) << run.out;
    EXPECT_NE(lines[2].find("CPXTrans   2     WILL BE DEACTIVATED"), std::string::npos) << run.out;
    EXPECT_NE(lines[3].find("CPDRTrans  2     *T*"), std::string::npos) << run.out;
    EXPECT_TRUE(lines[3].ends_with("  CProfile")) << run.out;
    EXPECT_NE(run.err.find("/no/such/file"), std::string::npos);
}

TEST(IdentifyCommand, AFolderStandsForItsFiles) {
    const std::string folder = std::string(VANTRO_SOURCE_DIR) + "/samples/profiles";
    const Finished run = runTool({"identify", "--json", folder});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(linesOf(run.out).size(), 12U) << run.out;
    EXPECT_EQ(runTool({"identify", "--json", "/no/such/folder"}).status, 2);
}

TEST(IdentifyCommand, AnUnknownScreenIsStatus4) {
    const Finished run = runTool({"identify", "--json"}, "hello\n");
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "{\"source\":\"standard input\",\"candidates\":[]}\n");
    EXPECT_EQ(linesOf(run.err).size(), 1U) << run.err;
    EXPECT_NE(run.err.find("no mark of any class is on the screen"), std::string::npos) << run.err;
    EXPECT_EQ(runTool({"identify", "--table"}, "hello\n").out, "");
}

TEST(IdentifyCommand, WarnsAboutTabs) {
    const Finished run = runTool({"identify", "--strict"}, "PX3\n\tPROFILE WILL BE DEACTIVATED\n");
    EXPECT_EQ(run.status, 5);
    EXPECT_NE(run.err.find("warning: standard input: the screen contains a tab in line 2, column 1"), std::string::npos)
        << run.err;
}

// The same for verify

TEST(VerifyCommand, AScreenThatNoTestRecognisedIsStatus4) {
    const Finished run = runTool({"verify", "CPXTrans"}, "PDN/-SMITH\n*T* SMITH/ANNA\n");
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "{\"blnKeyResponseOK\":false}\n");
    EXPECT_EQ(
        run.err,
        "vantro-profile: warning: no test of CPXTrans recognised the screen; 'vantro-profile identify' says which "
        "class reads it.\n");
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--quiet"}, "x\n").err, "");
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--quiet"}, "x\n").status, 4);
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--strict"}, "x\n").status, 4);
}

TEST(VerifyCommand, AnEmptyScreenAndAClassWithoutTestsAreStatus4) {
    const Finished empty = runTool({"verify", "CPXTrans"}, "");
    EXPECT_EQ(empty.status, 4);
    EXPECT_NE(empty.err.find("the screen is empty"), std::string::npos);
    const Finished moved = runTool({"verify", "CPDMDTrans"}, "PDMD\nEND OF LIST\n");
    EXPECT_EQ(moved.status, 4);
    EXPECT_NE(moved.err.find("read by the class that started the list"), std::string::npos) << moved.err;
}

TEST(VerifyCommand, WarnsAboutControlCharactersAndStrictFails) {
    const std::string screen = "PX3\nPROFILE\tWILL BE DEACTIVATED\n";
    const Finished run = runTool({"verify", "CPXTrans"}, screen);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "{\"blnKeyResponseOK\":true}\n");
    EXPECT_EQ(run.err,
              "vantro-profile: warning: the screen contains a tab in line 2, column 8; replace tabs by the blanks that "
              "they stand for.\n");
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--strict"}, screen).status, 5);
    EXPECT_EQ(runTool({"verify", "CPXTrans", "--strict"}, deactivated).status, 0);
}

}  // namespace
}  // namespace vantro::test
