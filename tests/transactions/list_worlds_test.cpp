// Small worlds of lists: every sequence of a few lines of the kinds that matter to a list's reader, with every possible
// state. The library's results are compared with the oracle's.
#include "tests/oracle/screens_oracle.h"
#include "tests/profile/effort.h"
#include "tests/support/screens.h"
#include "tests/transactions/observed_calls.h"
#include "tests/transactions/oracle_answers.h"
#include "tests/transactions/row_agreement.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

struct World {
    const char* name;
    const char16_t* className;
    oracle::Verify verify;
    std::vector<Text> above;  ///< lines before the sequence; they do not say which screen it is
    std::vector<Text> kinds;
    std::vector<std::optional<Entries>> states;
};

void PrintTo(const World& world, std::ostream* out) { *out << world.name; }

// Two lines, three in an optimised build, more with a higher effort.
std::size_t longest() {
    std::size_t length = 2;
    for (std::size_t reach = effort(100); reach > 50; reach /= 10) ++length;
    return length;
}

/// Advances to the next sequence: one line longer, or the last line's next kind.
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
    /// Calls `check` with every screen and every state, until one fails.
    template <class Check>
    void forEveryScreen(const Check& check) const {
        const World& world = GetParam();
        std::vector<std::size_t> sequence;
        const std::size_t length = longest();
        while (!HasFatalFailure() && advance(sequence, world.kinds.size(), length)) {
            for (const Text& response : screens(sequence)) {
                for (const auto& state : world.states) {
                    SCOPED_TRACE("the state's number among the world's: " +
                                 std::to_string(&state - world.states.data()) + drawn(response));
                    check(response, state);
                }
            }
        }
    }

private:
    // The lines alone, then followed by blank lines, so that a continuation has its later lines, then followed by a
    // prompt.
    std::vector<Text> screens(const std::vector<std::size_t>& sequence) const {
        Text text;
        for (const Text& line : GetParam().above) text += screen({line});
        for (const std::size_t kind : sequence) text += screen({GetParam().kinds[kind]});
        return {text, text + Text(10 * std::size_t{80}, u' '), text + u">"};
    }
};

TEST_P(ListWorld, IsReadAsTheOracleReadsIt) {
    const World& world = GetParam();
    DrivenClass driven(world.className);
    forEveryScreen([&](const Text& response, const std::optional<Entries>& state) {
        const OracleAnswer expected = oracleAnswer(world.verify, response, state);
        ASSERT_TRUE(libraryAnswer(driven, response, state) == expected);
    });
}

TEST_P(ListWorld, HasTheRowsOfItsResults) {
    const World& world = GetParam();
    DrivenClass driven(world.className);
    forEveryScreen([&](const Text& response, const std::optional<Entries>& state) {
        const CollectionPtr passed = state ? collection(*state) : nullptr;
        ASSERT_EQ(disagreement(driven, world.className, response, passed), "");
    });
}

TEST_P(ListWorld, IsReadTheSameWhenItIsObserved) {
    const TextView className = GetParam().className;
    forEveryScreen([&](const Text& response, const std::optional<Entries>& state) {
        ASSERT_EQ(wrongInReading(className, response, state), "");
        ASSERT_EQ(wrongInRows(className, response, state), "");
    });
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
    u"                            RIGHT OF THE LOCATOR",
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

// As the host prints them: the locator from column 29, the company from column 35.
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
