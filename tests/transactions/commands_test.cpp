// Every form of every command.
#include "tests/support/driven_class.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

struct CommandRow {
    const char* name;
    const char16_t* className;
    Entries params;
    const char16_t* command;
};

void PrintTo(const CommandRow& row, std::ostream* out) { *out << row.name; }

std::string rowName(const testing::TestParamInfo<CommandRow>& row) { return row.param.name; }

class Command : public testing::TestWithParam<CommandRow> {};

TEST_P(Command, IsBuiltToTheLetter) {
    DrivenClass driven(GetParam().className);
    EXPECT_EQ(utf8(driven.command(GetParam().params)), utf8(GetParam().command));
    EXPECT_TRUE(driven.reported.empty());
}

constexpr const char16_t* name = u"strKeyName";
constexpr const char16_t* company = u"strKeyCompany";
constexpr const char16_t* office = u"strKeyOfficeID";
constexpr const char16_t* exact = u"blnKeyExactMatch";
constexpr const char16_t* item = u"strKeyItemNr";
constexpr const char16_t* fromPnr = u"blnKeyFromPNR";
constexpr const char16_t* index = u"strKeyIndex";
constexpr const char16_t* locator = u"strKeyRecLoc";
constexpr const char16_t* indicator = u"strKeyIndicator";
constexpr const char16_t* allPnr = u"blnKeyAllPNR";
constexpr const char16_t* overriding = u"blnKeyOverride";
constexpr const char16_t* elements = u"strKeyElements";
constexpr const char16_t* segments = u"strKeySegAsso";
constexpr const char16_t* passengers = u"strKeyPasAsso";
constexpr const char16_t* size = u"intKeyArraySize";
constexpr const char16_t* elementList = u"strKeyElArray()";
constexpr const char16_t* segmentList = u"strKeySegArray()";
constexpr const char16_t* passengerList = u"strKeyPasArray()";

const std::vector<CommandRow> nameSearches{
    {"TravellerName", u"CPDNTrans", {{name, u"SMITH"}}, u"PDN/-SMITH"},
    {"TravellerNameExact", u"CPDNTrans", {{name, u"SMITH"}, {exact, true}}, u"PDN/-SMITH/"},
    {"CompanyHasNoHyphen", u"CPDNTrans", {{company, u"KESTRELLO"}}, u"PDN/KESTRELLO"},
    {"CompanyExact", u"CPDNTrans", {{company, u"KESTRELLO"}, {exact, true}}, u"PDN/KESTRELLO/"},
    {"TravellerOfCompany", u"CPDNTrans", {{name, u"SMITH"}, {company, u"KESTRELLO"}}, u"PDN/KESTRELLO-SMITH"},
    {"TravellerInOfficeExact",
     u"CPDNTrans",
     {{name, u"SMITH"}, {office, u"NCEVN3101"}, {exact, true}},
     u"PDN/NCEVN3101/-SMITH/"},
    {"CompanyInOffice", u"CPDNTrans", {{company, u"KESTRELLO"}, {office, u"NCEVN3101"}}, u"PDN/NCEVN3101/KESTRELLO"},
    {"AllParameters",
     u"CPDNTrans",
     {{name, u"SMITH"}, {company, u"KESTRELLO"}, {exact, true}, {office, u"NCEVN3101"}},
     u"PDN/NCEVN3101/KESTRELLO-SMITH/"},
    {"NoParameters", u"CPDNTrans", {}, u""},
    {"EmptyTextsCountAsNotGiven", u"CPDNTrans", {{name, u""}, {company, u""}}, u""},
    {"OfficeAndExactMatchAloneSendNothing", u"CPDNTrans", {{office, u"NCEVN3101"}, {exact, true}}, u""},
    {"ValuesAreCopiedVerbatim", u"CPDNTrans", {{name, u" Smith "}, {office, u" x"}}, u"PDN/ x/- Smith "},
    {"ABlankIsAValue", u"CPDNTrans", {{name, u" "}}, u"PDN/- "},
    {"TheFlagMayBeAText", u"CPDNTrans", {{name, u"SMITH"}, {exact, u"True"}}, u"PDN/-SMITH/"},
    {"BeyondPlainLetters", u"CPDNTrans", {{name, u"ÅSTRÖM\xD83D\xDE00"}}, u"PDN/-ÅSTRÖM\xD83D\xDE00"},
};
INSTANTIATE_TEST_SUITE_P(PDN, Command, testing::ValuesIn(nameSearches), rowName);

const std::vector<CommandRow> similarNames{
    {"TravellerName", u"CPDATrans", {{name, u"SMITH"}}, u"PDA/-SMITH"},
    {"Company", u"CPDATrans", {{company, u"KESTRELLO"}}, u"PDA/KESTRELLO"},
    {"BothSendOnlyTheCodeAndTheSlash", u"CPDATrans", {{name, u"SMITH"}, {company, u"KESTRELLO"}}, u"PDA/"},
    {"NoParameters", u"CPDATrans", {}, u""},
    {"MoveDown", u"CPDMDTrans", {}, u"PDMD"},
    {"MoveDownReadsNoParameter", u"CPDMDTrans", {{name, TextList{u"SMITH"}}, {company, u"KESTRELLO"}}, u"PDMD"},
};
INSTANTIATE_TEST_SUITE_P(PDA, Command, testing::ValuesIn(similarNames), rowName);

const std::vector<CommandRow> displays{
    {"NumberFollowsTheCodeDirectly", u"CPDTrans", {{item, u"3"}, {fromPnr, false}}, u"PD3"},
    {"WithoutNumber", u"CPDTrans", {{item, u""}, {fromPnr, false}}, u"PD"},
    {"PassengerFollowsASlash", u"CPDTrans", {{item, u"3"}, {fromPnr, true}}, u"PD/3"},
    {"PassengerNeedsANumber", u"CPDTrans", {{item, u""}, {fromPnr, true}}, u""},
    {"Index", u"CPDITrans", {{index, u"12"}}, u"PDI/12"},
    {"IndexIsNeeded", u"CPDITrans", {{index, u""}}, u""},
    {"TravellerOfCompanyShown", u"CPDTTrans", {}, u"PDT"},
    {"TravellerOfCompanyShownReadsNoParameter", u"CPDTTrans", {{index, u"12"}}, u"PDT"},
};
INSTANTIATE_TEST_SUITE_P(PD, Command, testing::ValuesIn(displays), rowName);

const std::vector<CommandRow> byLocator{
    {"Traveller", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u"T"}}, u"PDRT/KQ4R7T"},
    {"Company", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u"C"}}, u"PDRC/KQ4R7T"},
    {"EitherKind", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u""}}, u"PDR/KQ4R7T"},
    {"AnotherIndicatorAddsNothing", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u"X"}}, u"PDR/KQ4R7T"},
    {"LowerCaseIndicatorAddsNothing", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u"t"}}, u"PDR/KQ4R7T"},
    {"LongerIndicatorAddsNothing", u"CPDRTrans", {{locator, u"KQ4R7T"}, {indicator, u"T "}}, u"PDR/KQ4R7T"},
    {"LocatorIsNeeded", u"CPDRTrans", {{locator, u""}, {indicator, u"T"}}, u""},
    {"CompanyName", u"CPCNTrans", {{company, u"KESTRELLO"}}, u"PCN/KESTRELLO"},
    {"EmptyCompanyNameIsSent", u"CPCNTrans", {{company, u""}}, u"PCN/"},
};
INSTANTIATE_TEST_SUITE_P(PDR, Command, testing::ValuesIn(byLocator), rowName);

const std::vector<CommandRow> byOffice{
    {"Alone", u"CPLTTrans", {}, u"PLT"},
    {"Office", u"CPLTTrans", {{office, u"NCEVN3101"}}, u"PLT/NCEVN3101"},
    {"CompanyAfterTheEmptyOffice", u"CPLTTrans", {{company, u"KES"}}, u"PLT//KES"},
    {"OfficeAndCompany", u"CPLTTrans", {{office, u"NCEVN3101"}, {company, u"KES"}}, u"PLT/NCEVN3101/KES"},
    {"CompanyExact", u"CPLTTrans", {{company, u"KES"}, {exact, true}}, u"PLT//KES/"},
    {"OfficeAndCompanyExact",
     u"CPLTTrans",
     {{office, u"NCEVN3101"}, {company, u"KES"}, {exact, true}},
     u"PLT/NCEVN3101/KES/"},
    {"ExactMatchIsIgnoredWithAnOfficeOnly", u"CPLTTrans", {{office, u"NCEVN3101"}, {exact, true}}, u"PLT/NCEVN3101"},
    {"ExactMatchIsIgnoredAlone", u"CPLTTrans", {{exact, true}}, u"PLT"},
    {"Companies", u"CPLCTrans", {}, u"PLC"},
    {"CompaniesOfOffice", u"CPLCTrans", {{office, u"NCEVN3101"}}, u"PLC/NCEVN3101"},
};
INSTANTIATE_TEST_SUITE_P(PLT, Command, testing::ValuesIn(byOffice), rowName);

const std::vector<CommandRow> histories{
    {"Profile", u"CPHTrans", {{u"strKeyElementNr", u""}}, u"PH"},
    {"ElementWithoutSeparator", u"CPHTrans", {{u"strKeyElementNr", u"12"}}, u"PH12"},
};
INSTANTIATE_TEST_SUITE_P(PH, Command, testing::ValuesIn(histories), rowName);

Entries groups(const char16_t* highest, TextList els, TextList segs, TextList pass, Entries more = {}) {
    Entries all{{size, highest}, {elementList, els}, {segmentList, segs}, {passengerList, pass}};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

const std::vector<CommandRow> transfers{
    {"Alone", u"CPTTrans", {}, u"PT"},
    {"ElementsAndSegment", u"CPTTrans", {{elements, u"3,5"}, {segments, u"2"}}, u"PT3,5/S2"},
    {"BothMarksAfterTheCode", u"CPTTrans", {{elements, u"4"}, {overriding, true}, {allPnr, true}}, u"PTO*4"},
    {"OverrideAlone", u"CPTTrans", {{overriding, true}}, u"PTO"},
    {"AllPassengersAlone", u"CPTTrans", {{allPnr, true}}, u"PT*"},
    {"AssociationsOnly", u"CPTTrans", {{segments, u"2"}, {passengers, u"1"}}, u"PT/S2/P1"},
    {"SingleFormInFull",
     u"CPTTrans",
     {{allPnr, true}, {overriding, true}, {elements, u"3-5"}, {segments, u"2"}, {passengers, u"1"}},
     u"PTO*3-5/S2/P1"},
    {"TwoGroups", u"CPTTrans", groups(u"1", {u"3", u"7"}, {u"2", u""}, {u"", u"1"}), u"PT3/S2//7/P1"},
    {"OverrideAfterTheLastGroup", u"CPTTrans",
     groups(u"1", {u"3", u"7"}, {u"2", u""}, {u"", u"1"}, {{overriding, true}}), u"PT3/S2//7/P1O"},
    {"BothMarksAfterTheLastGroup", u"CPTTrans",
     groups(u"0", {u"3"}, {u""}, {u""}, {{overriding, true}, {allPnr, true}}), u"PT3O*"},
    {"HighestIndexZeroIsOneGroup", u"CPTTrans", groups(u"0", {u"3"}, {u"2"}, {u"1"}), u"PT3/S2/P1"},
    {"LongerListsAreCutByTheHighestIndex", u"CPTTrans", groups(u"0", {u"3", u"4"}, {u"", u""}, {u"", u""}), u"PT3"},
    {"AnEmptyElementKeepsItsAssociations", u"CPTTrans", groups(u"1", {u"3", u""}, {u"", u"2"}, {u"", u""}),
     u"PT3///S2"},
    {"AFirstGroupOfNothingIsFollowedByNoSeparator", u"CPTTrans", groups(u"1", {u"", u"7"}, {u"", u""}, {u"", u"1"}),
     u"PT7/P1"},
    {"ALaterGroupOfNothingHasItsSeparator", u"CPTTrans",
     groups(u"2", {u"3", u"", u"5"}, {u"", u"", u""}, {u"", u"", u""}), u"PT3////5"},
    {"TheHighestIndexMayHaveBlanks", u"CPTTrans", groups(u" +0 ", {u"3"}, {u""}, {u""}), u"PT3"},
    {"ListWithElementsSendsNothing", u"CPTTrans", groups(u"0", {u"3"}, {u""}, {u""}, {{elements, u"4"}}), u""},
    {"ListWithSegmentSendsNothing", u"CPTTrans", groups(u"0", {u"3"}, {u""}, {u""}, {{segments, u"4"}}), u""},
    {"ListWithPassengerSendsNothing", u"CPTTrans", groups(u"0", {u"3"}, {u""}, {u""}, {{passengers, u"4"}}), u""},
    {"MixedFormsAreDetectedBeforeTheSizeIsConverted", u"CPTTrans", {{size, u"many"}, {elements, u"4"}}, u""},
};
INSTANTIATE_TEST_SUITE_P(PT, Command, testing::ValuesIn(transfers), rowName);

const std::vector<CommandRow> pnrsFromProfiles{
    {"Company", u"CPBNTrans", {{indicator, u"Company"}, {company, u"KES"}}, u"PBN/KES"},
    {"CompanyWithBothMarks",
     u"CPBNTrans",
     {{indicator, u"Company"}, {company, u"KES"}, {allPnr, true}, {exact, true}},
     u"PBN/KES/*"},
    {"CompanyIsNeeded", u"CPBNTrans", {{indicator, u"Company"}, {name, u"SMITH"}}, u""},
    {"Traveller", u"CPBNTrans", {{indicator, u"Traveller"}, {name, u"SMITH"}}, u"PBN/-SMITH"},
    {"TravellerExact", u"CPBNTrans", {{indicator, u"Traveller"}, {name, u"SMITH"}, {exact, true}}, u"PBN/-SMITH/"},
    {"TravellerForAll", u"CPBNTrans", {{indicator, u"Traveller"}, {name, u"SMITH"}, {allPnr, true}}, u"PBN/-SMITH*"},
    {"TravellerTakesNoCompany",
     u"CPBNTrans",
     {{indicator, u"Traveller"}, {name, u"SMITH"}, {company, u"KES"}},
     u"PBN/-SMITH"},
    {"TravellerIsNeeded", u"CPBNTrans", {{indicator, u"Traveller"}, {company, u"KES"}}, u""},
    {"KindIsNeeded", u"CPBNTrans", {{indicator, u""}, {company, u"KES"}, {name, u"SMITH"}}, u""},
    {"LowerCaseKindIsNotRejected",
     u"CPBNTrans",
     {{indicator, u"company"}, {company, u"KES"}, {exact, true}, {allPnr, true}},
     u"PBN//*"},
    {"UnknownKindSendsNoName", u"CPBNTrans", {{indicator, u"X"}, {company, u"KES"}, {name, u"SMITH"}}, u"PBN/"},
    {"Index", u"CPBITrans", {{index, u"2"}}, u"PBI/2"},
    {"IndexForAll", u"CPBITrans", {{index, u"2"}, {allPnr, true}}, u"PBI/2*"},
    {"IndexIsNeeded", u"CPBITrans", {{index, u""}, {allPnr, true}}, u""},
    {"WithoutIndexTheFlagIsNotRead", u"CPBITrans", {{allPnr, TextList{u"no flag"}}}, u""},
};
INSTANTIATE_TEST_SUITE_P(PB, Command, testing::ValuesIn(pnrsFromProfiles), rowName);

const std::vector<CommandRow> maintenance{
    {"LinkedProfiles", u"CRLPTrans", {}, u"RLP"},
    {"LinkedProfilesReadNoParameter", u"CRLPTrans", {{index, TextList{u"1"}}}, u"RLP"},
    {"Deactivate", u"CPXTrans", {{item, u"3"}}, u"PX3"},
    {"DeactivateWithoutNumber", u"CPXTrans", {{item, u""}}, u"PX"},
    {"Notes", u"CProfileNotes", {{u"strCommand", u"PN"}}, u"PN"},
    {"NotesEntry", u"CProfileNotes", {{u"strCommand", u"PNE"}}, u"PNE"},
    {"NotesInLowerCase", u"CProfileNotes", {{u"strCommand", u"pn"}}, u""},
    {"NotesListIsNotSent", u"CProfileNotes", {{u"strCommand", u"PNL"}}, u""},
    {"NotesWithABlank", u"CProfileNotes", {{u"strCommand", u"PN "}}, u""},
    {"NotesOfNothing", u"CProfileNotes", {}, u""},
};
INSTANTIATE_TEST_SUITE_P(Maintenance, Command, testing::ValuesIn(maintenance), rowName);

// The sixteen combinations of update, exit, enter and ignore.
CommandRow modeRow(const char* rowTitle, bool update, bool exit, bool enter, bool ignore, const char16_t* command) {
    return {rowTitle,
            u"CProfileMode",
            {{u"blnKeyUpdate", update}, {u"blnKeyExit", exit}, {u"blnKeyEnter", enter}, {u"blnKeyIgnore", ignore}},
            command};
}

const std::vector<CommandRow> modes{
    modeRow("Nothing", false, false, false, false, u""),
    modeRow("Ignore", false, false, false, true, u"PI"),
    modeRow("Enter", false, false, true, false, u"PM"),
    modeRow("EnterIgnore", false, false, true, true, u""),
    modeRow("Exit", false, true, false, false, u"PME"),
    modeRow("ExitIgnore", false, true, false, true, u"PIE"),
    modeRow("ExitEnter", false, true, true, false, u""),
    modeRow("ExitEnterIgnore", false, true, true, true, u""),
    modeRow("Update", true, false, false, false, u"PE"),
    modeRow("UpdateIgnore", true, false, false, true, u""),
    modeRow("UpdateEnter", true, false, true, false, u""),
    modeRow("UpdateEnterIgnore", true, false, true, true, u""),
    modeRow("UpdateExit", true, true, false, false, u"PEE"),
    modeRow("UpdateExitIgnore", true, true, false, true, u""),
    modeRow("UpdateExitEnter", true, true, true, false, u""),
    modeRow("AllFour", true, true, true, true, u""),
};
INSTANTIATE_TEST_SUITE_P(Mode, Command, testing::ValuesIn(modes), rowName);

}  // namespace
}  // namespace vantro::test
