// The classes that list the profiles of an office or show a profile's history: "PLT", "PLC", "PH".
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

// CPLTTrans

inline constexpr ParameterRow pltParameters[] = {
    optional(key::strKeyOfficeID,   u"the office; empty for the agent's own"),
    optional(key::strKeyCompany,    u"the company whose travellers are listed; empty for all travellers"),
    optional(key::blnKeyExactMatch, u"only an exact match of strKeyCompany; adds a slash at the end"),
};

inline constexpr ExampleParameter pltOffice[] = {{u"strKeyOfficeID", u"NCEVN0900"}};
inline constexpr ExampleParameter pltCompany[] = {{u"strKeyCompany", u"KESTRELLO"}, {u"blnKeyExactMatch", u"True"}};

inline constexpr CommandForm pltForms[] = {
    {u"PLT[/office]",             u"all travellers of an office",         pltOffice,  u"PLT/NCEVN0900"},
    {u"PLT/[office]/company[/]", u"an office's travellers of a company", pltCompany, u"PLT//KESTRELLO/"},
};

inline constexpr ResultRow pltResults[] = {
    always(key::blnKeyTravellerList,     u"a list of travellers is shown"),
    always(key::blnKeyCompanyList,       u"a list of similar company names is shown"),
    always(key::blnKeyProfile,           u"a traveller's profile is shown"),
    always(key::blnKeyMerge,             u"the traveller's profile has the merge mark"),
    always(key::strKeyCoNames,           u"the names of a company list, separated by commas; otherwise empty"),
    always(key::blnKeyNoCoFoundString,   u"the host found no such company"),
    always(key::blnKeyNoTrPrFoundString, u"the host found no traveller"),
    always(key::strKeyNoCoAssoArray,     u"the record locators of the travellers without a company, from entry 1; "
                                         u"entry 0 is empty"),
};

inline constexpr Lines pltLines{1, 9};
inline constexpr ScreenFlag pltFlags[] = {
    inLine(key::blnKeyNoCoFoundString,   u"NO COMPANY PROFILE FOUND",   pltLines),
    inLine(key::blnKeyTravellerList,     u"TRAVELLER LIST FOR",         pltLines),
    inLine(key::blnKeyTravellerList,     u"TRAVELLER NAME LIST",        pltLines),
    inLine(key::blnKeyCompanyList,       mark::similarCompanies,        pltLines),
    inLine(key::blnKeyNoTrPrFoundString, u"NO TRAVELLER PROFILE FOUND", pltLines),
    inLine(key::blnKeyProfile,           mark::travellerProfile,        pltLines),
    sameLine(key::blnKeyMerge,           mark::merged,                  mark::travellerProfile),
};

inline constexpr ListColumn pltColumns[] = {listNumberColumn, listNameColumn, locatorColumn, ownCompanyColumn};

inline constexpr ClassDescription plt{
    .purpose = u"Lists the traveller profiles of an office, or those of one company.",
    .parameters = pltParameters,
    .forms = pltForms,
    .results = pltResults,
    .flags = pltFlags,
    .flagRule = firstLineDecides,
    .columns = pltColumns,
};

// CPLCTrans

inline constexpr ParameterRow plcParameters[] = {
    optional(key::strKeyOfficeID, u"the office; empty for the agent's own"),
};

inline constexpr ExampleParameter plcOffice[] = {{u"strKeyOfficeID", u"NCEVN0900"}};

inline constexpr CommandForm plcForms[] = {
    {u"PLC[/office]", {}, plcOffice, u"PLC/NCEVN0900"},
};

inline constexpr ResultRow plcResults[] = {
    always(key::blnKeyCompanyList, u"a list of companies is shown"),
    always(key::blnKeyProfile,     u"a company's profile is shown"),
};

inline constexpr Lines plcLines{1, 9};
inline constexpr ScreenFlag plcFlags[] = {
    inLine(key::blnKeyCompanyList, u"COMPANY NAME LIST",  plcLines),
    inLine(key::blnKeyProfile,     mark::companyProfile,  plcLines),
};

inline constexpr ListColumn plcColumns[] = {listNumberColumn, listNameColumn, locatorColumn, ownOfficeColumn};

inline constexpr ClassDescription plc{
    .purpose = u"Lists the company profiles of an office.",
    .parameters = plcParameters,
    .forms = plcForms,
    .results = plcResults,
    .flags = plcFlags,
    .flagRule = firstLineDecides,
    .columns = plcColumns,
};

// CPHTrans

inline constexpr ParameterRow phParameters[] = {
    optional(key::strKeyElementNr, u"the number of the element whose history is shown; empty for the whole profile"),
};

inline constexpr ExampleParameter phElement[] = {{u"strKeyElementNr", u"12"}};

inline constexpr CommandForm phForms[] = {
    {u"PH[element]", {}, phElement, u"PH12"},
};

inline constexpr ResultRow phResults[] = {
    always(key::blnKeyProfile,             u"a history is shown"),
    always(key::blnKeyEndOfList,           u"the profile has no such element"),
    always(key::strKeyLastPNRTransDate,    u"the date of the last transfer into a PNR; empty when it is not shown"),
    always(key::strKeyName,                u"the name of the traveller or the company; empty when it is not shown"),
    always(key::strKeyProfileCreationDate, u"the date on which the profile was created; empty when it is not shown"),
};

inline constexpr Lines phLines{0, 5};
inline constexpr ScreenFlag phFlags[] = {
    inLine(key::blnKeyProfile,   u"PROFILE HISTORY       ", phLines),
    inLine(key::blnKeyEndOfList, mark::noSuchElement,       phLines),
};

inline constexpr ClassDescription ph{
    .purpose = u"Shows the history of the displayed profile, or of one of its elements.",
    .parameters = phParameters,
    .forms = phForms,
    .results = phResults,
    .flags = phFlags,
    .flagRule = firstLineDecides,
};

// clang-format on

}  // namespace vantro::rows
