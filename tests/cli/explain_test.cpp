// The command explain.
#include "cli/explain/explain_text.h"
#include "cli/explain/screen_view.h"
#include "tests/cli/process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

std::string sample(const std::string& name) {
    return (std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles" / (name + ".txt")).string();
}

const std::string deactivated = "PX3\nPROFILE WILL BE DEACTIVATED\n";

Text padded(TextView line) {
    Text text(line);
    text.resize(80, u' ');
    return text;
}

/// An explanation of a screen of two lines, with a key that was read in line 1 and a mark that was found in line 0.
struct Example {
    Text screen = padded(u"LIST") + padded(u"   1 KESTRELLO");
    Explanation explanation;

    Example() {
        explanation.observe({.kind = StepKind::CallBegins, .name = u"VerifyResponse", .text = screen});
        const ValuePiece mark{u"LIST", Place{.line = 0, .column = 1, .length = 4}};
        explanation.observe({.kind = StepKind::MarkSearched,
                             .line = 0,
                             .lastLine = 0,
                             .search = MarkSearch::StartsLine,
                             .text = u"LIST",
                             .pieces = {&mark, 1}});
        const ValuePiece name{u"KESTRELLO", Place{.line = 1, .column = 6, .length = 9}};
        explanation.observe(
            {.kind = StepKind::KeyAdded, .name = u"strKeyName", .text = u"KESTRELLO", .pieces = {&name, 1}});
        explanation.observe({.kind = StepKind::CallEnds, .name = u"VerifyResponse"});
    }
};

std::vector<std::string> shown(const Example& example, const ScreenLook& look) {
    std::vector<std::string> lines;
    for (const ShownLine& line : screenView(example.explanation, nullptr, look)) lines.push_back(line.text);
    return lines;
}

TEST(ScreenView, NamesValuesByLettersBelowThem) {
    const std::vector<std::string> lines = shown({}, {});
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(lines[0], "    ....+....1....+....2....+....3....+....4....+....5....+....6....+....7....+....8");
    EXPECT_EQ(lines[1], " 0  LIST");
    EXPECT_EQ(lines[2], "    ^^^^");
    EXPECT_EQ(lines[3], " 1     1 KESTRELLO");
    EXPECT_EQ(lines[4], "         aaaaaaaaa");
    EXPECT_EQ(lines[5], lines[0]);
    EXPECT_EQ(lines[6], "aaa  strKeyName");
    EXPECT_EQ(lines[7], "^^^  a mark that was searched for and found");
}

TEST(ScreenView, ColoursValues) {
    const std::vector<std::string> lines = shown({}, {.hasColor = true});
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_NE(lines[1].find("\x1B[4mLIST\x1B[0m"), std::string::npos) << lines[1];
    EXPECT_NE(lines[2].find("   1 \x1B[32mKESTRELLO\x1B[0m"), std::string::npos) << lines[2];
    EXPECT_EQ(lines[4], "\x1B[32m###\x1B[0m  strKeyName");
}

TEST(ScreenView, ALongLineGoesOnInTheNextOne) {
    Example example;
    const Text wide(80, u'X');
    example.explanation.clear();
    example.explanation.observe({.kind = StepKind::CallBegins, .name = u"VerifyResponse", .text = wide});
    const std::vector<std::string> lines = shown(example, {.width = 64});
    EXPECT_EQ(lines[1], " 0  " + std::string(60, 'X'));
    EXPECT_EQ(lines[2], "  > " + std::string(20, 'X'));
    for (const ShownLine& line : screenView(example.explanation, nullptr, {.width = 64})) EXPECT_LE(line.width, 64U);
}

TEST(ScreenView, EveryLineOfALongDisplayIsShown) {
    const std::vector<std::string> lines = linesOf(runTool({"explain", "PHI", sample("long_400")}).out);
    EXPECT_TRUE(std::ranges::any_of(lines, [](const std::string& line) { return line.starts_with("399"); }));
}

TEST(Explain, NamesTheOutcomeOfAScreen) {
    const Finished known = runTool({"explain", "CPXTrans"}, deactivated);
    EXPECT_EQ(known.status, 0) << known.err;
    EXPECT_TRUE(known.out.starts_with("CPXTrans, VerifyResponse: standard input\n")) << known.out;
    EXPECT_NE(known.out.find("The screen was recognised; True: blnKeyResponseOK.\n"), std::string::npos) << known.out;
    const Finished unknown = runTool({"explain", "CPXTrans"}, "HELLO\n");
    EXPECT_EQ(unknown.status, 4);
    EXPECT_NE(unknown.out.find("Empty, not failed: "), std::string::npos) << unknown.out;
    EXPECT_NE(runTool({"explain", "CPXTrans"}, "").out.find("No results: the response is empty.\n"), std::string::npos);
    const Finished failed = runTool({"explain", "CRLPTrans"}, "RLP\nT/ABC123 /P1\n");
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.out.find("\nFailed: error "), std::string::npos) << failed.out;
}

// A screen without an end: the queries that search below its last line fail, and the others found nothing.
TEST(Explain, TellsEmptyFromFailed) {
    const Finished run = runTool({"explain", "profile"}, "NO END\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("\nFailed: PCN, error "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\nEmpty, "), std::string::npos) << run.out;
    const Finished whole = runTool({"explain", "profile", sample("every_family")});
    EXPECT_EQ(whole.status, 0);
    EXPECT_NE(whole.out.find("\nRead, with the number of elements: "), std::string::npos);
    EXPECT_EQ(whole.out.find("\nFailed: "), std::string::npos);
}

TEST(Explain, TakesTheScreenAsVerifyDoesOrAlone) {
    const TemporaryFile screen(deactivated);
    const std::string alone = runTool({"explain", "CPXTrans", screen.path()}).out;
    EXPECT_EQ(runTool({"explain", "CPXTrans", "--screen", screen.path()}).out, alone);
    EXPECT_NE(alone.find("DEACTIVATED"), std::string::npos);
    EXPECT_EQ(runTool({"explain", "CPXTrans", screen.path(), screen.path()}).status, 2);
    EXPECT_EQ(runTool({"explain", "CPXTrans", screen.path(), "--screen", screen.path()}).status, 2);
    EXPECT_EQ(runTool({"explain", "PHI", "strKeyName=A", sample("minimal")}).status, 2);
}

TEST(Explain, TheRowsOfAList) {
    const Finished run = runTool({"explain", "CPDNTrans", "--rows"},
                                 "PDN/KES\nSIMILAR COMPANY NAME LIST\n     COMPANY                         RECLOC\n"
                                 "   1 KESTRELLO TOOLS                 Q2W3E4\n>\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("CPDNTrans, readRows: standard input\n")) << run.out;
    EXPECT_NE(run.out.find("The screen shows a list; rows read: 1.\n"), std::string::npos) << run.out;
    EXPECT_EQ(runTool({"explain", "CPDNTrans", "--rows"}, "HELLO\n").status, 4);
    EXPECT_EQ(runTool({"explain", "CPXTrans", "--rows"}, "HELLO\n").status, 2);
}

TEST(Explain, NamesWhatItDoesNotKnow) {
    const Finished run = runTool({"explain", "CPDNTran"}, "");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "vantro-profile: 'CPDNTran' is neither 'profile' nor the prefix of a query, and no class is named "
              "'CPDNTran'; did you mean CPDNTrans?\n");
}

// A query for one element needs an index; without one, all of the family are explained.
TEST(Explain, AQueryForOneElementNeedsNoIndex) {
    const Finished all = runTool({"explain", "SR", sample("every_family")});
    EXPECT_EQ(all.status, 0);
    EXPECT_NE(all.out.find("Read, with the number of elements: SR 3.\n"), std::string::npos) << all.out;
    EXPECT_EQ(runTool({"explain", "SR", "--index", "2", sample("every_family")}).status, 0);
    EXPECT_EQ(runTool({"explain", "SR", "--index", "9", sample("every_family")}).status, 1);
}

TEST(Explain, EachDisplayIsExplainedOrOneThatIsChosen) {
    const std::string displays = "NO HEADER\nEND OF DISPLAY\nSECOND\nEND OF DISPLAY\n";
    const auto lines = linesOf(runTool({"explain", "PHI", "--json"}, displays).out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(linesOf(runTool({"explain", "PHI", "--json", "--display", "2"}, displays).out),
              std::vector<std::string>{lines[1]});
    EXPECT_NE(lines[1].find(R"({"source":{"file":"-","display":2,"line":3})"), std::string::npos) << lines[1];
    const Finished third = runTool({"explain", "PHI", "--display", "3"}, displays);
    EXPECT_EQ(third.status, 1);
    EXPECT_EQ(third.err, "vantro-profile: standard input has no display 3, only 2.\n");
}

TEST(Explain, APageShowsOneDisplay) {
    const TemporaryFile page("");
    EXPECT_EQ(runTool({"explain", "PHI", "--html", page.path(), sample("wrapped")}).out, "");
    const std::string written = contentOf(page.path());
    EXPECT_NE(written.find("PHI, ProfileElements: "), std::string::npos);
    EXPECT_EQ(runTool({"explain", "PHI", "--html", "-", sample("wrapped")}).out, written);
    const Finished two = runTool({"explain", "PHI", "--html", "-"}, "A\nEND OF DISPLAY\nB\nEND OF DISPLAY\n");
    EXPECT_EQ(two.status, 2);
    EXPECT_NE(two.err.find("--display N"), std::string::npos) << two.err;
    EXPECT_EQ(runTool({"explain", "PHI", "--html", "no/such/folder/page.html", sample("wrapped")}).status, 2);
}

// The members of the values and steps refer to each other.
TEST(Explain, JsonLinksValuesAndSteps) {
    rapidjson::Document explained;
    explained.Parse(runTool({"explain", "PHI", "--json", sample("wrapped")}).out.c_str());
    ASSERT_FALSE(explained.HasParseError());
    const auto& values = explained["values"];
    const auto& steps = explained["steps"];
    ASSERT_GT(values.Size(), 0U);
    for (rapidjson::SizeType at = 0; at < values.Size(); ++at) {
        EXPECT_EQ(steps[values[at]["step"].GetUint()]["value"].GetUint(), at);
    }
    EXPECT_STREQ(explained["results"]["strKeyElement()"][1].GetString(), "CHECK IN FROM 14:00 ONLY");
}

// In a narrow terminal the decisions are below the screen, in a wide one beside it; no line is wider than either.
TEST(Explain, FitsTheTerminal) {
    for (const std::size_t columns : {60U, 80U, 160U}) {
        const auto lines =
            linesOf(runToolOnTerminal(columns, {"explain", "PHI", "--color", "never", sample("wrapped")}).out);
        // The name of the file is above the ruler, and may be long.
        const auto ruler = std::ranges::find_if(
            lines, [](const std::string& line) { return line.find("....+....1") != std::string::npos; });
        ASSERT_NE(ruler, lines.end());
        for (auto line = ruler; line != lines.end(); ++line) EXPECT_LE(line->size(), columns) << *line;
        EXPECT_EQ(ruler->size() > 90, columns == 160U);
    }
}

TEST(ExplainCommand, NamesBothMeaningsOfAFreeText) {
    const Finished run = runTool({"explain", "RC", sample("every_family"), "--index", "1"});
    EXPECT_NE(run.out.find("freeText  free text of a service request; or text of a confidential remark\n"),
              std::string::npos);
}

}  // namespace
}  // namespace vantro::test
