// Every transaction on screens that differ slightly from those of the sample exchanges. The library's results are
// compared with the oracle's.
#include "tests/support/near_misses.h"
#include "tests/oracle/screens_oracle.h"
#include "tests/profile/effort.h"
#include "tests/support/driven_class.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "tests/transactions/oracle_answers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

// The marks of a class's screens; each is written over every line at every column.
const std::map<Text, std::vector<Text>> marks{
    {u"CPBITrans", {u"RP/", u"- PNR UPDATED"}},
    {u"CPBNTrans", {u"RP/", u"- PNR UPDATED", u"- PNR CREATED"}},
    {u"CPCNTrans", {u"*T*", u"*C*"}},
    {u"CPDATrans",
     {u"*T*", u"*C*", u"SIMILAR TRAVELLER NAME LIST", u"     COMPANY     ", u">", u"END OF BLOCK - USE PDMD"}},
    {u"CPDITrans", {u"*T*", u"*C*"}},
    {u"CPDNTrans",
     {u"*T*", u"*C*", u"*MRG*", u"SIMILAR TRAVELLER NAME LIST", u"     COMPANY     ", u"     RECLOC     ", u">",
      u"END OF BLOCK - USE PDMD"}},
    {u"CPDRTrans",
     {u"*T*", u"*C*", u"*MRG*", u"RECORD LOCATOR NOT FOUND", u"DEACTIVATED TRAVELLER PROFILE", u"CHECK INPUT"}},
    {u"CPDTrans", {u"*T*", u"*C*", u"*MRG*", u"ELEMENT DOES NOT EXIST", u"UNABLE TO PROCESS"}},
    {u"CPDTTrans", {u"*T*"}},
    {u"CPHTrans", {u"TRAVELLER PROFILE   :", u"COMPANY PROFILE", u"LAST PNR TRANSFER  :", u"PROFILE CREATION   :"}},
    {u"CPLCTrans", {u"COMPANY NAME LIST", u"*C*"}},
    {u"CPLTTrans",
     {u"*T*", u"*MRG*", u"NO COMPANY PROFILE FOUND", u"TRAVELLER NAME LIST", u"RECLOC ", u"     COMPANY     ", u">",
      u"END OF BLOCK - USE PDMD"}},
    {u"CProfileMode", {u"IGNORED     ", u"PROFILE MODE EXITED     "}},
    {u"CRLPTrans", {u"T/ABC123", u"C/XYZ789", u"/P1", u">", u">RLP", u"RP/", u"NO ELEMENT FOUND"}},
    {u"CPTTrans", {u"RP/", u"- PNR UPDATED", u"- PNR CREATED"}},
};

struct Sample {
    std::string name;
    Text className;
    Text screen;
    std::optional<Entries> state;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.name; }

/// Every screen of the sample exchanges with the state that it is read with.
std::vector<Sample> samples() {
    std::vector<Sample> all;
    for (const auto& file : filesIn(std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges", ".exchange")) {
        std::optional<Entries> previous;
        for (const ExchangeStep& step : readExchange(file)) {
            if (!step.screen) continue;
            const auto state = step.statePrevious ? previous : entriesOf(step.params);
            all.push_back(
                {file.stem().string() + "_" + std::to_string(step.line), step.className, *step.screen, state});
            if (step.results) previous = entriesOf(step.results->entries);
        }
    }
    return all;
}

class NearMissOf : public testing::TestWithParam<Sample> {};

INSTANTIATE_TEST_SUITE_P(Sample, NearMissOf, testing::ValuesIn(samples()),
                         [](const auto& test) { return test.param.name; });

TEST_P(NearMissOf, IsReadAsTheOracleReadsIt) {
    const Sample& sample = GetParam();
    const oracle::Verify verify = oracle::verifyOf(utf8(sample.className));
    DrivenClass driven(sample.className);
    Variation variation{.every = share()};
    if (const auto planted = marks.find(sample.className); planted != marks.end()) variation.planted = planted->second;
    // Different samples of one class visit different near misses.
    variation.offset = sample.name.size() % variation.every;
    Text wrong;
    forEachNearMiss(sample.screen, variation, [&](const Text& screen) {
        const bool isSame = libraryAnswer(driven, screen, sample.state) == oracleAnswer(verify, screen, sample.state);
        if (!isSame) wrong = screen;
        return isSame;
    });
    ASSERT_TRUE(wrong.empty()) << printed(libraryAnswer(driven, wrong, sample.state)) << "  expected "
                               << printed(oracleAnswer(verify, wrong, sample.state)) << drawn(wrong);
}

}  // namespace
}  // namespace vantro::test
