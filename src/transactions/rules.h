// The rules by which the transactions decide, as an observer receives them.
#pragma once

#include "vantro/observer.h"

#include <array>

namespace vantro {

namespace rule {

// Lists

inline constexpr ReadingRule listHeader{"listHeader", u"the column header: the entries begin below it"};
inline constexpr ReadingRule listContinuation{
    "listContinuation",
    u"the screen continues a list: a line that is neither empty nor has a prompt takes the place of the column header"};
inline constexpr ReadingRule listHasNoStart{
    "listHasNoStart", u"the line above is empty or has a prompt: no column header is searched for below it"};
inline constexpr ReadingRule listEndsBeforeHeader{
    "listEndsBeforeHeader", u"the line is empty or has a prompt: the search for a column header ends"};
inline constexpr ReadingRule listEntry{"listEntry", u"a number in columns 3 and 4: an entry"};
inline constexpr ReadingRule listWrappedName{
    "listWrappedName", u"neither a number nor a record locator, but a name: the rest of the name above"};
inline constexpr ReadingRule listEndOfBlock{"listEndOfBlock",
                                            u"the mark of the end of a block: the list continues on the next screen"};
inline constexpr ReadingRule listEmptyLine{"listEmptyLine",
                                           u"an empty line, as below the screen's last one: the entries end"};
inline constexpr ReadingRule listPrompt{"listPrompt", u"the line has a prompt: the entries end"};
inline constexpr ReadingRule listNoNumber{"listNoNumber", u"no number in columns 3 and 4: the entries end"};
inline constexpr ReadingRule listLocatorWithoutNumber{
    "listLocatorWithoutNumber",
    u"a record locator without a number in columns 3 and 4 is neither an entry nor the rest of one: the entries end"};
inline constexpr ReadingRule listNoName{"listNoName", u"neither a number nor a name: the entries end"};
inline constexpr ReadingRule listSearchGoesOn{
    "listSearchGoesOn", u"the line that ends the entries has a number: another column header is searched for below it"};
inline constexpr ReadingRule listHeaderAgain{
    "listHeaderAgain", u"a column header directly below the entries: more entries begin below it"};

// The column of the record locators

inline constexpr ReadingRule locatorColumnFound{
    "locatorColumnFound", u"the column header contains the title of the record locators, which begin below it"};
inline constexpr ReadingRule locatorColumnMissing{
    "locatorColumnMissing", u"the column header has no title of record locators: column 5 is used, left of the names"};
inline constexpr ReadingRule locatorColumnFromState{"locatorColumnFromState",
                                                    u"the column of the record locators is the one in the state"};

// The travellers of an office

inline constexpr ReadingRule travellerWithoutCompany{
    "travellerWithoutCompany",
    u"blank from column 35 on, as for a traveller without a company: columns 29 to 34 are kept"};
inline constexpr ReadingRule travellerWithCompany{"travellerWithCompany",
                                                  u"text from column 35 on: the traveller belongs to a company"};
inline constexpr ReadingRule officeTraveller{"officeTraveller", u"a number or a record locator: an entry"};
inline constexpr ReadingRule officeLineWithoutEntry{"officeLineWithoutEntry",
                                                    u"neither a number nor a record locator: no entry"};
inline constexpr ReadingRule officeHeaderAgain{"officeHeaderAgain", u"the column header again: no entry"};

// Profiles linked to a PNR

inline constexpr ReadingRule linkedTraveller{"linkedTraveller", u"T/ begins the line: a traveller's profile"};
inline constexpr ReadingRule linkedCompany{"linkedCompany", u"C/ begins the line: a company's profile"};
inline constexpr ReadingRule linkedLocatorBelow{
    "linkedLocatorBelow", u"the line of the profile above ends before its record locator: it is read from this line"};
inline constexpr ReadingRule linkedMarkTooFarLeft{"linkedMarkTooFarLeft",
                                                  u"/P is in the line, but not in column 9 or after it: no passenger"};
inline constexpr ReadingRule linkedNoProfile{"linkedNoProfile", u"neither T/ nor C/ begins the line: no profile"};
inline constexpr ReadingRule linkedPrompt{"linkedPrompt", u"a prompt: the list ends"};
inline constexpr ReadingRule linkedEcho{"linkedEcho", u"a prompt with the command: the list goes on"};
inline constexpr ReadingRule linkedLastLine{"linkedLastLine", u"line 24 is the last that is read"};

// The history

inline constexpr ReadingRule historyComplete{"historyComplete", u"both dates are known: the lines below are not read"};
inline constexpr ReadingRule historyLastLine{"historyLastLine", u"the last line that can have a date"};

// Profile mode

inline constexpr ReadingRule modeExitFromNextLine{
    "modeExitFromNextLine", u"the exit counts only from 80 characters after the beginning of the mark above"};

inline constexpr ReadingRule modeExitTooEarly{
    "modeExitTooEarly", u"the mark of the exit is on the screen, but only above that position: it does not count"};

// Nothing is sent

inline constexpr ReadingRule commandNeedsAnyName{"commandNeedsAnyName",
                                                 u"strKeyName and strKeyCompany are empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsIndicator{"commandNeedsIndicator",
                                                   u"strKeyIndicator is empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsCompany{
    "commandNeedsCompany", u"strKeyIndicator asks for a company and strKeyCompany is empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsTraveller{
    "commandNeedsTraveller", u"strKeyIndicator asks for a traveller and strKeyName is empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsIndex{"commandNeedsIndex", u"strKeyIndex is empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsItem{"commandNeedsItem",
                                              u"blnKeyFromPNR is True and strKeyItemNr is empty: nothing is sent"};
inline constexpr ReadingRule commandNeedsLocator{"commandNeedsLocator", u"strKeyRecLoc is empty: nothing is sent"};
inline constexpr ReadingRule commandOfOneForm{
    "commandOfOneForm",
    u"intKeyArraySize asks for the lists, and strKeyElements, strKeySegAsso or strKeyPasAsso is not empty: nothing is "
    u"sent"};
inline constexpr ReadingRule modeUnknownStep{
    "modeUnknownStep", u"blnKeyUpdate, blnKeyExit, blnKeyEnter and blnKeyIgnore select no step of profile mode"};

}  // namespace rule

inline constexpr std::array transactionRules{
    &rule::listHeader,
    &rule::listContinuation,
    &rule::listHasNoStart,
    &rule::listEndsBeforeHeader,
    &rule::listEntry,
    &rule::listWrappedName,
    &rule::listEndOfBlock,
    &rule::listEmptyLine,
    &rule::listPrompt,
    &rule::listNoNumber,
    &rule::listLocatorWithoutNumber,
    &rule::listNoName,
    &rule::listSearchGoesOn,
    &rule::listHeaderAgain,
    &rule::locatorColumnFound,
    &rule::locatorColumnMissing,
    &rule::locatorColumnFromState,
    &rule::travellerWithoutCompany,
    &rule::travellerWithCompany,
    &rule::officeTraveller,
    &rule::officeLineWithoutEntry,
    &rule::officeHeaderAgain,
    &rule::linkedTraveller,
    &rule::linkedCompany,
    &rule::linkedLocatorBelow,
    &rule::linkedMarkTooFarLeft,
    &rule::linkedNoProfile,
    &rule::linkedPrompt,
    &rule::linkedEcho,
    &rule::linkedLastLine,
    &rule::historyComplete,
    &rule::historyLastLine,
    &rule::modeExitFromNextLine,
    &rule::modeExitTooEarly,
    &rule::commandNeedsAnyName,
    &rule::commandNeedsIndicator,
    &rule::commandNeedsCompany,
    &rule::commandNeedsTraveller,
    &rule::commandNeedsIndex,
    &rule::commandNeedsItem,
    &rule::commandNeedsLocator,
    &rule::commandOfOneForm,
    &rule::modeUnknownStep,
};

}  // namespace vantro
