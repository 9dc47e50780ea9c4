// The records of parse: identifiers, records as input, rows of CSV, and what is left out.
#include "tests/cli/process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string sample = std::string(VANTRO_SOURCE_DIR) + "/samples/profiles/";

const std::string first =
    "PDRT/H4T9QZ\n*T* TRAVELLER PROFILE                                                     H4T9QZ\n"
    "------- PRIORITY\n   5 PPR/ CALL, THEN \"ASK\"\nEND OF DISPLAY\n";
const std::string bad = "PDR/X\n" + std::string(81, 'X') + "\n>\n\n";
const std::string second =
    "PDRT/E2F5KD\n*T* TRAVELLER PROFILE                                                     E2F5KD\n>\n";

TEST(ParseRecords, AnIdentifierFollowsTheSourceAlsoOfAnError) {
    const auto lines =
        linesOf(runTool({"parse", "--id", "{locator}:{display}:{line}", "--compact"}, first + bad + second).out);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_THAT(lines[0], StartsWith(R"({"source":{"file":"-","display":1,"line":1},"id":"H4T9QZ:1:1",)"));
    EXPECT_THAT(lines[1],
                StartsWith(R"({"source":{"file":"-","display":2,"line":6},"id":":2:6","error":{"number":0,)"));
    EXPECT_EQ(lines[2], R"({"source":{"file":"-","display":3,"line":10},"id":"E2F5KD:3:10","recordLocator":"E2F5KD"})");
}

TEST(ParseRecords, IdentifiersAreTheSameOnAnyNumberOfThreads) {
    std::string input;
    for (int i = 0; i < 3000; ++i) input += first + bad + second;
    const std::string expected = runTool({"parse", "--id", "{line} {display}"}, input).out;
    EXPECT_THAT(linesOf(expected).back(), StartsWith(R"({"source":{"file":"-","display":9000,"line":35998},)"
                                                     R"("id":"35998 9000",)"));
    EXPECT_TRUE(runTool({"parse", "-j", "4", "--id", "{line} {display}"}, input).out == expected);
}

TEST(ParseRecords, PrettyRecordsAreIndentedAsAWhole) {
    EXPECT_EQ(runTool({"parse", "--pretty", "--only", "RECLOC", "--id", "{name}"}, second + bad).out,
              "{\n  \"source\": {\n    \"file\": \"-\",\n    \"display\": 1,\n    \"line\": 1\n  },\n"
              "  \"id\": \"-\",\n  \"recordLocator\": \"E2F5KD\"\n}\n"
              "{\n  \"source\": {\n    \"file\": \"-\",\n    \"display\": 2,\n    \"line\": 4\n  },\n"
              "  \"id\": \"-\",\n  \"error\": {\n    \"number\": 0,\n    \"source\": \"input\",\n"
              "    \"description\": \"line 5 has 81 characters, a screen line has 80 at most\"\n  }\n}\n");
}

TEST(ParseRecords, ACompactRecordMayConsistOfItsSource) {
    const std::string blank = "X\n>\n";
    EXPECT_EQ(runTool({"parse", "--compact", "--only", "PPR"}, blank).out,
              "{\"source\":{\"file\":\"-\",\"display\":1,\"line\":1}}\n");
    EXPECT_EQ(runTool({"parse", "--compact", "--only", "PPR", "--pretty"}, blank).out,
              "{\n  \"source\": {\n    \"file\": \"-\",\n    \"display\": 1,\n    \"line\": 1\n  }\n}\n");
}

TEST(ParseRecords, TheFileIsNamedAsOnTheCommandLine) {
    EXPECT_THAT(runTool({"parse", "--id", "{name}", sample + "../profiles/minimal.txt"}).out,
                StartsWith("{\"source\":{\"file\":\"" + sample +
                           "../profiles/minimal.txt\",\"display\":1,\"line\":1}," + R"("id":"minimal",)"));
}

TEST(ParseRecords, OnlySomeQueriesAreAnswered) {
    EXPECT_EQ(runTool({"parse", "--only", "PPR,RM", "--only", "RECLOC", "-"}, first).out,
              R"({"source":{"file":"-","display":1,"line":1},"recordLocator":"H4T9QZ","sections":["PRIORITY"],)"
              R"("elements":{"RM":[],"PPR":[{"number":"5","text":"CALL, THEN \"ASK\""}]}})"
              "\n");
    const Finished run = runTool({"parse", "--only", "NN"}, first);
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("--only: nothing in a profile is named 'NN'"));
}

TEST(ParseRecords, AQueryThatIsNotAskedForMayFail) {
    const std::string unended = "PDR/H4T9QZ\n*T*\n";
    EXPECT_EQ(runTool({"parse", "--only", "RECLOC"}, unended).status, 0);
    const Finished run = runTool({"parse", "--only", "RECLOC,RM"}, unended);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "vantro-profile: warning: standard input, display 1: the display from line 1 on has no end, "
              "neither END OF DISPLAY nor a prompt.\n"
              "vantro-profile: standard input, display 1: no answer to RM (error 5260).\n");
}

TEST(ParseRecords, TotalsAreTheLastLineUnlessQuiet) {
    EXPECT_EQ(runTool({"parse"}, first).err, "");
    EXPECT_EQ(runTool({"parse"}, first + second).err, "vantro-profile: 2 profiles.\n");
    EXPECT_EQ(runTool({"parse", "-q"}, first + second).err, "");
    EXPECT_THAT(linesOf(runTool({"parse", "--quiet"}, first + bad).err), testing::SizeIs(1));
    EXPECT_THAT(linesOf(runTool({"parse", "--table"}, bad + bad).err),
                ElementsAre(HasSubstr("display 1: line 2"), HasSubstr("display 2: line 6"),
                            "vantro-profile: 0 profiles, 2 displays could not be read."));
}

// ---- Records as input

TEST(ParseRecords, WithControlCharactersAreWarnedAboutWithLineAndId) {
    const std::string good = R"({"id":"a","display":["PDRT/H4T9QZ","*T*","END OF DISPLAY"]})"
                             "\n";
    const std::string input = good + R"({"id":"b","display":"PDRT\n*T*\tA"})" + "\n" + R"({"display":"\u001b"})" + "\n";
    const Finished run = runTool({"parse", "--jsonl", "--only", "RECLOC"}, input);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(linesOf(run.out), testing::SizeIs(3));
    EXPECT_THAT(
        linesOf(run.err),
        ElementsAre("vantro-profile: warning: standard input, line 2, id \"b\": the screen contains a line end in "
                    "line 1, column 5; a screen is lines of 80 characters without line ends, or a list of lines.",
                    "vantro-profile: warning: standard input, line 2, id \"b\": the screen contains a tab in line "
                    "1, column 9; replace tabs by the blanks that they stand for.",
                    "vantro-profile: warning: standard input, line 3: the screen contains a control character in "
                    "line 1, column 1 (U+001B).",
                    "vantro-profile: 3 profiles."));
    EXPECT_EQ(runTool({"parse", "--jsonl", "--only", "RECLOC", "--strict"}, input).status, 5);
    EXPECT_EQ(runTool({"parse", "--jsonl", "--only", "RECLOC", "--strict"}, good).status, 0);
    EXPECT_EQ(runTool({"parse", "--jsonl", "--only", "RECLOC", "--quiet"}, input).err, "");
}

TEST(ParseRecords, AfterFiveDisplaysWithControlCharactersTheOthersAreCounted) {
    std::string input;
    for (int i = 0; i < 8; ++i) input += "{\"display\":\"A\\tB\"}\n";
    const auto lines = linesOf(runTool({"parse", "--jsonl", "--only", "RECLOC"}, input).err);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_THAT(lines[4], HasSubstr("line 5: the screen contains a tab"));
    EXPECT_THAT(lines[5], HasSubstr("3 more displays with tabs or other control characters"));
}

const std::string display =
    R"(["PDRT/H4T9QZ","*T* TRAVELLER PROFILE","------- PRIORITY","   5 PPR/ ONE","END OF DISPLAY"])";

TEST(ParseRecords, RecordsAreReadFromLines) {
    const Finished run = runTool({"parse", "--jsonl", "--only", "PPR", "--compact"},
                                 R"({"id":{"a":[1]},"display":)" + display + "}\n" + R"({"display":"X","other":true})");
    EXPECT_THAT(linesOf(run.out),
                ElementsAre(R"({"source":{"file":"-","display":1,"line":1},"id":{"a":[1]},"sections":["PRIORITY"],)"
                            R"("elements":{"PPR":[{"number":"5","text":"ONE"}]}})",
                            StartsWith(R"({"source":{"file":"-","display":2,"line":2},"problems":[)")));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("standard input, line 2: no answer to PPR (error 5266)"));
}

TEST(ParseRecords, ALineThatIsNoRecordIsAnErrorInItsPosition) {
    const std::string good = R"({"id":9,"display":")" + std::string(80, ' ') + R"(>"})";
    const Finished run = runTool({"parse", "--jsonl", "--compact", "--only", "PPR"},
                                 "junk\n[1]\n{\"id\":3}\n\n{\"display\":null}\n{\"display\":5,\"id\":\"x\"}\n"
                                 "{\"display\":[\"" +
                                     std::string(81, 'X') + "\"]}\n\xFF\n" + good + "\n");
    const auto error = [](int line, const std::string& id, const std::string& words) {
        return StartsWith("{\"source\":{\"file\":\"-\",\"display\":" + std::to_string(line) +
                          ",\"line\":" + std::to_string(line) + "}," + id +
                          R"("error":{"number":0,"source":"input","description":")" + words);
    };
    EXPECT_THAT(linesOf(run.out),
                ElementsAre(error(1, "", "not JSON at byte 1"), error(2, "", "the line is JSON, but not an object"),
                            error(3, R"("id":3,)", "display: the member is missing"), error(4, "", "not JSON"),
                            error(5, "", "display: a display is needed"),
                            error(6, R"("id":"x",)", "display: a text or an array of texts is expected"),
                            error(7, "", "display: line 1 has 81 characters"), error(8, "", "not JSON"),
                            R"({"source":{"file":"-","display":9,"line":9},"id":9})"));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("standard input, line 3: display: the member is missing. The other displays"));
    EXPECT_THAT(run.err, testing::EndsWith("vantro-profile: 1 profile, 8 displays could not be read.\n"));
}

TEST(ParseRecords, ARecordThatIsTooLongIsLeftOut) {
    const std::string record = R"({"id":1,"display":["","   >"]})";
    const Finished run = runTool({"parse", "--jsonl", "--max-line", "1K", "--only", "NM"},
                                 record + "\n" + std::string(1025, ' ') + "\n" + record + "\n");
    EXPECT_THAT(linesOf(run.out),
                ElementsAre(R"({"source":{"file":"-","display":1,"line":1},"id":1,"name":""})",
                            R"({"source":{"file":"-","display":2,"line":2},"error":{"number":0,"source":"input",)"
                            R"("description":"line 2 has more than 1024 bytes; --max-line lets longer lines in"}})",
                            R"({"source":{"file":"-","display":3,"line":3},"id":1,"name":""})"));
}

TEST(ParseRecords, RecordsAreTheSameOnAnyNumberOfThreads) {
    std::string input;
    for (int i = 0; i < 20'000; ++i) input += R"({"id":)" + std::to_string(i) + R"(,"display":)" + display + "}\n";
    const Finished one = runTool({"parse", "--jsonl"}, input);
    const auto lines = linesOf(one.out);
    ASSERT_EQ(lines.size(), 20'000U);
    EXPECT_THAT(lines.back(), StartsWith(R"({"source":{"file":"-","display":20000,"line":20000},"id":19999,"name")"));
    EXPECT_TRUE(runTool({"parse", "--jsonl", "-j", "3"}, input).out == one.out);
}

TEST(ParseRecords, AnIdentifierOfOnesOwnExcludesTheRecordsOnes) {
    EXPECT_EQ(runTool({"parse", "--jsonl", "--id", "{line}"}, "").status, 2);
    EXPECT_THAT(runTool({"parse", "--id", "{lime}"}, "").err, HasSubstr("did you mean {line}?"));
}

// ---- CSV

TEST(ParseRecords, CsvHasOneRowPerElementBelowTheNamesOfTheColumns) {
    const Finished run = runTool({"parse", "--csv", "--id", "{display}"}, first + bad + second);
    EXPECT_THAT(
        linesOf(run.out),
        ElementsAre(
            "file,display,line,id,family,number,kind,text,code,airline,frequentFlyerNumber,freeText,qualifier,error",
            "-,1,1,1,RECLOC,,,H4T9QZ,,,,,,", R"(-,1,1,1,PPR,5,,"CALL, THEN ""ASK""",,,,,,)",
            R"(-,2,6,2,,,,,,,,,,"line 7 has 81 characters, a screen line has 80 at most")",
            "-,3,10,3,RECLOC,,,E2F5KD,,,,,,"));
}

TEST(ParseRecords, CsvHasAColumnForEachPart) {
    const auto rowsOf = [](const std::string& query) {
        const std::string file = sample + "traveller.txt";
        auto rows = linesOf(runTool({"parse", "--csv", "--only", query, file}).out);
        rows.erase(rows.begin());
        for (std::string& row : rows) row.erase(0, file.size());
        return rows;
    };
    EXPECT_THAT(rowsOf("SR"), ElementsAre(",1,1,,SR,18,S,SR  VGML-NO DAIRY,VGML,,,NO DAIRY,,",
                                          ",1,1,,SR,19,S,SR  FQTVXQ 88301442,FQTV,XQ,88301442,,,",
                                          ",1,1,,SR,20,A,SR  WCHR,WCHR,,,,,"));
    EXPECT_THAT(rowsOf("PCN"), ElementsAre(",1,1,,PCN,2,,NORRSKEN TIMBER AB,,,,,,"));
    EXPECT_EQ(rowsOf("notes")[2], R"(,1,1,,ProfileNotes,3,,INVOICES ARE PAID BY THE 25TH,,,,,"B ",)");
}

TEST(ParseRecords, CsvNamesItsColumnsAlsoWithoutARow) {
    const std::string header = linesOf(runTool({"parse", "--csv"}, first).out).front() + "\n";
    EXPECT_EQ(runTool({"parse", "--csv"}, "").out, header);
    EXPECT_EQ(runTool({"parse", "--csv", "--only", "RM"}, first).out, header);
}

TEST(ParseRecords, CsvTellsOfProblemsAndPassesIdentifiersOn) {
    const Finished run =
        runTool({"parse", "--jsonl", "--csv", "--only", "RM"}, R"({"id":"\u00e9,\"","display":"NO END"})"
                                                               "\n"
                                                               R"({"id":[1,2],"display":"NO END"})");
    const auto rows = linesOf(run.out);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1],
              "-,1,1,\"\xC3\xA9,\"\"\",RM,,,,,,,,,error 5260: An error has occurred while verifying the profile.");
    EXPECT_EQ(rows[2], "-,2,2,\"[1,2]\",RM,,,,,,,,,error 5260: An error has occurred while verifying the profile.");
}

}  // namespace

}  // namespace vantro::test
