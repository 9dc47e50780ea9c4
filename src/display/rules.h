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
inline constexpr ReadingRule sectionEndsAtRule{"sectionEndsAtRule", u"seven hyphens: the section ends"};
inline constexpr ReadingRule sectionEndsAtEndText{"sectionEndsAtEndText", u"the end text: the section ends"};
inline constexpr ReadingRule sectionEndsAtPrompt{"sectionEndsAtPrompt",
                                                 u"a prompt at the beginning of the line: the section ends"};
inline constexpr ReadingRule sectionMayComeAgain{
    "sectionMayComeAgain", u"the section has no element: the search for its header goes on in the next line"};

// Elements with a prefix
inline constexpr ReadingRule elementWithPrefix{"elementWithPrefix",
                                               u"the line contains the family's prefix: an element"};
inline constexpr ReadingRule elementWithoutPrefix{
    "elementWithoutPrefix",
    u"the tag columns are blank, and an element of the family is above: the line is an element of the same family"};
inline constexpr ReadingRule elementOfWholeSection{
    "elementOfWholeSection", u"a prefixed line is above: every line down to the section's end is an element"};
inline constexpr ReadingRule aboveFirstElement{"aboveFirstElement",
                                               u"no line of the section down to this one contains the family's prefix"};
inline constexpr ReadingRule otherTag{"otherTag",
                                      u"the tag columns are not blank: the line and those below it, up to the next "
                                      u"prefix of the family, belong to another family"};
inline constexpr ReadingRule continuesElement{"continuesElement",
                                              u"nine blanks at the beginning: the line continues the element above"};
inline constexpr ReadingRule continuesUpToEnd{
    "continuesUpToEnd", u"all lines below continue the element, up to the end of the display: the search fails"};

// The global search
inline constexpr ReadingRule noPrefixBelowHeader{
    "noPrefixBelowHeader",
    u"the line below the header does not contain the prefix: the search for the header goes on below it"};
inline constexpr ReadingRule unprefixedElement{
    "unprefixedElement", u"the tag columns are blank: an element, with its text from column 7 on"};
inline constexpr ReadingRule unprefixedEnd{"unprefixedEnd", u"the tag columns are not blank: the elements end"};
inline constexpr ReadingRule unprefixedLimit{"unprefixedLimit",
                                             u"the tenth line below the prefixed one is the last that is read"};

}  // namespace rule

inline constexpr std::array prefixedRules{
    &rule::sectionBegins,        &rule::displayEnds,           &rule::displayHasNoEnd,     &rule::sectionEndsAtRule,
    &rule::sectionEndsAtEndText, &rule::sectionEndsAtPrompt,   &rule::sectionMayComeAgain, &rule::elementWithPrefix,
    &rule::elementWithoutPrefix, &rule::elementOfWholeSection, &rule::aboveFirstElement,   &rule::otherTag,
    &rule::continuesElement,     &rule::continuesUpToEnd,      &rule::noPrefixBelowHeader, &rule::unprefixedElement,
    &rule::unprefixedEnd,        &rule::unprefixedLimit,
};

}  // namespace vantro
