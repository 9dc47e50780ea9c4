// Which screen sets which flag: a row for every mark, its position, and the first and last lines that are tested.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Keys = std::vector<std::string>;

struct FlagRow {
    const char* name;
    const char16_t* className;
    Text screen;
    Keys flags;  ///< the keys with the value True; all others are False
};

void PrintTo(const FlagRow& row, std::ostream* out) { *out << row.name; }

std::string rowName(const testing::TestParamInfo<FlagRow>& row) { return row.param.name; }

class Flags : public testing::TestWithParam<FlagRow> {};

TEST_P(Flags, AreThoseOfTheScreen) {
    DrivenClass driven(GetParam().className);
    const CollectionPtr results = driven.read(GetParam().screen);
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(flagsOf(results), GetParam().flags);
    EXPECT_TRUE(driven.reported.empty());
}

const std::vector<FlagRow> nameSearch{
    {"TravellerList", u"CPDNTrans", screenAt({{1, u"SIMILAR TRAVELLER NAME LIST"}}), {"blnKeyTrList"}},
    {"CompanyList", u"CPDNTrans", screenAt({{1, u"SIMILAR COMPANY NAME LIST"}}), {"blnKeyCompanyList"}},
    {"CompanyProfile", u"CPDNTrans", screenAt({{1, u"*C* KESTRELLO"}}), {"blnKeyCoProfile"}},
    {"TravellerProfile", u"CPDNTrans", screenAt({{1, u"*T* SMITH"}}), {"blnKeyTrProfile"}},
    {"MergedOnTheSameLine", u"CPDNTrans", screenAt({{1, u"*T* *MRG*"}}), {"blnKeyTrProfile", "blnKeyMerge"}},
    {"MergedAboveTheProfile", u"CPDNTrans", screenAt({{0, u"*MRG*"}, {4, u"*T*"}}), {"blnKeyTrProfile", "blnKeyMerge"}},
    {"MergedFarBelow", u"CPDNTrans", screenAt({{1, u"*T*"}, {20, u"X *MRG*"}}), {"blnKeyTrProfile", "blnKeyMerge"}},
    {"ACompanyIsNeverMerged", u"CPDNTrans", screenAt({{1, u"*C* *MRG*"}}), {"blnKeyCoProfile"}},
    {"TheEchoLineIsNotTested", u"CPDNTrans", screenAt({{0, u"*T* SMITH"}, {2, u"NOTHING"}}), {}},
    {"Line9IsTheLast", u"CPDNTrans", screenAt({{9, u"*T*"}}), {"blnKeyTrProfile"}},
    {"Line10IsNotTested", u"CPDNTrans", screenAt({{10, u"*T*"}}), {}},
    {"TheMarkStartsItsLine", u"CPDNTrans", screenAt({{1, u" *T*"}, {2, u"A SIMILAR COMPANY NAME LIST"}}), {}},
    {"TheFirstLineDecides",
     u"CPDNTrans",
     screenAt({{2, u"*T*"}, {3, u"SIMILAR COMPANY NAME LIST"}}),
     {"blnKeyTrProfile"}},
    {"CaseCounts", u"CPDNTrans", screenAt({{1, u"*t*"}, {2, u"Similar Company Name List"}}), {}},
};
INSTANTIATE_TEST_SUITE_P(PDN, Flags, testing::ValuesIn(nameSearch), rowName);

const std::vector<FlagRow> similarNames{
    {"CompanyProfile", u"CPDATrans", screenAt({{0, u"*C*"}}), {"blnKeyCoProfile"}},
    {"TravellerProfile", u"CPDATrans", screenAt({{0, u"*T*"}}), {"blnKeyTrProfile"}},
    {"CompanyListAnywhereInItsLine", u"CPDATrans", screenAt({{1, u"-- SIMILAR COMPANY NAME LIST"}}), {"blnKeyCoList"}},
    {"TravellerListAnywhereInItsLine",
     u"CPDATrans",
     screenAt({{1, u"-- SIMILAR TRAVELLER NAME LIST"}}),
     {"blnKeyTrList"}},
    {"AProfileStartsItsLine", u"CPDATrans", screenAt({{1, u" *C*"}, {2, u" *T*"}}), {}},
    {"Line5IsTheLast", u"CPDATrans", screenAt({{5, u"*T*"}}), {"blnKeyTrProfile"}},
    {"Line6IsNotTested", u"CPDATrans", screenAt({{6, u"SIMILAR TRAVELLER NAME LIST"}}), {}},
    {"OnOneLineTheProfileComesFirst",
     u"CPDATrans",
     screenAt({{1, u"*T* SIMILAR COMPANY NAME LIST"}}),
     {"blnKeyTrProfile"}},
    {"OnOneLineTheCompaniesComeFirst",
     u"CPDATrans",
     screenAt({{1, u"SIMILAR TRAVELLER NAME LIST SIMILAR COMPANY NAME LIST"}}),
     {"blnKeyCoList"}},
};
INSTANTIATE_TEST_SUITE_P(PDA, Flags, testing::ValuesIn(similarNames), rowName);

const std::vector<FlagRow> displays{
    {"List", u"CPDTrans", screenAt({{1, u"SIMILAR TRAVELLER NAME LIST"}}), {"blnKeyList"}},
    {"Traveller", u"CPDTrans", screenAt({{1, u"*T* SMITH"}}), {"blnKeyProfile"}},
    {"TravellerMerged", u"CPDTrans", screenAt({{1, u"*T* SMITH"}, {9, u"*MRG*"}}), {"blnKeyProfile", "blnKeyMerge"}},
    {"EndOfList", u"CPDTrans", screenAt({{1, u"ELEMENT DOES NOT EXIST"}}), {"blnKeyEndOfList"}},
    {"Refused", u"CPDTrans", screenAt({{1, u"UNABLE TO PROCESS"}}), {"blnKeyError"}},
    {"Company", u"CPDTrans", screenAt({{1, u"*C* KESTRELLO"}}), {"blnKeyCoProfile"}},
    {"CompanyIsNeverMerged", u"CPDTrans", screenAt({{1, u"*C* *MRG*"}}), {"blnKeyCoProfile"}},
    {"NameNotFoundDecidesBeforeAProfileBelow",
     u"CPDTrans",
     screenAt({{2, u"TRAVELLER NAME NOT FOUND"}, {3, u"*T*"}}),
     {}},
    {"Line0Counts", u"CPDTrans", screen({u"*T*"}), {"blnKeyProfile"}},
    {"Line9IsTheLast", u"CPDTrans", screenAt({{9, u"UNABLE TO PROCESS"}}), {"blnKeyError"}},
    {"Line10IsNotTested", u"CPDTrans", screenAt({{10, u"UNABLE TO PROCESS"}}), {}},
    {"TheMarkStartsItsLine", u"CPDTrans", screenAt({{1, u" *T*"}, {2, u" ELEMENT DOES NOT EXIST"}}), {}},
    {"IndexCompany", u"CPDITrans", screenAt({{1, u"*C*"}}), {"blnKeyCoProfile"}},
    {"IndexTraveller", u"CPDITrans", screenAt({{0, u"*T*"}}), {"blnKeyTrProfile"}},
    {"IndexLine5IsTheLast", u"CPDITrans", screenAt({{5, u"*T*"}}), {"blnKeyTrProfile"}},
    {"IndexLine6IsNotTested", u"CPDITrans", screenAt({{6, u"*T*"}, {7, u"*C*"}}), {}},
    {"IndexMarkStartsItsLine", u"CPDITrans", screenAt({{1, u" *T*"}, {2, u" *C*"}}), {}},
    {"IndexFirstLineDecides", u"CPDITrans", screenAt({{1, u"*T*"}, {2, u"*C*"}}), {"blnKeyTrProfile"}},
    {"OfCompanyShown", u"CPDTTrans", screenAt({{1, u"*T*"}}), {"blnKeyProfile"}},
    {"OfCompanyShownLine0Counts", u"CPDTTrans", screen({u"*T*"}), {"blnKeyProfile"}},
    {"OfCompanyShownLine9IsTheLast", u"CPDTTrans", screenAt({{9, u"*T*"}}), {"blnKeyProfile"}},
    {"OfCompanyShownLine10IsNotTested", u"CPDTTrans", screenAt({{10, u"*T*"}}), {}},
    {"OfCompanyShownInTheMiddleOfALine", u"CPDTTrans", screenAt({{1, u"XX *T* SMITH"}}), {}},
};
INSTANTIATE_TEST_SUITE_P(PD, Flags, testing::ValuesIn(displays), rowName);

const std::vector<FlagRow> byLocator{
    {"Company", u"CPDRTrans", screenAt({{1, u"*C*"}}), {"blnKeyCoProfile"}},
    {"Traveller", u"CPDRTrans", screenAt({{1, u"*T*"}}), {"blnKeyTrProfile"}},
    {"TravellerMerged", u"CPDRTrans", screenAt({{1, u"*T* SMITH *MRG*"}}), {"blnKeyTrProfile", "blnKeyMerged"}},
    {"MergeMarkOnAnotherLine", u"CPDRTrans", screenAt({{1, u"*T* SMITH"}, {2, u"*MRG*"}}), {"blnKeyTrProfile"}},
    {"CompanyIsNeverMerged", u"CPDRTrans", screenAt({{1, u"*C* *MRG*"}}), {"blnKeyCoProfile"}},
    {"Line3IsTheLast", u"CPDRTrans", screenAt({{3, u"*C*"}}), {"blnKeyCoProfile"}},
    {"Line4IsNotTested", u"CPDRTrans", screenAt({{4, u"*C*"}}), {}},
    {"BelowLine3TheRefusalsAreSearched",
     u"CPDRTrans",
     screenAt({{1, u"CHECK INPUT"}, {4, u"*C*"}}),
     {"blnKeyErrCheckInput"}},
    {"NoSuchLocator", u"CPDRTrans", screenAt({{9, u"XX RECORD LOCATOR NOT FOUND"}}), {"blnKeyErrNoRecLoc"}},
    {"Deactivated", u"CPDRTrans", screenAt({{1, u"DEACTIVATED TRAVELLER PROFILE"}}), {"blnKeyDeactivatedTProfile"}},
    {"CheckInput", u"CPDRTrans", screenAt({{1, u"CHECK INPUT"}}), {"blnKeyErrCheckInput"}},
    {"NoSuchLocatorOutranksCheckInputAboveIt",
     u"CPDRTrans",
     screenAt({{1, u"CHECK INPUT"}, {2, u"RECORD LOCATOR NOT FOUND"}}),
     {"blnKeyErrNoRecLoc"}},
    {"DeactivatedOutranksCheckInput",
     u"CPDRTrans",
     screenAt({{1, u"CHECK INPUT"}, {2, u"DEACTIVATED TRAVELLER PROFILE"}}),
     {"blnKeyDeactivatedTProfile"}},
    {"NoSuchLocatorOutranksDeactivated",
     u"CPDRTrans",
     screenAt({{1, u"DEACTIVATED TRAVELLER PROFILE"}, {2, u"RECORD LOCATOR NOT FOUND"}}),
     {"blnKeyErrNoRecLoc"}},
    {"WithAProfileNoRefusalIsSearched",
     u"CPDRTrans",
     screenAt({{1, u"*T*"}, {2, u"CHECK INPUT"}}),
     {"blnKeyTrProfile"}},
    {"NameOfTraveller", u"CPCNTrans", screenAt({{7, u"XX *T*"}}), {"blnKeyTrProfile"}},
    {"NameOfCompany", u"CPCNTrans", screenAt({{7, u"XX *C*"}}), {"blnKeyCoProfile"}},
    {"NameOfBothIsATraveller", u"CPCNTrans", screenAt({{1, u"*C*"}, {2, u"*T*"}}), {"blnKeyTrProfile"}},
};
INSTANTIATE_TEST_SUITE_P(PDR, Flags, testing::ValuesIn(byLocator), rowName);

const std::vector<FlagRow> byOffice{
    {"NoCompany", u"CPLTTrans", screenAt({{1, u"NO COMPANY PROFILE FOUND"}}), {"blnKeyNoCoFoundString"}},
    {"TravellersOfOffice", u"CPLTTrans", screenAt({{1, u"X TRAVELLER LIST FOR NCE"}}), {"blnKeyTravellerList"}},
    {"TravellersByName", u"CPLTTrans", screenAt({{1, u"SIMILAR TRAVELLER NAME LIST"}}), {"blnKeyTravellerList"}},
    {"Companies", u"CPLTTrans", screenAt({{1, u"X SIMILAR COMPANY NAME LIST"}}), {"blnKeyCompanyList"}},
    {"NoTraveller", u"CPLTTrans", screenAt({{1, u"NO TRAVELLER PROFILE FOUND"}}), {"blnKeyNoTrPrFoundString"}},
    {"Profile", u"CPLTTrans", screenAt({{1, u"X *T*"}}), {"blnKeyProfile"}},
    {"ProfileMerged", u"CPLTTrans", screenAt({{1, u"*T* *MRG*"}}), {"blnKeyProfile", "blnKeyMerge"}},
    {"MergeMarkOnAnotherLine", u"CPLTTrans", screenAt({{1, u"*T*"}, {2, u"*MRG*"}}), {"blnKeyProfile"}},
    {"TheEchoLineIsNotTested", u"CPLTTrans", screenAt({{0, u"*T*"}, {1, u"X"}}), {}},
    {"Line9IsTheLast", u"CPLTTrans", screenAt({{9, u"*T*"}}), {"blnKeyProfile"}},
    {"Line10IsNotTested", u"CPLTTrans", screenAt({{10, u"*T*"}}), {}},
    {"TheFirstLineDecides", u"CPLTTrans", screenAt({{1, u"*T*"}, {2, u"NO COMPANY PROFILE FOUND"}}), {"blnKeyProfile"}},
    {"OnOneLineNoCompanyComesFirst",
     u"CPLTTrans",
     screenAt({{1, u"*T* NO COMPANY PROFILE FOUND"}}),
     {"blnKeyNoCoFoundString"}},
    {"OfficeCompanyList", u"CPLCTrans", screenAt({{1, u"X COMPANY NAME LIST"}}), {"blnKeyCompanyList"}},
    {"OfficeCompany", u"CPLCTrans", screenAt({{1, u"X *C*"}}), {"blnKeyProfile"}},
    {"OfficeCompanyListComesFirstOnItsLine",
     u"CPLCTrans",
     screenAt({{1, u"*C* COMPANY NAME LIST"}}),
     {"blnKeyCompanyList"}},
    {"OfficeEchoLineIsNotTested", u"CPLCTrans", screenAt({{0, u"*C*"}, {1, u"X"}}), {}},
    {"OfficeLine9IsTheLast", u"CPLCTrans", screenAt({{9, u"*C*"}}), {"blnKeyProfile"}},
    {"OfficeLine10IsNotTested", u"CPLCTrans", screenAt({{10, u"*C*"}}), {}},
};
INSTANTIATE_TEST_SUITE_P(PLT, Flags, testing::ValuesIn(byOffice), rowName);

const std::vector<FlagRow> histories{
    {"History", u"CPHTrans", screenAt({{0, u"PROFILE HISTORY       "}}), {"blnKeyProfile"}},
    {"TitleAnywhereInItsLine", u"CPHTrans", screenAt({{1, u"-- PROFILE HISTORY       K"}}), {"blnKeyProfile"}},
    {"TitleWithSixBlanks", u"CPHTrans", screenAt({{1, u"PROFILE HISTORY      K"}}), {}},
    {"TitleAtTheEdgeOfTheLine",
     u"CPHTrans",
     screenAt({{1, u"                                                                PROFILE HISTORY"}, {2, u""}}),
     {}},
    {"Line5IsTheLast", u"CPHTrans", screenAt({{5, u"PROFILE HISTORY"}}), {"blnKeyProfile"}},
    {"Line6IsNotTested", u"CPHTrans", screenAt({{6, u"PROFILE HISTORY"}}), {}},
    {"EndOfList", u"CPHTrans", screenAt({{5, u"X ELEMENT DOES NOT EXIST"}}), {"blnKeyEndOfList"}},
    {"TheFirstLineDecides",
     u"CPHTrans",
     screenAt({{1, u"ELEMENT DOES NOT EXIST"}, {2, u"PROFILE HISTORY"}}),
     {"blnKeyEndOfList"}},
};
INSTANTIATE_TEST_SUITE_P(PH, Flags, testing::ValuesIn(histories), rowName);

const std::vector<FlagRow> transfers{
    {"Shown", u"CPTTrans", screenAt({{2, u"RP/NCEVN3101/"}}), {"blnKeyPNR"}},
    {"Created", u"CPTTrans", screenAt({{3, u"K - PNR CREATED"}}), {"blnKeyPNRCreated"}},
    {"Updated", u"CPTTrans", screenAt({{3, u"K - PNR UPDATED"}}), {"blnKeyPNRUpdated"}},
    {"ShownAndUpdated", u"CPTTrans", screenAt({{2, u"RP/"}, {3, u"- PNR UPDATED"}}), {"blnKeyPNR", "blnKeyPNRUpdated"}},
    {"ShownAndCreated", u"CPTTrans", screenAt({{2, u"RP/"}, {3, u"- PNR CREATED"}}), {"blnKeyPNR", "blnKeyPNRCreated"}},
    {"TwoBlanksAreAnotherText", u"CPTTrans", screenAt({{3, u"-  PNR CREATED"}}), {}},
    {"LowerCaseIsAnotherText", u"CPTTrans", screenAt({{3, u"- pnr created"}, {4, u"rp/"}}), {}},
    {"ByNameShown", u"CPBNTrans", screenAt({{2, u"RP/"}}), {"blnKeyPNR"}},
    {"ByNameUpdated", u"CPBNTrans", screenAt({{3, u"- PNR UPDATED"}}), {"blnKeyPNRUpdated"}},
    {"ByNameCreatedHasNoResult", u"CPBNTrans", screenAt({{3, u"- PNR CREATED"}}), {}},
    {"ByNameShownAndCreated", u"CPBNTrans", screenAt({{2, u"RP/"}, {3, u"- PNR CREATED"}}), {"blnKeyPNR"}},
    {"ByIndexShown", u"CPBITrans", screenAt({{2, u"RP/"}}), {"blnKeyPNR"}},
    {"ByIndexUpdated", u"CPBITrans", screenAt({{3, u"- PNR UPDATED"}}), {"blnKeyPNRUpdated"}},
    {"ByIndexCreatedHasNoResult", u"CPBITrans", screenAt({{3, u"- PNR CREATED"}}), {}},
};
INSTANTIATE_TEST_SUITE_P(PT, Flags, testing::ValuesIn(transfers), rowName);

const std::vector<FlagRow> deactivations{
    {"Accepted", u"CPXTrans", screenAt({{1, u"PROFILE WILL BE DEACTIVATED"}}), {"blnKeyResponseOK"}},
    {"Line0Counts", u"CPXTrans", screen({u"WILL BE DEACTIVATED"}), {"blnKeyResponseOK"}},
    {"TheFifthLineIsTheLast", u"CPXTrans", screenAt({{4, u"WILL BE DEACTIVATED"}}), {"blnKeyResponseOK"}},
    {"TheSixthLineDoesNotCount", u"CPXTrans", screenAt({{5, u"WILL BE DEACTIVATED"}}), {}},
    {"LowerCaseDoesNotCount", u"CPXTrans", screenAt({{1, u"will be deactivated"}}), {}},
    {"AcrossTwoLinesDoesNotCount",
     u"CPXTrans",
     screenAt({{1, u"                                                                         WILL BE"},
               {2, u" DEACTIVATED"}}),
     {}},
};
INSTANTIATE_TEST_SUITE_P(PX, Flags, testing::ValuesIn(deactivations), rowName);

}  // namespace
}  // namespace vantro::test
