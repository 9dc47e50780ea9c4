// "RLP": the count of linked profiles and the entry that "strKeyIndex" names.
#include "tests/framework/raised.h"
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

class LinkedProfiles : public testing::Test {
protected:
    int count(const Text& response) { return rlp.count(u"RecLocCount", response); }

    Entries entry(const Text& response, const char16_t* index) {
        return entriesOf(rlp.read(response, Entries{{u"strKeyIndex", index}}));
    }

    static Entries expected(const char16_t* passenger, const char16_t* locator, bool traveller, bool company) {
        return {{u"strKeyPasAsso", passenger},
                {u"strKeyRecLoc", locator},
                {u"blnKeyTraveller", traveller},
                {u"blnKeyCompany", company}};
    }

    // The entry of a PNR screen with this single line under its header.
    Entries lineEntry(TextView line) { return entry(screen({u"RLP", u"RP/NCEVN3101/", line, u">"}), u"0"); }

    void expectReported(std::size_t times) {
        ASSERT_EQ(rlp.reported.size(), times);
        for (const Error& error : rlp.reported) {
            EXPECT_EQ(error.number(), 5130);
            EXPECT_EQ(utf8(error.source()), "VantroProfileUtils");
            EXPECT_EQ(utf8(error.description()), "An error has occurred while verifying the profile.");
        }
    }

    DrivenClass rlp{u"CRLPTrans"};
    const Text linked = screen({u"RLP", u"--- RLR ---", u"RP/NCEVN3101/", u"", u"T/ABC123 /P1", u"C/XYZ789", u">"});
};

TEST_F(LinkedProfiles, AreCountedAndReturnedOneByOne) {
    EXPECT_EQ(count(linked), 2);
    EXPECT_EQ(entry(linked, u"0"), expected(u"1", u"ABC123", true, false));
    EXPECT_EQ(entry(linked, u"1"), expected(u"", u"XYZ789", false, true));
    expectReported(0);
}

TEST_F(LinkedProfiles, TheLastSlotIsAnEmptyEntry) {
    EXPECT_EQ(entry(linked, u"2"), expected(u"", u"", false, false));
    expectReported(0);
}

TEST_F(LinkedProfiles, AnIndexOutsideTheListAddsNoKeyAndIsReported) {
    EXPECT_EQ(entry(linked, u"3"), Entries{});
    EXPECT_EQ(entry(linked, u"-1"), Entries{});
    expectReported(2);
}

TEST_F(LinkedProfiles, TheIndexIsConvertedToA16BitInteger) {
    EXPECT_EQ(entry(linked, u" +1 "), expected(u"", u"XYZ789", false, true));
    for (const char16_t* const index : {u"", u"one", u"1.0", u"32768"}) {
        const auto error = raised([&] { entry(linked, index); });
        ASSERT_TRUE(error) << utf8(index);
        EXPECT_EQ(error->number(), 5130);
        EXPECT_EQ(utf8(error->description()), "An error has occurred while verifying the profile.");
    }
    expectReported(0);
}

TEST_F(LinkedProfiles, WithoutACollectionReadingFails) {
    EXPECT_EQ(raisedNumber([&] { rlp.read(linked); }), 5130);
    expectReported(0);
}

TEST_F(LinkedProfiles, TheIndexIsReadBeforeTheScreen) {
    EXPECT_EQ(raisedNumber([&] { entry(screen({u"RLP", u"NO ELEMENT FOUND"}), u""); }), 5130);
}

TEST_F(LinkedProfiles, APassengerNumberHasOneOrTwoDigits) {
    EXPECT_EQ(lineEntry(u"T/ABC123 /P12"), expected(u"12", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /P1A"), expected(u"1", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /P1 2"), expected(u"1", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /P123"), expected(u"12", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /P"), expected(u"", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /P 5"), expected(u"5", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /PA5"), expected(u"A5", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123 /PAB"), expected(u"A", u"ABC123", true, false));
}

TEST_F(LinkedProfiles, AnAssociationIsSearchedFromColumn9) {
    EXPECT_EQ(lineEntry(u"T/ABC12/P1"), expected(u"", u"ABC12/", true, false));
    EXPECT_EQ(lineEntry(u"T/ABC123/P1"), expected(u"1", u"ABC123", true, false));
    EXPECT_EQ(lineEntry(u"T/AB/P1     /P2"), expected(u"2", u"AB/P1 ", true, false));
}

TEST_F(LinkedProfiles, TheFirstTwoCharactersDecideWhatAnEntryIs) {
    EXPECT_EQ(count(screen({u"RLP", u"RP/", u"t/ABC123", u" T/ABC123", u"T /ABC123", u"X/ABC123", u">"})), 0);
    EXPECT_EQ(count(screen({u"RLP", u"RP/", u"T/ABC123", u"OTHER", u"", u"C/XYZ789", u"OTHER", u">"})), 2);
}

TEST_F(LinkedProfiles, Line0IsNeverAnEntry) { EXPECT_EQ(count(screen({u"T/ABC123", u"RP/", u">"})), 0); }

TEST_F(LinkedProfiles, ABlankLocatorTakesItsSlot) {
    EXPECT_EQ(count(screen({u"RLP", u"RP/", u"T/", u"C/XYZ789", u">"})), 2);
}

TEST_F(LinkedProfiles, AnEntryWithoutALocatorKeepsItsSlotAndItsKind) {
    // The line ends after its kind: it contains no character of a locator, so the next line fills the same entry.
    EXPECT_EQ(count(screen({u"RLP", u"RP/"}) + u"C/"), 0);
    EXPECT_EQ(entry(screen({u"RLP", u"RP/"}) + u"C/", u"0"), expected(u"", u"", false, true));
}

TEST_F(LinkedProfiles, AShortLastLineIsReadAsFarAsItGoes) {
    EXPECT_EQ(entry(screen({u"RLP", u"RP/"}) + u"T/ABC", u"0"), expected(u"", u"ABC", true, false));
}

TEST_F(LinkedProfiles, ThePromptEndsTheListAfterItsOwnLine) {
    EXPECT_EQ(count(screen({u"RLP", u"RP/", u">", u"T/ABC123"})), 0);
    // The prompt's line is still read; no slot follows it.
    EXPECT_EQ(count(screen({u"RLP", u"RP/", u"T/ABC123", u"C/XYZ789 >", u"T/QQQQQQ"})), 1);
    EXPECT_EQ(entry(screen({u"RLP", u"RP/", u"T/ABC123 >", u"T/QQQQQQ"}), u"0"), expected(u"", u"ABC123", true, false));
}

TEST_F(LinkedProfiles, TheEchoOfTheCommandIsNotAPrompt) {
    EXPECT_EQ(count(screen({u"", u">RLP", u"RP/", u"T/ABC123", u">"})), 1);
    EXPECT_EQ(count(screen({u"", u" >RLP", u"RP/", u"T/ABC123", u">"})), 0);
    EXPECT_EQ(count(screen({u"", u">rlp", u"RP/", u"T/ABC123", u">"})), 0);
}

TEST_F(LinkedProfiles, Line24IsTheLast) {
    EXPECT_EQ(count(screenAt({{1, u"RP/"}, {23, u"T/ABC123"}, {24, u"C/XYZ789"}, {25, u"T/QQQQQQ"}})), 1);
    EXPECT_EQ(entry(screenAt({{1, u"RP/"}, {24, u"C/XYZ789"}, {25, u"T/QQQQQQ"}}), u"0"),
              expected(u"", u"XYZ789", false, true));
}

TEST_F(LinkedProfiles, AnyLineMayBeAnEntry) {
    Text full = screen({u"RLP"});
    for (int line = 1; line <= 24; ++line) full += screen({u"T/ABC123"});
    EXPECT_EQ(count(full), 23);
}

TEST_F(LinkedProfiles, ACountReplacesTheEarlierOne) {
    EXPECT_EQ(count(linked), 2);
    EXPECT_EQ(count(screen({u"RLP", u">"})), 0);
    EXPECT_EQ(count(Text()), 0);
    EXPECT_EQ(entry(screen({u"RLP", u"RP/", u">"}), u"0"), expected(u"", u"", false, false));
}

TEST_F(LinkedProfiles, NoElementIsTheOnlyKey) {
    const Entries only{{u"blnKeyNoElementsFound", true}};
    EXPECT_EQ(entry(screen({u"RLP", u"X", u"X NO ELEMENT FOUND", u"RP/"}), u"0"), only);
    EXPECT_EQ(entry(screen({u"RLP", u"X", u"X", u"X", u"NO ELEMENT FOUND"}), u"9"), only);
    EXPECT_EQ(entry(screen({u"RLP", u"RP/ NO ELEMENT FOUND", u">"}), u"0"), expected(u"", u"", false, false));
}

TEST_F(LinkedProfiles, OnlyLines1To4DecideTheAnswer) {
    EXPECT_EQ(entry(screenAt({{4, u"RP/"}, {5, u">"}}), u"0"), expected(u"", u"", false, false));
    EXPECT_EQ(entry(screenAt({{5, u"RP/"}, {6, u"T/ABC123"}}), u"0"), Entries{});
    EXPECT_EQ(entry(screenAt({{0, u"RP/"}, {1, u"X"}}), u"0"), Entries{});
    EXPECT_EQ(entry(screenAt({{1, u" RP/"}, {5, u"NO ELEMENT FOUND"}}), u"0"), Entries{});
    expectReported(0);
}

}  // namespace
}  // namespace vantro::test
