// Families of the section whose elements are copied into a PNR.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string header = "------- PNR TRANSFERABLE DATA";
const std::string stops(17, ' ');

std::string shared(const std::string& number, const std::string& text) { return transferable('S', number, text); }

const Elements nothing{0, {}, {}};

// Wrapped texts

TEST(TransferableWrap, OneContinuationLineIsJoined) {
    const Text text = ended({header, shared("1", "OS  VG PLEASE"), stops + "MEET"});
    EXPECT_EQ(collected("OtherService", text), (Elements{1, {"OS  VG PLEASEMEET"}, {"1"}}));
}

TEST(TransferableWrap, OnlyRemarksJoinTheThirdLine) {
    const auto lines = [](const std::string& code) {
        return ended({header, shared("1", code + " ONE"), stops + "TWO", stops + "   THREE", stops + "FOUR"});
    };
    EXPECT_EQ(collected("Remark", lines("RM ")), (Elements{1, {"RM  ONETWOTHREE"}, {"1"}}));
    EXPECT_EQ(collected("Contact", lines("AP ")), (Elements{1, {"AP  ONETWO"}, {"1"}}));
    EXPECT_EQ(collected("OtherService", lines("OS ")), (Elements{1, {"OS  ONETWO"}, {"1"}}));
    EXPECT_EQ(collected("FrequentFlyer", lines("FFN")), (Elements{1, {"FFN ONETWO"}, {"1"}}));
    EXPECT_EQ(collected("ServiceRequest", lines("SR ")), (Elements{1, {"SR  ONETWO"}, {"1"}}));
    EXPECT_EQ(collected("Seat", lines("ST ")), (Elements{1, {"ST  ONETWO"}, {"1"}}));
    EXPECT_EQ(collected("RemarkConf", lines("RC ")), (Elements{1, {"RC  ONETWO"}, {"1"}}));
}

TEST(TransferableWrap, ARemarksThirdLineNeedsTheSecond) {
    const Text text = ended({header, shared("1", "RM  ONE"), from(17, "NOT BLANK ENOUGH"), stops + "THREE"});
    EXPECT_EQ(collected("Remark", text), (Elements{1, {"RM  ONE"}, {"1"}}));
}

TEST(TransferableWrap, ABlankLineIsAContinuationLine) {
    const Text text = ended({header, shared("1", "RM  ONE"), "", stops + "THREE"});
    EXPECT_EQ(collected("Remark", text), (Elements{1, {"RM  ONETHREE"}, {"1"}}));
}

TEST(TransferableWrap, AJoinedLineIsAlsoTestedByItself) {
    // By itself, the second line has its text from column 14 like any line, and blank number columns.
    const Text text = ended({header, shared("1", "RM  SEE"), stops + "THE RM LIST"});
    EXPECT_EQ(collected("Remark", text), (Elements{2, {"RM  SEETHE RM LIST", "THE RM LIST"}, {"1", ""}}));
}

TEST(TransferableWrap, AContinuationLineCanMakeALineAnElement) {
    const Text text = ended({header, shared("1", "XX  SEE"), stops + "   A RM LIST"});
    EXPECT_EQ(collected("Remark", text), (Elements{2, {"XX  SEEA RM LIST", "A RM LIST"}, {"1", ""}}));
    // Trimming the joined line removes the blank before the code, so the joined line has no code.
    EXPECT_EQ(collected("Remark", ended({header, shared("1", "XX  SEE"), stops + " RM LIST"})),
              (Elements{1, {"RM LIST"}, {""}}));
}

TEST(TransferableWrap, TheHeaderLineIsJoinedAndTestedLikeAnyOther) {
    EXPECT_EQ(collected("Seat", ended({header, stops + " ST WINDOW"})), (Elements{1, {"ST WINDOW"}, {""}}));
    EXPECT_EQ(collected("Seat", ended({header + " ST AISLE"})), (Elements{1, {"RANSFERABLE DATA ST AISLE"}, {"--"}}));
}

// The section

TEST(TransferableSection, OtherFamiliesLinesAreSkipped) {
    const Text text = ended({header, shared("1", "OS  A"), shared("2", "SR  WCHR"), shared("3", "RM  B"), "NO CODE"});
    EXPECT_EQ(collected("ServiceRequest", text), (Elements{1, {"SR  WCHR"}, {"2"}}));
}

TEST(TransferableSection, SixHyphensAtTheBeginningOfALineEndIt) {
    EXPECT_EQ(collected("Seat", ended({header, shared("1", "ST  A"), "------X", shared("2", "ST  B")})),
              (Elements{1, {"ST  A"}, {"1"}}));
    EXPECT_EQ(collected("Seat", ended({header, shared("1", "ST  A"), "-----X", " -------", shared("2", "ST  B")})),
              (Elements{2, {"ST  A", "ST  B"}, {"1", "2"}}));
}

TEST(TransferableSection, ASecondHeaderOfTheSectionContinuesIt) {
    EXPECT_EQ(collected("Seat", ended({header, shared("1", "ST  A"), header, shared("2", "ST  B")})),
              (Elements{2, {"ST  A", "ST  B"}, {"1", "2"}}));
}

TEST(TransferableSection, APromptOrTheEndTextAnywhereEndsIt) {
    for (const std::string& end : Lines{">", shared("2", "ST  B > C"), "XEND OF DISPLAYX"}) {
        EXPECT_EQ(collected("Seat", ended({header, shared("1", "ST  A"), end, shared("3", "ST  D")})),
                  (Elements{1, {"ST  A"}, {"1"}}))
            << end;
    }
}

TEST(TransferableSection, APromptInAJoinedLineEndsItOnlyWhenTheLineIsReadAgain) {
    EXPECT_EQ(collected("Seat", ended({header, shared("1", "ST  A"), stops + "> B", shared("2", "ST  C")})),
              (Elements{1, {"ST  A> B"}, {"1"}}));
}

TEST(TransferableSection, APromptAboveItEndsTheSearch) {
    EXPECT_EQ(collected("Seat", ended({"A > B", header, shared("1", "ST  A")})), nothing);
    EXPECT_EQ(collected("Seat", ended({"NO END", header, shared("1", "ST  A")})), (Elements{1, {"ST  A"}, {"1"}}));
}

TEST(TransferableSection, TheCodeMayBeAnywhereFromColumn13) {
    EXPECT_EQ(collected("Seat", ended({header, from(12, " ST A")})), nothing);
    EXPECT_EQ(collected("Seat", ended({header, from(13, " ST A")})), (Elements{1, {"ST A"}, {""}}));
    EXPECT_EQ(collected("Seat", ended({header, shared("4", "RM  THE ST OF IT")})),
              (Elements{1, {"RM  THE ST OF IT"}, {"4"}}));
    // Trailing blanks are removed before the test, so a code at the end of a line is not found.
    EXPECT_EQ(collected("Seat", ended({header, shared("4", "ST")})), nothing);
}

// Contacts

TEST(Contact, APromptInsideALineDoesNotEndTheScan) {
    const Text text =
        ended({"A > B", header, shared("1", "AP  A > B"), "> C", shared("2", "AP  D"), ">", shared("3", "AP  E")});
    EXPECT_EQ(collected("Contact", text), (Elements{2, {"AP  A > B", "AP  D"}, {"1", "2"}}));
}

TEST(Contact, APromptLineEndsTheScanOnlyWithoutBlanksBeforeIt) {
    EXPECT_EQ(collected("Contact", ended({header, " >", shared("1", "AP  A")})), (Elements{1, {"AP  A"}, {"1"}}));
    EXPECT_EQ(collected("Contact", ended({header, ">     ", shared("1", "AP  A")})), nothing);
}

TEST(Contact, TheEndTextAnywhereEndsTheScan) {
    EXPECT_EQ(collected("Contact", ended({header, "XEND OF DISPLAYX", shared("1", "AP  A")})), nothing);
}

TEST(Contact, ItsCodeIsInColumns14And15BetweenTwoBlanksEach) {
    EXPECT_EQ(collected("Contact", ended({header, shared("1", "AP A"), from(13, "  AP  B"), from(11, "X  AP  C")})),
              (Elements{1, {"AP  C"}, {""}}));
}

// Confidential remarks

TEST(RemarkConf, FoundOnlyWhereTheTransferableSectionIsTheFirst) {
    const Lines section{header, shared("1", "RC  PRIVATE")};
    EXPECT_EQ(collected("RemarkConf", ended(section)), (Elements{1, {"RC  PRIVATE"}, {"1"}}));
    EXPECT_EQ(collected("RemarkConf", ended(Lines{"NO HEADER"} + section)), (Elements{1, {"RC  PRIVATE"}, {"1"}}));
    EXPECT_EQ(collected("RemarkConf", ended(Lines{"------- PRIORITY"} + section)), nothing);
}

TEST(RemarkConf, OtherFamiliesAreFoundWhereverTheSectionIs) {
    for (const auto& [stem, code] : std::vector<std::pair<std::string, std::string>>{{"Remark", "RM "},
                                                                                     {"Contact", "AP "},
                                                                                     {"OtherService", "OS "},
                                                                                     {"FrequentFlyer", "FFN"},
                                                                                     {"ServiceRequest", "SR "},
                                                                                     {"Seat", "ST "}}) {
        EXPECT_EQ(collected(stem, ended({"------- PRIORITY", header, shared("1", code + " A")})),
                  (Elements{1, {code + " A"}, {"1"}}));
    }
}

TEST(RemarkConf, FoundAboveEverySectionHeader) {
    EXPECT_EQ(collected("RemarkConf", ended({from(13, " RC ABOVE"), "------- PRIORITY"})),
              (Elements{1, {"RC ABOVE"}, {""}}));
    // The other families need the section.
    EXPECT_EQ(collected("Remark", ended({from(13, " RM ABOVE"), "------- PRIORITY"})), nothing);
}

TEST(RemarkConf, TheDetailIsTheLineFromColumn18) {
    Parser parser;
    ASSERT_EQ(parser.count("RemarkConfElementsCount", ended({header, shared("1", "RC  PRIVATE NUMBER"),
                                                             stops + "  555-0199", shared("2", "RC  A")})),
              2);
    EXPECT_EQ(parser.list("strRemarkConfText"), (Texts{"RC  PRIVATE NUMBER555-0199", "RC  A"}));
    EXPECT_EQ(parser.list("strRemarkConfDetail"), (Texts{"PRIVATE NUMBER555-0199", "A"}));
}

// Frequent flyers

struct FlyerCase {
    std::string name;
    std::string shown;  // from column 14 on
    std::string text;
    std::string carrier;
    std::string account;
};

class FrequentFlyer : public testing::TestWithParam<FlyerCase> {};

INSTANTIATE_TEST_SUITE_P(
    Shown, FrequentFlyer,
    testing::Values(FlyerCase{"Plain", "FFN QV 556677", "FFN QV 556677", "QV", "556677"},
                    FlyerCase{"CutAtFourBlanks", "FFN QV 556677    GOLD    X", "FFN QV 556677", "QV", "556677"},
                    FlyerCase{"ThreeBlanksStay", "FFN QV 556677   GOLD", "FFN QV 556677   GOLD", "QV", "556677   GOLD"},
                    FlyerCase{"CutBeforeTheCarrier", "FFN     QV 556677", "FFN", "", ""},
                    FlyerCase{"CarrierUntrimmed", "FFN  Q 556677", "FFN  Q 556677", " Q", "556677"},
                    FlyerCase{"NothingButACarrier", "FFN QV", "FFN QV", "QV", ""}),
    [](const auto& test) { return test.param.name; });

TEST_P(FrequentFlyer, IsSplitAfterTheCut) {
    Parser parser;
    ASSERT_EQ(parser.count("FrequentFlyerElementsCount", ended({header, shared("1", GetParam().shown)})), 1);
    EXPECT_EQ(parser.list("strFrequentFlyerText"), (Texts{GetParam().text}));
    EXPECT_EQ(parser.list("strFrequentFlyerCarrier"), (Texts{GetParam().carrier}));
    EXPECT_EQ(parser.list("strFrequentFlyerAccount"), (Texts{GetParam().account}));
}

// Service requests

struct RequestCase {
    std::string name;
    std::string shown;  // from column 14 on
    std::string code;
    std::string carrier;
    std::string account;
    std::string freeText;
};

class ServiceRequest : public testing::TestWithParam<RequestCase> {};

INSTANTIATE_TEST_SUITE_P(
    Shown, ServiceRequest,
    testing::Values(
        RequestCase{"Other", "SR  WCHR", "WCHR", "", "", ""},
        RequestCase{"FreeText", "SR  WCHR-TO THE DOOR - BOTH WAYS", "WCHR", "", "", "TO THE DOOR - BOTH WAYS"},
        RequestCase{"FrequentTraveller", "SR  FQTVQV 889900", "FQTV", "QV", "889900", ""},
        RequestCase{"FrequentTravellerWithText", "SR  FQTVQV 889900- GOLD", "FQTV", "QV", "889900- GOLD", "GOLD"},
        // After a star the code moves, carrier and account do not.
        RequestCase{"Starred", "SR  *WCHR", "WCHR", "", "", ""},
        RequestCase{"StarredFrequentTraveller", "SR  *FQTVQV 556677", "FQTV", "VQ", "556677", ""},
        RequestCase{"StarElsewhere", "SR  W*HR", "W*HR", "", "", ""},
        RequestCase{"CodeUntrimmed", "SR   BIKE", " BIK", "", "", ""},
        RequestCase{"ShortCode", "SR  BI", "BI", "", "", ""},
        RequestCase{"DashInTheCode", "SR  A-B", "A-B", "", "", "B"}),
    [](const auto& test) { return test.param.name; });

TEST_P(ServiceRequest, IsSplit) {
    Parser parser;
    // Nothing remains of what an earlier call stored at the same index.
    parser.count("ServiceRequestElementsCount", ended({header, shared("9", "SR  FQTVZZ 111111-OLD")}));
    ASSERT_EQ(parser.count("ServiceRequestElementsCount", ended({header, shared("1", GetParam().shown)})), 1);
    EXPECT_EQ(parser.list("strServiceRequestText"), (Texts{GetParam().shown}));
    EXPECT_EQ(parser.list("strServiceRequestCode"), (Texts{GetParam().code}));
    EXPECT_EQ(parser.list("strServiceRequestCarrier"), (Texts{GetParam().carrier}));
    EXPECT_EQ(parser.list("strServiceRequestAccount"), (Texts{GetParam().account}));
    EXPECT_EQ(parser.list("strServiceRequestFreeText"), (Texts{GetParam().freeText}));
}

TEST(ServiceRequestLists, RequestsOfOtherKindsHaveNoCarrierOrAccount) {
    Parser parser;
    ASSERT_EQ(parser.count(
                  "ServiceRequestElementsCount",
                  ended({header, shared("1", "SR  FQTVQV 12"), shared("2", "SR  WCHR"), shared("3", "SR  FQTVKL 34")})),
              3);
    EXPECT_EQ(parser.list("strServiceRequestCarrier"), (Texts{"QV", "", "KL"}));
    EXPECT_EQ(parser.list("strServiceRequestAccount"), (Texts{"12", "", "34"}));
}

}  // namespace
}  // namespace vantro
