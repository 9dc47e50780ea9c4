// The classes that transfer profiles into a PNR or change them: "PT", "PBN", "PBI", "RLP", "PX" and profile mode.
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

// CPTTrans

inline constexpr TextView listForm = u"when intKeyArraySize is not empty";

inline constexpr ParameterRow ptParameters[] = {
    optional(key::blnKeyAllPNR,    u"for all passengers of the PNR; adds an asterisk"),
    optional(key::blnKeyOverride,  u"overrides; adds the letter O"),
    optional(key::strKeyElements,  u"the numbers of the profile's lines, as the agent types them; not with "
                                   u"intKeyArraySize"),
    optional(key::strKeySegAsso,   u"the segments that the lines belong to; not with intKeyArraySize"),
    optional(key::strKeyPasAsso,   u"the passengers that the lines belong to; not with intKeyArraySize"),
    optional(key::intKeyArraySize, u"the highest index of the three lists, a whole number; selects the form with "
                                   u"groups"),
    needed(key::strKeyElArray,     listForm, u"the numbers of the lines, one entry per group from index 0"),
    needed(key::strKeySegArray,    listForm, u"the segments of each group; an empty entry for none"),
    needed(key::strKeyPasArray,    listForm, u"the passengers of each group; an empty entry for none"),
};

inline constexpr ExampleParameter ptLines[] = {{u"strKeyElements", u"3,5"}, {u"strKeySegAsso", u"2"}};
inline constexpr ExampleParameter ptGroups[] = {
    {u"intKeyArraySize", u"1"},  {u"strKeyElArray()", u"3"},  {u"strKeyElArray()", u"7"}, {u"strKeySegArray()", u"2"},
    {u"strKeySegArray()", u""},  {u"strKeyPasArray()", u""},  {u"strKeyPasArray()", u"1"},
};

inline constexpr CommandForm ptForms[] = {
    {u"PT[O][*][lines][/Ssegments][/Ppassengers]",
     u"some lines, or all of the profile", ptLines, u"PT3,5/S2"},
    {u"PT[lines][/Ssegs][/Ppax][//[lines][/Ssegs][/Ppax]]...[O][*]",
     u"groups of lines, each with its own segments and passengers", ptGroups, u"PT3/S2//7/P1"},
};

inline constexpr ResultRow ptResults[] = {
    always(key::blnKeyPNR,        u"a PNR is shown"),
    always(key::blnKeyPNRCreated, u"the host has created the PNR"),
    always(key::blnKeyPNRUpdated, u"the host has updated the PNR"),
};

inline constexpr ScreenFlag ptFlags[] = {
    onScreen(key::blnKeyPNR,        mark::pnr),
    onScreen(key::blnKeyPNRCreated, u"- PNR CREATED"),
    onScreen(key::blnKeyPNRUpdated, mark::pnrUpdated),
};

inline constexpr ErrorRow ptErrors[] = {
    {ClassCall::CreateCommand, 91, u"there is no collection of parameters, or a list is missing"},
    {ClassCall::CreateCommand, 13, u"a parameter has a kind that cannot be converted, or intKeyArraySize is no whole "
                                   u"number"},
    {ClassCall::CreateCommand, 9,  u"intKeyArraySize is negative, or beyond the end of a list"},
    {ClassCall::CreateCommand, 6,  u"intKeyArraySize is above 32767 or below -32768"},
};

inline constexpr ClassDescription pt{
    .purpose = u"Transfers lines of the displayed profile into the PNR.",
    .parameters = ptParameters,
    .forms = ptForms,
    .results = ptResults,
    .flags = ptFlags,
    .flagRule = u"Each flag is set independently.",
    .errors = ptErrors,
    .remark = u"The command is empty when intKeyArraySize comes with strKeyElements, strKeySegAsso or strKeyPasAsso.",
};

// CPBNTrans and CPBITrans

inline constexpr TextView pbnKinds[] = {u"Company", u"Traveller"};

inline constexpr ParameterRow pbnParameters[] = {
    required(key::strKeyIndicator,  u"the kind of profile; any other text builds a command without a name", pbnKinds),
    needed(key::strKeyCompany,      u"when strKeyIndicator is Company",   u"the company's name"),
    needed(key::strKeyName,         u"when strKeyIndicator is Traveller", u"the traveller's name"),
    optional(key::blnKeyAllPNR,     u"for all passengers of the PNR; adds an asterisk"),
    optional(key::blnKeyExactMatch, u"only an exact match; adds a slash"),
};

inline constexpr ExampleParameter pbnCompany[] = {
    {u"strKeyIndicator", u"Company"}, {u"strKeyCompany", u"KESTRELLO"}, {u"blnKeyAllPNR", u"True"},
};
inline constexpr ExampleParameter pbnTraveller[] = {
    {u"strKeyIndicator", u"Traveller"}, {u"strKeyName", u"SMITH/ANNA"}, {u"blnKeyExactMatch", u"True"},
};
inline constexpr ExampleParameter pbnOther[] = {{u"strKeyIndicator", u"Other"}, {u"strKeyName", u"SMITH"}};

inline constexpr CommandForm pbnForms[] = {
    {u"PBN/company[/][*]", u"from a company's profile",   pbnCompany,   u"PBN/KESTRELLO*"},
    {u"PBN/-name[/][*]",   u"from a traveller's profile", pbnTraveller, u"PBN/-SMITH/ANNA/"},
    {u"PBN/[/][*]",        u"any other strKeyIndicator",  pbnOther,     u"PBN/"},
};

inline constexpr ResultRow pbResults[] = {
    always(key::blnKeyPNR,        u"a PNR is shown"),
    always(key::blnKeyPNRUpdated, u"the host has updated the PNR"),
};

inline constexpr ScreenFlag pbFlags[] = {
    onScreen(key::blnKeyPNR,        mark::pnr),
    onScreen(key::blnKeyPNRUpdated, mark::pnrUpdated),
};

inline constexpr ClassDescription pbn{
    .purpose = u"Builds a PNR from the profile of a company or a traveller, by its name.",
    .parameters = pbnParameters,
    .forms = pbnForms,
    .results = pbResults,
    .flags = pbFlags,
    .flagRule = u"Each flag is set independently.",
    .errors = commandErrors,
};

inline constexpr ParameterRow pbiParameters[] = {
    required(key::strKeyIndex,  u"the number of the profile's entry in the last list, as the agent types it"),
    optional(key::blnKeyAllPNR, u"for all passengers of the PNR; adds an asterisk"),
};

inline constexpr ExampleParameter pbiLine[] = {{u"strKeyIndex", u"2"}, {u"blnKeyAllPNR", u"True"}};

inline constexpr CommandForm pbiForms[] = {
    {u"PBI/index[*]", {}, pbiLine, u"PBI/2*"},
};

inline constexpr ClassDescription pbi{
    .purpose = u"Builds a PNR from the profile of an entry of the last list.",
    .parameters = pbiParameters,
    .forms = pbiForms,
    .results = pbResults,
    .flags = pbFlags,
    .flagRule = u"Each flag is set independently.",
};

// CRLPTrans

inline constexpr CommandForm rlpForms[] = {
    {u"RLP", {}, {}, u"RLP"},
};

inline constexpr ParameterRow rlpState[] = {
    required(key::strKeyIndex, u"the index of the linked profile to return, a whole number from 0"),
};

inline constexpr TextView pnrShown = u"when a PNR is shown";

inline constexpr ResultRow rlpResults[] = {
    sometimes(key::blnKeyNoElementsFound, u"when the host says so", u"no profile is linked; always True"),
    sometimes(key::strKeyPasAsso,         pnrShown, u"the number of the passenger that the profile is linked to; "
                                                    u"empty for none"),
    sometimes(key::strKeyRecLoc,          pnrShown, u"the profile's record locator"),
    sometimes(key::blnKeyTraveller,       pnrShown, u"it is a traveller's profile"),
    sometimes(key::blnKeyCompany,         pnrShown, u"it is a company's profile"),
};

inline constexpr Lines rlpLines{1, 24};
inline constexpr ScreenFlag rlpFlags[] = {
    inLine(key::blnKeyNoElementsFound, u"NO ELEMENT FOUND", {1, 4}),
    startsLine(key::blnKeyTraveller,   u"T/", rlpLines, mark::pnr),
    startsLine(key::blnKeyCompany,     u"C/", rlpLines, mark::pnr),
};

inline constexpr ListColumn rlpColumns[] = {
    locatorColumn,
    {u"passenger", &ListRow::passenger, u"the number of the passenger to whom the profile is linked"},
};

inline constexpr ClassDescription rlp{
    .purpose = u"Lists the profiles linked to the displayed PNR and returns one of them.",
    .forms = rlpForms,
    .passed = PassedCollection::Required,
    .state = rlpState,
    .results = rlpResults,
    .flags = rlpFlags,
    .flagRule = u"\"RP/\" must begin one of the lines 1 to 4, before any \"NO ELEMENT FOUND\".",
    .columns = rlpColumns,
    .counts = u"RecLocCount reads the whole list and returns the index of its last entry. That is the number of "
              u"profiles if a further line follows them, such as the prompt.",
    .remark = u"An index outside the list is reported as 5130, not raised; no results of a profile are added then.",
};

// CPXTrans

inline constexpr ParameterRow pxParameters[] = {
    optional(key::strKeyItemNr, u"the number of the profile's entry in the list; may be empty"),
};

inline constexpr ExampleParameter pxLine[] = {{u"strKeyItemNr", u"3"}};

inline constexpr CommandForm pxForms[] = {
    {u"PX[item]", {}, pxLine, u"PX3"},
};

inline constexpr ResultRow pxResults[] = {
    always(key::blnKeyResponseOK, u"the host will deactivate the profile"),
};

inline constexpr ScreenFlag pxFlags[] = {
    inLine(key::blnKeyResponseOK, u"WILL BE DEACTIVATED", {0, 4}),
};

inline constexpr ClassDescription px{
    .purpose = u"Deactivates a profile.",
    .parameters = pxParameters,
    .forms = pxForms,
    .results = pxResults,
    .flags = pxFlags,
};

// CProfileMode

inline constexpr ParameterRow modeParameters[] = {
    needed(key::blnKeyUpdate, u"for PE and PEE",       u"ends the transaction and keeps the changes"),
    needed(key::blnKeyExit,   u"for PME, PEE and PIE", u"leaves profile mode"),
    needed(key::blnKeyEnter,  u"for PM",               u"enters profile mode"),
    needed(key::blnKeyIgnore, u"for PI and PIE",       u"drops the changes"),
};

inline constexpr ExampleParameter modeEnter[] = {{u"blnKeyEnter", u"True"}};
inline constexpr ExampleParameter modeExit[] = {{u"blnKeyExit", u"True"}};
inline constexpr ExampleParameter modeUpdate[] = {{u"blnKeyUpdate", u"True"}};
inline constexpr ExampleParameter modeUpdateExit[] = {{u"blnKeyUpdate", u"True"}, {u"blnKeyExit", u"True"}};
inline constexpr ExampleParameter modeIgnore[] = {{u"blnKeyIgnore", u"True"}};
inline constexpr ExampleParameter modeIgnoreExit[] = {{u"blnKeyIgnore", u"True"}, {u"blnKeyExit", u"True"}};

inline constexpr CommandForm modeForms[] = {
    {code::PM,  u"enters profile mode",                  modeEnter,      u"PM"},
    {code::PME, u"leaves profile mode",                  modeExit,       u"PME"},
    {code::PE,  u"keeps the changes",                    modeUpdate,     u"PE"},
    {code::PEE, u"keeps the changes and leaves the mode", modeUpdateExit, u"PEE"},
    {code::PI,  u"drops the changes",                    modeIgnore,     u"PI"},
    {code::PIE, u"drops the changes and leaves the mode", modeIgnoreExit, u"PIE"},
};

inline constexpr ParameterRow modeState[] = {
    needed(key::blnKeyUpdate, asForCommand, u"says which answer is expected"),
    needed(key::blnKeyExit,   asForCommand, u"says which answer is expected"),
    needed(key::blnKeyEnter,  asForCommand, u"says which answer is expected"),
    needed(key::blnKeyIgnore, asForCommand, u"says which answer is expected"),
};

inline constexpr TextView exitedMark = u"PROFILE MODE EXITED     ";
inline constexpr TextView ignoredMark = u"IGNORED     ";

inline constexpr ScreenFlag modeFlags[] = {
    answer(code::PM,  key::blnKeyResponseOK, u"*PROFILE MODE*"),
    answer(code::PME, key::blnKeyResponseOK, exitedMark),
    answer(code::PE,  key::blnKeyResponseOK, u"END OF TRANSACTION COMPLETE"),
    answer(code::PEE, key::blnKeyResponseOK, exitedMark),
    answer(code::PI,  key::blnKeyResponseOK, ignoredMark),
    answer(code::PIE, key::blnKeyResponseOK, exitedMark, MarkPosition::LineLater, ignoredMark),
};

inline constexpr ClassDescription mode{
    .purpose = u"Enters profile mode, keeps or drops the changes, and leaves it.",
    .parameters = modeParameters,
    .forms = modeForms,
    .passed = PassedCollection::Returned,
    .state = modeState,
    .results = messageResults,
    .flags = modeFlags,
    .remark = u"Any other combination of the four flags makes no command, and no response is accepted for it.",
};

// clang-format on

}  // namespace vantro::rows
