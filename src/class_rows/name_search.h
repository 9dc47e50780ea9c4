// The classes that search profiles by name: "PDN", "PDA", and "PDMD", which continues their lists.
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

// CPDNTrans

inline constexpr ParameterRow pdnParameters[] = {
    needed(key::strKeyName,         u"when strKeyCompany is empty", u"the traveller's name as the agent types it: "
                                                                    u"SMITH, or SMITH/ANNA"),
    needed(key::strKeyCompany,      u"when strKeyName is empty",    u"the company's name; with strKeyName, the "
                                                                    u"company to which the traveller belongs"),
    optional(key::blnKeyExactMatch, u"only an exact match; adds a slash at the end"),
    optional(key::strKeyOfficeID,   u"the office whose profiles are searched; empty for the agent's own"),
};

inline constexpr ExampleParameter pdnTraveller[] = {{u"strKeyName", u"SMITH/ANNA"}};
inline constexpr ExampleParameter pdnCompany[] = {{u"strKeyCompany", u"KESTRELLO"}, {u"blnKeyExactMatch", u"True"}};
inline constexpr ExampleParameter pdnBoth[] = {
    {u"strKeyName", u"SMITH"}, {u"strKeyCompany", u"KESTRELLO"}, {u"strKeyOfficeID", u"NCEVN0900"},
};

inline constexpr CommandForm pdnForms[] = {
    {u"PDN/[office/]-name[/]",        u"a traveller",              pdnTraveller, u"PDN/-SMITH/ANNA"},
    {u"PDN/[office/]company[/]",      u"a company",                pdnCompany,   u"PDN/KESTRELLO/"},
    {u"PDN/[office/]company-name[/]", u"a traveller of a company", pdnBoth,      u"PDN/NCEVN0900/KESTRELLO-SMITH"},
};

inline constexpr TextView continuedList = u"when the screen continues a list";

inline constexpr ParameterRow pdnState[] = {
    needed(key::blnKeyEndOfBlock, continuedList, u"the result of the previous screen"),
    needed(key::strKeyRecLocPos,  continuedList, u"the result of the previous screen"),
};

inline constexpr ResultRow pdnResults[] = {
    always(key::blnKeyTrList,      u"a list of similar traveller names is shown"),
    always(key::blnKeyTrProfile,   u"a traveller's profile is shown"),
    always(key::blnKeyCompanyList, u"a list of similar company names is shown"),
    always(key::blnKeyCoProfile,   u"a company's profile is shown"),
    always(key::blnKeyMerge,       u"the traveller's profile has the merge mark"),
    always(key::strKeyCoNames,     u"the names of a company list, separated by commas; otherwise empty"),
    always(key::blnKeyEndOfBlock,  u"the list continues; without a list to read, the value of the state"),
    {key::strKeyRecLocPos.name, ValueKind::IntegerOrString, {}, u"column, from 1, of the record locators in a company "
                                                                u"list; the value of the state if that is not empty"},
};

inline constexpr Lines pdnLines{1, 9};
inline constexpr ScreenFlag pdnFlags[] = {
    startsLine(key::blnKeyTrList,      mark::similarTravellers, pdnLines),
    startsLine(key::blnKeyCompanyList, mark::similarCompanies,  pdnLines),
    startsLine(key::blnKeyCoProfile,   mark::companyProfile,    pdnLines),
    startsLine(key::blnKeyTrProfile,   mark::travellerProfile,  pdnLines),
    onScreen(key::blnKeyMerge,         mark::merged,            mark::travellerProfile),
    endsList(key::blnKeyEndOfBlock),
};

inline constexpr ListColumn pdnColumns[] = {
    listNumberColumn, listNameColumn, locatorColumn, ownCompanyColumn, ownOfficeColumn,
};

inline constexpr ClassDescription pdn{
    .purpose = u"Searches the profiles by the name of a traveller or a company.",
    .parameters = pdnParameters,
    .forms = pdnForms,
    .passed = PassedCollection::Optional,
    .state = pdnState,
    .results = pdnResults,
    .flags = pdnFlags,
    .flagRule = firstLineDecides,
    .columns = pdnColumns,
    .errors = commandErrors,
    .remark = pagingRemark,
};

// CPDATrans

inline constexpr ParameterRow pdaParameters[] = {
    needed(key::strKeyName,    u"when strKeyCompany is empty", u"the traveller's name"),
    needed(key::strKeyCompany, u"when strKeyName is empty",    u"the company's name"),
};

inline constexpr ExampleParameter pdaTraveller[] = {{u"strKeyName", u"SMITH"}};
inline constexpr ExampleParameter pdaCompany[] = {{u"strKeyCompany", u"KESTRELLO"}};
inline constexpr ExampleParameter pdaBoth[] = {{u"strKeyName", u"SMITH"}, {u"strKeyCompany", u"KESTRELLO"}};

inline constexpr CommandForm pdaForms[] = {
    {u"PDA/-name",   u"travellers with similar names",               pdaTraveller, u"PDA/-SMITH"},
    {u"PDA/company", u"companies with similar names",                pdaCompany,   u"PDA/KESTRELLO"},
    {u"PDA/",        u"with both names: neither is in the command", pdaBoth,      u"PDA/"},
};

inline constexpr ParameterRow pdaState[] = {
    needed(key::blnKeyEndOfBlock, continuedList, u"the result of the previous screen"),
};

inline constexpr ResultRow pdaResults[] = {
    always(key::blnKeyCoProfile,  u"a company's profile is shown"),
    always(key::blnKeyTrProfile,  u"a traveller's profile is shown"),
    always(key::blnKeyCoList,     u"a list of similar company names is shown"),
    always(key::strKeyCoNames,    u"the names of a company list, separated by commas; otherwise empty"),
    always(key::blnKeyTrList,     u"a list of similar traveller names is shown"),
    always(key::blnKeyEndOfBlock, u"the list continues; without a list to read, the value of the state"),
};

inline constexpr Lines pdaLines{0, 5};
inline constexpr ScreenFlag pdaFlags[] = {
    startsLine(key::blnKeyCoProfile, mark::companyProfile,    pdaLines),
    startsLine(key::blnKeyTrProfile, mark::travellerProfile,  pdaLines),
    inLine(key::blnKeyCoList,        mark::similarCompanies,  pdaLines),
    inLine(key::blnKeyTrList,        mark::similarTravellers, pdaLines),
    endsList(key::blnKeyEndOfBlock),
};

inline constexpr ListColumn pdaColumns[] = {listNumberColumn, listNameColumn};

inline constexpr ClassDescription pda{
    .purpose = u"Lists travellers or companies with similar names, or displays the only one.",
    .parameters = pdaParameters,
    .forms = pdaForms,
    .passed = PassedCollection::Optional,
    .state = pdaState,
    .results = pdaResults,
    .flags = pdaFlags,
    .flagRule = firstLineDecides,
    .columns = pdaColumns,
    .errors = commandErrors,
    .remark = pagingRemark,
};

// CPDMDTrans

inline constexpr CommandForm pdmdForms[] = {
    {u"PDMD", {}, {}, u"PDMD"},
};

inline constexpr ClassDescription pdmd{
    .purpose = u"Moves a long list down by one block.",
    .forms = pdmdForms,
    .remark = u"VerifyResponse returns no collection: the screen is read by the class that started the list, "
              u"CPDNTrans or CPDATrans.",
};

// clang-format on

}  // namespace vantro::rows
