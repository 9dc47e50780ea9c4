// How the lines of a family are collected and joined, in words. Every cell of its row that decides about it has a
// sentence here.
#pragma once

#include "display/families.h"

namespace vantro {

constexpr TextView linesOf(const PrefixedFamily& row) {
    switch (row.scheme) {  // Not covered: every scheme has its case
        case Scheme::Plain:
        case Scheme::ColonJoining: break;
        case Scheme::Policy:
            return u"A line with the prefix is an element. So is a line with blanks in place of a prefix, if the "
                   u"element above it belongs to the family.";
        case Scheme::GlobalSearch:
            return u"The line below the section's header is an element if it has the prefix. So are the lines below "
                   u"it that have blanks in place of a prefix, ten at most.";
    }
    return u"The first line with the prefix is an element. So is every line below it, up to the end of the section, "
           u"that does not continue an element.";
}

constexpr TextView linesOf(const TransferableFamily& row) {
    if (row.start == ScanStart::FirstLine) {
        return u"A line is an element if it has the code, between blanks, from column 13 on. The search begins in the "
               u"first line of the display and ends at the header of any other section, so that only elements above or "
               u"in the display's first section are found.";
    }
    if (row.test == CodeTest::AtColumn12) {
        return u"A line of the section is an element if it has the code, with two blanks on either side, in columns 12 "
               u"to 17.";
    }
    return u"A line of the section is an element if it has the code, between blanks, from column 13 on.";
}

constexpr TextView linesOf(const DocumentFamily& /*row*/) {
    return u"The first line of the section with the prefix is an element. So are the lines directly below it that have "
           u"five blanks after their first or second character. Any other line ends the family's elements.";
}

constexpr TextView joiningOf(JoinRule rule) {
    switch (rule) {  // Not covered: every rule has its case
        case JoinRule::Directly: break;
        case JoinRule::ColonAfterBlank:
            return u"A line that begins with nine blanks continues the element above. It is trimmed and appended, "
                   u"after a blank if its third character is a colon, otherwise without one.";
        case JoinRule::OneBelow:
            return u"The next line continues the element if it begins with 17 blanks. It is trimmed and appended "
                   u"without a blank.";
        case JoinRule::TwoBelow:
            return u"The next line continues the element if it begins with 17 blanks, and so does the one after it. "
                   u"They are trimmed and appended without a blank.";
    }
    return u"A line that begins with nine blanks continues the element above. It is trimmed and appended without a "
           u"blank.";
}

inline constexpr TextView notJoined = u"No line continues an element: a text ends at the end of its line.";

constexpr TextView joiningOf(const PrefixedFamily& row) {
    if (row.scheme == Scheme::GlobalSearch) return notJoined;
    return joiningOf(row.scheme == Scheme::Plain ? JoinRule::Directly : JoinRule::ColonAfterBlank);
}

constexpr TextView joiningOf(const TransferableFamily& row) { return joiningOf(row.join); }

constexpr TextView joiningOf(const DocumentFamily& /*row*/) { return notJoined; }

}  // namespace vantro
