// The two parsers of profile displays. What the prefixes mean, and the numbers that their families raise, is in the
// rows of the families.
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

inline constexpr TextView emptyPrefix = u"strKeyPrefix is empty";
inline constexpr TextView noRequest = u"there is no collection";
inline constexpr TextView unreadableRequest = u"a key of the request is of a kind that cannot be read";

// CProfile

inline constexpr ParameterRow profileRequest[] = {
    required(key::strKeyPrefix, u"the family of elements, or the value of the header, that is asked for"),
    needed(key::intKeyIndex,    u"for SR, RM, AP, OS, FFN, ST and RC", u"the element that is asked for, from 1 on; "
                                                                       u"PPR, PGL and PPS take one as well"),
};

inline constexpr TextView oneElement = u"for a value of the header (PSL: where there is one) and for one element";
inline constexpr TextView numbered = u"for PCN and PSL (where there is one), PIN, and for one element";
inline constexpr TextView manyElements = u"for a family that is read as a whole";

inline constexpr ResultRow profileElements[] = {
    sometimes(key::strKeyElement,        oneElement,   u"the value, or the text of the element"),
    sometimes(key::strKeyElementNr,      numbered,     u"the number of the element"),
    sometimes(key::strKeyElement_list,   manyElements, u"the texts of the elements, from entry 1 on; entry 0 is empty"),
    sometimes(key::strKeyElementNr_list, manyElements, u"the numbers of the elements, from entry 1 on; entry 0 is "
                                                       u"empty"),
    sometimes(key::strKeyCode,           u"for SR",             u"the code of the service"),
    sometimes(key::strKeyAirline,        u"for SR and FFN",     u"the airline"),
    sometimes(key::strKeyFFNbr,          u"for SR and FFN",     u"the frequent flyer's number"),
    sometimes(key::strKeyFreeText,       u"for SR and RC",      u"the free text"),
    sometimes(key::blnKeyAsterix,        u"for SR",             u"always False"),
    sometimes(key::strKeyElNbrsArray,    u"for ALL",            u"the numbers of the transferable elements that are "
                                                                u"selected, from entry 1 on; entry 0 is empty"),
};

inline constexpr ErrorRow profileErrors[] = {
    {ClassCall::ProfileElements, number::emptyPrefix, emptyPrefix},
    {ClassCall::ProfileElements, 91,   u"there is no collection, or intKeyIndex is missing where it is needed"},
    {ClassCall::ProfileElements, 13,   u"a key of the request is of a kind that cannot be read, or intKeyIndex is no "
                                       u"whole number"},
    {ClassCall::ProfileElements, 9,    u"intKeyIndex is below 1 for SR, RM, AP, OS, FFN, ST or RC"},
    {ClassCall::ProfileElements, 6,    u"intKeyIndex leaves 16 bits, or the display has no end"},
};

inline constexpr ClassDescription profile{
    .purpose = u"Takes a displayed profile apart: returns a value of its header, or the elements of one family.",
    .request = profileRequest,
    .elements = profileElements,
    .errors = profileErrors,
    .counts = u"Each family has a property that returns how many elements the display has, and keeps their lists.",
    .remark = u"A family that cannot be read, or an index beyond its elements, raises a number of the family's own. "
              u"The elements are added to the collection that was passed. The call returns no collection, but for a "
              u"prefix that it does not know it returns the passed one.",
};

// CProfileNotes

inline constexpr TextView notesCommands[] = {code::PN, code::PNE};

inline constexpr ParameterRow notesParameters[] = {
    required(key::strCommand, u"the command itself; any other text makes no command", notesCommands),
};

inline constexpr ExampleParameter notesDisplay[] = {{u"strCommand", u"PN"}};
inline constexpr ExampleParameter notesChange[] = {{u"strCommand", u"PNE"}};

inline constexpr CommandForm notesForms[] = {
    {code::PN,  u"to see the notes",    notesDisplay, u"PN"},
    {code::PNE, u"to change the notes", notesChange,  u"PNE"},
};

inline constexpr ParameterRow notesState[] = {
    needed(key::strCommand, asForCommand, u"tells which answer is awaited"),
};

inline constexpr ScreenFlag notesFlags[] = {
    answer(code::PN,  key::blnKeyResponseOK, code::PNL),
    answer(code::PNE, key::blnKeyResponseOK, u"TRANSACTION NOT ALLOWED", MarkPosition::NotOnScreen),
};

inline constexpr TextView notesPrefix[] = {u"ProfileNotes"};

inline constexpr ParameterRow notesRequest[] = {
    required(key::strKeyPrefix,       u"the word that asks for the notes; blanks around it do not count", notesPrefix),
    optional(key::strSearchString,    u"only notes whose line contains this text"),
    optional(key::strSearchQualifier, u"only notes whose line begins with this character"),
};

inline constexpr TextView notesAsked = u"when strKeyPrefix is ProfileNotes";

inline constexpr ResultRow notesElements[] = {
    sometimes(key::strKeyElement_list,   notesAsked, u"the texts of the notes, from entry 1 on; entry 0 is empty"),
    sometimes(key::strKeyElementNr_list, notesAsked, u"the position of each note below the notes' header, from entry "
                                                     u"1 on; entry 0 is empty"),
    sometimes(key::strKeyQualifier_list, notesAsked, u"the first two characters of each note's line, from entry 1 on; "
                                                     u"entry 0 is empty"),
};

inline constexpr ErrorRow notesErrors[] = {
    {ClassCall::ProfileElements, number::emptyPrefix, emptyPrefix},
    {ClassCall::ProfileElements, number::notesQuery, u"the notes cannot be read"},
    {ClassCall::ProfileElements, 91,   noRequest},
    {ClassCall::ProfileElements, 13,   unreadableRequest},
    {ClassCall::Count, number::notesCount, u"the notes cannot be read"},
};

inline constexpr ClassDescription notes{
    .purpose = u"Asks for the notes of a profile, and reads the notes in a displayed profile.",
    .parameters = notesParameters,
    .forms = notesForms,
    .passed = PassedCollection::Returned,
    .state = notesState,
    .results = messageResults,
    .flags = notesFlags,
    .request = notesRequest,
    .elements = notesElements,
    .errors = notesErrors,
    .counts = u"ProfileNotesElementsCount returns how many notes the display has, and keeps their lists.",
    .remark = u"The notes are added to the collection that was passed. The call returns no collection, but for a "
              u"prefix that it does not know it returns the passed one.",
};

// clang-format on

}  // namespace vantro::rows
