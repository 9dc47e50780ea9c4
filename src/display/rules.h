// The rules by which the readers of a display decide, as an observer receives them.
#pragma once

#include "vantro/observer.h"

#include <array>

namespace vantro {

namespace rule {

// Sections
inline constexpr ReadingRule sectionBegins{"sectionBegins", u"the header of the section"};
inline constexpr ReadingRule displayEnds{
    "displayEnds", u"a prompt or the end text: the display ends, and with it the search for the header"};
inline constexpr ReadingRule displayHasNoEnd{
    "displayHasNoEnd", u"the display has no end: the search goes on below its last line and fails"};
inline constexpr ReadingRule aboveFirstElement{
    "aboveFirstElement", u"no prefix of the family in its columns, and the line above is not the family's: no element"};

// Prefixed sections
inline constexpr ReadingRule sectionEndsAtRule{"sectionEndsAtRule", u"seven hyphens: the section ends"};
inline constexpr ReadingRule sectionEndsAtEndText{"sectionEndsAtEndText", u"the end text: the section ends"};
inline constexpr ReadingRule sectionEndsAtPrompt{"sectionEndsAtPrompt",
                                                 u"a prompt at the beginning of the line: the section ends"};
inline constexpr ReadingRule sectionMayComeAgain{
    "sectionMayComeAgain", u"the section has no element: the search for its header goes on in the next line"};

// Elements with a prefix
inline constexpr ReadingRule elementWithPrefix{"elementWithPrefix",
                                               u"the family's prefix is in its columns: an element"};
inline constexpr ReadingRule elementWithoutPrefix{
    "elementWithoutPrefix",
    u"the tag columns are blank, and an element of the family is above: the line is an element of the same family"};
inline constexpr ReadingRule elementWithJoinedPrefix{
    "elementWithJoinedPrefix", u"the family's prefix is in the text that is joined from several lines: an element"};
inline constexpr ReadingRule elementOfWholeSection{
    "elementOfWholeSection", u"a prefixed line is above: every line down to the section's end is an element"};
inline constexpr ReadingRule otherTag{
    "otherTag",
    u"the tag columns are not blank, and the family's prefix is not after the first two characters: the line and "
    u"those below it, up to the family's next prefix, are another family's"};
inline constexpr ReadingRule continuesElement{"continuesElement",
                                              u"nine blanks at the beginning: the line continues the element above"};
inline constexpr ReadingRule continuesUpToEnd{
    "continuesUpToEnd", u"all lines below continue the element, up to the end of the display: the search fails"};

// The global search
inline constexpr ReadingRule noPrefixBelowHeader{
    "noPrefixBelowHeader",
    u"the line below the header has no prefix in its columns: the search for the header goes on below it"};
inline constexpr ReadingRule unprefixedElement{
    "unprefixedElement", u"the tag columns are blank: an element, with its text after its first six characters"};
inline constexpr ReadingRule unprefixedEnd{"unprefixedEnd", u"the tag columns are not blank: the elements end"};
inline constexpr ReadingRule unprefixedLimit{"unprefixedLimit",
                                             u"the tenth line below the prefixed one is the last that is read"};

// Transferable elements
inline constexpr ReadingRule scanFromFirstLine{
    "scanFromFirstLine", u"the search for confidential remarks begins in the display's first line"};
inline constexpr ReadingRule ownHeader{"ownHeader", u"the section's own header does not end the search"};
inline constexpr ReadingRule promptInsideLine{
    "promptInsideLine", u"a prompt that is not alone in its line does not end the search for contacts"};
inline constexpr ReadingRule scanEndsAtEndText{"scanEndsAtEndText", u"the end text: the search ends"};
inline constexpr ReadingRule scanEndsAtPrompt{"scanEndsAtPrompt", u"a prompt in the line: the search ends"};
inline constexpr ReadingRule scanEndsAtPromptLine{"scanEndsAtPromptLine",
                                                  u"a prompt alone in the line: the search ends"};
inline constexpr ReadingRule scanEndsAtHeader{
    "scanEndsAtHeader", u"six hyphens at the beginning, as in the header of another section: the search ends"};
inline constexpr ReadingRule joinedToLineAbove{
    "joinedToLineAbove", u"17 blanks at the beginning: joined to the element above, and then tested on its own"};
inline constexpr ReadingRule codeFound{"codeFound",
                                       u"the family's code, with its blanks, is in its columns: an element"};
inline constexpr ReadingRule codeInJoinedText{
    "codeInJoinedText",
    u"the family's code, with its blanks, is in its columns of the text that is joined from several lines: an element"};
inline constexpr ReadingRule codeOutsideColumns{
    "codeOutsideColumns", u"the family's code is in the line, but not in its columns: no element of the family"};
inline constexpr ReadingRule codeMissing{
    "codeMissing", u"the family's code, with its blanks, is not in the line: no element of the family"};

// The selection of transferable elements
inline constexpr ReadingRule selectionEndsAtMark{"selectionEndsAtMark", u"a prompt or the end text: the section ends"};
inline constexpr ReadingRule selectionEndsAtHyphens{"selectionEndsAtHyphens",
                                                    u"six hyphens at the beginning: the section ends"};
inline constexpr ReadingRule kindMissing{"kindMissing", u"neither S nor A in column 1: no element begins here"};
inline constexpr ReadingRule continuesSelected{"continuesSelected",
                                               u"17 blanks at the beginning: the line continues the element above"};
inline constexpr ReadingRule otherKind{"otherKind", u"the kind in column 1 is not selected"};
inline constexpr ReadingRule otherQualifier{"otherQualifier", u"the element's first word is not the qualifier"};
inline constexpr ReadingRule otherText{"otherText", u"the element's text begins with no entry of the selection"};
inline constexpr ReadingRule selected{"selected", u"the element is selected: its number is added"};

// Documents and follow-up
inline constexpr ReadingRule headerEndsDisplay{
    "headerEndsDisplay", u"a prompt or the end text in the header's line: one line below it is read"};
inline constexpr ReadingRule firstOfRun{"firstOfRun",
                                        u"the line contains the family's prefix: the first element of its run"};
inline constexpr ReadingRule nextOfRun{
    "nextOfRun", u"five blanks after the first or the second character: the next element of the run"};
inline constexpr ReadingRule runEnds{"runEnds",
                                     u"no five blanks after the first or the second character: the run ends, and no "
                                     u"other element of the family is read"};
inline constexpr ReadingRule documentsEndAtRule{"documentsEndAtRule",
                                                u"five hyphens at the beginning: the section ends"};
inline constexpr ReadingRule documentsEndAtMark{"documentsEndAtMark", u"a prompt or the end text: the section ends"};
inline constexpr ReadingRule documentsEndBelowHeader{
    "documentsEndBelowHeader", u"the one line that is read below a header with a prompt or the end text"};

// Notes
inline constexpr ReadingRule blankAboveNotes{"blankAboveNotes",
                                             u"a blank line outside the notes: the search for their header ends"};
inline constexpr ReadingRule promptAboveNotes{"promptAboveNotes",
                                              u"a prompt outside the notes: the search for their header ends"};
inline constexpr ReadingRule endTextAboveNotes{"endTextAboveNotes",
                                               u"the end text outside the notes: the search for their header ends"};
inline constexpr ReadingRule notesEnd{"notesEnd", u"the end text: the notes end"};
inline constexpr ReadingRule notesPause{
    "notesPause", u"a prompt: the section ends, and the search for the header goes on in the next line"};
inline constexpr ReadingRule note{"note", u"a line of the notes: a note"};
inline constexpr ReadingRule noteFits{"noteFits", u"the note fits what is searched for: it is returned"};
inline constexpr ReadingRule otherNoteQualifier{
    "otherNoteQualifier", u"the note's first character is not the qualifier that is searched for: left out"};
inline constexpr ReadingRule otherNoteText{"otherNoteText",
                                           u"the note does not contain the text that is searched for: left out"};

// Header values
inline constexpr ReadingRule nameFound{"nameFound", u"the name comes after the mark"};
inline constexpr ReadingRule nameEmpty{"nameEmpty",
                                       u"nothing comes after the mark: the company's name is searched for"};
inline constexpr ReadingRule companyFound{"companyFound",
                                          u"the mark of a company: its name is in columns 4 to 38 of the line"};
inline constexpr ReadingRule locatorAtEnd{"locatorAtEnd", u"the record locator is the last six characters"};
inline constexpr ReadingRule locatorBelowHostLine{"locatorBelowHostLine",
                                                  u"a line of the host's own: the record locator is in the next line"};
inline constexpr ReadingRule locatorBelowEmptyLine{"locatorBelowEmptyLine",
                                                   u"an empty line: the record locator is in the next line"};
inline constexpr ReadingRule officeMark{
    "officeMark", u"the first word is the mark of a company or a traveller: the office is in the next line"};
inline constexpr ReadingRule officeAtEnd{
    "officeAtEnd", u"five hyphens at the beginning: the office identifier is the last nine characters"};
inline constexpr ReadingRule officeTooShort{
    "officeTooShort",
    u"five hyphens at the beginning, but the last nine characters are no identifier: the search ends"};
inline constexpr ReadingRule officeWithoutRule{
    "officeWithoutRule", u"no five hyphens at the beginning: no office, and the search for the mark goes on"};
inline constexpr ReadingRule officeMarkMissing{"officeMarkMissing",
                                               u"no mark with an office below it in the lines that are searched"};
inline constexpr ReadingRule tagFound{"tagFound", u"the line contains the mark: its text comes after the first slash"};
inline constexpr ReadingRule tagInMargin{"tagInMargin",
                                         u"the mark begins in the margin, column 1 or 2, and does not count"};
inline constexpr ReadingRule tagWithoutName{"tagWithoutName",
                                            u"nothing, or no blank, comes after the mark: it does not count"};
inline constexpr ReadingRule tagSearchEnds{"tagSearchEnds", u"a prompt or the end text: the search for the mark ends"};
inline constexpr ReadingRule numberMissing{"numberMissing",
                                           u"the first slash is in the first four characters: the line has no number"};
inline constexpr ReadingRule nameContinues{"nameContinues",
                                           u"14 blanks at the beginning: the line continues the name after a blank"};
inline constexpr ReadingRule nameContinuesWord{
    "nameContinuesWord",
    u"14 blanks at the beginning: the line continues the name without a blank, because the name's first line is full"};
inline constexpr ReadingRule displayIsEmpty{"displayIsEmpty", u"the display is empty: nothing is searched for"};

// The host line
inline constexpr ReadingRule hostLine{
    "hostLine", u"4505 or PF24 at the beginning: the first 80 characters of the screen are left out"};
inline constexpr ReadingRule hostLineTooShort{
    "hostLineTooShort",
    u"4505 or PF24 at the beginning, but the screen has no 80 characters that can be left out: the query fails"};

}  // namespace rule

inline constexpr std::array sectionRules{&rule::sectionBegins, &rule::displayEnds, &rule::displayHasNoEnd,
                                         &rule::aboveFirstElement};
inline constexpr std::array prefixedRules{
    &rule::sectionEndsAtRule, &rule::sectionEndsAtEndText, &rule::sectionEndsAtPrompt,     &rule::sectionMayComeAgain,
    &rule::elementWithPrefix, &rule::elementWithoutPrefix, &rule::elementWithJoinedPrefix, &rule::elementOfWholeSection,
    &rule::otherTag,          &rule::continuesElement,     &rule::continuesUpToEnd,        &rule::noPrefixBelowHeader,
    &rule::unprefixedElement, &rule::unprefixedEnd,        &rule::unprefixedLimit};
inline constexpr std::array transferableRules{
    &rule::scanFromFirstLine, &rule::ownHeader,          &rule::promptInsideLine,
    &rule::scanEndsAtEndText, &rule::scanEndsAtPrompt,   &rule::scanEndsAtPromptLine,
    &rule::scanEndsAtHeader,  &rule::joinedToLineAbove,  &rule::codeFound,
    &rule::codeInJoinedText,  &rule::codeOutsideColumns, &rule::codeMissing};
inline constexpr std::array selectionRules{
    &rule::selectionEndsAtMark, &rule::selectionEndsAtHyphens, &rule::kindMissing, &rule::continuesSelected,
    &rule::otherKind,           &rule::otherQualifier,         &rule::otherText,   &rule::selected};
inline constexpr std::array documentRules{&rule::headerEndsDisplay,
                                          &rule::firstOfRun,
                                          &rule::nextOfRun,
                                          &rule::runEnds,
                                          &rule::documentsEndAtRule,
                                          &rule::documentsEndAtMark,
                                          &rule::documentsEndBelowHeader};
inline constexpr std::array noteRules{&rule::blankAboveNotes, &rule::promptAboveNotes,   &rule::endTextAboveNotes,
                                      &rule::notesEnd,        &rule::notesPause,         &rule::note,
                                      &rule::noteFits,        &rule::otherNoteQualifier, &rule::otherNoteText};
inline constexpr std::array headerRules{&rule::nameFound,
                                        &rule::nameEmpty,
                                        &rule::companyFound,
                                        &rule::locatorAtEnd,
                                        &rule::locatorBelowHostLine,
                                        &rule::locatorBelowEmptyLine,
                                        &rule::officeMark,
                                        &rule::officeAtEnd,
                                        &rule::officeTooShort,
                                        &rule::officeWithoutRule,
                                        &rule::officeMarkMissing,
                                        &rule::tagFound,
                                        &rule::tagInMargin,
                                        &rule::tagWithoutName,
                                        &rule::tagSearchEnds,
                                        &rule::numberMissing,
                                        &rule::nameContinues,
                                        &rule::nameContinuesWord,
                                        &rule::displayIsEmpty};
inline constexpr std::array hostLineRules{&rule::hostLine, &rule::hostLineTooShort};

}  // namespace vantro
