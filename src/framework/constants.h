// The constants that classes share: transaction codes, marks, error numbers and descriptions.
#pragma once

#include "vantro/text.h"

namespace vantro {

/// The source of every error that the library raises itself.
inline constexpr TextView applicationTitle = u"VantroProfileUtils";

namespace description {

inline constexpr TextView creatingCommand = u"An error has occurred while creating a profile command.";
inline constexpr TextView verifyingProfile = u"An error has occurred while verifying the profile.";
inline constexpr TextView readingNotes = u"An error has occurred while reading Profile Notes";

}  // namespace description

/// The error numbers that are not in a table. Those of a class are in the class table, those of a family in its row.
namespace number {

inline constexpr int emptyPrefix = 5065;  ///< a query without a prefix
inline constexpr int notesQuery = 5500;   ///< a failing query for the notes
inline constexpr int notesCount = 5505;   ///< a failing count of the notes

}  // namespace number

/// The host's transaction codes.
namespace code {

inline constexpr TextView PD = u"PD";
inline constexpr TextView PX = u"PX";
inline constexpr TextView PH = u"PH";
inline constexpr TextView RM = u"RM";  // known to the host; no class sends it
inline constexpr TextView PM = u"PM";
inline constexpr TextView PME = u"PME";
inline constexpr TextView PE = u"PE";
inline constexpr TextView PEE = u"PEE";
inline constexpr TextView PI = u"PI";
inline constexpr TextView PIE = u"PIE";
inline constexpr TextView PDT = u"PDT";
inline constexpr TextView PDI = u"PDI";
inline constexpr TextView PBI = u"PBI";
inline constexpr TextView PLT = u"PLT";
inline constexpr TextView PLC = u"PLC";
inline constexpr TextView PDR = u"PDR";
inline constexpr TextView PDA = u"PDA";
inline constexpr TextView RLP = u"RLP";
inline constexpr TextView PBN = u"PBN";
inline constexpr TextView PCN = u"PCN";
inline constexpr TextView PDN = u"PDN";
inline constexpr TextView PDMD = u"PDMD";
inline constexpr TextView PT = u"PT";
inline constexpr TextView PN = u"PN";
inline constexpr TextView PNE = u"PNE";
inline constexpr TextView PNL = u"PNL";

}  // namespace code

/// Marks that several readers search for. Blanks at either end are part of a mark.
namespace mark {

inline constexpr TextView travellerProfile = u"*T*";
inline constexpr TextView companyProfile = u"*C*";
inline constexpr TextView merged = u"*MRG*";
inline constexpr TextView similarTravellers = u"SIMILAR TRAVELLER NAME LIST";
inline constexpr TextView similarCompanies = u"SIMILAR COMPANY NAME LIST";
inline constexpr TextView companyColumn = u"     COMPANY     ";
inline constexpr TextView nameColumn = u"     NAME     ";
inline constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";
inline constexpr TextView noSuchElement = u"ELEMENT DOES NOT EXIST";
inline constexpr TextView pnr = u"RP/";
inline constexpr TextView pnrUpdated = u"- PNR UPDATED";
inline constexpr TextView prompt = u">";
inline constexpr TextView endOfDisplay = u"END OF DISPLAY";

}  // namespace mark

}  // namespace vantro
