// Where values are: the text at the positions, joined, is the value, over all samples.
#include "cli/json/positions.h"
#include "cli/commands/results_view.h"
#include "cli/commands/rows_view.h"
#include "cli/io/screen_input.h"
#include "cli/json/profile_json.h"
#include "tests/cli/process.h"
#include "tests/support/collections.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

namespace vantro::test {
namespace {

namespace fs = std::filesystem;

const fs::path samples = fs::path(VANTRO_SOURCE_DIR) / "samples";

std::string sample(const std::string& name) { return (samples / "profiles" / (name + ".txt")).string(); }

rapidjson::Document parsed(const std::string& json) {
    rapidjson::Document document;
    document.Parse(json.c_str());
    EXPECT_FALSE(document.HasParseError()) << json;
    return document;
}

/// The text that pieces of JSON name on a screen.
std::string textAt(const rapidjson::Value& pieces, TextView screen) {
    Text text;
    for (const auto& piece : pieces.GetArray()) {
        if (piece.HasMember("inserted")) {
            text += wide(piece["inserted"].GetString());
            continue;
        }
        const std::size_t start = piece["line"].GetUint() * 80 + piece["column"].GetUint() - 1;
        text += screen.substr(start, piece["length"].GetUint());
    }
    return utf8(text);
}

/// Every object's values are those at its positions. Returns how many there are.
std::size_t checkPositions(const rapidjson::Value& value, TextView screen) {
    std::size_t count = 0;
    if (value.IsArray()) {
        for (const auto& part : value.GetArray()) count += checkPositions(part, screen);
    }
    if (!value.IsObject()) return count;
    for (const auto& member : value.GetObject()) {
        if (std::string(member.name.GetString()) != "positions") count += checkPositions(member.value, screen);
    }
    if (!value.HasMember("positions")) return count;
    for (const auto& member : value["positions"].GetObject()) {
        SCOPED_TRACE(member.name.GetString());
        const rapidjson::Value& of = value[member.name.GetString()];
        if (of.IsString()) {
            EXPECT_EQ(textAt(member.value, screen), of.GetString());
        }
        if (of.IsArray()) {
            EXPECT_EQ(member.value.Size(), of.Size());
            for (rapidjson::SizeType at = 0; at < of.Size(); ++at) {
                EXPECT_EQ(textAt(member.value[at], screen), of[at].GetString());
            }
        }
        ++count;
    }
    return count;
}

/// Every text of an element, note or row has a position, but for one that is counted.
void expectAllPlaced(const rapidjson::Value& element, const std::string& counted = {}) {
    for (const auto& member : element.GetObject()) {
        const std::string name = member.name.GetString();
        const bool isRead = member.value.IsString() && member.value.GetStringLength() > 0 && name != "kind";
        if (!isRead || name == counted) continue;
        ASSERT_TRUE(element.HasMember("positions")) << name;
        EXPECT_TRUE(element["positions"].HasMember(name.c_str())) << name;
    }
}

std::string profileJson(const Text& display, bool isCompact = false) {
    ProfilePositions positions;
    const Profile profile = parseProfile(display, positions);
    std::string json;
    JsonOut out(json);
    writeProfile(profile, {.isCompact = isCompact, .positions = &positions}, out);
    return json;
}

TEST(Positions, OfAProfileAreThoseOfItsValues) {
    for (const fs::path& file : filesIn(samples / "profiles", ".txt")) {
        SCOPED_TRACE(file);
        const Text display = screenFromText(contentOf(file.string()));
        for (const bool isCompact : {false, true}) {
            const rapidjson::Document profile = parsed(profileJson(display, isCompact));
            checkPositions(profile, display);
            for (const char* name : {"companyName", "pin", "psl"}) {
                if (profile.HasMember(name) && profile[name].IsObject()) expectAllPlaced(profile[name]);
            }
            for (const char* name : {"name", "recordLocator", "officeIdentifier"}) {
                if (!profile.HasMember(name) || profile[name].GetStringLength() == 0) continue;
                EXPECT_TRUE(profile["positions"].HasMember(name)) << name;
            }
            if (profile.HasMember("notes")) {
                for (const auto& note : profile["notes"].GetArray()) expectAllPlaced(note, "number");
            }
            if (!profile.HasMember("elements")) continue;
            for (const auto& family : profile["elements"].GetObject()) {
                SCOPED_TRACE(family.name.GetString());
                for (const auto& element : family.value.GetArray()) expectAllPlaced(element);
            }
        }
    }
}

TEST(Positions, OfWrappedTextAreItsPiecesAndWhatJoinsThem) {
    const std::string record = runTool({"parse", "--positions", "--only", "PHI", sample("wrapped")}).out;
    // CHECK IN FROM 14:00 / ONLY: two lines with a blank between them that the display does not have there.
    EXPECT_NE(
        record.find(R"("text":"CHECK IN FROM 14:00 ONLY","positions":{"number":[{"line":57,"column":3,"length":2}],)"
                    R"("text":[{"line":57,"column":11,"length":13},{"inserted":" "},)"
                    R"({"line":58,"column":11,"length":10}]}})"),
        std::string::npos)
        << record;
}

TEST(Positions, AreInEveryFormOfJsonAndInNoOther) {
    const std::string line = runTool({"parse", "--positions", sample("traveller")}).out;
    const std::string pretty = runTool({"parse", "--positions", "--pretty", sample("traveller")}).out;
    EXPECT_EQ(parsed(pretty), parsed(line));
    EXPECT_NE(line.find("positions"), std::string::npos);
    EXPECT_EQ(runTool({"parse", "--positions", "-j", "2", sample("traveller"), sample("traveller")}).out,
              runTool({"parse", "--positions", sample("traveller"), sample("traveller")}).out);
    EXPECT_EQ(runTool({"parse", sample("traveller")}).out.find("positions"), std::string::npos);
    EXPECT_EQ(runTool({"parse", "--positions", "--csv", sample("traveller")}).status, 2);
    EXPECT_EQ(runTool({"parse", "--positions", "--table", sample("traveller")}).status, 2);
}

// The other members are unchanged.
TEST(Positions, LeaveTheProfileAsItIs) {
    const auto withoutPositions = [](rapidjson::Document record) {
        record.RemoveMember("positions");
        for (const char* name : {"companyName", "pin", "psl"}) {
            if (record[name].IsObject()) record[name].RemoveMember("positions");
        }
        rapidjson::Value& families = record["elements"];
        for (const auto& family : std::as_const(families).GetObject()) {
            for (auto& element : families[family.name].GetArray()) element.RemoveMember("positions");
        }
        for (auto& note : record["notes"].GetArray()) note.RemoveMember("positions");
        return record;
    };
    for (const fs::path& file : filesIn(samples / "profiles", ".txt")) {
        SCOPED_TRACE(file);
        EXPECT_EQ(withoutPositions(parsed(runTool({"parse", "--positions", file.string()}).out)),
                  parsed(runTool({"parse", file.string()}).out));
    }
}

// ---- Results of screens

struct Read {
    CollectionPtr results;
    std::string json;
};

Read read(TextView className, TextView screen, const CollectionPtr& state) {
    const ClassRow& row = *findClass(className);
    ResultPositions positions(row);
    BuiltInTerminal builtIn;
    ObservedTerminal terminal(builtIn, &positions);
    Read read;
    read.results = createObject(row, terminal)->profileTrans()->VerifyResponse(screen, state);
    read.json = resultsText(read.results, View::Json, &positions);
    return read;
}

/// True for a text, and for a flag that is True because a mark is on the screen.
bool isReadFromScreen(const ClassRow& row, TextView key, const rapidjson::Value& value) {
    const auto isSetByAbsence = [key](const ScreenFlag& flag) {
        return flag.flag == key && flag.position == MarkPosition::NotOnScreen;
    };
    if (value.IsTrue()) return std::ranges::none_of(row.description.flags, isSetByAbsence);
    return value.IsString() && value.GetStringLength() > 0;
}

TEST(Positions, OfResultsAreThoseOfTheirValues) {
    std::size_t count = 0;
    for (const fs::path& file : filesIn(samples / "exchanges", ".exchange")) {
        SCOPED_TRACE(file);
        CollectionPtr previous;
        for (const ExchangeStep& step : readExchange(file)) {
            if (!step.screen || step.results->kind == ExchangeResults::Kind::Raised) continue;
            const CollectionPtr params = collectionOf(step.params);
            const ClassRow& row = *findClass(step.className);
            const CollectionPtr state = step.statePrevious ? previous : params;
            const CollectionPtr passed = state ? collection(entriesOf(state)) : nullptr;  // before it is added to
            const Read found = read(step.className, *step.screen, state);
            if (found.results == nullptr) continue;
            previous = found.results;
            const rapidjson::Document results = parsed(found.json);
            count += checkPositions(results, *step.screen);
            for (const auto& member : results.GetObject()) {
                const Text key = wide(member.name.GetString());
                if (passed != nullptr && passed->Item(key) != nullptr) continue;  // not read from the screen
                EXPECT_TRUE(!isReadFromScreen(row, key, member.value) || results["positions"].HasMember(member.name))
                    << member.name.GetString();
            }
        }
    }
    EXPECT_GT(count, 50U);
}

TEST(Positions, OfRowsAreThoseOfTheirCells) {
    std::size_t count = 0;
    for (const fs::path& file : filesIn(samples / "exchanges", ".exchange")) {
        SCOPED_TRACE(file);
        for (const ExchangeStep& step : readExchange(file)) {
            const ClassRow& row = *findClass(step.className);
            if (!step.screen || row.description.columns.empty() || step.statePrevious) continue;
            ProfilePositions positions;
            const ListRows found = readRows(row, *step.screen, nullptr, positions);
            const rapidjson::Document rows = parsed(rowsText(row, found, RowsView::Json, &positions));
            count += checkPositions(rows, *step.screen);
            for (const auto& entry : rows.GetArray()) expectAllPlaced(entry);
        }
    }
    EXPECT_GT(count, 50U);
}

TEST(Positions, OfRowsAreInJsonOnly) {
    const std::string screen =
        "PDN/KES\nSIMILAR COMPANY NAME LIST\n     COMPANY                         RECLOC     OFFICE\n"
        "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN0900\n>\n";
    EXPECT_NE(runTool({"verify", "CPDNTrans", "--rows", "--positions"}, screen).out.find("\"positions\""),
              std::string::npos);
    EXPECT_EQ(runTool({"verify", "CPDNTrans", "--rows", "--positions", "--table"}, screen).status, 2);
    EXPECT_EQ(runTool({"verify", "CPDNTrans", "--rows", "--positions", "--csv"}, screen).status, 2);
}

TEST(Positions, OfAFlagAreThoseOfItsMark) {
    const auto screen = screenFromText("PX3\nPROFILE WILL BE DEACTIVATED\n");
    const rapidjson::Document results = parsed(read(u"CPXTrans", screen, nullptr).json);
    std::size_t flags = 0;
    for (const auto& member : results.GetObject()) {
        if (!member.value.IsBool()) continue;
        EXPECT_EQ(results["positions"].HasMember(member.name), member.value.GetBool()) << member.name.GetString();
        if (!member.value.GetBool()) continue;
        ++flags;
        EXPECT_EQ(textAt(results["positions"][member.name], screen), "WILL BE DEACTIVATED");
    }
    EXPECT_EQ(flags, 1U);
}

// The results of one screen, with their positions, are the state for the next one.
TEST(Positions, AreNoPartOfAState) {
    const TemporaryFile state(R"({"strKeyRecLocPos":38,"positions":{"strKeyCoNames":[[{"line":3}]]}})");
    const Finished run = runTool({"verify", "CPDNTrans", "--state", state.path()}, "PDMD\n");
    EXPECT_NE(run.status, 2) << run.err;
    EXPECT_EQ(run.err.find("positions"), std::string::npos) << run.err;
    const TemporaryFile text(R"({"positions":1.5})");
    EXPECT_EQ(runTool({"verify", "CPDNTrans", "--state", text.path()}, "PDMD\n").status, 2);
}

TEST(Positions, OfAnswersAreInTablesToo) {
    const Finished table = runTool({"elements", "PHI", "--positions", "--table", sample("wrapped")});
    EXPECT_NE(table.out.find("LINE:COLUMNS"), std::string::npos);
    EXPECT_NE(table.out.find("CHECK IN FROM 14:00 ONLY             57:11-23 58:11-20\n"), std::string::npos)
        << table.out;
    const Text display = screenFromText(contentOf(sample("wrapped")));
    EXPECT_EQ(checkPositions(parsed(runTool({"elements", "PHI", "--positions", sample("wrapped")}).out), display), 2U);
}

}  // namespace
}  // namespace vantro::test
