// The classes that display one profile: "PD", "PDI", "PDT", "PDR", "PCN".
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

// CPDTrans

inline constexpr ParameterRow pdParameters[] = {
    needed(key::strKeyItemNr,    u"when blnKeyFromPNR is True", u"the number of the list's entry, or of the passenger"),
    optional(key::blnKeyFromPNR, u"the number is that of a passenger; adds a slash before it"),
};

inline constexpr ExampleParameter pdLine[] = {{u"strKeyItemNr", u"3"}};
inline constexpr ExampleParameter pdPassenger[] = {{u"strKeyItemNr", u"2"}, {u"blnKeyFromPNR", u"True"}};

inline constexpr CommandForm pdForms[] = {
    {u"PD[item]", u"an entry of the last similar-name list", pdLine,      u"PD3"},
    {u"PD/item",  u"a passenger of the PNR",                 pdPassenger, u"PD/2"},
};

inline constexpr ResultRow pdResults[] = {
    always(key::blnKeyList,      u"a list of similar traveller names is shown"),
    always(key::blnKeyProfile,   u"a traveller's profile is shown"),
    always(key::blnKeyMerge,     u"the traveller's profile has the merge mark"),
    always(key::blnKeyEndOfList, u"the list has no such entry"),
    always(key::blnKeyError,     u"the host was unable to process the command"),
    always(key::blnKeyCoProfile, u"a company's profile is shown"),
};

inline constexpr Lines pdLines{0, 9};
inline constexpr ScreenFlag pdFlags[] = {
    {{}, u"TRAVELLER NAME NOT FOUND", MarkPosition::StartsLine, pdLines.first, pdLines.last},
    startsLine(key::blnKeyList,      mark::similarTravellers, pdLines),
    startsLine(key::blnKeyEndOfList, mark::noSuchElement,     pdLines),
    startsLine(key::blnKeyError,     u"UNABLE TO PROCESS",    pdLines),
    startsLine(key::blnKeyProfile,   mark::travellerProfile,  pdLines),
    onScreen(key::blnKeyMerge,       mark::merged,            mark::travellerProfile),
    startsLine(key::blnKeyCoProfile, mark::companyProfile,    pdLines),
};

inline constexpr ListColumn pdColumns[] = {listNumberColumn, listNameColumn, locatorColumn, ownCompanyColumn};

inline constexpr ClassDescription pd{
    .purpose = u"Displays the profile of an entry of the last similar-name list, or of a passenger of the PNR.",
    .parameters = pdParameters,
    .forms = pdForms,
    .results = pdResults,
    .flags = pdFlags,
    .flagRule = firstLineDecides,
    .columns = pdColumns,
};

// CPDITrans

inline constexpr ParameterRow pdiParameters[] = {
    required(key::strKeyIndex, u"the index of the profile"),
};

inline constexpr ExampleParameter pdiIndex[] = {{u"strKeyIndex", u"2"}};

inline constexpr CommandForm pdiForms[] = {
    {u"PDI/index", {}, pdiIndex, u"PDI/2"},
};

inline constexpr ResultRow pdiResults[] = {
    always(key::blnKeyCoProfile, u"a company's profile is shown"),
    always(key::blnKeyTrProfile, u"a traveller's profile is shown"),
};

inline constexpr Lines pdiLines{0, 5};
inline constexpr ScreenFlag pdiFlags[] = {
    startsLine(key::blnKeyCoProfile, mark::companyProfile,   pdiLines),
    startsLine(key::blnKeyTrProfile, mark::travellerProfile, pdiLines),
};

inline constexpr ClassDescription pdi{
    .purpose = u"Displays a profile by its index.",
    .parameters = pdiParameters,
    .forms = pdiForms,
    .results = pdiResults,
    .flags = pdiFlags,
    .flagRule = firstLineDecides,
};

// CPDTTrans

inline constexpr CommandForm pdtForms[] = {
    {u"PDT", {}, {}, u"PDT"},
};

inline constexpr ResultRow pdtResults[] = {
    always(key::blnKeyProfile, u"a traveller's profile is shown"),
};

inline constexpr ScreenFlag pdtFlags[] = {
    startsLine(key::blnKeyProfile, mark::travellerProfile, {0, 9}),
};

inline constexpr ClassDescription pdt{
    .purpose = u"Displays the traveller's profile that belongs to the company's profile on the screen.",
    .forms = pdtForms,
    .results = pdtResults,
    .flags = pdtFlags,
};

// CPDRTrans

inline constexpr TextView pdrKinds[] = {u"T", u"C"};

inline constexpr ParameterRow pdrParameters[] = {
    required(key::strKeyRecLoc,    u"the record locator"),
    optional(key::strKeyIndicator, u"T for a traveller's profile only, C for a company's; otherwise both", pdrKinds),
};

inline constexpr ExampleParameter pdrAny[] = {{u"strKeyRecLoc", u"KQ4R7T"}};
inline constexpr ExampleParameter pdrTraveller[] = {{u"strKeyRecLoc", u"KQ4R7T"}, {u"strKeyIndicator", u"T"}};
inline constexpr ExampleParameter pdrCompany[] = {{u"strKeyRecLoc", u"Q2W3E4"}, {u"strKeyIndicator", u"C"}};

inline constexpr CommandForm pdrForms[] = {
    {u"PDR/locator",  u"a profile of either kind",  pdrAny,       u"PDR/KQ4R7T"},
    {u"PDRT/locator", u"a traveller's profile only", pdrTraveller, u"PDRT/KQ4R7T"},
    {u"PDRC/locator", u"a company's profile only",   pdrCompany,   u"PDRC/Q2W3E4"},
};

inline constexpr ResultRow pdrResults[] = {
    always(key::blnKeyCoProfile,           u"a company's profile is shown"),
    always(key::blnKeyTrProfile,           u"a traveller's profile is shown"),
    always(key::blnKeyErrNoRecLoc,         u"the host does not know the record locator"),
    always(key::blnKeyErrCheckInput,       u"the host asks to check the input"),
    always(key::blnKeyMerged,              u"the traveller's profile has the merge mark"),
    always(key::blnKeyDeactivatedTProfile, u"the traveller's profile is deactivated"),
};

inline constexpr Lines pdrLines{0, 3};
inline constexpr ScreenFlag pdrFlags[] = {
    startsLine(key::blnKeyCoProfile,         mark::companyProfile,   pdrLines),
    startsLine(key::blnKeyTrProfile,         mark::travellerProfile, pdrLines),
    sameLine(key::blnKeyMerged,              mark::merged,           mark::travellerProfile),
    onScreen(key::blnKeyErrNoRecLoc,         u"RECORD LOCATOR NOT FOUND"),
    onScreen(key::blnKeyDeactivatedTProfile, u"DEACTIVATED TRAVELLER PROFILE"),
    onScreen(key::blnKeyErrCheckInput,       u"CHECK INPUT"),
};

inline constexpr ClassDescription pdr{
    .purpose = u"Displays a profile by its record locator.",
    .parameters = pdrParameters,
    .forms = pdrForms,
    .results = pdrResults,
    .flags = pdrFlags,
    .flagRule = u"The lines are searched one by one for a profile's mark, and the first match decides. Without one "
                u"the whole screen is searched for the refusals in this order, and the first one found decides.",
    .errors = commandErrors,
};

// CPCNTrans

inline constexpr ParameterRow pcnParameters[] = {
    optional(key::strKeyCompany, u"the company's name; the command is built even without one"),
};

inline constexpr ExampleParameter pcnCompany[] = {{u"strKeyCompany", u"KESTRELLO"}};

inline constexpr CommandForm pcnForms[] = {
    {u"PCN/[company]", {}, pcnCompany, u"PCN/KESTRELLO"},
};

inline constexpr ResultRow pcnResults[] = {
    always(key::blnKeyTrProfile, u"a traveller's profile is shown"),
    always(key::blnKeyCoProfile, u"a company's profile is shown"),
};

inline constexpr ScreenFlag pcnFlags[] = {
    onScreen(key::blnKeyTrProfile, mark::travellerProfile),
    onScreen(key::blnKeyCoProfile, mark::companyProfile),
};

inline constexpr ClassDescription pcn{
    .purpose = u"Sends a company's name and returns which kind of profile the host displays.",
    .parameters = pcnParameters,
    .forms = pcnForms,
    .results = pcnResults,
    .flags = pcnFlags,
    .flagRule = u"The first mark found decides.",
    .errors = commandErrors,
};

// clang-format on

}  // namespace vantro::rows
