// Cases: what is found, how differences are described, and what --accept rewrites.
#include "cli/replay/cases.h"

#include "cli/io/failure.h"
#include "cli/replay/expectation.h"
#include "cli/replay/report.h"
#include "cli/replay/rewrite.h"
#include "tests/cli/process.h"
#include "tests/cli/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Lines = std::vector<std::string>;

std::string screenLine(const std::string& text) { return "|" + text + std::string(80 - text.size(), ' ') + "|\n"; }

// The host confirms that the profile will be deactivated.
const std::string command = "# PX\n\n== CPXTrans\nparams:\n  \"strKeyItemNr\": \"3\"\ncommand: \"PX3\"\n";
const std::string screen = "screen:\n" + screenLine("PX3") + screenLine("PROFILE WILL BE DEACTIVATED") + "|>|\n";
const std::string good = command + screen + "results:\n  \"blnKeyResponseOK\": true\n";

struct Played {
    std::vector<StepOutcome> outcomes;
    Lines differences;  // "line: where: expected / came @ screen lines, read 3:10-19, expected in lines"
};

Lines described(const std::vector<Difference>& differences) {
    Lines lines;
    for (const Difference& found : differences) {
        std::string text =
            std::to_string(found.line) + ": " + found.where + ": " + found.expected + " / " + found.actual;
        for (const std::size_t line : found.screenLines) text += " @" + std::to_string(line);
        if (!found.read.empty()) text += ", read " + placesOf(found.read);
        if (!found.expectedLines.empty()) text += ", expected in";
        for (const std::size_t line : found.expectedLines) text += " " + std::to_string(line);
        lines.push_back(text);
    }
    return lines;
}

Played played(const Exchange& steps) {
    Played all;
    ExchangePlayer player;
    for (const ExchangeStep& step : steps) {
        all.outcomes.push_back(player.play(step));
        for (const std::string& line : described(differencesOf(step, all.outcomes.back()))) {
            all.differences.push_back(line);
        }
    }
    return all;
}

Lines differencesIn(const std::string& exchange) { return played(parseExchange(exchange)).differences; }

std::string accepted(const std::string& exchange) {
    const Exchange steps = parseExchange(exchange);
    return withOutcomes(exchange, steps, played(steps).outcomes);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

// ---- Differences

TEST(Replay, ACorrectExchangeHasNoDifferences) { EXPECT_EQ(differencesIn(good), Lines{}); }

TEST(Replay, SaysWhatWasExpectedAndWhatCame) {
    EXPECT_EQ(differencesIn(replaced(good, "\"PX3\"", "\"PX4\"")), Lines{"6: CPXTrans, command: \"PX4\" / \"PX3\""});
    EXPECT_EQ(differencesIn(replaced(good, "command: \"PX3\"", "command raises: 5010")),
              Lines{"6: CPXTrans, command: error 5010 / \"PX3\""});
    EXPECT_EQ(differencesIn(replaced(good, "true", "false")),
              Lines{"12: CPXTrans, blnKeyResponseOK: false / true @1, read 1:9-27"});
    EXPECT_EQ(differencesIn(replaced(good, "true", "true\n  \"strKey\": \"\"")),
              Lines{"13: CPXTrans, strKey: \"\" / nothing"});
    EXPECT_EQ(differencesIn(command + screen + "results:\n"),
              Lines{"11: CPXTrans, blnKeyResponseOK: nothing / true @1, read 1:9-27"});
    EXPECT_EQ(differencesIn(command + screen + "results: none\n"),
              Lines{"11: CPXTrans, results: no collection / a collection with blnKeyResponseOK"});
    EXPECT_EQ(differencesIn(command + screen + "results raises: 5015\n"),
              Lines{"11: CPXTrans, results: error 5015 / a collection with blnKeyResponseOK"});
    EXPECT_EQ(differencesIn(good + "reported: [5015]\n"), Lines{"13: CPXTrans, reported errors: [5015] / []"});
}

const std::string linked = "== CRLPTrans\nparams:\n  \"strKeyIndex\": \"0\"\nscreen:\n" + screenLine("RLP") +
                           screenLine("RP/NCEVN3101/NCEVN3101") + screenLine("T/KQ4R7T /P1") + "|>|\n";
const std::string one =
    "results:\n  \"strKeyPasAsso\": \"1\"\n  \"strKeyRecLoc\": \"KQ4R7T\"\n  \"blnKeyTraveller\": true\n"
    "  \"blnKeyCompany\": false\n";

TEST(Replay, NamesTheScreenLinesThatContainTheValues) {
    EXPECT_EQ(differencesIn(linked + "count: 1\n" + one), Lines{});
    EXPECT_EQ(differencesIn(replaced(linked + one, "\"KQ4R7T\"\n  \"bln", "\"NCEVN3\"\n  \"bln")),
              Lines{"11: CRLPTrans, strKeyRecLoc: \"NCEVN3\" / \"KQ4R7T\" @1 @2, read 2:3-8, expected in 1"});
    EXPECT_EQ(differencesIn(replaced(linked + one, "\"1\"", "\"2\"")),
              Lines{"10: CRLPTrans, strKeyPasAsso: \"2\" / \"1\" @2, read 2:12"})
        << "many lines contain the text of one character that was expected";
    EXPECT_EQ(differencesIn(linked + "count: 2\n" + one), Lines{"9: CRLPTrans, count: 2 / 1"});
}

TEST(Replay, NamesThePlaceOfEveryPieceOfAJoinedValue) {
    const Lines found =
        differencesIn("== CPLTTrans\nscreen:\n" + screenLine("PLT//KES/") + screenLine("SIMILAR COMPANY NAME LIST") +
                      screenLine("") + screenLine("     COMPANY") + screenLine("   1 KESTRELLO TOOLS") +
                      screenLine("   2 KESWICK INKS") + screenLine("END OF BLOCK - USE PDMD") +
                      "|>|\nresults:\n  \"blnKeyTravellerList\": false\n  \"blnKeyCompanyList\": true\n"
                      "  \"strKeyCoNames\": \"KESWICK INKS\"\n");
    ASSERT_GE(found.size(), 1U);
    EXPECT_EQ(found[0],
              "14: CPLTTrans, strKeyCoNames: \"KESWICK INKS\" / \"KESTRELLO TOOLS,KESWICK INKS\" @4 @5, "
              "read 4:6-20 5:6-17, expected in 5");
}

TEST(Replay, AFlagThatAMarkDidNotSetHasNoPlace) {
    EXPECT_EQ(differencesIn(replaced(linked + one, "Company\": false", "Company\": true")),
              Lines{"13: CRLPTrans, blnKeyCompany: true / false"});
}

TEST(Replay, TheOrderOfTheKeysCounts) {
    EXPECT_EQ(
        differencesIn(linked + "results:\n  \"strKeyRecLoc\": \"KQ4R7T\"\n  \"strKeyPasAsso\": \"1\"\n"
                               "  \"blnKeyTraveller\": true\n  \"blnKeyCompany\": false\n"),
        Lines{"9: CRLPTrans, the order of the keys: strKeyRecLoc, strKeyPasAsso, blnKeyTraveller, blnKeyCompany / "
              "strKeyPasAsso, strKeyRecLoc, blnKeyTraveller, blnKeyCompany"});
}

TEST(Replay, ErrorsThatAreReportedAreCompared) {
    const std::string outside = replaced(linked, "\"0\"", "\"7\"") + "results:\n";
    EXPECT_EQ(differencesIn(outside), Lines{"1: CRLPTrans, reported errors: [] / [5130]"});
    EXPECT_EQ(accepted(outside), outside + "reported: [5130]\n");
    EXPECT_EQ(accepted(linked + one + "reported: [5130]\n"), linked + one);
}

TEST(Replay, AClassThatDoesNotExistIsNamedWithItsLine) {
    EXPECT_THROW(differencesIn("== CPYTrans\ncommand: \"\"\n"), UsageError);
    try {
        differencesIn("\n== CPDNTran\ncommand: \"\"\n");
        FAIL();
    } catch (const UsageError& problem) {
        EXPECT_EQ(std::string(problem.what()), "line 2: no class is named 'CPDNTran'; did you mean CPDNTrans?");
    }
    EXPECT_THROW(differencesIn(command + screen + "count: 1\nresults: none\n"), UsageError);
}

// ---- Accepting

TEST(Accept, RewritesOnlyWhatDiffers) {
    const std::string rest = "\n# kept\n\n== CPXTrans\nparams:\n  \"strKeyItemNr\":  \"\"\ncommand:   \"PX\"\n";
    EXPECT_EQ(accepted(good + rest), good + rest);
    EXPECT_EQ(accepted(replaced(good, "\"PX3\"", "\"PX4\"") + rest), good + rest);
    EXPECT_EQ(accepted(replaced(good, "command: \"PX3\"", "command raises: 5010") + rest), good + rest);
    EXPECT_EQ(accepted(command + screen + "results: none\n" + rest), good + rest);
    EXPECT_EQ(accepted(command + screen + "results raises: 1\nreported: [1]\n" + rest), good + rest);
    EXPECT_EQ(accepted(replaced(good, "true", "false\n  \"strKey\": \"\"") + rest), good + rest);
}

TEST(Accept, ResultsThatWereExpectedKeepTheirSpelling) {
    const std::string odd = replaced(one, "\"KQ4R7T\"", " \"\\u004BQ4R7T\"");
    EXPECT_EQ(accepted(linked + replaced(odd, "true", "false")), linked + odd);
    EXPECT_EQ(accepted(linked + "count: 9\n" + odd), linked + "count: 1\n" + odd);
}

TEST(Accept, LineEndsStay) {
    const auto withCrLf = [](std::string text) {
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) {
            text.insert(at, "\r");
        }
        return text;
    };
    EXPECT_EQ(accepted(withCrLf(command + screen + "results: none\n")), withCrLf(good));
}

// ---- Displays

const Text shown = [] {
    Text display;
    for (Text line : {u"PDRT/KQ4R7T", u"*T* KQ4R7T", u"------- PRIORITY", u"  1 PPR/ AISLE SEAT", u"  2 PPR/ NO FISH",
                      u"END OF DISPLAY"}) {
        line.resize(80, u' ');
        display += line;
    }
    return display;
}();

const std::string expectation = R"({
  "recordLocator": "KQ4R7T",
  "sections": ["PRIORITY"],
  "elements": {
    "PPR": [
      {
        "number": "1",
        "text": "AISLE SEAT"
      },
      {
        "number": "2",
        "text": "NO FISH"
      }
    ]
  }
}
)";

std::string acceptedDisplay(const std::string& text) { return edited(text, compareWithExpectation(text, shown).edits); }

TEST(Expectation, MayLeaveOutWhatIsEmpty) {
    EXPECT_EQ(described(compareWithExpectation(expectation, shown).differences), Lines{});
    EXPECT_EQ(
        described(compareWithExpectation(replaced(expectation, "{", "{\"source\":{\"line\":1},\"id\":\"a\","), shown)
                      .differences),
        Lines{});
}

Lines differencesOfDisplay(const std::string& text) {
    return described(compareWithExpectation(text, shown).differences);
}

TEST(Expectation, DifferencesHaveAPath) {
    EXPECT_EQ(differencesOfDisplay(replaced(expectation, "AISLE", "WINDOW")),
              Lines{"8: elements.PPR[0].text: \"WINDOW SEAT\" / \"AISLE SEAT\" @3, read 3:10-19"});
    EXPECT_EQ(differencesOfDisplay(replaced(expectation, "{", "{\n\"name\": \"AISLE\",")),
              Lines{"2: name: \"AISLE\" / \"\" @3, expected in 3"});
    EXPECT_EQ(
        differencesOfDisplay(replaced(expectation, "\"PPR\"", "\"PPS\"")),
        (Lines{
            R"(6: elements.PPS[0]: {"number":"1","text":"AISLE SEAT"} / nothing @3, expected in 3)",
            R"(10: elements.PPS[1]: {"number":"2","text":"NO FISH"} / nothing @4, expected in 4)",
            "4: elements.PPR: nothing / "
            R"([{"number":"1","text":"AISLE SEAT"},{"number":"2","text":"NO FISH"}] @3 @4, read 3:3 3:10-19 4:3 4:10-16)"}));
    EXPECT_EQ(differencesOfDisplay(replaced(expectation, "[\"PRIORITY\"]", "7")),
              Lines{"3: sections: 7 / [\"PRIORITY\"] @2"});
}

TEST(Expectation, AnElementThatIsMissingOrExtraIsOneDifference) {
    const std::string first = "      {\n        \"number\": \"1\",\n        \"text\": \"AISLE SEAT\"\n      },\n";
    EXPECT_EQ(differencesOfDisplay(replaced(expectation, first, "")),
              Lines{R"(5: elements.PPR[0]: nothing / {"number":"1","text":"AISLE SEAT"} @3, read 3:3 3:10-19)"});
    EXPECT_EQ(differencesOfDisplay(replaced(expectation, first, first + replaced(first, "AISLE", "FRONT"))),
              Lines{R"(10: elements.PPR[1]: {"number":"1","text":"FRONT SEAT"} / nothing)"});
}

TEST(Expectation, IsRewrittenInItsOwnForm) {
    EXPECT_EQ(acceptedDisplay(expectation), expectation);
    EXPECT_EQ(acceptedDisplay(replaced(expectation, "AISLE", "WINDOW")), expectation);
    const std::string second = ",\n      {\n        \"number\": \"2\",\n        \"text\": \"NO FISH\"\n      }";
    EXPECT_EQ(acceptedDisplay(replaced(expectation, second, "")), expectation);
    const std::string sections = "  \"sections\": [\"PRIORITY\"],\n";
    EXPECT_EQ(acceptedDisplay(replaced(expectation, sections, "")),
              replaced(replaced(expectation, sections, ""), "\n  }\n}\n",
                       "\n  },\n  \"sections\": [\n    \"PRIORITY\"\n  ]\n}\n"));
    EXPECT_EQ(
        acceptedDisplay(
            "{\"recordLocator\":\"KQ4R7T\",\"sections\":[],\"elements\":{\"PPR\":[{\"number\":\"1\"}],\"PHI\":[1]}}"),
        "{\"recordLocator\":\"KQ4R7T\",\"sections\":[\"PRIORITY\"],\"elements\":{\"PPR\":[{\"number\":\"1\",\"text\":"
        "\"AISLE SEAT\"},"
        "{\"number\":\"2\",\"text\":\"NO FISH\"}],\"PHI\":[]}}");
    const std::string rewritten = acceptedDisplay("{}");
    EXPECT_EQ(differencesOfDisplay(rewritten), Lines{});
}

TEST(Expectation, FaultsNameTheirLine) {
    const auto fault = [](const std::string& text) -> std::string {
        try {
            compareWithExpectation(text, shown);
            return "";
        } catch (const UsageError& problem) {
            return problem.what();
        }
    };
    EXPECT_EQ(fault("{\n\"name\": \"a\"\n\"pin\"}"),
              "line 3: not an expectation: a comma or the closing bracket is missing");
    EXPECT_EQ(fault("[]"), "line 1: not an expectation: not an object, as 'vantro-profile parse --pretty' prints it");
    EXPECT_EQ(fault("\"\xFF\""), "the file is not UTF-8");
}

// ---- Files

class Cases : public testing::Test {
protected:
    Lines found(const std::vector<std::string>& arguments) const {
        Lines names;
        for (const SampleCase& sample : casesIn(arguments)) {
            std::string text = nameOf(sample.file);
            if (sample.expectation != sample.file) text += " " + nameOf(sample.expectation);
            names.push_back(text + (sample.problem.empty() ? "" : ": " + sample.problem));
        }
        return names;
    }

    std::string nameOf(const std::string& file) const {
        return std::filesystem::path(file).lexically_relative(folder_.path()).generic_string();
    }

    TemporaryFolder folder_;
};

TEST_F(Cases, AreFoundInFolders) {
    for (const char* const name : {"a/README.md", "a/b.exchange", "a/c.txt", "a/c.json", "a/d.txt", "profiles/e.txt",
                                   "expected/e.json", "x.json"}) {
        folder_.write(name, "");
    }
    EXPECT_EQ(found({folder_.path()}), (Lines{"a/b.exchange", "a/c.txt a/c.json", "profiles/e.txt expected/e.json"}));
    EXPECT_EQ(found({folder_.in("profiles"), folder_.in("a/b.exchange"), folder_.in("expected/e.json")}),
              (Lines{"profiles/e.txt expected/e.json", "a/b.exchange"}));
}

TEST_F(Cases, LackTheOtherFile) {
    for (const char* const name : {"profiles/a.txt", "expected/b.json"}) folder_.write(name, "");
    const std::string folder = std::filesystem::path(folder_.path()).generic_string();
    EXPECT_EQ(found({folder_.path()}),
              (Lines{"expected/b.json: there is no display " + folder + "/profiles/b.txt",
                     "profiles/a.txt expected/a.json: there is no expectation " + folder + "/expected/a.json"}));
}

TEST_F(Cases, ThatAreNamedAndNoneAreProblems) {
    const std::string file = folder_.write("a.log", "");
    EXPECT_EQ(casesIn({file, folder_.write("b.exchange", "")}).front().problem.substr(0, 23),
              "neither an exchange (NA");
    EXPECT_EQ(casesIn({folder_.in("none")}).front().problem, "there is no such file or folder");
    folder_.write("c/d.md", "");
    EXPECT_THROW(casesIn({folder_.in("c")}), UsageError);
}

TEST_F(Cases, AreRunAndRewritten) {
    const std::string file = folder_.write("a.exchange", "\xEF\xBB\xBF" + replaced(good, "true", "false"));
    const SampleCase sample{file, file, ""};
    EXPECT_EQ(runCase(sample).status, CaseStatus::Failed);
    EXPECT_EQ(contentOf(file), "\xEF\xBB\xBF" + replaced(good, "true", "false"))
        << "nothing is rewritten without --accept";
    CaseResult result = runCase(sample);
    accept(result);
    EXPECT_EQ(result.status, CaseStatus::Accepted);
    EXPECT_EQ(result.differences.size(), 1U);
    EXPECT_EQ(contentOf(file), "\xEF\xBB\xBF" + good);
    EXPECT_EQ(runCase(sample).status, CaseStatus::Passed);
    EXPECT_EQ(contentOf(file), "\xEF\xBB\xBF" + good);
}

TEST_F(Cases, InAnotherEncodingAreNotRewritten) {
    std::string wide = "\xFF\xFE";
    for (const char byte : replaced(good, "true", "false")) wide += {byte, '\0'};
    const std::string file = folder_.write("a.exchange", wide);
    CaseResult result = runCase({file, file, ""});
    accept(result);
    EXPECT_EQ(result.status, CaseStatus::Failed);
    EXPECT_EQ(result.problem, "'" + file + "' cannot be rewritten, because it is not a plain UTF-8 file");
    EXPECT_EQ(contentOf(file), wide);
}

TEST_F(Cases, ThatAreBrokenSayWhere) {
    const std::string exchange = folder_.write("a.exchange", good + "junk\n");
    EXPECT_EQ(runCase({exchange, exchange, ""}).problem, "line 13: not a section: junk");
    EXPECT_EQ(contentOf(exchange), good + "junk\n");
    const std::string display = folder_.write("a.txt", "A\n" + std::string(81, 'A') + "\n");
    const std::string json = folder_.write("a.json", "{");
    EXPECT_EQ(runCase({display, json, ""}).problem,
              display + ": the screen's line 2 has 81 characters, a screen line has 80 at most; break it there");
    folder_.write("a.txt", "A\n>\n");
    EXPECT_EQ(runCase({display, json, ""}).problem,
              json + ": line 1: not an expectation: a name in quotation marks is expected");
    EXPECT_EQ(runCase({json, json, "no"}).status, CaseStatus::Broken);
}

// ---- Reports

const CaseResult failed{{"s/a<b>.exchange", "s/a<b>.exchange", ""},
                        CaseStatus::Failed,
                        {{7, "CPXTrans, strKey", "\"A&B\"", "\"\"", {0, 1}, Text(80, u'A') + u"T/KQ4R7T"}},
                        "",
                        0.25};

TEST(Report, ShowsTheScreenLinesBelowARuler) {
    EXPECT_EQ(caseText(failed, false),
              "FAILED    s/a<b>.exchange\n"
              "  s/a<b>.exchange:7: CPXTrans, strKey\n"
              "    expected \"A&B\"\n"
              "    came     \"\"\n"
              "  line ----+----1----+----2----+----3----+----4----+----5----+----6----+----7----+----8\n"
              "     0 " +
                  std::string(80, 'A') +
                  "\n"
                  "     1 T/KQ4R7T\n");
    CaseResult many = failed;
    many.differences.front().screenLines = {0, 1, 0, 1, 0, 1};
    EXPECT_NE(caseText(many, false).find("     1 T/KQ4R7T\n       and 2 more\n"), std::string::npos);
}

TEST(Report, SaysWhereWhatCameWasRead) {
    CaseResult placed = failed;
    Difference& found = placed.differences.front();
    found.read = {{u"AA", Place{0, 6, 2}}, {u",", std::nullopt}, {u"T", Place{1, 1, 1}}};
    found.expectedLines = {1};
    EXPECT_NE(caseText(placed, false)
                  .find("    came     \"\"\n    read in line 0, columns 6 to 7; line 1, column 1\n"
                        "    expected text is in line 1\n  line ---"),
              std::string::npos)
        << caseText(placed, false);
    EXPECT_NE(caseJson(placed).find(R"("read":[{"line":0,"column":6,"length":2},{"inserted":","},)"
                                    R"({"line":1,"column":1,"length":1}],"expectedLines":[1]})"),
              std::string::npos)
        << caseJson(placed);
    found.expectedLines = {0, 1, 2, 3, 4};
    EXPECT_NE(caseText(placed, false).find("    expected text is in lines 0, 1, 2, 3 and 1 more\n"), std::string::npos);
}

TEST(Report, SaysWhatBecameOfACase) {
    EXPECT_EQ(caseText({.sample = {"a", "a", ""}}, true), "ok        a\n");
    EXPECT_EQ(caseText({.sample = {"a", "a", ""}, .status = CaseStatus::Broken, .problem = "line 3: x"}, false),
              "ERROR     a: line 3: x\n");
    EXPECT_EQ(acceptText({.sample = {"a", "b", ""}, .status = CaseStatus::Accepted}),
              "  rewritten: b now expects what came\n");
    EXPECT_EQ(acceptText({.sample = {"a", "b", ""}, .status = CaseStatus::Failed, .problem = "x"}),
              "  not rewritten: x\n");
    EXPECT_EQ(caseText({.sample = {"a", "a", ""}, .status = CaseStatus::Failed}, true), "\x1B[1mFAILED\x1B[0m    a\n");
}

TEST(Report, CountsTheCases) {
    ReplayTotals totals;
    totals.count(CaseStatus::Passed);
    EXPECT_EQ(summaryOf(totals), "1 case: 1 ok");
    for (const CaseStatus status : {CaseStatus::Failed, CaseStatus::Failed, CaseStatus::Accepted, CaseStatus::Broken}) {
        totals.count(status);
    }
    EXPECT_EQ(summaryOf(totals), "5 cases: 1 ok, 2 failed, 1 accepted, 1 error");
}

TEST(Report, AsJsonHasALinePerCase) {
    EXPECT_EQ(caseJson(failed),
              R"({"file":"s/a<b>.exchange","expectation":"s/a<b>.exchange","status":"failed","differences":[)"
              R"({"line":7,"where":"CPXTrans, strKey","expected":"\"A&B\"","actual":"\"\"","screenLines":[0,1],)"
              R"("read":[],"expectedLines":[]}]})"
              "\n");
}

TEST(Junit, IsWellFormed) {
    const std::string xml =
        junitText({failed,
                   {.sample = {"b", "b", ""}, .seconds = 0.5},
                   {.sample = {"s\\c", "c", ""}, .status = CaseStatus::Accepted},
                   {.sample = {"d", "d", ""}, .status = CaseStatus::Broken, .problem = "x\ny\x01\"'"}});
    const std::string counts = R"( name="vantro-profile replay" tests="4" failures="1" errors="1" time="0.750000")";
    EXPECT_EQ(xml.substr(0, xml.find("  line ")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts + ">\n  <testsuite" + counts + ">\n" +
                  R"(    <testcase classname="s" name="a&lt;b&gt;.exchange" time="0.250000">
      <failure message="line 7: CPXTrans, strKey: expected &quot;A&amp;B&quot;, came &quot;&quot;">  s/a&lt;b&gt;.exchange:7: CPXTrans, strKey
    expected &quot;A&amp;B&quot;
    came     &quot;&quot;
)");
    EXPECT_EQ(xml.substr(xml.find("</failure>")), R"(</failure>
    </testcase>
    <testcase classname="." name="b" time="0.500000"/>
    <testcase classname="s" name="c" time="0.000000"/>
    <testcase classname="." name="d" time="0.000000">
      <error message="x y)"
                                                  "\xEF\xBF\xBD"
                                                  R"(&quot;'"/>
    </testcase>
  </testsuite>
</testsuites>
)");
}

// ---- The tool

TEST(ReplayTool, EverySamplePasses) {
    const Finished run = runTool({"replay", std::string(VANTRO_SOURCE_DIR) + "/samples"});
    EXPECT_EQ(run.status, 0) << run.out;
    const Lines lines = linesOf(run.out);
    EXPECT_GT(lines.size(), 90U);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) EXPECT_TRUE(lines[i].starts_with("ok        ")) << lines[i];
    const std::string cases = std::to_string(lines.size() - 1);
    EXPECT_EQ(lines.back(), cases + " cases: " + cases + " ok");
}

TEST(ReplayTool, AWrongExpectationFails) {
    const TemporaryFolder folder;
    folder.write("1.exchange", "junk\n");
    const std::string wrong = folder.write("2.exchange", replaced(good, "true", "false"));
    folder.write("3.exchange", good);
    const std::string junit = folder.in("junit.xml");
    const Finished run = runTool({"replay", "--quiet", "--junit", junit, folder.path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "ERROR     " + folder.in("1.exchange") + ": line 1: a section before the first step\n" +
                           "FAILED    " + wrong + "\n  " + wrong +
                           ":12: CPXTrans, blnKeyResponseOK\n    expected false\n    came     true\n"
                           "    read in line 1, columns 9 to 27\n"
                           "  line ----+----1----+----2----+--\n     1 PROFILE WILL BE DEACTIVATED\n"
                           "3 cases: 1 ok, 1 failed, 1 error\n");
    EXPECT_NE(contentOf(junit).find("tests=\"3\" failures=\"1\" errors=\"1\""), std::string::npos);
    const Finished accepting = runTool({"replay", "--accept", wrong});
    EXPECT_EQ(accepting.status, 0);
    EXPECT_TRUE(accepting.out.ends_with("     1 PROFILE WILL BE DEACTIVATED\n  rewritten: " + wrong +
                                        " now expects what came\n1 case: 0 ok, 1 accepted\n"))
        << accepting.out;
    EXPECT_EQ(contentOf(wrong), good);
    EXPECT_EQ(runTool({"replay", folder.path()}).status, 2) << "a file is broken";
}

TEST(ReplayTool, WhatCannotBeDoneIsToldInOneLine) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a.exchange", good);
    const Finished none = runTool({"replay", folder.in("none"), file});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.out, "ERROR     " + folder.in("none") + ": there is no such file or folder\nok        " + file +
                            "\n2 cases: 1 ok, 1 error\n");
    const Finished junit = runTool({"replay", "--junit", folder.in("no/folder.xml"), file});
    EXPECT_EQ(junit.status, 2);
    EXPECT_EQ(junit.err, "vantro-profile: cannot write the file '" + folder.in("no/folder.xml") +
                             "'; check its folder and permissions.\n");
    const Finished json = runTool({"replay", "--json", file});
    EXPECT_EQ(linesOf(json.out).size(), 1U);
    EXPECT_EQ(json.err, "vantro-profile: 1 case: 1 ok.\n");
    EXPECT_EQ(runTool({"replay", "--json", "--quiet", file}).out, "");
}

}  // namespace
}  // namespace vantro::test
