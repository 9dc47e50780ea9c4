// "PH": the name and the dates of a history.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

constexpr TextView title = u"PROFILE HISTORY";
//                              ....+....1....+....2....+....3
constexpr TextView traveller = u"TRAVELLER PROFILE   : SMITH/ANNA MS";
constexpr TextView company = u"COMPANY PROFILE     : KESTRELLO";
constexpr TextView transfer = u"LAST PNR TRANSFER  :04MAR24 1610";
constexpr TextView creation = u"PROFILE CREATION   :19AUG21 0907";

void expect(const Text& response, const char16_t* lastTransfer, const char16_t* name, const char16_t* created) {
    DrivenClass ph(u"CPHTrans");
    const CollectionPtr results = ph.read(response);
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(valueOf(results, u"strKeyLastPNRTransDate"), ItemValue(Text(lastTransfer)));
    EXPECT_EQ(valueOf(results, u"strKeyName"), ItemValue(Text(name)));
    EXPECT_EQ(valueOf(results, u"strKeyProfileCreationDate"), ItemValue(Text(created)));
    EXPECT_TRUE(ph.reported.empty());
}

TEST(History, ReturnsTheNameAndBothDates) {
    expect(screen({u"PH", title, traveller, transfer, creation}), u"04MAR24", u"SMITH/ANNA MS", u"19AUG21");
    expect(screen({u"PH", title, company, transfer, creation}), u"04MAR24", u"KESTRELLO", u"19AUG21");
}

TEST(History, ADateIsEightCharactersFromColumn21) {
    //                              ....+....1....+....2....+....3
    expect(screen({u"PH", title, u"LAST PNR TRANSFER  :123456789", u"PROFILE CREATION   :    5678X"}), u"12345678", u"",
           u"5678");
}

TEST(History, ANameRunsFromColumn22ToTheEndOfItsLine) {
    //                              ....+....1....+....2....+....3
    expect(screen({u"PH", title, u"TRAVELLER PROFILE   :XSMITH/ANNA MS        OF KESTRELLO"}), u"",
           u"XSMITH/ANNA MS        OF KESTRELLO", u"");
    expect(screen({u"PH", title, u"COMPANY PROFILE     XYZ"}), u"", u"YZ", u"");
}

TEST(History, ALaterNameReplacesAnEarlierOne) {
    expect(screen({u"PH", title, traveller, company}), u"", u"KESTRELLO", u"");
    expect(screen({u"PH", title, company, traveller}), u"", u"SMITH/ANNA MS", u"");
}

TEST(History, ReadingStopsAtTheSecondDate) {
    expect(screen({u"PH", title, transfer, creation, traveller}), u"04MAR24", u"", u"19AUG21");
    expect(screen({u"PH", title, transfer, traveller, creation}), u"04MAR24", u"SMITH/ANNA MS", u"19AUG21");
    expect(screen({u"PH", title, transfer, traveller}), u"04MAR24", u"SMITH/ANNA MS", u"");
}

TEST(History, ABlankDateCountsAsFound) {
    expect(screen({u"PH", title, u"LAST PNR TRANSFER  :", creation, traveller}), u"", u"", u"19AUG21");
}

TEST(History, ALaterDateOfTheSameKindReplacesTheEarlierOne) {
    expect(screen({u"PH", title, transfer, u"LAST PNR TRANSFER  :05APR24", creation}), u"05APR24", u"", u"19AUG21");
}

TEST(History, AllLabelsOfTheLastLineAreRead) {
    // One line with both date labels: the same eight characters serve both, and the name label is read as well.
    expect(screen({u"PH", title, u"LAST PNR TRANSFER  :01JAN24 PROFILE CREATION   : COMPANY PROFILE"}), u"01JAN24",
           u"1JAN24 PROFILE CREATION   : COMPANY PROFILE", u"01JAN24");
}

TEST(History, Line12IsTheLast) {
    expect(screenAt({{1, title}, {12, transfer}}), u"04MAR24", u"", u"");
    expect(screenAt({{1, title}, {13, transfer}}), u"", u"", u"");
    expect(screenAt({{5, title}, {12, creation}, {13, transfer}}), u"", u"", u"19AUG21");
}

TEST(History, TheTitleLineAndThoseAboveAreNotRead) {
    expect(screen({transfer, u"PROFILE HISTORY       COMPANY PROFILE", creation}), u"", u"", u"19AUG21");
}

TEST(History, LabelsNeedTheirBlanksBeforeTheColon) {
    expect(screen({u"PH", title, u"TRAVELLER PROFILE  : A", u"LAST PNR TRANSFER   :01JAN24", u"PROFILE CREATION  :01"}),
           u"", u"", u"");
}

TEST(History, WithoutTheTitleNothingIsRead) {
    expect(screen({u"PH", u"ELEMENT DOES NOT EXIST", traveller, transfer, creation}), u"", u"", u"");
}

}  // namespace
}  // namespace vantro::test
