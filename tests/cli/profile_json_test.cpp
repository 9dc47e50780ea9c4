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
    Text display(80, u' ');
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
    {Family::Remark, R"("RM":[{"number":"1","text":"RM  PREFERS MORNING FLIGHTS"}])", "FLIGHTS"},
    {Family::FrequentFlyer,
     R"("FFN":[{"number":"4","text":"FFN QV 1234567","airline":"QV","frequentFlyerNumber":"1234567"}])",
     "airline QV, number 1234567"},
    {Family::ServiceRequest,
     R"("SR":[{"number":"5","text":"SR  FQTVXQ 7654321-GOLD","code":"FQTV","airline":"XQ",)"
     R"("frequentFlyerNumber":"7654321-GOLD","freeText":"GOLD","asterisk":false}])",
     "code FQTV, airline XQ, number 7654321-GOLD, text GOLD"},
    {Family::RemarkConf, R"("RC":[{"number":"7","text":"RC  CREDIT LIMIT 400000","freeText":"CREDIT LIMIT 400000"}])",
     "text CREDIT LIMIT 400000"},
    {Family::PAS, R"("PAS":[{"number":"1","text":"12345678 FR 01JAN30"}])", "01JAN30"},
};
// clang-format on

TEST(ProfileJson, AnElementHasThePartsOfItsFamily) {
    for (const Shown& expected : shown) {
        std::string json;
        JsonOut out(json);
        writeProfile(sampleProfile(expected.family), out);
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

}  // namespace
}  // namespace vantro
