// Small worlds, searched through: every sequence of a few lines of the kinds that matter to a list's reader, read by
// the library and by the slow second opinion, with every state that can come in.
#include "tests/oracle/screens_oracle.h"
#include "tests/profile/effort.h"
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Verify = std::optional<oracle::Collection> (*)(const Text& response, const oracle::Collection* state);

struct World {
    const char* name;
    const char16_t* className;
    Verify verify;
    std::vector<Text> above;  ///< what the lines stand under: nothing is said about which screen it is
    std::vector<Text> kinds;
    std::vector<std::optional<Entries>> states;
};

void PrintTo(const World& world, std::ostream* out) { *out << world.name; }

oracle::Value oracleValue(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* number = std::get_if<std::int16_t>(&value)) return int{*number};
    if (const auto* text = std::get_if<Text>(&value)) return *text;
    return std::get<TextList>(value);
}

oracle::Collection oracleCollection(const Entries& entries) {
    oracle::Collection collection;
    for (const Entry& entry : entries) collection.add(utf8(entry.key), oracleValue(entry.value));
    return collection;
}

std::vector<std::pair<std::string, oracle::Value>> plain(const Entries& entries) {
    return oracleCollection(entries).entries;
}

/// The library's answer and the oracle's: equal entries, or the same error.
struct Answer {
    std::vector<std::pair<std::string, oracle::Value>> entries;
    int error = 0;

    friend bool operator==(const Answer&, const Answer&) = default;
};

Answer libraryAnswer(DrivenClass& driven, const Text& response, const std::optional<Entries>& state) {
    try {
        return {plain(entriesOf(driven.read(response, state ? collection(*state) : nullptr))), 0};
    } catch (const Error& error) {
        return {{}, error.number()};
    }
}

Answer oracleAnswer(Verify verify, const Text& response, const std::optional<Entries>& state) {
    std::optional<oracle::Collection> given;
    if (state) given = oracleCollection(*state);
    try {
        return {verify(response, given ? &*given : nullptr)->entries, 0};
    } catch (const oracle::Failure& failure) {
        return {{}, failure.number};
    }
}

std::string drawn(const Text& response) {
    std::string lines;
    for (std::size_t start = 0; start < response.size(); start += 80) {
        lines += "\n|" + utf8(TextView(response).substr(start, 80)) + "|";
    }
    return lines;
}

// Two lines, three in an optimised build, more with more effort.
std::size_t longest() {
    std::size_t length = 2;
    for (std::size_t reach = effort(100); reach > 50; reach /= 10) ++length;
    return length;
}

/// The sequences one after the other: one line more, or else the last line's next kind.
bool advance(std::vector<std::size_t>& sequence, std::size_t kinds, std::size_t length) {
    if (sequence.size() < length) {
        sequence.push_back(0);
        return true;
    }
    while (!sequence.empty() && ++sequence.back() == kinds) sequence.pop_back();
    return !sequence.empty();
}

class ListWorld : public testing::TestWithParam<World> {
protected:
    // The lines alone, and again with blank ones under them, so that a continuation has its later lines.
    std::vector<Text> screens(const std::vector<std::size_t>& sequence) const {
        Text text;
        for (const Text& line : GetParam().above) text += screen({line});
        for (const std::size_t kind : sequence) text += screen({GetParam().kinds[kind]});
        return {text, text + Text(10 * std::size_t{80}, u' '), text + u">"};
    }
};

TEST_P(ListWorld, IsReadAsTheSecondOpinionReadsIt) {
    const World& world = GetParam();
    DrivenClass driven(world.className);
    std::vector<std::size_t> sequence;
    const std::size_t length = longest();
    while (advance(sequence, world.kinds.size(), length)) {
        for (const Text& response : screens(sequence)) {
            for (const auto& state : world.states) {
                const Answer expected = oracleAnswer(world.verify, response, state);
                ASSERT_TRUE(libraryAnswer(driven, response, state) == expected)
                    << "the state's number among the world's: " << &state - world.states.data() << drawn(response);
            }
        }
    }
}

Entries state(bool endOfBlock, const char16_t* column) {
    return {{u"blnKeyEndOfBlock", endOfBlock}, {u"strKeyRecLocPos", column}};
}

const std::vector<Text> companyLines{
    u"SIMILAR COMPANY NAME LIST",
    u"     COMPANY         RECLOC     ",
    u"     COMPANY     ",
    u"   1 KESTRELLO       Q2W3E4",
    u"  12 KESTRELLO AND SON",
    u"     WRAPPED",
    u"     NO NUMBER       J8K9L1",
    u"",
    u"END OF BLOCK - USE PDMD",
    u"   7 END OF BLOCK - USE PDMD",
    u">",
    u"   8 KESTRELLO >",
    u"   9      COMPANY     ",
    u"   3                 A2S3D4",
};

const std::vector<std::optional<Entries>> pagingStates{
    std::nullopt,     state(false, u""),  state(true, u"22"),
    state(true, u""), state(false, u"7"), state(true, u"no number"),
};

// The locator stands in the columns where the host prints it: 29 on, and the company from 35 on.
const std::vector<Text> travellerLines{
    u"TRAVELLER LIST FOR NCEVN3101",
    u"     NAME                   RECLOC  COMPANY",
    u"   1 ABELMANN/IDA MS        H1J2K3",
    u"   2 BOROVIK/JURI MR        H4J5K6  KESTRELLO",
    u"",
    u"END OF BLOCK - USE PDMD",
    u">",
    u"SIMILAR COMPANY NAME LIST",
    u"     COMPANY     ",
    u"  12 KESTRELLO",
    u"   7",
    u"   9      COMPANY     RECLOC ",
    u"*T* *MRG*",
};

const std::vector<Text> linkedLines{
    u"RP/NCEVN3101/", u"T/ABC123 /P1",     u"C/XYZ789", u"T/QQQQQQ/P12", u"C/", u"T/ABC12/P3", u">",
    u">RLP",          u"NO ELEMENT FOUND", u"",         u"T/ABC123 >",
};

std::vector<std::optional<Entries>> indexes() {
    std::vector<std::optional<Entries>> states{std::nullopt};
    for (const char16_t* const index : {u"0", u"1", u"2", u"3", u"-1", u"x"}) {
        states.emplace_back(Entries{{u"strKeyIndex", index}});
    }
    return states;
}

const std::vector<World> worlds{
    {"NameSearch", u"CPDNTrans", oracle::verifyCPDNTrans, {u"PDN/KES"}, companyLines, pagingStates},
    {"NameSearchList",
     u"CPDNTrans",
     oracle::verifyCPDNTrans,
     {u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY         RECLOC     "},
     companyLines,
     pagingStates},
    {"SimilarNames", u"CPDATrans", oracle::verifyCPDATrans, {}, companyLines, pagingStates},
    {"SimilarNamesList",
     u"CPDATrans",
     oracle::verifyCPDATrans,
     {u"PDA/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY     "},
     companyLines,
     pagingStates},
    {"OfficeCompanies",
     u"CPLTTrans",
     oracle::verifyCPLTTrans,
     {u"PLT", u"SIMILAR COMPANY NAME LIST", u""},
     travellerLines,
     {std::nullopt}},
    {"OfficeTravellers",
     u"CPLTTrans",
     oracle::verifyCPLTTrans,
     {u"PLT", u"TRAVELLER LIST FOR NCE", u""},
     travellerLines,
     {std::nullopt}},
    {"OfficeScreens", u"CPLTTrans", oracle::verifyCPLTTrans, {}, travellerLines, {std::nullopt}},
    {"LinkedProfiles", u"CRLPTrans", oracle::verifyCRLPTrans, {u"RLP"}, linkedLines, indexes()},
    {"LinkedProfilesOfAPnr", u"CRLPTrans", oracle::verifyCRLPTrans, {u"RLP", u"RP/"}, linkedLines, indexes()},
};

INSTANTIATE_TEST_SUITE_P(, ListWorld, testing::ValuesIn(worlds),
                         [](const testing::TestParamInfo<World>& world) { return world.param.name; });

}  // namespace
}  // namespace vantro::test
