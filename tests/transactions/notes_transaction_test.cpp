// "PN" and "PNE": how the host's answer is read.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

bool accepted(const char16_t* command, const Text& response) {
    DrivenClass driven(u"CProfileNotes");
    const CollectionPtr results = driven.read(response, Entries{{u"strCommand", command}});
    EXPECT_TRUE(driven.reported.empty());
    return valueOf(results, u"blnKeyResponseOK") == ItemValue(true);
}

const Text allowed = screen({u"PNE", u"PROFILE NOTES"});
const Text refused = screen({u"PNE", u"   TRANSACTION NOT ALLOWED   "});
const Text displayed = screen({u"PN", u"PNL 1"});

TEST(NotesTransaction, ADisplayNeedsItsMark) {
    EXPECT_TRUE(accepted(u"PN", displayed));
    EXPECT_TRUE(accepted(u"PN", screen({u"PN", u"", u"XPNLX"})));
    EXPECT_FALSE(accepted(u"PN", allowed));
    EXPECT_FALSE(accepted(u"PN", screen({u"PN", u"pnl"})));
    EXPECT_TRUE(accepted(u"PN", screen({u"PNL", u"TRANSACTION NOT ALLOWED"})));
}

TEST(NotesTransaction, EnteringNotesIsAllowedUnlessTheHostRefuses) {
    EXPECT_TRUE(accepted(u"PNE", allowed));
    EXPECT_TRUE(accepted(u"PNE", u"X"));
    EXPECT_FALSE(accepted(u"PNE", refused));
    EXPECT_FALSE(accepted(u"PNE", screenAt({{20, u"XTRANSACTION NOT ALLOWEDX"}})));
    EXPECT_TRUE(accepted(u"PNE", screen({u"PNE", u"TRANSACTION NOT  ALLOWED"})));
}

TEST(NotesTransaction, NoOtherCommandIsAccepted) {
    for (const char16_t* const command : {u"", u"pn", u"pne", u"PNL", u"PN ", u"X"}) {
        EXPECT_FALSE(accepted(command, displayed));
        EXPECT_FALSE(accepted(command, allowed));
    }
}

TEST(NotesTransaction, AddsToItsParametersAndReturnsThem) {
    DrivenClass driven(u"CProfileNotes");
    const CollectionPtr given = collection({{u"strCommand", u"PNE"}, {u"strKeyName", u"SMITH"}});
    EXPECT_EQ(driven.read(refused, given), given);
    const Entries expected{{u"strCommand", u"PNE"},
                           {u"strKeyName", u"SMITH"},
                           {u"blnKeyResponseOK", false},
                           {u"strKeyErrorString", u"TRANSACTION NOT ALLOWED"}};
    EXPECT_EQ(entriesOf(given), expected);
}

TEST(NotesTransaction, TheMessageIsReturnedOnSuccessToo) {
    DrivenClass driven(u"CProfileNotes");
    const CollectionPtr results = driven.read(allowed, Entries{{u"strCommand", u"PNE"}});
    EXPECT_EQ(valueOf(results, u"strKeyErrorString"), ItemValue(Text(u"PROFILE NOTES")));
}

}  // namespace
}  // namespace vantro::test
