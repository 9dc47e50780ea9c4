// Sample exchanges as text; tests/transactions/exchange_file_test.cpp tests what the parser refuses.
#include "cli/replay/exchange.h"

#include "cli/io/failure.h"
#include "tests/cli/process.h"
#include "tests/support/exchange_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace vantro {
namespace {

const std::string step = "== CPXTrans\nparams:\n  \"strKeyItemNr\": \"3\"\ncommand: \"PX3\"\n";

std::string faultOf(const std::string& text) {
    try {
        parseExchange(text);
        return "";
    } catch (const UsageError& problem) {
        return problem.what();
    }
}

std::string withoutComments(const std::string& text) {
    std::string lines;
    for (const std::string& line : test::linesOf(text)) lines += line.starts_with('#') ? "" : line + "\n";
    return lines.substr(lines.find("== "));
}

TEST(Exchange, EverySampleIsWrittenAsItWasRead) {
    const auto folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";
    for (const auto& file : test::filesIn(folder, ".exchange")) {
        const std::string text = test::contentOf(file.string());
        std::string written;
        for (const ExchangeStep& each : parseExchange(text)) written += (written.empty() ? "" : "\n") + stepText(each);
        EXPECT_EQ(written, withoutComments(text)) << file;
    }
}

TEST(Exchange, ValuesAreSpelledAsInJson) {
    EXPECT_EQ(spelled(ItemValue(true)), "true");
    EXPECT_EQ(spelled(ItemValue(std::int16_t{-7})), "-7");
    EXPECT_EQ(spelled(ItemValue(Text(u"\"Å\\\n"))), "\"\\\"Å\\\\\\n\"");
    EXPECT_EQ(spelled(ItemValue(TextList{u"", u"a"})), "[\"\", \"a\"]");
    EXPECT_EQ(spelled(std::vector<int>{5130, 7}), "[5130, 7]");
    EXPECT_EQ(resultsLines({.kind = ExchangeResults::Kind::Raised, .raised = 5015}), "results raises: 5015\n");
}

TEST(Exchange, CommentsMayStandAfterABlankLine) {
    EXPECT_EQ(parseExchange("# a\n" + step + "\n# b\n#\n# c\n\n" + step).size(), 2U);
    EXPECT_EQ(faultOf(step + "# b\n"), "line 5: not a section: # b");
}

TEST(Exchange, LinesMayEndInCrLf) {
    std::string text = step + "screen:\n|>|\nresults: none\n";
    const Exchange expected = parseExchange(text);
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) text.insert(at, "\r");
    const Exchange read = parseExchange(text);
    EXPECT_EQ(read.front().className, u"CPXTrans");
    EXPECT_EQ(read.front().screen, u">");
    EXPECT_EQ(read.front().params, expected.front().params);
}

TEST(Exchange, SectionsKnowTheirLines) {
    const Exchange steps = parseExchange(step + "screen:\n|>|\ncount: 0\nresults:\n  \"a\": 1\nreported: [7]\n");
    const SectionLines& lines = steps.front().lines;
    EXPECT_EQ(lines.command, 4);
    EXPECT_EQ(lines.count, 7);
    EXPECT_EQ(lines.results, 8);
    EXPECT_EQ(lines.reported, 10);
    EXPECT_EQ(parseExchange("== CPXTrans\nscreen:\nresults: none\n").front().lines.command, 0);
}

TEST(Exchange, FaultsNameTheirLine) {
    EXPECT_EQ(faultOf(""), "line 0: there is no step, a line such as '== CPDNTrans'");
    EXPECT_EQ(faultOf(step + "screen:\n|>|\n\n" + step), "line 1: a screen and results go together");
    EXPECT_EQ(faultOf("== CPXTrans\nparams:\n  \"a\": x\n"), "line 3: not a value; texts are in quotation marks");
    EXPECT_EQ(faultOf("== CPXTrans\nparams:\n  \"a\": 40000\n"),
              "line 3: a text, true, false, a whole number from -32768 to 32767 or a list of texts is expected");
    EXPECT_EQ(faultOf("== CPXTrans\nparams:\n  \"a\": 1, \"b\": 2\n"), "line 3: the value has ended before");
    EXPECT_EQ(faultOf("== CPXTrans\ncommand raises: 1.5\n"), "line 2: a whole number is expected");
    EXPECT_EQ(faultOf("== CPXTrans\ncommand: \"\xFF\"\n"), "line 2: the line is not UTF-8");
    EXPECT_EQ(faultOf(step + "reported: 7\n"), "line 5: a list of error numbers is expected");
}

}  // namespace
}  // namespace vantro
