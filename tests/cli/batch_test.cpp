// The batch protocol, tested through the tool's streams.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

using Lines = std::vector<std::string>;

const std::string px3 = R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"3"}})";
const std::string px3Answer = R"({"result":"PX3"})";

std::string answerTo(const std::string& request) {
    const Lines answers = answersTo({request});
    EXPECT_EQ(answers.size(), 1U);
    return answers.empty() ? "" : answers.front();
}

bool isBadRequest(const std::string& answer) {
    return answer.find(R"("error":{"number":0,"source":"request","description":")") != std::string::npos;
}

std::string line80(std::string line) {
    line.resize(80, ' ');
    return line;
}

TEST(Batch, AnswersTheExamples) {
    EXPECT_EQ(
        answersTo(
            {R"({"class":"CPDNTrans","call":"CreateCommand","params":{"strKeyName":"SMITH"}})",
             R"({"id":7,"class":"CPXTrans","call":"VerifyResponse","response":["PX3","PROFILE WILL BE DEACTIVATED"]})",
             R"({"class":"CPXTrans","call":"VerifyResponse","response":""})"}),
        (Lines{R"({"result":"PDN/-SMITH"})", R"({"id":7,"result":{"blnKeyResponseOK":true}})", R"({"result":null})"}));
}

TEST(Batch, WarnsAboutControlCharactersInAScreenAndAnswersAsBefore) {
    const std::string good = R"({"class":"CPXTrans","call":"VerifyResponse","response":["PX3","WILL BE DEACTIVATED"]})";
    const std::string broken =
        R"({"id":"m1","class":"CPXTrans","call":"VerifyResponse","response":"PX3\nWILL BE DEACTIVATED"})";
    const std::string display =
        R"({"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":"NM"},"display":["A\tB","C"]})";
    const std::string input = good + "\n" + broken + "\n" + display + "\n";
    const Finished run = runBatch(input);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(linesOf(run.out)[1], R"({"id":"m1","result":{"blnKeyResponseOK":true}})");
    EXPECT_EQ(
        run.err,
        "vantro-profile: warning: line 2, id \"m1\": the screen contains a line end in line 1, column 4; a screen "
        "is lines of 80 characters without line ends, or a list of lines.\n"
        "vantro-profile: warning: line 3: the screen contains a tab in line 1, column 2; replace tabs by the "
        "blanks that they stand for.\n");
    EXPECT_EQ(runTool({"batch", "--strict"}, input).status, 5);
    EXPECT_EQ(runTool({"batch", "--strict"}, good + "\n").status, 0);
    EXPECT_EQ(runTool({"batch", "--strict"}, input + "x\n").status, 1);
    EXPECT_EQ(runTool({"batch", "--quiet"}, input).err, "");
    EXPECT_EQ(runTool({"batch", "--quiet"}, input).out, run.out);
}

TEST(Batch, AStrictRunWarnsAboutScreensThatNoTestRecognised) {
    const std::string known =
        R"({"class":"CPXTrans","call":"VerifyResponse","response":["PX3","WILL BE DEACTIVATED"]})";
    const std::string unknown = R"({"id":7,"class":"CPXTrans","call":"VerifyResponse","response":"hello"})";
    const std::string empty = R"({"class":"CPXTrans","call":"VerifyResponse","response":""})";
    const std::string command = R"({"class":"CPXTrans","call":"CreateCommand"})";
    const std::string failed = R"({"class":"CProfileMode","call":"VerifyResponse","response":"hello"})";
    const std::string input = known + "\n" + unknown + "\n" + empty + "\n" + command + "\n" + failed + "\n";
    const Finished strict = runTool({"batch", "--strict"}, input);
    EXPECT_EQ(strict.err,
              "vantro-profile: warning: line 2, id 7: no test of CPXTrans recognised the screen; 'vantro-profile "
              "identify' says which class reads it.\n"
              "vantro-profile: warning: line 3: the screen is empty, so CPXTrans read nothing.\n");
    EXPECT_EQ(strict.status, 5);
    EXPECT_NE(linesOf(strict.out)[4].find("error"), std::string::npos);  // a failed call read no screen
    EXPECT_EQ(runTool({"batch", "--strict"}, known + "\n").status, 0);
    EXPECT_EQ(runTool({"batch", "--strict", "--quiet"}, input).err, "");
    EXPECT_EQ(runTool({"batch", "--strict", "--quiet"}, input).status, 5);
    const Finished ordinary = runBatch(input);
    EXPECT_EQ(ordinary.err, "");
    EXPECT_EQ(ordinary.out, strict.out);
}

TEST(Batch, AShortLastScreenOfAListIsRecognised) {
    const std::string screen =
        R"("response":["PDMD","","   3 KESWICK INKS                    J8K9L1     NCEVN0900",">"])";
    const std::string request = R"({"class":"CPDNTrans","call":"VerifyResponse",)" + screen;
    const std::string state = R"(,"params":{"blnKeyEndOfBlock":true,"strKeyRecLocPos":"38"}})";
    const Finished run = runTool({"batch", "--strict"}, request + state + "\n" + request + "}\n");
    EXPECT_EQ(linesOf(run.err).size(), 1U) << run.err;
    EXPECT_NE(run.err.find("line 2: no test of CPDNTrans recognised the screen"), std::string::npos) << run.err;
}

TEST(Batch, AnUnknownClassIsAWarningWithTheNearestName) {
    const Finished run = runBatch(R"({"id":"a","class":"CPXTran","call":"VerifyResponse","response":""})"
                                  "\n"
                                  R"({"class":"PDN","call":"CreateCommand"})"
                                  "\n"
                                  R"({"class":"CPXTrans","call":"Nothing"})"
                                  "\nx\n");
    EXPECT_EQ(linesOf(run.out)[0],
              R"({"id":"a","error":{"number":0,"source":"request","description":"no class is named \"CPXTran\""}})");
    EXPECT_EQ(run.err,
              "vantro-profile: warning: line 1, id \"a\": no class is named 'CPXTran'; did you mean CPXTrans?\n"
              "vantro-profile: warning: line 2: no class is named 'PDN'; the class of PDN is CPDNTrans.\n"
              "vantro-profile: 4 of 4 lines are not requests, the first is line 1; their responses say why.\n");
    EXPECT_EQ(run.status, 1);
}

TEST(Batch, WarnsAboutUnknownKeysAndAnswersAsBefore) {
    const std::string known = R"({"class":"CPDNTrans","call":"CreateCommand","params":{"strKeyName":"SMITH"}})";
    const std::string input =
        known + "\n" +
        R"({"id":7,"class":"CPDNTrans","call":"CreateCommand","params":{"strKeyName":"SMITH","blnKeyExactMach":true}})"
        "\n"
        R"({"class":"CPDNTrans","call":"VerifyResponse","params":{"blnKeyEndOfBlok":true,"blnKeyTrList":false},)"
        R"("response":["PDN","*T*"]})"
        "\n";
    const Finished run = runBatch(input);
    EXPECT_EQ(run.status, 0);
    const Lines answers = linesOf(run.out);
    ASSERT_EQ(answers.size(), 3U);
    EXPECT_EQ(answers[1], R"({"id":7,"result":"PDN/-SMITH"})");
    EXPECT_NE(answers[2].find(R"("blnKeyTrProfile":true)"), std::string::npos) << answers[2];
    EXPECT_EQ(run.err,
              "vantro-profile: warning: line 2, id 7: CPDNTrans does not know \"blnKeyExactMach\"; did you mean "
              "\"blnKeyExactMatch\"?\n"
              "vantro-profile: warning: line 3: CPDNTrans does not know \"blnKeyEndOfBlok\"; did you mean "
              "\"blnKeyEndOfBlock\"?\n");
    EXPECT_EQ(runTool({"batch", "--strict"}, input).status, 5);
    EXPECT_EQ(runTool({"batch", "--strict"}, known + "\n").status, 0);
    EXPECT_EQ(runTool({"batch", "--quiet"}, input).err, "");
}

TEST(Batch, NamesTheMissingKeysOfACommandThatIsEmptyOrRaises91) {
    const Finished run =
        runBatch(R"({"id":"a","class":"CPDITrans","call":"CreateCommand","params":{"strKeyIndx":"1"}})"
                 "\n"
                 R"({"class":"CPDITrans","call":"CreateCommand","params":{}})"
                 "\n"
                 R"json({"class":"CPTTrans","call":"CreateCommand","params":{"intKeyArraySize":"1",)json"
                 R"json("strKeySegArray()":["","1"],"strKeyPasArray()":["","1"]}})json"
                 "\n");
    EXPECT_EQ(run.status, 0);
    const Lines answers = linesOf(run.out);
    ASSERT_EQ(answers.size(), 3U);
    EXPECT_EQ(answers[0], R"({"id":"a","result":""})");
    EXPECT_EQ(answers[1], R"({"result":""})");
    EXPECT_NE(answers[2].find(R"("error":{"number":91,)"), std::string::npos) << answers[2];
    EXPECT_EQ(run.err,
              "vantro-profile: warning: line 1, id \"a\": CPDITrans does not know \"strKeyIndx\"; did you mean "
              "\"strKeyIndex\"?\n"
              "vantro-profile: warning: line 1, id \"a\": the parameters are not sufficient and nothing is to be sent: "
              "strKeyIndex is missing.\n"
              "vantro-profile: warning: line 2: the parameters are not sufficient and nothing is to be sent: "
              "strKeyIndex is missing.\n"
              "vantro-profile: warning: line 3: error 91: strKeyElArray() (when intKeyArraySize is not empty) is "
              "missing.\n");
}

TEST(Batch, ALongIdIsCutInAWarning) {
    const std::string id(100, 'i');
    const Finished run =
        runBatch(R"({"id":")" + id + R"(","class":"CPXTrans","call":"VerifyResponse","response":"\t"})" + "\n");
    EXPECT_NE(run.err.find("id \"" + id.substr(0, 59) + "...: the screen contains a tab"), std::string::npos)
        << run.err;
}

TEST(Batch, BuildsACommand) { EXPECT_EQ(answerTo(px3), px3Answer); }

TEST(Batch, AnEmptyInputHasNoResponsesAndStatus0) {
    const Finished run = runBatch("");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 0);
}

TEST(Batch, TheIdIsTheFirstMemberAndCopiedUnchanged) {
    EXPECT_EQ(answerTo(R"({"class":"CPXTrans","call":"CreateCommand","params":{},"id":{"a":[1.50,null,"\u00e9"]}})"),
              "{\"id\":{\"a\":[1.50,null,\"\xC3\xA9\"]},\"result\":\"PX\"}");
    EXPECT_EQ(answerTo(R"({"class":"CPXTrans","call":"CreateCommand","params":{},"id":null})"),
              R"({"id":null,"result":"PX"})");
}

TEST(Batch, AnErrorThatACallRaisesIsItsResponseAndNoBadRequest) {
    const Finished run = runBatch(R"({"id":"m","class":"CProfileMode","call":"VerifyResponse","response":"x"})"
                                  "\n");
    EXPECT_EQ(run.out, R"({"id":"m","error":{"number":5045,"source":"VantroProfileUtils",)"
                       R"("description":"An error has occurred while verifying the profile."}})"
                       "\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
}

TEST(Batch, AParameterOfAWrongKindIsAnErrorOfTheCall) {
    EXPECT_EQ(answerTo(R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":["3"]}})"),
              R"({"error":{"number":5010,"source":"VantroProfileUtils",)"
              R"("description":"An error has occurred while creating a profile command."}})");
}

TEST(Batch, ABadLineDoesNotAffectTheOthers) {
    const Lines bad = {
        "",
        "   ",
        "not json",
        "{\"class\":\"CPXTrans\"",
        "[]",
        "5",
        R"({"class":"CPYTrans","call":"CreateCommand"})",
        R"({"class":"CProfile","call":"CreateCommand"})",
        R"({"class":"CPXTrans","call":"PPRElementsCount","display":""})",
        R"({"class":"CPXTrans","call":"VerifyResponse"})",
        R"({"class":"CPXTrans","call":"VerifyResponse","response":null})",
        R"({"class":"CPXTrans","call":"VerifyResponse","response":["x",5]})",
        R"({"class":"CPXTrans","call":"CreateCommand","params":{"a":1.5}})",
        R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"\udc00"}})",
        "{\"class\":\"CPXTrans\",\"call\":\"CreateCommand\",\"params\":{\"strKeyItemNr\":\"\xC3\"}}",
        R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"a)" + std::string("\x1F") + R"(b"}})",
        std::string("{\0}", 3),
        std::string(100'000, '['),
        std::string(1'000'000, 'x'),
        "{\"class\":\"CPXTrans\",\"call\":\"VerifyResponse\",\"response\":[\"" + std::string(81, 'x') + "\"]}",
    };
    Lines requests{px3};
    for (const std::string& line : bad) requests.insert(requests.end(), {line, px3});
    const Lines answers = answersTo(requests);
    ASSERT_EQ(answers.size(), requests.size());
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const bool good = i % 2 == 0;
        EXPECT_EQ(answers[i] == px3Answer, good) << requests[i].substr(0, 80) << ": " << answers[i];
        EXPECT_EQ(isBadRequest(answers[i]), !good) << requests[i].substr(0, 80) << ": " << answers[i];
    }
}

TEST(Batch, TheExitStatusShowsWhetherEveryLineWasARequest) {
    EXPECT_EQ(runBatch(px3 + "\n").status, 0);
    const Finished run = runBatch(px3 + "\nx\n" + px3 + "\n\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "vantro-profile: 2 of 4 lines are not requests, the first is line 2; their responses say why.\n");
    EXPECT_EQ(runTool({"batch", "--frobnicate"}).status, 2);
    EXPECT_EQ(runTool({"batch", "file"}).status, 2);
}

TEST(Batch, TheIdOfABadRequestIsCopiedAtAnyPosition) {
    for (const char* line : {R"({"id":9,"class":"CPYTrans"})", R"({"class":5,"call":{"id":1},"id":9})",
                             R"({"params":"\ud800\ud800","id":9})", "{\"x\":\"\xFF\",\"id\":9}"}) {
        const std::string answer = answerTo(line);
        EXPECT_EQ(answer.rfind(R"({"id":9,"error":{"number":0,"source":"request",)", 0), 0U) << answer;
    }
}

TEST(Batch, AByteOrderMarkIsSkippedAtTheStartOnly) {
    const Finished run = runBatch("\xEF\xBB\xBF" + px3 + "\n\xEF\xBB\xBF" + px3 + "\n");
    const Lines answers = linesOf(run.out);
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[0], px3Answer);
    EXPECT_TRUE(isBadRequest(answers[1]));
}

TEST(Batch, TheLastLineMayLackItsLineEndAndNoLineFollowsTheLastLineEnd) {
    EXPECT_EQ(runBatch(px3).out, px3Answer + "\n");
    EXPECT_EQ(runBatch(px3 + "\n").out, px3Answer + "\n");
    EXPECT_EQ(linesOf(runBatch(px3 + "\n\n").out).size(), 2U);
}

TEST(Batch, LinesMayEndInCarriageReturns) {
    EXPECT_EQ(runBatch(px3 + "\r\n" + px3 + "\r\n").out, px3Answer + "\n" + px3Answer + "\n");
}

TEST(Batch, TextIsUtf16InsideAndUtf8Outside) {
    const std::string answer = "{\"result\":\"PX\xC3\xA9\xF0\x9F\x98\x80\\u0001\\\"\"}";
    EXPECT_EQ(
        answerTo(
            R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"\u00e9\ud83d\ude00\u0001\""}})"),
        answer);
    EXPECT_EQ(answerTo("{\"class\":\"CPXTrans\",\"call\":\"CreateCommand\",\"params\":{\"strKeyItemNr\":"
                       "\"\xC3\xA9\xF0\x9F\x98\x80\\u0001\\\"\"}}"),
              answer);
}

TEST(Batch, ASplitSurrogatePairIsWrittenAsReplacementCharacter) {
    // The name's 35 characters end between the two halves of the last one.
    std::string name = R"( *C*)" + std::string(34, 'A') + R"(\ud83d\ude00)";
    EXPECT_EQ(
        answerTo(R"({"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":"NM"},"display":["",")" +
                 name.substr(1) + R"("]})"),
        R"({"result":null,"params":{"strKeyPrefix":"NM","strKeyElement":")" + std::string(34, 'A') +
            "\xEF\xBF\xBD\"}}");
}

TEST(Batch, LinesOfOneMegabyteAreAnswered) {
    const std::string million(1'000'000, 'A');
    const Lines answers = answersTo(
        {px3, R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":")" + million + "\"}}",
         R"({"id":")" + million + R"(","class":"CPXTrans","call":"VerifyResponse","response":")" + million + "\"}",
         px3});
    ASSERT_EQ(answers.size(), 4U);
    EXPECT_EQ(answers[0], px3Answer);
    EXPECT_EQ(answers[1], R"({"result":"PX)" + million + "\"}");
    EXPECT_EQ(answers[2], R"({"id":")" + million + R"(","result":{"blnKeyResponseOK":false}})");
    EXPECT_EQ(answers[3], px3Answer);
}

TEST(Batch, DeepNestingIsReadToItsEnd) {
    const std::string deep = std::string(200'000, '[') + std::string(200'000, ']');
    EXPECT_EQ(answerTo(R"({"class":"CPXTrans","call":"CreateCommand","params":{},"ignored":)" + deep + "}"),
              R"({"result":"PX"})");
    EXPECT_EQ(answerTo(R"({"id":)" + deep + R"(,"class":"CPXTrans","call":"CreateCommand","params":{}})"),
              R"({"id":)" + deep + R"(,"result":"PX"})");
}

TEST(Batch, ResultsHaveTheirKeysInTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(
        answerTo(R"({"class":"CPTTrans","call":"VerifyResponse","response":["PT4","RP/NCEVN0950/","- PNR UPDATED"]})"),
        R"({"result":{"blnKeyPNR":true,"blnKeyPNRCreated":false,"blnKeyPNRUpdated":true}})");
}

TEST(Batch, AReturnedRequestCollectionHasItsOwnKeysFirst) {
    EXPECT_EQ(answerTo(R"({"class":"CProfileMode","call":"VerifyResponse","params":{"x":5,"blnKeyEnter":true},)"
                       R"("response":["PM","*PROFILE MODE*"]})"),
              R"({"result":{"x":5,"blnKeyEnter":true,"blnKeyResponseOK":true,"strKeyErrorString":"*PROFILE MODE*"}})");
}

TEST(Batch, TheArgumentsOfProfileElementsFollowItsResult) {
    const std::string display = R"("display":["","  NM LINDQVIST/AGNES MS","END OF DISPLAY"])";
    EXPECT_EQ(answerTo(R"({"id":1,"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":"NM"},)" +
                       display + "}"),
              R"({"id":1,"result":null,"params":{"strKeyPrefix":"NM","strKeyElement":"LINDQVIST/AGNES MS"}})");
    EXPECT_EQ(
        answerTo(R"({"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":"XYZ"},"selection":["a"],)" +
                 display + "}"),
        R"({"result":{"strKeyPrefix":"XYZ"},"params":{"strKeyPrefix":"XYZ"},"selection":["a"]})");
}

TEST(Batch, TheArgumentsOfProfileElementsFollowItsErrorToo) {
    EXPECT_EQ(
        answerTo(R"({"class":"CProfile","call":"ProfileElements","params":{"x":true},"selection":[],"display":"x"})"),
        R"({"error":{"number":5065,"source":"VantroProfileUtils",)"
        R"("description":"An error has occurred while verifying the profile."},"params":{"x":true},"selection":[]})");
}

TEST(Batch, WithoutACollectionProfileElementsHasNoParamsInItsResponse) {
    const std::string answer = answerTo(R"({"class":"CProfile","call":"ProfileElements","display":"x"})");
    EXPECT_EQ(answer.rfind(R"({"error":{"number":91,)", 0), 0U) << answer;
    EXPECT_EQ(answer.find("params"), std::string::npos);
}

TEST(Batch, TheSelectionIsWrittenAsTheCallLeftIt) {
    // Columns: kind letter 1, number 6 to 8, text from 14.
    EXPECT_EQ(
        answerTo(R"({"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":"ALL"},)"
                 R"("selection":["s  rm","ap"],"qualifier":"RM","display":["","------- PNR TRANSFERABLE DATA",)"
                 R"("S    12      RM AISLE SEAT","A    13      RM NOT THIS KIND","S    14      OS NOT THIS CODE",)"
                 R"("END OF DISPLAY"]})"),
        R"({"result":null,"params":{"strKeyPrefix":"ALL","strKeyElNbrsArray":["","12"]},"selection":["RM","AP"]})");
}

TEST(Batch, ACountIsANumber) {
    const std::string screen = R"("response":["RLP","RP/NCEVN0950/","","T/ABC123 /P1","C/XYZ789",">"]})";
    EXPECT_EQ(answerTo(R"({"class":"CRLPTrans","call":"RecLocCount",)" + screen), R"({"result":2})");
}

TEST(Batch, NotesAreCountedWithTheirFilters) {
    const std::string call =
        R"({"class":"CProfileNotes","call":"ProfileNotesElementsCount","display":)"
        R"(["","*T*","------- PROFILE NOTES","A CALLS BACK","B WRITES","A WRITES BACK","END OF DISPLAY"])";
    EXPECT_EQ(answerTo(call + "}"), R"({"result":3})");
    EXPECT_EQ(answerTo(call + R"(,"searchString":"BACK"})"), R"({"result":2})");
    EXPECT_EQ(answerTo(call + R"(,"searchString":"WRITES","searchQualifier":"A"})"), R"({"result":1})");
}

TEST(Batch, ReportedNumbersAreTheLastMember) {
    // Entry 9 is not on the list: the reader reports that and returns what it has.
    const std::string call = R"({"class":"CRLPTrans","call":"VerifyResponse","params":{"strKeyIndex":"9"},)"
                             R"("response":["RLP","RP/NCEVN0950/","T/ABC123 /P1",">"]})";
    EXPECT_EQ(answersTo({call, px3}), (Lines{R"({"result":{},"reported":[5130]})", px3Answer}));
}

TEST(Batch, ARequestIsAnsweredBeforeTheNextOneIsSent) {
    Dialogue dialogue;
    for (int i = 0; i < 3; ++i) {
        dialogue.send(px3 + "\n");
        EXPECT_EQ(dialogue.receiveLine(), px3Answer);
    }
    // The beginning of an unfinished line does not delay the response to the line before it.
    dialogue.send(px3 + "\n" + px3.substr(0, 10));
    EXPECT_EQ(dialogue.receiveLine(), px3Answer);
    dialogue.send(px3.substr(10) + "\n");
    EXPECT_EQ(dialogue.receiveLine(), px3Answer);
}

TEST(Batch, AWholeProfileIsWhatParsePrintsWithoutItsSource) {
    const std::string file = std::string(VANTRO_SOURCE_DIR) + "/samples/profiles/every_family.txt";
    const std::string source = R"({"source":{"file":")" + file + R"(","display":1,"line":1},)";
    const std::string record = linesOf(runTool({"parse", file}).out).front();
    ASSERT_EQ(record.substr(0, source.size()), source);
    std::ifstream stream(file);
    std::string lines;
    std::string unbroken;
    for (std::string line; std::getline(stream, line);) {
        lines += (lines.empty() ? "\"" : ",\"") + line + "\"";
        unbroken += line80(line);
    }
    const std::string call = R"("class":"CProfile","call":"ParseProfile","display":)";
    EXPECT_EQ(answerTo(R"({"id":1,)" + call + "[" + lines + "]}"),
              R"({"id":1,"result":{)" + record.substr(source.size()) + "}");
    EXPECT_EQ(answerTo("{" + call + "\"" + unbroken + "\"}"), R"({"result":{)" + record.substr(source.size()) + "}");
}

TEST(Batch, AWholeProfileNeedsADisplayAndListsItsProblems) {
    const std::string call = R"({"class":"CProfile","call":"ParseProfile")";
    EXPECT_TRUE(isBadRequest(answerTo(call + "}")));
    EXPECT_TRUE(isBadRequest(answerTo(call + R"(,"display":null})")));
    EXPECT_TRUE(isBadRequest(answerTo(R"({"class":"CProfileNotes","call":"ParseProfile","display":""})")));
    const std::string answer = answerTo(call + R"(,"object":"a","params":{"x":1},"display":""})");
    EXPECT_TRUE(answer.starts_with(R"({"result":{"name":"",)")) << answer;
    EXPECT_TRUE(answer.ends_with(R"("problems":[{"query":"PCN","number":6,"description":"Overflow"},)"
                                 R"({"query":"PIN","number":6,"description":"Overflow"}]}})"))
        << answer;
}

TEST(Batch, MemoryDoesNotGrowWithTheNumberOfLines) {
    const std::string line = R"({"class":"CPXTrans","call":"VerifyResponse","response":")" + line80("PX3") +
                             std::string(1920, 'x') + "\"}\n";
    std::string few;
    for (int i = 0; i < 1000; ++i) few += line;
    std::string many;
    for (int i = 0; i < 20; ++i) many += few;
    const Finished shortRun = runBatch(few);
    const Finished longRun = runBatch(many);
    ASSERT_EQ(shortRun.status, 0);
    ASSERT_EQ(longRun.status, 0);
    EXPECT_EQ(linesOf(longRun.out).size(), 20'000U);
    // The input is 40 MB; a sanitizer's own memory grows a little.
    EXPECT_LT(longRun.peakKilobytes, shortRun.peakKilobytes + 8L * 1024);
}

}  // namespace

}  // namespace vantro::test
