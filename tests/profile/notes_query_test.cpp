// The notes through `ProfileElements`: prefix, filters and lists.
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/profile/random_displays.h"
#include "vantro/families.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string header = "------- PROFILE NOTES";

const Text shown = display({"LINE 0", "LINE 1", header, "A LIKES ROW 1", "B PREFERS AISLE", "END OF DISPLAY"});

Entries lists(const std::string& texts, const std::string& numbers, const std::string& qualifiers) {
    return {{"strKeyElement()", texts}, {"strKeyElementNr()", numbers}, {"strKeyQualifier()", qualifiers}};
}

Request filtered(const std::string& prefix, ItemValue search, ItemValue qualifier) {
    return {.given = {{"strKeyPrefix", wide(prefix)}, {"strSearchString", search}, {"strSearchQualifier", qualifier}}};
}

Answer asked(const Text& text, const Request& request) { return Parser(u"CProfileNotes").query(text, request); }
Answer asked(const Text& text, const std::string& prefix) { return asked(text, wanting(prefix)); }

const Answer unknown{.returnedCollection = true};
const Answer readingFailed{.raised = {5500, "VantroProfileUtils", "An error has occurred while reading Profile Notes"}};

TEST(NotesQuery, AddsThreeListsAndReturnsNoObject) {
    EXPECT_EQ(asked(shown, "ProfileNotes"),
              (Answer{.added = lists("['', 'LIKES ROW 1', 'PREFERS AISLE']", "['', '1', '2']", "['', 'A ', 'B ']")}));
}

TEST(NotesQuery, ItsDescriptionNamesItsKeys) {
    const QueryFacts& facts = factsOf(OtherQuery::Notes);
    Texts keys;
    for (const TextView key : facts.keys) keys.push_back(utf8(key));
    EXPECT_EQ(keys, (Texts{"strKeyElement()", "strKeyElementNr()", "strKeyQualifier()"}));
    EXPECT_EQ(facts.match, WordMatch::Whole);
}

TEST(NotesQuery, BlanksAroundThePrefixDoNotMatter) {
    for (const std::string prefix : {" ProfileNotes", "ProfileNotes   ", "  ProfileNotes  "}) {
        EXPECT_EQ(asked(shown, prefix).added.size(), 3U) << prefix;
        EXPECT_FALSE(asked(shown, prefix).returnedCollection) << prefix;
    }
}

TEST(NotesQuery, AnyOtherPrefixReturnsTheCollection) {
    for (const std::string prefix :
         {"profilenotes", "PROFILENOTES", "ProfileNote", "ProfileNotesX", "Profile Notes", "NM", " "}) {
        EXPECT_EQ(asked(shown, prefix), unknown) << prefix;
    }
}

TEST(NotesQuery, AnEmptyPrefixRaises5065) {
    EXPECT_EQ(asked(shown, ""), (Answer{.raised = verifying(5065)}));
    EXPECT_EQ(asked(shown, Request{}), (Answer{.raised = verifying(5065)}));
    EXPECT_EQ(asked(Text(), ""), (Answer{.raised = verifying(5065)}));
}

TEST(NotesQuery, ReadsItsFilters) {
    EXPECT_EQ(asked(shown, filtered("ProfileNotes", Text(), Text(u"B"))),
              (Answer{.added = lists("['', 'PREFERS AISLE']", "['', '2']", "['', 'B ']")}));
    EXPECT_EQ(asked(shown, filtered("ProfileNotes", Text(u"ROW"), Text())),
              (Answer{.added = lists("['', 'LIKES ROW 1']", "['', '1']", "['', 'A ']")}));
    EXPECT_EQ(asked(shown, filtered("ProfileNotes", Text(u"ROW"), Text(u"B"))),
              (Answer{.added = lists("['']", "['']", "['']")}));
}

TEST(NotesQuery, AFilterMayBeAnyValueThatConvertsToText) {
    EXPECT_EQ(asked(shown, filtered("ProfileNotes", ItemValue(std::int16_t{1}), Text())).added[0].second,
              "['', 'LIKES ROW 1']");
    EXPECT_EQ(asked(shown, filtered("ProfileNotes", TextList{u"ROW"}, Text())).raised.number, 13);
    EXPECT_EQ(asked(shown, filtered("XYZ", Text(), TextList{u"A"})).raised.number, 13);
}

TEST(NotesQuery, WithoutACollectionReadingFails) {
    Parser parser(u"CProfileNotes");
    EXPECT_EQ(numberRaisedBy([&] { parser.object().profileGet()->ProfileElements(shown, nullptr); }), 91);
}

TEST(NotesQuery, WithoutNotesTheListsHaveOnlyTheEmptyEntry) {
    const Answer nothing{.added = lists("['']", "['']", "['']")};
    EXPECT_EQ(asked(display({"LINE 0", "NO NOTES", "END OF DISPLAY"}), "ProfileNotes"), nothing);
    EXPECT_EQ(asked(Text(), "ProfileNotes"), nothing);
}

TEST(NotesQuery, ASecondQueryReplacesTheLists) {
    Parser parser(u"CProfileNotes");
    parser.query(shown, "ProfileNotes");
    EXPECT_EQ(parser.query(Text(), "ProfileNotes").added[0].second, "['']");
    EXPECT_EQ(parser.query(shown, filtered("ProfileNotes", Text(), Text(u"B"))).added[0].second,
              "['', 'PREFERS AISLE']");
    EXPECT_EQ(parser.list("strNoteNumber"), (Texts{"", "2"}));
}

TEST(NotesQuery, AHostLineCutsTheFirst80Characters) {
    // A notes header on the same line as the host's mark moves to line 0, where it is ignored.
    const auto texts = [](const std::string& line) {
        return asked(display({"LINE 0", line + header, "A ONE", ">", header, "B TWO", "END OF DISPLAY"}),
                     "ProfileNotes")
            .added[0]
            .second;
    };
    for (const std::string line : {"PF24", "4505 X ", "   PF24 "}) EXPECT_EQ(texts(line), "['']") << line;
    for (const std::string line : {"X PF24", "PF 24 ", ""}) EXPECT_EQ(texts(line), "['', 'ONE', 'TWO']") << line;
    EXPECT_EQ(asked(display({"LINE 0", "PF24", header, "A ONE", "END OF DISPLAY"}), "ProfileNotes").added[0].second,
              "['', 'ONE']");
}

TEST(NotesQuery, AFailingScanRaises5500AndTheCountProperty5505) {
    const Text endless = display({"LINE 0", header, "A ONE"});
    EXPECT_EQ(asked(endless, "ProfileNotes"), readingFailed);
    Parser parser(u"CProfileNotes");
    EXPECT_EQ(raisedBy([&] { parser.count("ProfileNotesElementsCount", endless); }),
              (Raised{5505, "VantroProfileUtils", "An error has occurred while reading Profile Notes"}));
}

TEST(NotesQuery, RandomDisplaysAreReadAsTheOracleReadsThem) {
    RandomDisplays random(41);
    Parser parser(u"CProfileNotes");
    oracle::NotesOracle known;
    for (std::size_t left = effort(8000); left > 0; --left) {
        const Text text = random.oneIn(3) ? random.soup() : random.sections();
        const Request request =
            filtered(random.oneIn(9) ? "Profile" : "ProfileNotes", random.oneIn(3) ? random.word() : Text(),
                     random.oneIn(3) ? Text(1, u"AB -"[random.below(4)]) : Text());
        const Answer answer = bare(parser.query(text, request));
        const Answer expected = answerOf(request, [&](oracle::Collection& collection) {
            return known.profileElements(text, collection).returnedCollection;
        });
        ASSERT_EQ(answer, expected) << differenceMessage(text, "notes", answer, expected);
    }
}

}  // namespace
}  // namespace vantro
