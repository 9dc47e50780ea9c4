// Exchanges made of logs and of JSON Lines.
#include "cli/io/warnings.h"
#include "cli/replay/difference.h"
#include "cli/replay/exchange.h"
#include "cli/replay/player.h"
#include "cli/replay/recorder.h"
#include "tests/cli/process.h"
#include "tests/cli/temporary_folder.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Lines = std::vector<std::string>;

struct Recorded {
    Exchange steps;
    std::string text;
    std::string warnings;
};

Recorded recorded(const std::vector<StepInput>& inputs) {
    Warnings warnings;
    testing::internal::CaptureStderr();
    Recording recording = record(inputs, warnings);
    Recorded result{{}, recording.text, testing::internal::GetCapturedStderr()};
    if (recording.steps > 0) result.steps = parseExchange(recording.text);
    EXPECT_EQ(result.steps.size(), recording.steps);
    ExchangePlayer player;
    for (const ExchangeStep& step : result.steps) EXPECT_TRUE(differencesOf(step, player.play(step)).empty());
    return result;
}

Recorded ofLog(const std::string& log) { return recorded(stepsOfLog(log)); }
Recorded ofJson(const std::string& lines) { return recorded(stepsOfJsonLines(lines)); }

Text screenOf(std::initializer_list<TextView> lines) { return joinLines(std::vector<TextView>(lines)).screen; }

// What a step has besides its screen and its results.
std::string formOf(const ExchangeStep& step) {
    std::string text = utf8(step.className);
    if (step.command) text += " " + utf8(*step.command);
    if (step.commandRaises) text += " raises " + std::to_string(*step.commandRaises);
    if (step.params) {
        for (const ExchangeEntry& entry : *step.params) text += " " + utf8(entry.key) + "=" + spelled(entry.value);
    }
    if (step.screen) text += " screen";
    if (step.statePrevious) text += " previous";
    if (step.count) text += " " + std::to_string(*step.count);
    return text;
}

Lines formsOf(const Exchange& steps) {
    Lines forms;
    for (const ExchangeStep& step : steps) forms.push_back(formOf(step));
    return forms;
}

// ---- Logs

const std::string deactivated = "PX3\nPROFILE WILL BE DEACTIVATED\n>\n";

TEST(RecordLog, AScreenBeginsWithTheCommandThatTheHostRepeats) {
    const Exchange steps = ofLog("\n" + deactivated + ">\n\n" + deactivated).steps;
    EXPECT_EQ(formsOf(steps), (Lines{"CPXTrans screen", "CPXTrans screen"}));
    EXPECT_EQ(steps[0].screen, screenOf({u"PX3", u"PROFILE WILL BE DEACTIVATED", u">"}));
    EXPECT_EQ(steps[1].screen, steps[0].screen);
}

TEST(RecordLog, AnEnteredCommandIsTheFirstLineUnlessTheHostRepeatsIt) {
    EXPECT_EQ(ofLog(">PX3\nPROFILE WILL BE DEACTIVATED\n>\n").steps.front().screen,
              screenOf({u">PX3", u"PROFILE WILL BE DEACTIVATED", u">"}));
    EXPECT_EQ(ofLog("> PX3 \n" + deactivated).steps.front().screen,
              screenOf({u"PX3", u"PROFILE WILL BE DEACTIVATED", u">"}));
}

TEST(RecordLog, ThePromptOfACommandEndsTheScreenAboveIt) {
    const Exchange steps =
        ofLog(">PX3\r\nPROFILE WILL BE DEACTIVATED\r\n\r\n>PX4\r\n\r\nPROFILE WILL BE DEACTIVATED").steps;
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].screen, screenOf({u">PX3", u"PROFILE WILL BE DEACTIVATED", u"", u">"}));
    EXPECT_EQ(steps[1].screen, screenOf({u">PX4", u"", u"PROFILE WILL BE DEACTIVATED"}));
}

TEST(RecordLog, CommandsWithoutParametersAreBuilt) {
    EXPECT_EQ(formsOf(ofLog(">PM\n*PROFILE MODE*\n>PIE\nIGNORED AND PROFILE MODE EXITED\n>\n").steps),
              (Lines{"CProfileMode PM blnKeyEnter=true screen",
                     "CProfileMode PIE blnKeyIgnore=true blnKeyExit=true screen"}));
}

TEST(RecordLog, EveryLinkedProfileIsAStep) {
    const Exchange steps = ofLog("RLP\nRP/NCEVN3101/NCEVN3101\nT/KQ4R7T /P1\nC/Q2W3E4\n>\n").steps;
    EXPECT_EQ(formsOf(steps),
              (Lines{"CRLPTrans RLP strKeyIndex=\"0\" screen 2", "CRLPTrans strKeyIndex=\"1\" screen 2"}));
    EXPECT_EQ(steps[1].results->entries[1].value, ItemValue(Text(u"Q2W3E4")));
    EXPECT_EQ(formsOf(ofLog("RLP\nNO ELEMENT FOUND\n>\n").steps), Lines{"CRLPTrans RLP strKeyIndex=\"0\" screen 0"});
}

// The pages of a list are the screens of a sample.
TEST(RecordLog, TheNextPageIsReadAsPartOfItsList) {
    const Exchange sample =
        readExchange(std::filesystem::path(VANTRO_SOURCE_DIR) / "samples/exchanges/pdn_paging.exchange");
    std::string log;
    for (const ExchangeStep& step : sample) {
        if (step.statePrevious) continue;
        for (std::size_t at = 0; at < step.screen->size(); at += 80) log += utf8(step.screen->substr(at, 80)) + "\n";
    }
    const Exchange steps = ofLog(log).steps;
    ASSERT_EQ(steps.size(), sample.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(steps[i].className, sample[i].className);
        EXPECT_EQ(steps[i].statePrevious, sample[i].statePrevious);
        EXPECT_EQ(steps[i].results, sample[i].results) << i;
    }
}

TEST(RecordLog, WhatCannotBeAStepIsAComment) {
    const Recorded unknown = ofLog("ODD\n\nSCREEN\n>\n" + deactivated);
    EXPECT_EQ(unknown.steps.size(), 1U);
    EXPECT_NE(unknown.text.find("\n\n# line 1: the class of the screen cannot be told: it has no mark of any class.\n"
                                "# ODD\n#\n# SCREEN\n# >\n\n== CPXTrans\n"),
              std::string::npos)
        << unknown.text;
    EXPECT_EQ(
        unknown.warnings,
        "vantro-profile: warning: line 1: the class of the screen cannot be told: it has no mark of any class. It "
        "is a comment in the exchange.\n");
    EXPECT_NE(ofLog("\n\nELEMENT DOES NOT EXIST\n>\n")
                  .warnings.find("line 3: the class of the screen cannot be told: it "
                                 "may be one of CPDTrans, CPHTrans."),
              std::string::npos);
    EXPECT_NE(
        ofLog("\n*T* SMITH/ANNA MS\n------- PRIORITY\n>\n").warnings.find("line 2: the screen is a profile's display"),
        std::string::npos);
    EXPECT_NE(ofLog("PX3\n" + std::string(81, 'A') + "\n>\n").warnings.find("the screen's line 2 has 81 characters"),
              std::string::npos);
    std::string lines = "PX3\n";
    for (int line = 0; line < 24; ++line) lines += "A\n";
    EXPECT_NE(ofLog(lines).warnings.find("the screen has 25 lines, and one of an exchange has 24 at most"),
              std::string::npos);
}

// ---- JSON Lines

TEST(RecordJson, AStepHasACommandAScreenOrBoth) {
    EXPECT_EQ(formsOf(ofJson(R"({"class":"CPXTrans","params":{"strKeyItemNr":"3"}})"
                             "\n\r\n"
                             R"({"class":"CPXTrans","params":{"strKeyItemNr":"3"},"screen":["PX3",">"]})"
                             "\n"
                             R"({"class":"CPXTrans","screen":["PX3",">"]})"
                             "\n"
                             R"({"class":"CPDMDTrans"})")
                          .steps),
              (Lines{"CPXTrans PX3 strKeyItemNr=\"3\"", "CPXTrans PX3 strKeyItemNr=\"3\" screen", "CPXTrans screen",
                     "CPDMDTrans PDMD"}));
}

TEST(RecordJson, RequestsOfBatchAreSteps) {
    EXPECT_EQ(formsOf(ofJson(R"({"id":1,"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"3"}})"
                             "\n"
                             R"({"id":2,"class":"CPXTrans","call":"VerifyResponse","response":["PX3",">"],"params":{}})"
                             "\n"
                             R"({"class":"CRLPTrans","call":"RecLocCount","response":["RLP","T/KQ4R7T",">"]})"
                             "\n"
                             R"({"class":"CRLPTrans","call":"VerifyResponse","response":"RLP"})")
                          .steps),
              (Lines{"CPXTrans PX3 strKeyItemNr=\"3\"", "CPXTrans screen", "CRLPTrans screen 1", "CRLPTrans screen"}));
}

TEST(RecordJson, TheClassMayBeLeftToTheScreen) {
    const Exchange steps = ofJson(R"({"screen":["PX3","PROFILE WILL BE DEACTIVATED",">"]})").steps;
    EXPECT_EQ(formsOf(steps), Lines{"CPXTrans screen"});
    EXPECT_EQ(steps.front().results->entries, (ExchangeEntries{{u"blnKeyResponseOK", true}}));
}

TEST(RecordJson, TheStateIsThatOfTheStepBefore) {
    const Recorded two = ofJson(R"({"class":"CPDNTrans","screen":["PDN/KES","SIMILAR COMPANY NAME LIST",">"]})"
                                "\n"
                                R"({"class":"CPDNTrans","screen":["PDMD",">"],"state":"previous"})");
    EXPECT_EQ(formsOf(two.steps), (Lines{"CPDNTrans screen", "CPDNTrans screen previous"}));
}

TEST(RecordJson, FailuresAreRecorded) {
    const Exchange steps = ofJson(R"({"class":"CRLPTrans","screen":["RLP",">"],"params":{"strKeyIndex":"x"}})").steps;
    EXPECT_EQ(steps.front().results->kind, ExchangeResults::Kind::Raised);
    EXPECT_EQ(steps.front().results->raised, 5130);
}

TEST(RecordJson, AnotherCommandThanTheOneSentIsAWarning) {
    EXPECT_EQ(ofJson(R"({"class":"CPXTrans","params":{"strKeyItemNr":"3"},"command":"PX3"})").warnings, "");
    EXPECT_EQ(ofJson("\n"
                     R"({"class":"CPXTrans","params":{"strKeyItemNr":"3"},"command":"PX4"})")
                  .warnings,
              "vantro-profile: warning: line 2: \"PX4\" was sent, but CPXTrans builds \"PX3\".\n");
}

TEST(RecordJson, WhatIsNoStepIsAComment) {
    const auto warning = [](const std::string& line) {
        const Recorded comment = ofJson(line);
        EXPECT_TRUE(comment.steps.empty());
        EXPECT_NE(comment.text.find("\n# " + line + "\n"), std::string::npos) << comment.text;
        const std::string start = "vantro-profile: warning: line 1: ";
        return comment.warnings.substr(start.size(), comment.warnings.rfind(". It is a comment") - start.size());
    };
    EXPECT_EQ(warning("[]"), "the line is JSON, but not an object");
    EXPECT_EQ(warning("{").substr(0, 8), "not JSON");
    EXPECT_EQ(warning("{}"), "a class or a screen is missing");
    EXPECT_EQ(warning(R"({"class":7,"screen":""})"), "class: a text is expected");
    EXPECT_EQ(warning(R"({"class":"CPYTrans"})").substr(0, 29), "no class is named 'CPYTrans';");
    EXPECT_EQ(warning(R"({"class":"CProfile","call":"ParseProfile","display":""})").substr(0, 23),
              "CProfile parses display");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","call":"ProfileElements"})"),
              "an exchange has no call \"ProfileElements\"");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","call":"VerifyResponse"})"), "response: the member is missing");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","screen":"","state":"first"})"), "state: only \"previous\" is known");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","state":"previous"})"), "state: it is for a screen, which is missing");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","screen":"A\nB"})"), "the screen contains line ends");
    EXPECT_EQ(warning(R"({"class":"CPXTrans","call":"RecLocCount","response":"A"})"),
              "line 0: CPXTrans counts nothing; leave 'count:' out");
}

// ---- The tool

TEST(RecordTool, WhatIsRecordedPasses) {
    const TemporaryFolder folder;
    const std::string log = folder.write("a.log", deactivated + "ODD\n>\n");
    const std::string exchange = folder.in("a.exchange");
    const Finished first = runTool({"record", log, "--output", exchange});
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.out, "");
    EXPECT_EQ(linesOf(first.err).size(), 1U);
    EXPECT_TRUE(contentOf(exchange).starts_with("# The results below were filled in by the program."));
    EXPECT_EQ(runTool({"replay", exchange}).out, "ok        " + exchange + "\n1 case: 1 ok\n");

    const Finished second = runTool({"record", log, "-o", exchange});
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.err, "vantro-profile: the file '" + exchange + "' exists; --force overwrites it.\n");
    EXPECT_EQ(runTool({"record", log, "-o", exchange, "--force", "--strict", "--quiet"}).status, 5);
}

TEST(RecordTool, ReadsStandardInput) {
    const Finished run = runTool({"record"}, R"({"class":"CPDMDTrans"})");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("\n== CPDMDTrans\ncommand: \"PDMD\"\n"), std::string::npos);
    const Finished empty = runTool({"record"}, "");
    EXPECT_EQ(empty.status, 1);
    EXPECT_EQ(empty.err,
              "vantro-profile: no step was recorded; standard input has neither commands nor screens of the host.\n");
    EXPECT_EQ(runTool({"record"}, "\xFF").status, 2);
}

}  // namespace
}  // namespace vantro::test
