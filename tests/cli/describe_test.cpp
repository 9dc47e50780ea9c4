// What the tool says about classes: all that their rows say, in lines for people and as JSON.
#include "cli/commands/describe.h"
#include "cli/io/utf.h"
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace vantro {

void PrintTo(const ClassRow* row, std::ostream* out) { *out << toUtf8(row->name); }

namespace test {
namespace {

bool contains(const std::string& text, TextView part) { return text.find(toUtf8(part)) != std::string::npos; }

std::vector<const ClassRow*> allRows() {
    std::vector<const ClassRow*> rows;
    for (const ClassRow& row : classTable()) rows.push_back(&row);
    return rows;
}

class Described : public testing::TestWithParam<const ClassRow*> {
protected:
    const ClassRow& row() const { return *GetParam(); }
    const ClassDescription& about() const { return GetParam()->description; }
};

INSTANTIATE_TEST_SUITE_P(, Described, testing::ValuesIn(allRows()),
                         [](const auto& test) { return toUtf8(test.param->name); });

TEST_P(Described, FitsIntoLinesOf80Characters) {
    for (const std::string& line : linesOf(classAsText(row()))) {
        EXPECT_LE(line.size(), 80U) << line;
        EXPECT_FALSE(line.ends_with(' ')) << line;
    }
}

TEST_P(Described, NamesAllThatTheRowNames) {
    for (const std::string& text : {classAsText(row()), classAsJson(row())}) {
        EXPECT_TRUE(contains(text, row().name));
        for (const TextView code : row().transactions) EXPECT_TRUE(contains(text, code));
        for (const auto& each : about().parameters) EXPECT_TRUE(contains(text, each.key)) << toUtf8(each.key);
        for (const auto& each : about().state) EXPECT_TRUE(contains(text, each.key)) << toUtf8(each.key);
        for (const auto& each : about().results) EXPECT_TRUE(contains(text, each.key)) << toUtf8(each.key);
        for (const auto& each : about().request) EXPECT_TRUE(contains(text, each.key)) << toUtf8(each.key);
        for (const auto& each : about().elements) EXPECT_TRUE(contains(text, each.key)) << toUtf8(each.key);
        for (const auto& each : about().forms) EXPECT_TRUE(contains(text, each.form)) << toUtf8(each.form);
        for (const auto& each : about().flags) EXPECT_TRUE(contains(text, each.mark)) << toUtf8(each.mark);
        for (const auto& each : about().errors) EXPECT_NE(text.find(std::to_string(each.number)), std::string::npos);
        for (const auto& each : row().counts) EXPECT_TRUE(contains(text, each.name)) << toUtf8(each.name);
    }
}

// The arguments of a line for a shell, the tool's name left out.
std::vector<std::string> argumentsOf(const std::string& line) {
    std::vector<std::string> arguments;
    std::string argument;
    bool isQuoted = false;
    for (const char character : line + " ") {
        if (character == '\'') {
            isQuoted = !isQuoted;
        } else if (character == ' ' && !isQuoted) {
            if (!argument.empty()) arguments.push_back(argument);
            argument.clear();
        } else {
            argument += character;
        }
    }
    arguments.erase(arguments.begin());
    return arguments;
}

TEST_P(Described, ShowsExamplesThatCanBeTyped) {
    const std::string prompt = "      $ ";
    const auto lines = linesOf(classAsText(row()));
    std::size_t examples = 0;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (lines[at].rfind(prompt, 0) != 0) continue;
        std::string typed = lines[at].substr(prompt.size());
        while (typed.ends_with('\\')) {
            typed.pop_back();
            typed += lines.at(++at);
        }
        const Finished run = runTool(argumentsOf(typed));
        EXPECT_EQ("      " + run.out, lines.at(at + 1) + "\n");
        EXPECT_EQ(run.err, "");
        ++examples;
    }
    EXPECT_EQ(examples, about().forms.size());
}

TEST(Describe, SaysWhatAClassTakesAndWhatComesOut) {
    const Finished run = runTool({"describe", "CPXTrans"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "CPXTrans\n"
              "  Deactivates a profile.\n"
              "  Host transactions: PX\n"
              "  Interfaces: IProfileTrans\n"
              "\n"
              "Parameters of the command:\n"
              "  strKeyItemNr  text. The number of the profile's entry in the list; may be\n"
              "                empty.\n"
              "\n"
              "Commands; what is in brackets can be left out:\n"
              "  PX[item]\n"
              "      $ vantro-profile command CPXTrans strKeyItemNr=3\n"
              "      PX3\n"
              "\n"
              "Results, in a new collection:\n"
              "  blnKeyResponseOK  boolean. The host will deactivate the profile.\n"
              "\n"
              "Screens that make a flag True; lines count from 0:\n"
              "  blnKeyResponseOK  \"WILL BE DEACTIVATED\" is in one of the lines 0 to 4\n"
              "\n"
              "Errors:\n"
              "  5010  CreateCommand: whatever fails in it\n"
              "  5015  VerifyResponse: whatever fails in it\n");
}

TEST(Describe, SaysItAsJson) {
    EXPECT_EQ(
        runTool({"describe", "CPDITrans", "--json"}).out,
        R"({"class":"CPDITrans","purpose":"Displays a profile by its index.","interfaces":["IProfileTrans"],)"
        R"("transactions":["PDI"],)"
        R"("parameters":[{"key":"strKeyIndex","kind":"text","need":"required",)"
        R"("meaning":"the index of the profile"}],)"
        R"("commands":[{"form":"PDI/index","example":[{"key":"strKeyIndex","value":"2"}],"command":"PDI/2"}],)"
        R"("passedCollection":"ignored","state":[],)"
        R"("results":[{"key":"blnKeyCoProfile","kind":"boolean","meaning":"a company's profile is shown"},)"
        R"({"key":"blnKeyTrProfile","kind":"boolean","meaning":"a traveller's profile is shown"}],)"
        R"("screens":[{"flag":"blnKeyCoProfile","mark":"*C*","position":"startsLine","firstLine":0,"lastLine":5},)"
        R"({"flag":"blnKeyTrProfile","mark":"*T*","position":"startsLine","firstLine":0,"lastLine":5}],)"
        R"("screensRule":"The lines are searched one by one for these marks, in this order; the first match )"
        R"(decides.","counts":[],)"
        R"("errors":[{"call":"CreateCommand","number":5090,"meaning":"whatever fails in it"},)"
        R"({"call":"VerifyResponse","number":5095,"meaning":"whatever fails in it"}]})"
        "\n");
}

TEST(Describe, WithoutAClassListsAllWithTheirPurpose) {
    const Finished run = runTool({"describe"});
    EXPECT_EQ(run.status, 0);
    for (const ClassRow& row : classTable()) EXPECT_TRUE(contains(run.out, row.name));
    EXPECT_NE(run.out.find("\n  CPXTrans       Deactivates a profile.\n"), std::string::npos) << run.out;
    EXPECT_EQ(std::ranges::count_if(linesOf(run.out), [](const std::string& line) { return line.size() > 80; }), 0);
    EXPECT_NE(runTool({"describe", "--json"}).out.find(R"({"class":"CPXTrans","purpose":"Deactivates a profile."})"),
              std::string::npos);
}

TEST(Describe, CProfileListsItsQueriesAndCProfileNotesItsOwn) {
    const std::string text = runTool({"describe", "CProfile"}).out;
    EXPECT_NE(text.find("\nPrefixes; vantro-profile describe PREFIX says more:\n"), std::string::npos);
    EXPECT_NE(text.find("\n  PIN     PIN line.\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n  RM      Remark.\n"), std::string::npos);
    EXPECT_EQ(text.find("ProfileNotes"), std::string::npos);
    EXPECT_NE(runTool({"describe", "CProfileNotes", "--json"})
                  .out.find(R"("queries":[{"prefix":"ProfileNotes","meaning":"notes of the profile"}])"),
              std::string::npos);
    EXPECT_EQ(runTool({"describe", "CPXTrans"}).out.find("Prefixes"), std::string::npos);
}

TEST(Describe, SaysWhereAFamilyIsInADisplayAndWhatItsQueryReturns) {
    const Finished run = runTool({"describe", "RC"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "RC\n"
              "  Confidential remark.\n"
              "  A query of CProfile.\n"
              "\n"
              "Answer:\n"
              "  The element at intKeyIndex (from 1), which is needed.\n"
              "  strKeyElement, strKeyElementNr, strKeyFreeText\n"
              "\n"
              "In a display:\n"
              "  section  ------- PNR TRANSFERABLE DATA\n"
              "  tag      \" RC \"\n"
              "  lines    A line is an element if it has the code, between blanks, from column\n"
              "           13 on. The search begins in the first line of the display and ends at\n"
              "           the header of any other section, so that only elements above or in\n"
              "           the display's first section are found.\n"
              "  joining  The next line continues the element if it begins with 17 blanks. It\n"
              "           is trimmed and appended without a blank.\n"
              "\n"
              "A line of its section:\n"
              "S      7     RC  CREDIT LIMIT 400000\n"
              "\n"
              "Parts of an element, with the list of each:\n"
              "  text      strRemarkConfText. The whole text, wrapped lines joined.\n"
              "  number    strRemarkConfNumber. Number of the element in the profile.\n"
              "  freeText  strRemarkConfDetail. Text of a confidential remark.\n"
              "  The first element is entry 0 of the lists. RemarkConfElementsCount returns the\n"
              "  number of elements and fills the lists.\n"
              "\n"
              "Errors:\n"
              "  5260  ProfileElements: the elements cannot be read\n"
              "  5260  a count: the elements cannot be read\n"
              "  5265  ProfileElements: intKeyIndex is beyond the number of elements\n");
}

TEST(Describe, SaysAFamilyAsJson) {
    EXPECT_EQ(runTool({"describe", "PAS", "--json"}).out,
              R"({"prefix":"PAS","meaning":"passport","class":"CProfile","match":"firstThree",)"
              R"j("keys":["strKeyElement()","strKeyElementNr()"],"section":"------- DOCUMENTS","tag":"PAS/",)j"
              R"("lines":"The first line of the section with the prefix is an element. So are the lines directly )"
              R"(below it that have five blanks after their first or second character. Any other line ends the )"
              R"(family's elements.",)"
              R"("joining":"No line continues an element: a text ends at the end of its line.",)"
              R"("sample":"   1 PAS/ 12345678 FR 01JAN30","answer":"lists",)"
              R"("answerMeaning":"The lists of all texts and numbers.",)"
              R"("parts":[{"name":"text","meaning":"the whole text, wrapped lines joined","list":"strPASText"},)"
              R"({"name":"number","meaning":"number of the element in the profile","list":"strPASNumber"}],)"
              R"("firstIndex":1,"count":"PASElementsCount",)"
              R"("errors":[{"call":"ProfileElements","number":5287,"meaning":"the elements cannot be read"},)"
              R"({"call":"a count","number":5287,"meaning":"the elements cannot be read"}]})"
              "\n");
}

TEST(Describe, SaysWhatTheQueryOfAHeaderValueReturns) {
    EXPECT_EQ(runTool({"describe", "PCN"}).out,
              "PCN\n"
              "  Company name line, without a number key where it has no number.\n"
              "  A query of CProfile.\n"
              "  The class of the host transaction PCN is CPCNTrans.\n"
              "\n"
              "Answer:\n"
              "  strKeyElement, strKeyElementNr\n");
    EXPECT_EQ(runTool({"describe", "ProfileNotes", "--json"}).out,
              R"({"prefix":"ProfileNotes","meaning":"notes of the profile","class":"CProfileNotes","match":"whole",)"
              R"j("keys":["strKeyElement()","strKeyElementNr()","strKeyQualifier()"],"json":"notes"})j"
              "\n");
}

TEST(Describe, QueriesFitIntoLinesOf80CharactersAndNameAllThatTheirFactsName) {
    for (const QueryFacts& query : profileQueries()) {
        const std::string text = queryAsText(query);
        for (const std::string& line : linesOf(text)) EXPECT_LE(line.size(), 80U) << line;
        for (const std::string& each : {text, queryAsJson(query)}) {
            EXPECT_TRUE(contains(each, query.word));
            for (const TextView key : query.keys) EXPECT_TRUE(contains(each, key)) << toUtf8(key);
            if (!query.family) continue;
            const FamilyFacts& family = factsOf(*query.family);
            EXPECT_TRUE(contains(each, family.section)) << text;
            EXPECT_TRUE(contains(each, family.sample)) << text;
            EXPECT_TRUE(contains(each, family.countProperty)) << text;
            EXPECT_NE(each.find(std::to_string(family.countError)), std::string::npos) << text;
        }
    }
}

TEST(Describe, AnUnknownClassIsStatus1AndTheNearestIsNamed) {
    const Finished run = runTool({"describe", "CPDNTran"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vantro-profile: no class is named 'CPDNTran'; did you mean CPDNTrans?\n");
    EXPECT_EQ(runTool({"describe", "pdn"}).err,
              "vantro-profile: no class is named 'pdn'; 'vantro-profile describe' lists the classes.\n");
    EXPECT_EQ(runTool({"describe", "PDN"}).err,
              "vantro-profile: no class is named 'PDN'; the class of PDN is CPDNTrans.\n");
}

}  // namespace
}  // namespace test
}  // namespace vantro
