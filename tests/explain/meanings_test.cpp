// What keys, marks, values and families mean.
#include "tests/support/text.h"
#include "vantro/explanation.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

struct Row {
    TextView className;  // empty for no class
    KeptStep step;
    std::string meaning;
};

void expectMeanings(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const ClassRow* const aClass = row.className.empty() ? nullptr : findClass(row.className);
        EXPECT_EQ(utf8(meaningOf(row.step, aClass)), row.meaning) << utf8(sentenceOf(row.step));
    }
}

KeptStep named(StepKind kind, TextView name) { return {.kind = kind, .name = Text(name)}; }

KeptStep searched(TextView mark) { return {.kind = StepKind::MarkSearched, .text = Text(mark)}; }

TEST(Meanings, OfQueriesAreThoseOfTheirFamilies) {
    const KeptStep hotel{.kind = StepKind::QueryBegins, .family = Family::PHI, .name = u"PHI"};
    expectMeanings({
        {u"", hotel, "hotel travel policy of the kind PHI"},
        {u"", named(StepKind::QueryBegins, u"RECLOC"), "record locator of the profile"},
        {u"", named(StepKind::QueryEnds, u"ProfileNotes"), "notes of the profile"},
        {u"", named(StepKind::QueryBegins, u"XYZ"), ""},
    });
}

TEST(Meanings, OfDecisionsAreThoseOfTheFamily) {
    static constexpr ReadingRule rule{"rule", u"a rule"};
    expectMeanings({
        {u"", {.kind = StepKind::Decided, .family = Family::Seat, .rule = &rule}, "seat request"},
        {u"", {.kind = StepKind::Decided, .family = Family::PIV, .rule = &rule}, "visa"},
        {u"", {.kind = StepKind::Decided, .rule = &rule}, ""},
    });
}

TEST(Meanings, OfValuesAreThoseOfTheirParts) {
    const auto part = [](Family family, TextView name) -> KeptStep {
        return {.kind = StepKind::ValueRead, .family = family, .name = Text(name)};
    };
    expectMeanings({
        {u"CProfile", part(Family::FrequentFlyer, u"airline"), "airline of a frequent flyer number"},
        {u"", part(Family::ServiceRequest, u"freeText"), "free text of a service request"},
        {u"", part(Family::RemarkConf, u"freeText"), "text of a confidential remark"},
        {u"", part(Family::PHI, u"airline"), ""},
        {u"", named(StepKind::ValueRead, u"recordLocator"), "record locator of the profile"},
        {u"", named(StepKind::ValueRead, u"other"), ""},
        {u"CPDNTrans", named(StepKind::ValueRead, u"recordLocator"), "the profile's record locator"},
        {u"CPDNTrans", named(StepKind::ValueRead, u"other"), ""},
        {u"CProfile", named(StepKind::ValueRead, u"officeIdentifier"), "office identifier of the profile"},
    });
}

TEST(Meanings, OfKeysAreInTheRowOfTheClass) {
    expectMeanings({
        {u"CPDRTrans", named(StepKind::KeyRead, u"strKeyRecLoc"), "the record locator"},
        {u"CPDNTrans", named(StepKind::KeyRead, u"strKeyRecLocPos"), "the result of the previous screen"},
        {u"CProfile", named(StepKind::KeyRead, u"strKeyPrefix"), "the family or the header value to read"},
        {u"CProfile", named(StepKind::KeyRead, u"strKeyName"), ""},
        {u"", named(StepKind::KeyRead, u"strKeyRecLoc"), ""},
        {u"CPDTTrans", named(StepKind::KeyAdded, u"blnKeyProfile"), "a traveller's profile is shown"},
        {u"CProfile", named(StepKind::KeyAdded, u"strKeyCode"), "the code of the service"},
        {u"CProfile", named(StepKind::EntryAdded, u"strKeyElNbrsArray"),
         "the numbers of the transferable elements that are selected, from entry 1; entry 0 is empty"},
        {u"CProfile", named(StepKind::KeyAdded, u"blnKeyProfile"), ""},
        {u"", named(StepKind::KeyAdded, u"strKeyCode"), ""},
    });
}

TEST(Meanings, OfMarksAreTheFlagsThatTheySet) {
    expectMeanings({
        {u"CPDNTrans", searched(u"*T*"), "blnKeyTrProfile: a traveller's profile is shown"},
        {u"CPDTrans", searched(u"TRAVELLER NAME NOT FOUND"), "ends the search and sets no flag"},
        {u"CProfileNotes", searched(u"TRANSACTION NOT ALLOWED"),
         "after PNE, if it is not there, blnKeyResponseOK: the host has accepted the command"},
        {u"CPDNTrans", searched(u"     RECLOC     "), "the title of the column of record locators"},
        {u"CPLTTrans", searched(u"RECLOC "), "the title of the column of record locators"},
        {u"CPDNTrans", searched(u"END OF BLOCK - USE PDMD"),
         "blnKeyEndOfBlock: the list continues; without a list to read, the value of the state"},
    });
}

// A mark with several flags has the meanings of all of them.
TEST(Meanings, OfAMarkWithSeveralFlagsAreAllOfThem) {
    static constexpr ScreenFlag flags[] = {
        {.flag = u"blnKeyPNR", .mark = u"RP/", .position = MarkPosition::OnScreen},
        {.flag = {}, .mark = u"RP/", .position = MarkPosition::StartsLine},
    };
    static constexpr ResultRow results[] = {{u"blnKeyPNR", ValueKind::Boolean, {}, u"a PNR is shown"}};
    ClassRow row{};
    row.description.flags = flags;
    row.description.results = results;
    EXPECT_EQ(utf8(meaningOf(searched(u"RP/"), &row)), "blnKeyPNR: a PNR is shown; ends the search and sets no flag");
}

TEST(Meanings, OfMarksWithoutAFlagAreTheirOwn) {
    expectMeanings({
        {u"CPDNTrans", searched(u"     COMPANY     "), "the column header above the companies of a list"},
        {u"", searched(u"END OF BLOCK - USE PDMD"), "the list continues on another screen"},
        {u"", searched(u"*T*"), "the mark of a traveller's profile"},
        {u"", searched(u"------- FOLLOW UP"), "the header of a section"},
        {u"", searched(u"------- PROFILE NOTES"), "the header of a section"},
        {u"", searched(u"PHI/"), "hotel travel policy of the kind PHI"},
        {u"", searched(u" NM "), "name of the profile: the traveller's, or else the company's"},
        {u"", searched(u"PIN/"), "PIN line"},
        {u"", searched(u"SOMETHING ELSE"), ""},
        {u"", searched(u"SOMETHING/"), ""},
    });
}

TEST(Meanings, OfErrorsAreThoseOfTheCall) {
    const auto ended = [](TextView call, int number) -> KeptStep {
        return {.kind = StepKind::CallEnds, .name = Text(call), .error = Error(number, u"", u"")};
    };
    expectMeanings({
        {u"CPDNTrans", ended(u"CreateCommand", 91), "there is no collection of parameters"},
        {u"CPDNTrans", ended(u"VerifyResponse", 91), ""},
        {u"CPDNTrans", ended(u"CreateCommand", 7), ""},
        {u"CProfileNotes", ended(u"ProfileNotesElementsCount", 5505), "the notes cannot be read"},
        {u"", ended(u"CreateCommand", 91), ""},
        {u"CPDNTrans", named(StepKind::CallEnds, u"CreateCommand"), ""},
        {u"CPDNTrans", named(StepKind::CallBegins, u"CreateCommand"), ""},
        {u"CPDNTrans", {.kind = StepKind::Reported, .error = Error(91, u"", u"")}, ""},
    });
}

}  // namespace
}  // namespace vantro::test
