// The outputs of the tool, validated by the schemas that are shipped with it.
#include "cli/commands/rows_view.h"
#include "cli/io/utf.h"
#include "tests/cli/process.h"
#include "tests/cli/temporary_folder.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

namespace fs = std::filesystem;

const fs::path root = VANTRO_SOURCE_DIR;

rapidjson::Document parsed(const std::string& json) {
    rapidjson::Document document;
    document.Parse(json.c_str());
    EXPECT_FALSE(document.HasParseError()) << json;
    return document;
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<fs::path> filesIn(const fs::path& folder) {
    return {fs::directory_iterator(folder), fs::directory_iterator()};
}

class Schema {
public:
    explicit Schema(const std::string& name)
        : document_(parsed(contentOf(root / "schemas" / (name + ".schema.json")))), schema_(document_) {}

    /// What the value breaks, or "".
    std::string faultOf(const std::string& json) const {
        const rapidjson::Document value = parsed(json);
        rapidjson::SchemaValidator validator(schema_);
        if (value.Accept(validator)) return "";
        rapidjson::StringBuffer where;
        validator.GetInvalidDocumentPointer().StringifyUriFragment(where);
        return std::string(validator.GetInvalidSchemaKeyword()) + " at " + where.GetString();
    }

private:
    rapidjson::Document document_;
    rapidjson::SchemaDocument schema_;
};

/// Every line of the output is valid, and there is one at least.
void expectValid(const Schema& schema, const std::vector<std::string>& arguments, const std::string& input = {}) {
    const auto lines = linesOf(runTool(arguments, input).out);
    EXPECT_FALSE(lines.empty()) << arguments.front();
    for (const std::string& line : lines) EXPECT_EQ(schema.faultOf(line), "") << line;
}

std::vector<std::string> sampleFiles() {
    std::vector<std::string> files;
    for (const fs::path& file : filesIn(root / "samples/profiles")) files.push_back(file.string());
    return files;
}

const std::string everyFamily = (root / "samples/profiles/every_family.txt").string();

/// The names of the members of all schemas in a schema, without those of properties and definitions.
void collectKeywords(const rapidjson::Value& schema, std::set<std::string>& keywords) {
    if (!schema.IsObject()) return;
    for (const auto& member : schema.GetObject()) {
        const std::string keyword = member.name.GetString();
        keywords.insert(keyword);
        if (keyword == "properties" || keyword == "definitions") {
            for (const auto& named : member.value.GetObject()) collectKeywords(named.value, keywords);
        } else if (member.value.IsArray()) {
            for (const auto& part : member.value.GetArray()) collectKeywords(part, keywords);
        } else {
            collectKeywords(member.value, keywords);
        }
    }
}

// The validator of these tests ignores keywords that it does not know.
TEST(Schemas, AreVersionedAndUseOnlyKeywordsThatAreTested) {
    const std::set<std::string> known{
        "$schema",    "$id",      "title",   "description", "definitions", "$ref",  "type",  "enum",
        "properties", "required", "minimum", "maximum",     "items",       "anyOf", "oneOf", "additionalProperties"};
    EXPECT_EQ(filesIn(root / "schemas").size(), 10U);
    for (const fs::path& file : filesIn(root / "schemas")) {
        SCOPED_TRACE(file);
        const rapidjson::Document schema = parsed(contentOf(file));
        const std::string name = file.stem().stem().string();
        EXPECT_EQ(std::string(schema["$id"].GetString()), "urn:vantro-profile:schema:" + name + ":1");
        std::set<std::string> keywords;
        collectKeywords(schema, keywords);
        for (const std::string& keyword : keywords) EXPECT_TRUE(known.contains(keyword)) << keyword;
    }
}

TEST(Schemas, OfARecordOfParse) {
    const Schema schema("parse-record");
    for (const std::vector<std::string>& options : std::vector<std::vector<std::string>>{{},
                                                                                         {"--compact"},
                                                                                         {"--only", "RM,NM,notes"},
                                                                                         {"--compact", "--only", "PPR"},
                                                                                         {"--id", "{name}"},
                                                                                         {"--positions"}}) {
        std::vector<std::string> arguments{"parse"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        for (const std::string& file : sampleFiles()) arguments.push_back(file);
        expectValid(schema, arguments);
    }
    expectValid(schema, {"parse"}, "A\n" + std::string(81, 'X') + "\n>\nNO END\n");
    expectValid(schema, {"parse", "--jsonl"}, "junk\n{\"id\":[{}],\"display\":\"\"}\n{\"id\":null}\n");
}

TEST(Schemas, OfAWholeRecordNameEveryMember) {
    const rapidjson::Document schema = parsed(contentOf(root / "schemas/parse-record.schema.json"));
    const std::string line = linesOf(runTool({"parse", everyFamily}).out).front();
    const rapidjson::Document record = parsed(line);
    const rapidjson::Value& families = schema["properties"]["elements"]["properties"];
    EXPECT_EQ(families.MemberCount(), record["elements"].MemberCount());
    // All but id, error, positions and problems.
    EXPECT_EQ(schema["properties"].MemberCount(), record.MemberCount() + 4);
}

TEST(Schemas, OfARecordRefuseOtherOnes) {
    const Schema schema("parse-record");
    const std::string source = R"("source":{"file":"-","display":1,"line":1})";
    EXPECT_EQ(schema.faultOf("{" + source + "}"), "");
    EXPECT_EQ(schema.faultOf("{}"), "required at #");
    EXPECT_EQ(schema.faultOf(R"({"source":{"file":"-","display":0,"line":1}})"), "minimum at #/source/display");
    EXPECT_EQ(schema.faultOf("{" + source + R"(,"nam":""})"), "additionalProperties at #/nam");
    EXPECT_EQ(schema.faultOf("{" + source + R"(,"sections":["HOTEL"]})"), "enum at #/sections/0");
    EXPECT_EQ(schema.faultOf("{" + source + R"(,"elements":{"SR":[{"kind":"X"}]}})"), "enum at #/elements/SR/0/kind");
    EXPECT_EQ(schema.faultOf("{" + source + R"(,"elements":{"PPR":[{"kind":"S"}]}})"),
              "additionalProperties at #/elements/PPR/0/kind");
    EXPECT_EQ(schema.faultOf("{" + source + R"(,"notes":[{"number":1}]})"), "type at #/notes/0/number");
}

TEST(Schemas, OfAResponseOfBatch) {
    const Schema schema("batch-response");
    const std::string blank(80, ' ');
    expectValid(schema, {"batch"},
                "junk\n"
                R"({"class":"CPDNTrans","call":"CreateCommand","params":{"strKeyName":"SMITH"}})"
                "\n"
                R"({"id":[{"a":null}],"class":"CPXTrans","call":"VerifyResponse","response":"x"})"
                "\n"
                R"({"class":"CPXTrans","call":"VerifyResponse","response":""})"
                "\n"
                R"({"class":"CRLPTrans","call":"RecLocCount","response":"x"})"
                "\n"
                R"({"class":"CProfileMode","call":"VerifyResponse","response":"x"})"
                "\n"
                R"({"class":"CProfile","call":"ProfileElements","display":"x","params":{"strKeyPrefix":"NM"}})"
                "\n"
                R"({"class":"CProfile","call":"ProfileElements","display":[">"],"params":{"strKeyPrefix":"ALL"},)"
                R"("selection":["RM"]})"
                "\n"
                R"({"class":"CProfile","call":"ParseProfile","display":"NO END"})"
                "\n"
                R"({"class":"CRLPTrans","call":"VerifyResponse","response":"RLP","params":{"strKeyIndex":"9"}})");
    EXPECT_EQ(schema.faultOf(R"({"result":1,"error":{"number":0,"source":"","description":""}})"), "oneOf at #");
    EXPECT_EQ(schema.faultOf(R"({"id":1})"), "oneOf at #");
    EXPECT_EQ(schema.faultOf(R"({"result":{"a":{}}})"), "anyOf at #/result");
    EXPECT_EQ(schema.faultOf(R"({"result":{"a":32768}})"), "anyOf at #/result");
    EXPECT_EQ(schema.faultOf(R"({"result":1,"reported":["5"]})"), "type at #/reported/0");
}

TEST(Schemas, OfResultsOfVerify) {
    const Schema schema("verify-results");
    expectValid(schema, {"verify", "CPXTrans"}, "PX3\nPROFILE WILL BE DEACTIVATED\n");
    expectValid(schema, {"verify", "CPXTrans", "--positions"}, "PX3\nPROFILE WILL BE DEACTIVATED\n");
    expectValid(schema, {"verify", "CPXTrans"}, "");
    expectValid(schema, {"verify", "CRLPTrans", "--count"}, "RLP\nT/ABC123 /P1\n");
    expectValid(schema, {"verify", "CPLTTrans"}, "PLT\nTRAVELLER LIST\n");
    EXPECT_EQ(schema.faultOf("[]"), "type at #");
    EXPECT_EQ(schema.faultOf(R"({"a":[1]})"), "anyOf at #/a");
}

TEST(Schemas, OfRowsNameEveryColumn) {
    const Schema schema("rows");
    expectValid(schema, {"verify", "CPDNTrans", "--rows"},
                "PDN/KES\nSIMILAR COMPANY NAME LIST\n     COMPANY                         RECLOC     OFFICE\n"
                "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN0900\n>\n");
    expectValid(schema, {"verify", "CRLPTrans", "--rows"}, "RLP\nT/ABC123 /P1\n");
    expectValid(schema, {"verify", "CRLPTrans", "--rows", "--positions"}, "RLP\nT/ABC123 /P1\n");
    expectValid(schema, {"verify", "CPDNTrans", "--rows"}, "PDN/KES\n");
    const rapidjson::Document document = parsed(contentOf(root / "schemas/rows.schema.json"));
    std::set<std::string> columns;
    for (const ClassRow& row : classTable()) {
        for (const NamedColumn& column : columnsOf(row)) columns.insert(toUtf8(column.name));
    }
    std::set<std::string> described;
    for (const auto& column : document["items"]["properties"].GetObject()) described.insert(column.name.GetString());
    columns.insert("positions");
    EXPECT_EQ(described, columns);
    EXPECT_EQ(schema.faultOf(R"([{"line":3,"kind":"company","name":"A"}])"), "");
    EXPECT_EQ(schema.faultOf(R"([{"line":3}])"), "required at #/0");
    EXPECT_EQ(schema.faultOf(R"([{"line":-1,"kind":"company"}])"), "minimum at #/0/line");
    EXPECT_EQ(schema.faultOf(R"([{"line":3,"kind":"office"}])"), "enum at #/0/kind");
    EXPECT_EQ(schema.faultOf(R"([{"line":3,"kind":"company","city":""}])"), "additionalProperties at #/0/city");
    EXPECT_EQ(schema.faultOf("{}"), "type at #");
}

TEST(Schemas, OfTheClassesThatReadAScreen) {
    const Schema schema("identify");
    expectValid(schema, {"identify", "--json"}, "PX3\nPROFILE WILL BE DEACTIVATED\n");
    expectValid(schema, {"identify", "--json"}, "hello\n");
    expectValid(schema, {"identify", "--json", (root / "samples/profiles").string()});
    const std::string reason = R"("line":1,"mark":"PX3","meaning":"x")";
    const auto fault = [&](const std::string& of) {
        return schema.faultOf(R"({"source":"a","candidates":[{"class":"CPXTrans","reasons":[{)" + of + "}]}]}");
    };
    EXPECT_EQ(fault(reason), "");
    EXPECT_EQ(fault(R"("line":1,"mark":"PX3")"), "required at #/candidates/0/reasons/0");
    EXPECT_EQ(fault(reason + R"(,"flag":true)"), "type at #/candidates/0/reasons/0/flag");
    EXPECT_EQ(fault(reason + R"(,"column":1)"), "additionalProperties at #/candidates/0/reasons/0/column");
    EXPECT_EQ(fault(R"("line":0,"mark":"PX3","meaning":"x")"), "minimum at #/candidates/0/reasons/0/line");
    EXPECT_EQ(schema.faultOf(R"({"candidates":[]})"), "required at #");
}

TEST(Schemas, OfCasesOfReplay) {
    const Schema schema("replay-case");
    expectValid(schema, {"replay", "--json", (root / "samples").string()});
    const TemporaryFolder folder;
    folder.write("a.exchange", "== CPXTrans\nscreen:\n|WILL BE DEACTIVATED|\nresults:\n  \"blnKeyResponseOK\": 1\n");
    folder.write("b.exchange", "junk");
    expectValid(schema, {"replay", "--json", folder.path()});
    expectValid(schema, {"replay", "--json", "--accept", folder.path()});
    const auto fault = [&](const std::string& more) {
        return schema.faultOf(R"({"file":"a","expectation":"a","status":"failed","differences":[)" + more + "]}");
    };
    const std::string difference = R"("line":1,"where":"a","expected":"","actual":"")";
    const std::string lines = R"(,"screenLines":[0],"expectedLines":[0])";
    EXPECT_EQ(fault("{" + difference + lines + R"(,"read":[{"line":0,"column":1,"length":2},{"inserted":","}]})"), "");
    EXPECT_EQ(fault("{" + difference + "}"), "required at #/differences/0");
    EXPECT_EQ(fault("{" + difference + lines + "}"), "required at #/differences/0");
    EXPECT_EQ(fault("{" + difference + lines + R"(,"read":[{"line":0}]})"), "oneOf at #/differences/0/read/0");
    EXPECT_EQ(fault("{" + difference + R"(,"screenLines":[-1],"expectedLines":[],"read":[]})"),
              "minimum at #/differences/0/screenLines/0");
    EXPECT_EQ(fault("{" + difference + R"(,"screenLines":[],"expectedLines":[-1],"read":[]})"),
              "minimum at #/differences/0/expectedLines/0");
    EXPECT_EQ(schema.faultOf(R"({"file":"a","expectation":"a","status":"bad","differences":[]})"), "enum at #/status");
}

TEST(Schemas, OfAnswersOfElementsAndNotes) {
    const Schema schema("elements-answer");
    for (const char* prefix : {"NM", "RECLOC", "OFFID", "PCN", "PIN", "PSL", "ALL", "PPR", "PHI", "PAS"}) {
        for (const std::string& file : sampleFiles()) expectValid(schema, {"elements", prefix, file});
    }
    for (const char* prefix : {"SR", "RM", "AP", "OS", "FFN", "ST", "RC", "PPR"}) {
        expectValid(schema, {"elements", prefix, "--index", "1", everyFamily});
    }
    for (const char* prefix : {"NM", "ALL", "PPR", "PHI", "PAS"}) {
        expectValid(schema, {"elements", prefix, "--positions", everyFamily});
    }
    expectValid(schema, {"notes", everyFamily});
    expectValid(schema, {"notes", "--positions", everyFamily});
    EXPECT_EQ(schema.faultOf(R"({"strKeyElement":[]})"), "type at #/strKeyElement");
    EXPECT_EQ(schema.faultOf(R"({"strKeyElements":""})"), "additionalProperties at #/strKeyElements");
}

TEST(Schemas, OfAnExplanation) {
    const Schema schema("explain");
    for (const std::string& file : sampleFiles()) {
        for (const char* what : {"profile", "NM", "PHI", "SR", "ALL", "ProfileNotes"}) {
            expectValid(schema, {"explain", what, "--json", file});
        }
    }
    expectValid(schema, {"explain", "CPXTrans", "--json"}, "PX3\nPROFILE WILL BE DEACTIVATED\n");
    expectValid(schema, {"explain", "CPXTrans", "--json"}, "");
    expectValid(schema, {"explain", "CRLPTrans", "--json", "strKeyIndex=9"}, "RLP\nT/ABC123 /P1\n");
    expectValid(schema, {"explain", "CRLPTrans", "--rows", "--json"}, "RLP\nT/ABC123 /P1\n");
    const std::string empty = R"("call":"x","screen":[],"values":[],"steps":[],"lookAlikes":[])";
    EXPECT_EQ(schema.faultOf(R"({"source":{"file":"-"},)" + empty + "}"), "");
    EXPECT_EQ(schema.faultOf("{" + empty + "}"), "required at #");
    EXPECT_EQ(schema.faultOf(R"({"source":{"file":"-"},"colour":1,)" + empty + "}"),
              "additionalProperties at #/colour");
}

TEST(Schemas, OfTheClasses) {
    expectValid(Schema("classes"), {"classes", "--json"});
    EXPECT_EQ(Schema("classes").faultOf(R"([{"class":"x"}])"), "required at #/0");
}

TEST(Schemas, OfTheDescriptionsOfAllClassesAndQueries) {
    const Schema schema("describe");
    expectValid(schema, {"describe", "--json"});
    const rapidjson::Document all = parsed(runTool({"describe", "--json"}).out);
    ASSERT_EQ(all.Size(), 19U);
    for (const auto& row : all.GetArray()) expectValid(schema, {"describe", "--json", row["class"].GetString()});
    for (const QueryFacts& query : profileQueries()) expectValid(schema, {"describe", "--json", toUtf8(query.word)});
    expectValid(schema, {"describe", "--json", "ProfileNotes"});
    EXPECT_EQ(schema.faultOf(R"({"class":"x","purpose":"y"})"), "anyOf at #");
}

}  // namespace

}  // namespace vantro::test
