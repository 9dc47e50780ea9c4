// A family's elements as JSON and in a table: the parts that its row names, under their names.
#include "cli/json/profile_json.h"
#include "cli/commands/profile_table.h"
#include "vantro/families.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro {
namespace {

/// The sample line of a family, alone in a display.
Profile sampleProfile(Family family) {
    Text display(320, u' ');
    for (const TextView line : {factsOf(family).section, factsOf(family).sample, TextView(u"END OF DISPLAY")}) {
        display.append(line).append(80 - line.size(), u' ');
    }
    return parseProfile(display);
}

struct Shown {
    Family family;
    std::string json;     // of its list of elements
    std::string details;  // the last column of its line in a table
};

// clang-format off
const std::vector<Shown> shown{
    {Family::PHI, R"("PHI":[{"number":"4","text":"RATE CEILING 120 EUR IN LYON"}])", "LYON"},
    {Family::Remark, R"("RM":[{"number":"1","text":"RM  PREFERS MORNING FLIGHTS","kind":"S"}])", "kind S"},
    {Family::FrequentFlyer,
     R"("FFN":[{"number":"4","text":"FFN QV 1234567","kind":"S","airline":"QV","frequentFlyerNumber":"1234567"}])",
     "kind S, airline QV, number 1234567"},
    {Family::ServiceRequest,
     R"("SR":[{"number":"5","text":"SR  FQTVXQ 7654321-GOLD","kind":"S","code":"FQTV","airline":"XQ",)"
     R"("frequentFlyerNumber":"7654321-GOLD","freeText":"GOLD","asterisk":false}])",
     "kind S, code FQTV, airline XQ, number 7654321-GOLD, text GOLD"},
    {Family::RemarkConf, R"("RC":[{"number":"7","text":"RC  CREDIT LIMIT 400000","kind":"S","freeText":"CREDIT LIMIT 400000"}])",
     "kind S, text CREDIT LIMIT 400000"},
    {Family::PAS, R"("PAS":[{"number":"1","text":"12345678 FR 01JAN30"}])", "01JAN30"},
};
// clang-format on

TEST(ProfileJson, AnElementHasThePartsOfItsFamily) {
    for (const Shown& expected : shown) {
        std::string json;
        JsonOut out(json);
        writeProfile(sampleProfile(expected.family), {}, out);
        EXPECT_NE(json.find(expected.json), std::string::npos) << expected.json << "\nis not in\n" << json;
    }
}

TEST(ProfileTable, ALineEndsInThePartsOfItsFamily) {
    for (const Shown& expected : shown) {
        const std::string table = profileTable(sampleProfile(expected.family));
        EXPECT_NE(table.find(expected.details + "\n"), std::string::npos) << expected.details << "\nends no line of\n"
                                                                          << table;
    }
}

ProfileQueries only(std::initializer_list<Family> families, std::initializer_list<OtherQuery> others) {
    ProfileQueries queries;
    queries.families.reset();
    queries.others.reset();
    for (const Family family : families) queries.families.set(indexOf(family));
    for (const OtherQuery query : others) queries.others.set(indexOf(query));
    return queries;
}

std::string jsonOf(const Profile& profile, const ProfileMembers& members) {
    std::string json;
    JsonOut out(json);
    writeProfile(profile, members, out);
    return json;
}

TEST(ProfileJson, OnlySomeQueriesAreWritten) {
    const Profile profile = sampleProfile(Family::PHI);
    EXPECT_EQ(jsonOf(profile, {.queries = only({Family::PPH, Family::PHI}, {OtherQuery::Psl})}),
              R"({"psl":null,"sections":["TRAVEL POLICIES - HOTEL"],"elements":{)"
              R"("PHI":[{"number":"4","text":"RATE CEILING 120 EUR IN LYON"}],"PPH":[]}})");
    EXPECT_EQ(jsonOf(profile, {.queries = only({}, {OtherQuery::Notes})}),
              R"({"sections":["TRAVEL POLICIES - HOTEL"],"notes":[]})");
    EXPECT_EQ(jsonOf(profile, {.queries = only({}, {OtherQuery::Name})}), R"({"name":""})");
}

TEST(ProfileJson, ProblemsOfOtherQueriesAreLeftOut) {
    const Profile profile = parseProfile(u"");  // no answer to PCN and PIN
    EXPECT_EQ(profile.problems.size(), 2U);
    EXPECT_EQ(jsonOf(profile, {.queries = only({}, {OtherQuery::Pin})}),
              R"({"pin":{"number":"","text":""},"problems":[{"query":"PIN","number":6,"description":"Overflow"}]})");
    EXPECT_EQ(jsonOf(profile, {.queries = only({}, {OtherQuery::Psl})}), R"({"psl":null})");
}

TEST(ProfileJson, CompactLeavesOutWhatIsEmpty) {
    EXPECT_EQ(
        jsonOf(sampleProfile(Family::ServiceRequest), {.isCompact = true}),
        R"({"sections":["PNR TRANSFERABLE DATA"],"elements":{"SR":[{"number":"5","text":"SR  FQTVXQ 7654321-GOLD",)"
        R"("kind":"S","code":"FQTV","airline":"XQ","frequentFlyerNumber":"7654321-GOLD","freeText":"GOLD"}]}})");
    const Profile empty = parseProfile(Text(320, u' ') + u"END OF DISPLAY");
    EXPECT_EQ(jsonOf(empty, {.isCompact = true}), "{}");
}

TEST(ProfileTable, ShowsOnlyTheQueriesAskedFor) {
    const Profile profile = sampleProfile(Family::PAS);
    EXPECT_EQ(profileTable(profile, only({}, {})), profileTable(parseProfile(Text(320, u' ') + u'>'), only({}, {})));
    EXPECT_EQ(profileTable(profile, only({Family::PAS}, {})), profileTable(profile));
}

TEST(ProfileTable, FamiliesThatWereChosenHaveAnAnswerWithoutElementsToo) {
    EXPECT_EQ(profileTable(sampleProfile(Family::PAS), only({Family::PIV, Family::PFO}, {})),
              "WHAT  NUMBER  TEXT  DETAILS\n"
              "----  ------  ----  -----------------\n"
              "PIV                 no element\n"
              "PFO                 section not shown\n");
}

}  // namespace
}  // namespace vantro
