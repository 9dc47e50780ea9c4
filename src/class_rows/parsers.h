// The two parsers of profile displays. The families' rows have the meanings of the prefixes and the error numbers.
#pragma once

#include "class_rows/parts.h"

namespace vantro::rows {

// clang-format off

inline constexpr TextView emptyPrefix = u"strKeyPrefix is empty";
inline constexpr TextView noRequest = u"there is no collection";
inline constexpr TextView unreadableRequest = u"a value of the request has a kind that cannot be converted";

// CProfile

inline constexpr ParameterRow profileRequest[] = {
    required(key::strKeyPrefix, u"the family or the header value to read"),
    needed(key::intKeyIndex,    u"for SR, RM, AP, OS, FFN, ST and RC", u"the position of the element, from 1; "
                                                                       u"optional for PPR, PGL and PPS"),
};

inline constexpr TextView oneElement = u"for a header value (PSL only if there is one) and for a single element";
inline constexpr TextView numbered = u"for PIN, PCN with a number, PSL if there is one, and for a single element";
inline constexpr TextView manyElements = u"for a family that is read as a whole";

inline constexpr ResultRow profileElements[] = {
    sometimes(key::strKeyElement,        oneElement,   u"the value, or the text of the element"),
    sometimes(key::strKeyElementNr,      numbered,     u"the number of the element"),
    sometimes(key::strKeyElement_list,   manyElements, u"the texts of the elements, from entry 1; entry 0 is empty"),
    sometimes(key::strKeyElementNr_list, manyElements, u"the numbers of the elements, from entry 1 on; entry 0 is "
                                                       u"empty"),
    sometimes(key::strKeyCode,           u"for SR",             u"the code of the service"),
    sometimes(key::strKeyAirline,        u"for SR and FFN",     u"the airline"),
    sometimes(key::strKeyFFNbr,          u"for SR and FFN",     u"the frequent flyer's number"),
    sometimes(key::strKeyFreeText,       u"for SR and RC",      u"the free text"),
    sometimes(key::blnKeyAsterix,        u"for SR",             u"always False"),
    sometimes(key::strKeyElNbrsArray,    u"for ALL",            u"the numbers of the transferable elements that are "
                                                                u"selected, from entry 1; entry 0 is empty"),
};

inline constexpr ErrorRow profileErrors[] = {
    {ClassCall::ProfileElements, number::emptyPrefix, emptyPrefix},
    {ClassCall::ProfileElements, 91,   u"there is no collection, or intKeyIndex is missing where it is needed"},
    {ClassCall::ProfileElements, 13,   u"a value of the request has a kind that cannot be converted, or intKeyIndex is "
                                       u"no whole number"},
    {ClassCall::ProfileElements, 9,    u"intKeyIndex is below 1 for SR, RM, AP, OS, FFN, ST or RC"},
    {ClassCall::ProfileElements, 6,    u"intKeyIndex does not fit in 16 bits, or the display has no end"},
};

inline constexpr ClassDescription profile{
    .purpose = u"Parses a displayed profile: returns a header value, or the elements of one family.",
    .request = profileRequest,
    .elements = profileElements,
    .errors = profileErrors,
    .counts = u"Each family has a property that returns the number of its elements in the display and fills its lists.",
    .remark = u"A family that cannot be read and an index beyond its elements raise the family's numbers. "
              u"The elements are added to the passed collection. The call returns no collection for a known prefix "
              u"and the passed one for any other.",
};

// CProfileNotes

inline constexpr TextView notesCommands[] = {code::PN, code::PNE};

inline constexpr ParameterRow notesParameters[] = {
    required(key::strCommand, u"the command; any other text makes no command", notesCommands),
};

inline constexpr ExampleParameter notesDisplay[] = {{u"strCommand", u"PN"}};
inline constexpr ExampleParameter notesChange[] = {{u"strCommand", u"PNE"}};

inline constexpr CommandForm notesForms[] = {
    {code::PN,  u"displays the notes", notesDisplay, u"PN"},
    {code::PNE, u"enters notes",       notesChange,  u"PNE"},
};

inline constexpr ParameterRow notesState[] = {
    needed(key::strCommand, asForCommand, u"says which answer is expected"),
};

inline constexpr ScreenFlag notesFlags[] = {
    answer(code::PN,  key::blnKeyResponseOK, code::PNL),
    answer(code::PNE, key::blnKeyResponseOK, u"TRANSACTION NOT ALLOWED", MarkPosition::NotOnScreen),
};

inline constexpr TextView notesPrefix[] = {u"ProfileNotes"};

inline constexpr ParameterRow notesRequest[] = {
    required(key::strKeyPrefix,       u"selects the notes; blanks around it are ignored", notesPrefix),
    optional(key::strSearchString,    u"only notes whose line contains this text"),
    optional(key::strSearchQualifier, u"only notes whose line begins with this character"),
};

inline constexpr TextView notesAsked = u"when strKeyPrefix is ProfileNotes";

inline constexpr ResultRow notesElements[] = {
    sometimes(key::strKeyElement_list,   notesAsked, u"the texts of the notes, from entry 1; entry 0 is empty"),
    sometimes(key::strKeyElementNr_list, notesAsked, u"the position of each note below the notes' header, from entry "
                                                     u"1; entry 0 is empty"),
    sometimes(key::strKeyQualifier_list, notesAsked, u"the first two characters of each note's line, from entry 1; "
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
    .purpose = u"Displays or enters the notes of a profile, and reads the notes in a displayed profile.",
    .parameters = notesParameters,
    .forms = notesForms,
    .passed = PassedCollection::Returned,
    .state = notesState,
    .results = messageResults,
    .flags = notesFlags,
    .request = notesRequest,
    .elements = notesElements,
    .errors = notesErrors,
    .counts = u"ProfileNotesElementsCount returns the number of notes in the display and fills their lists.",
    .remark = u"The notes are added to the passed collection. The call returns no collection for this prefix and the "
              u"passed one for any other.",
};

// clang-format on

}  // namespace vantro::rows
