// What input the tool accepts and refuses, with the same messages from every command.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

using Arguments = std::vector<std::string>;

const std::string display = "PDR/AA11BB\n*T*                    AA11BB\nEND OF DISPLAY\n>\n";
const std::string recloc = "{\"strKeyElement\":\"AA11BB\"}\n";
const std::string request = R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"3"}})"
                            "\n";
const std::string response = "{\"result\":\"PX3\"}\n";

// One sentence or several in one line, after the tool's name.
void expectComplaint(const Finished& run, int status, const std::string& words) {
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    EXPECT_TRUE(run.err.starts_with("vantro-profile: ")) << run.err;
    EXPECT_TRUE(run.err.ends_with(".\n")) << run.err;
    for (const char* flaw : {"..", ".;", ". ;", " ."}) EXPECT_EQ(run.err.find(flaw), std::string::npos) << run.err;
    EXPECT_NE(run.err.find(words), std::string::npos) << run.err;
}

// Every command that reads a text, with the options that make it read standard input.
const std::vector<Arguments> readers = {
    {"parse", "--quiet"}, {"elements", "RECLOC"}, {"notes"}, {"verify", "CPXTrans"}};

TEST(Output, ThatCannotBeWrittenIsAFailureOfEveryCommand) {
    std::vector<Arguments> all = {{"--help"}, {"--version"}, {"classes", "--json"}, {"command", "CPXTrans"}};
    for (const char* command : {"classes", "command", "verify", "batch", "parse", "elements", "notes"}) {
        all.push_back({command, "--help"});
    }
    all.push_back({"classes"});
    all.push_back({"batch"});
    all.insert(all.end(), readers.begin(), readers.end());
    for (const Arguments& arguments : all) {
        const std::string& input = arguments.front() == "batch" ? request : display;
        expectComplaint(runToolInto("/dev/full", arguments, input), 1, "cannot write to standard output: ");
    }
}

TEST(Input, AFolderIsReportedAsOne) {
    for (Arguments arguments : {Arguments{"elements", "NM"},
                                {"notes"},
                                {"verify", "CPXTrans", "--screen"},
                                {"verify", "CPXTrans", "--state"}}) {
        arguments.emplace_back("/");
        expectComplaint(runTool(arguments, "x"), 2, "'/' is a folder, not a file; ");
    }
}

TEST(Input, AnEmptyOneContainsNoDisplay) {
    for (const Arguments& arguments : {Arguments{"parse"}, {"elements", "NM"}, {"notes"}}) {
        for (const char* nothing : {"", "\n", "  \r\n\n", "\xEF\xBB\xBF"}) {
            const Finished run = runTool(arguments, nothing);
            EXPECT_EQ(run.out, "");
            expectComplaint(run, 1, "standard input contains no display.");
        }
    }
}

TEST(Input, CarriageReturnsAloneAreRefusedWithTheSameMessage) {
    std::string text = display + display;
    std::ranges::replace(text, '\n', '\r');
    const std::string words =
        "line 1 contains a carriage return (CR) that no line feed (LF) follows; lines end in LF or CR LF, so convert "
        "the "
        "line ends, for example with: tr '\\r' '\\n'.";
    for (const Arguments& arguments : readers) {
        const Finished run = runTool(arguments, text);
        EXPECT_EQ(linesOf(run.out).size(), arguments.front() == "parse" ? 1U : 0U);  // the error's record
        expectComplaint(run, arguments.front() == "verify" ? 2 : 1, words);
    }
    std::string requests = request + request;
    std::ranges::replace(requests, '\n', '\r');
    const Finished run = runBatch(requests);
    EXPECT_NE(run.out.find("the line contains a carriage return (CR) that no line feed (LF) follows"),
              std::string::npos);
    EXPECT_EQ(run.status, 1);
}

TEST(Input, ACarriageReturnInsideARequestIsABlank) { EXPECT_EQ(runBatch("{\r" + request.substr(1)).out, response); }

TEST(Parameters, WithAControlCharacterMakeNoCommand) {
    const Finished run = runTool({"command", "CPXTrans", "strKeyItemNr=3\nPX4"});
    EXPECT_EQ(run.out, "");
    expectComplaint(run, 2, "strKeyItemNr contains the control character U+000A at position 2");
    expectComplaint(runTool({"command", "CPTTrans", "strKeyElArray()=1", "strKeyElArray()=\xC2\x85"}), 2,
                    "entry 1 of strKeyElArray() contains the control character U+0085 at position 1");
    EXPECT_EQ(runTool({"command", "--raw", "CPXTrans", "strKeyItemNr=3\nPX4"}).out, "PX3\nPX4\n");
    // A batch passes control characters on.
    EXPECT_EQ(runBatch(R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":"3\nPX4"}})").out,
              "{\"result\":\"PX3\\nPX4\"}\n");
}

TEST(MaxLine, ABatchAnswersALongerLineWithAnErrorAndGoesOn) {
    const std::string atLimit = "{\"id\":\"" + std::string(2048 - 9, 'x') + "\"}";
    ASSERT_EQ(atLimit.size(), 2048U);
    const Finished run = runTool({"batch", "--max-line", "2K"}, request + atLimit + "\n" + atLimit + " \n" + request);
    const auto answers = linesOf(run.out);
    ASSERT_EQ(answers.size(), 4U);
    EXPECT_EQ(answers[0] + "\n", response);
    EXPECT_TRUE(answers[1].starts_with(R"({"id":"xxx)")) << answers[1];
    EXPECT_EQ(answers[2], R"({"error":{"number":0,"source":"request","description":)"
                          R"("line 3 has more than 2048 bytes; --max-line lets longer lines in"}})");
    EXPECT_EQ(answers[3] + "\n", response);
    EXPECT_EQ(run.status, 1);
}

TEST(MaxLine, ALongerLineIsNoDisplayForAnyCommand) {
    const std::string words = "line 5 has more than 1024 bytes; --max-line lets longer lines in.";
    const std::string text = display + std::string(5000, 'x') + "\n>\n" + display;
    for (Arguments arguments : readers) {
        arguments.insert(arguments.end(), {"--max-line", "1024"});
        const Finished run = runTool(arguments, text);
        const bool isVerify = arguments.front() == "verify";
        expectComplaint(run, isVerify ? 2 : 1, words);
        const bool isParse = arguments.front() == "parse";  // the display is a record, with its error
        EXPECT_EQ(linesOf(run.out).size(), isVerify ? 0U : isParse ? 3U : 2U);
    }
    EXPECT_EQ(runTool({"elements", "RECLOC", "--max-line", "1024"}, text).out, recloc + recloc);
}

TEST(MaxLine, AHugeLineIsReadInBoundedMemory) {
    const TemporaryFile file("");
    std::ofstream stream(file.path(), std::ios::binary);
    const std::string million(1'000'000, 'x');
    for (int i = 0; i < 60; ++i) stream << million;
    stream << "\n>\n" << display;
    stream.close();
    for (const Arguments& arguments : {Arguments{"elements", "RECLOC"}, {"verify", "CPXTrans", "--screen"}}) {
        Arguments all = arguments;
        all.insert(all.end(), {file.path(), "--max-line", "1M"});
        const Finished run = runTool(all);
        EXPECT_EQ(run.out, arguments.front() == "verify" ? "" : recloc);
        expectComplaint(run, arguments.front() == "verify" ? 2 : 1, "line 1 has more than 1048576 bytes");
#ifndef __SANITIZE_ADDRESS__
        EXPECT_LT(run.peakKilobytes, 40'000);  // the line is 60 MB
#endif
    }
}

TEST(MaxLine, IsSixteenMegabytesByDefault) {
    std::string longest = "{}";
    longest.resize(std::size_t{16} * 1024 * 1024, ' ');
    const auto answers = linesOf(runBatch(longest + "\n" + longest + " \n" + request).out);
    ASSERT_EQ(answers.size(), 3U);
    EXPECT_NE(answers[0].find("class: the member is missing"), std::string::npos) << answers[0];
    EXPECT_NE(answers[1].find("line 2 has more than 16777216 bytes"), std::string::npos) << answers[1];
    EXPECT_EQ(answers[2] + "\n", response);
}

TEST(MaxLine, IsANumberOfBytes) {
    for (const char* size : {"1023", "0", "-1", "x", "", "1G", "16 M", "2048M", "99999999999999", "1.5M"}) {
        expectComplaint(runTool({"batch", "--max-line", size}), 2, "--max-line");
    }
    for (const char* size : {"1024", "1K", "1k", "16M", "2047m"}) {
        EXPECT_EQ(runTool({"batch", "--max-line", size}, request).out, response) << size;
    }
}

TEST(Messages, AreSentences) {
    const TemporaryFile state("{");
    expectComplaint(runTool({"verify", "CPXTrans", "--state", state.path()}, "x"), 2,
                    "not JSON at byte 2: the text ends too early; give the JSON object");
    expectComplaint(runTool({"elements", "RM"}, display), 1,
                    ": name the RM element's index with --index; without it the query failed with error 91 ");
    expectComplaint(runTool({"verify", "CRLPTrans", "strKeyIndex=9"}, "RLP\nRP/NCEVN0900/\nT/ABC123 /P1\n>\n"), 0,
                    ". The results hold what was read before it.");
    expectComplaint(runTool({}), 2, ": a subcommand is required; see vantro-profile --help.");
    expectComplaint(runTool({"command"}), 2, ": CLASS is required; ");
    expectComplaint(runTool({"parse", "-j", "0"}), 2, "--jobs: give a whole number from 1 to 256, not '0'; ");
    expectComplaint(runTool({"elements", "RM", "--index", "99999"}), 2,
                    "--index: give a whole number from -32768 to 32767, not '99999'; ");
    expectComplaint(runTool({"verify", "CPXTrans", "--screen"}), 2, "the option --screen needs a value; ");
    expectComplaint(runTool({"parse", "a\nb"}), 2, "'a?b'");
}

// What Windows PowerShell writes when the output of a program is redirected into a file.
TEST(Input, Utf16WithAMarkIsReadByEveryCommand) {
    std::string utf16 = "\xFF\xFE";
    for (const char character : display) utf16 += {character, '\0'};
    for (const Arguments& arguments : readers) {
        const Finished run = runTool(arguments, utf16);
        const Finished inUtf8 = runTool(arguments, display);
        EXPECT_EQ(run.out, inUtf8.out) << arguments.front();
        EXPECT_EQ(run.err, inUtf8.err);
    }
}

TEST(Input, OtherEncodingsAreNamed) {
    const std::string latin = "PDR/AA11BB\n*T*                    AA11BB\n   1 NM ZO\xCB/A\nEND OF DISPLAY\n";
    EXPECT_EQ(runTool({"elements", "NM", "--encoding", "Latin-1"}, latin).out, "{\"strKeyElement\":\"ZO\u00CB/A\"}\n");
    expectComplaint(runTool({"elements", "NM", "--encoding", "ebcdic"}, latin), 2,
                    "'ebcdic' is none of auto, utf-8, utf-16, utf-16le, utf-16be, latin-1, windows-1252");
}

TEST(Input, AFolderStandsForItsFilesAndAListForItsNames) {
    namespace fs = std::filesystem;
    const TemporaryFile file(display);
    const fs::path folder = file.path() + "-folder";
    fs::create_directory(folder);
    fs::copy_file(file.path(), folder / "a.txt");
    fs::copy_file(file.path(), folder / "b.txt");
    const std::string list = (folder / "a.txt").string() + "\n" + file.path() + "\n";
    const auto records = [](const Finished& run) { return std::ranges::count(run.out, '\n'); };
    EXPECT_EQ(records(runTool({"parse", folder.string(), file.path()})), 3);
    EXPECT_EQ(records(runTool({"parse", "--files-from", "-"}, list)), 2);
    EXPECT_EQ(records(runTool({"parse", file.path(), "--files-from", "-"}, list)), 3);
    EXPECT_EQ(records(runTool({"parse", "-0", "--files-from", "-"}, file.path() + '\0')), 1);
    fs::remove_all(folder);
}

}  // namespace

}  // namespace vantro::test
