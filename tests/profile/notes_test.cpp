// The notes of a display.
#include "tests/profile/scanned_notes.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string header = "------- PROFILE NOTES";

ScannedNotes scanned(const Lines& lines, TextView search = {}, TextView qualifier = {}) {
    return scannedNotes(display(Lines{"LINE 0"} + lines), search, qualifier);
}

ScannedNotes found(Texts texts, Texts numbers, Texts qualifiers) {
    const int count = static_cast<int>(texts.size()) - 1;
    return {count, 0, std::move(texts), std::move(numbers), std::move(qualifiers)};
}

const ScannedNotes none;

// The search for the header

TEST(NotesHeader, IsIgnoredOnLine0) { EXPECT_EQ(scannedNotes(display({header, "A NOTE", "END OF DISPLAY"})), none); }

TEST(NotesHeader, ABlankLineAboveItEndsTheScan) {
    EXPECT_EQ(scanned({"", header, "A NOTE", "END OF DISPLAY"}), none);
    EXPECT_EQ(scanned({"X", "   ", header, "A NOTE", "END OF DISPLAY"}), none);
}

TEST(NotesHeader, ABlankOrMarkedLine0IsIgnored) {
    for (const std::string above : {"", ">", "END OF DISPLAY"}) {
        EXPECT_EQ(scannedNotes(display({above, header, "A NOTE", "END OF DISPLAY"})),
                  found({"", "NOTE"}, {"", "1"}, {"", "A "}))
            << above;
    }
}

TEST(NotesHeader, APromptAboveItEndsTheScan) {
    EXPECT_EQ(scanned({"A > B", header, "A NOTE", "END OF DISPLAY"}), none);
}

TEST(NotesHeader, TheEndTextAboveItEndsTheScan) {
    EXPECT_EQ(scanned({"THE END OF DISPLAY", header, "A NOTE", "END OF DISPLAY"}), none);
}

TEST(NotesHeader, MayBeAnywhereInItsLine) {
    EXPECT_EQ(scanned({"XX ------- PROFILE NOTES XX", "A NOTE", "END OF DISPLAY"}),
              found({"", "NOTE"}, {"", "1"}, {"", "A "}));
}

TEST(NotesHeader, WithAPromptIsAnEnd) { EXPECT_EQ(scanned({header + " >", "A NOTE", "END OF DISPLAY"}), none); }

TEST(NotesHeader, WithTheEndTextIsStillAHeader) {
    // Only the line that the scan comes back with is tested for the end text, and that is the last line of the section.
    EXPECT_EQ(scanned({header + " END OF DISPLAY", "A NOTE", "END OF DISPLAY"}),
              found({"", "NOTE"}, {"", "1"}, {"", "A "}));
}

TEST(NotesHeader, WithoutItTheListsHaveOnlyTheEmptyEntry) {
    EXPECT_EQ(scanned({"A NOTE", "END OF DISPLAY"}), none);
    EXPECT_EQ(scannedNotes(u""), none);
    EXPECT_EQ(scanned({"A NOTE"}), none);
}

// Notes

TEST(Note, IsSplitAtItsThirdCharacter) {
    EXPECT_EQ(scanned({header, "A CALLS BACK", "BB   TWO  ", "C", " D", "", "EFG", "END OF DISPLAY"}),
              found({"", "CALLS BACK", "TWO", "", "", "", "G"}, {"", "1", "2", "3", "4", "5", "6"},
                    {"", "A ", "BB", "C ", " D", "  ", "EF"}));
}

TEST(Note, HeadersOfOtherSectionsAreNotes) {
    EXPECT_EQ(scanned({header, "------- PRIORITY", "END OF DISPLAY"}),
              found({"", "----- PRIORITY"}, {"", "1"}, {"", "--"}));
}

TEST(Note, ItsOwnHeaderInsideTheSectionIsANote) {
    EXPECT_EQ(scanned({header, header, "END OF DISPLAY"}), found({"", "----- PROFILE NOTES"}, {"", "1"}, {"", "--"}));
}

TEST(Notes, TheLineWithTheEndTextIsNotANoteAndEndsTheScan) {
    EXPECT_EQ(scanned({header, "A NOTE", "B THE END OF DISPLAY", header, "C LATER", "END OF DISPLAY"}),
              found({"", "NOTE"}, {"", "1"}, {"", "A "}));
}

TEST(Notes, AfterAPromptTheSearchForAnotherHeaderGoesOn) {
    EXPECT_EQ(scanned({header, "A ONE", "B > NOT A NOTE", "C NO NOTE", header, "D TWO", "END OF DISPLAY"}),
              found({"", "ONE", "TWO"}, {"", "1", "3"}, {"", "A ", "D "}));
    EXPECT_EQ(scanned({header, "A ONE", ">", "", header, "D TWO", "END OF DISPLAY"}),
              found({"", "ONE"}, {"", "1"}, {"", "A "}));
    EXPECT_EQ(scanned({header, "A ONE", ">"}), found({"", "ONE"}, {"", "1"}, {"", "A "}));
}

TEST(Notes, ALineWithBothEndMarksEndsTheScan) {
    EXPECT_EQ(scanned({header, "A ONE", "> END OF DISPLAY", header, "D TWO", "END OF DISPLAY"}),
              found({"", "ONE"}, {"", "1"}, {"", "A "}));
}

TEST(Notes, NumberingContinuesInASecondSection) {
    EXPECT_EQ(scanned({header, "A ONE", "B TWO", ">", header, "A THREE", "END OF DISPLAY"}, u"", u"A"),
              found({"", "ONE", "THREE"}, {"", "1", "4"}, {"", "A ", "A "}));
}

TEST(Notes, WithoutAnEndRaise5505) {
    EXPECT_EQ(scanned({header, "A NOTE"}).error, 5505);
    EXPECT_EQ(scanned({header}).error, 5505);
}

// Filters

const Lines four{header, "A LIKES AISLE", "B PREFERS AISLE", "B PREFERS ROW 1", "AB AISLE", "END OF DISPLAY"};

TEST(NoteFilter, TheQualifierIsTheFirstCharacter) {
    EXPECT_EQ(scanned({header, "A LIKES ROW 1", "B PREFERS AISLE", "END OF DISPLAY"}, u"", u"B"),
              found({"", "PREFERS AISLE"}, {"", "2"}, {"", "B "}));
    EXPECT_EQ(scanned(four, u"", u"A"), found({"", "LIKES AISLE", "AISLE"}, {"", "1", "4"}, {"", "A ", "AB"}));
    EXPECT_EQ(scanned(four, u"", u"a"), none);
}

TEST(NoteFilter, ALongerQualifierMatchesNothing) {
    EXPECT_EQ(scanned(four, u"", u"B "), none);
    EXPECT_EQ(scanned(four, u"", u"AB"), none);
}

TEST(NoteFilter, ABlankIsAQualifier) {
    EXPECT_EQ(scanned({header, " A", "B", "", "END OF DISPLAY"}, u"", u" "),
              found({"", "", ""}, {"", "1", "3"}, {"", " A", "  "}));
}

TEST(NoteFilter, TheSearchTextMayBeAnywhereInTheLine) {
    EXPECT_EQ(scanned(four, u"AISLE"),
              found({"", "LIKES AISLE", "PREFERS AISLE", "AISLE"}, {"", "1", "2", "4"}, {"", "A ", "B ", "AB"}));
    EXPECT_EQ(scanned(four, u"B "),
              found({"", "PREFERS AISLE", "PREFERS ROW 1", "AISLE"}, {"", "2", "3", "4"}, {"", "B ", "B ", "AB"}));
    EXPECT_EQ(scanned(four, u"aisle"), none);
    // The line is searched as read, including trailing blanks.
    EXPECT_EQ(scanned(four, u"1   "), found({"", "PREFERS ROW 1"}, {"", "3"}, {"", "B "}));
}

TEST(NoteFilter, BothTogetherMustMatch) {
    EXPECT_EQ(scanned(four, u"AISLE", u"B"), found({"", "PREFERS AISLE"}, {"", "2"}, {"", "B "}));
    EXPECT_EQ(scanned(four, u"ROW", u"A"), none);
    EXPECT_EQ(scanned(four, u"AISLE", u"AB"), none);
}

TEST(NoteFilter, EndsCountWhateverTheFilter) {
    EXPECT_EQ(scanned({header, "A ONE", "X > X", header, "A TWO", "X END OF DISPLAY"}, u"T", u"A"),
              found({"", "TWO"}, {"", "3"}, {"", "A "}));
}

}  // namespace
}  // namespace vantro
