// Displays as long as the 16-bit line counter reaches, and displays without an end.
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/profile/scanned_notes.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

constexpr std::size_t width = 80;
constexpr std::size_t lastLine = 32767;

/// A display of blank lines, with the text starting at this line.
Text farDown(std::size_t line, const Lines& lines) {
    Text text(line * width, u' ');
    return text += display(lines);
}

/// The same with a word in every line above.
Text farDownAfterText(std::size_t line, const Lines& lines) {
    Text text;
    text.reserve((line + lines.size()) * width);
    Text filler(u"FILLER");
    filler.resize(width, u' ');
    for (std::size_t number = 0; number < line; ++number) text += filler;
    return text += display(lines);
}

int counted(const std::string& family, const Text& text) {
    Parser parser;
    int count = 0;
    const int error = numberRaisedBy([&] { count = parser.count(family + "ElementsCount", text); });
    return error != 0 ? error : count;
}

TEST(LineCounter, ReachesLine32767) {
    EXPECT_EQ(counted("PPR", farDownAfterText(lastLine, {"END OF DISPLAY"})), 0);
    EXPECT_EQ(counted("PPR", farDownAfterText(lastLine + 1, {"END OF DISPLAY"})), 5266);
    EXPECT_EQ(counted("Remark", farDownAfterText(lastLine, {">"})), 0);
    EXPECT_EQ(counted("Remark", farDownAfterText(lastLine + 1, {">"})), 5260);
    EXPECT_EQ(counted("PAS", farDownAfterText(lastLine, {">"})), 0);
    EXPECT_EQ(counted("PAS", farDownAfterText(lastLine + 1, {">"})), 5287);
}

TEST(LineCounter, AnElementNeedsTheLineAfterIt) {
    const Lines element{"------- PRIORITY", "  1 PPR/ A", "END OF DISPLAY"};
    EXPECT_EQ(counted("PPR", farDownAfterText(lastLine - 2, element)), 1);
    EXPECT_EQ(counted("PPR", farDownAfterText(lastLine - 1, element)), 5266);
    const Lines remark{"------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM  A"), ">"};
    EXPECT_EQ(counted("Remark", farDownAfterText(lastLine - 2, remark)), 1);
    EXPECT_EQ(counted("Remark", farDownAfterText(lastLine - 1, remark)), 5260);
    const Lines passport{"------- DOCUMENTS", "  1 PAS/ A", "X"};
    EXPECT_EQ(counted("PAS", farDownAfterText(lastLine - 2, passport)), 1);
    EXPECT_EQ(counted("PAS", farDownAfterText(lastLine - 1, passport)), 5287);
}

TEST(LineCounter, TheGlobalSearchCountsTenLinesAhead) {
    const Lines name{"------- GLOBAL SEARCH", "  1 PGL/ A", "X"};
    EXPECT_EQ(counted("PGL", farDownAfterText(lastLine - 11, name)), 1);
    EXPECT_EQ(counted("PGL", farDownAfterText(lastLine - 10, name)), 5267);
}

TEST(LineCounter, ManyElementsAreCounted) {
    Lines lines{"------- PRIORITY"};
    for (int number = 0; number < 5000; ++number) lines.push_back("  1 PPR/ A");
    EXPECT_EQ(counted("PPR", ended(lines)), 5000);
}

TEST(LineCounter, NotesUpToTheCountersEndOverflow) {
    Text text = display({"LINE 0", "------- PROFILE NOTES", ""});
    Text note(u"A");
    note.resize(width, u' ');
    while (text.size() < lastLine * width) text += note;
    EXPECT_EQ(scannedNotes(text + Text(u"END OF DISPLAY")).count, static_cast<int>(lastLine) - 2);
    EXPECT_EQ(scannedNotes(text + note + Text(u"END OF DISPLAY")).error, 5505);
}

/// A display that ends where the counter does, and what reads it.
struct Far {
    std::string name;
    Lines lines;
};

class FarDown : public testing::TestWithParam<Far> {};

INSTANTIATE_TEST_SUITE_P(
    Display, FarDown,
    testing::Values(
        Far{"Prefixed",
            {"------- TRAVEL POLICIES - HOTEL", "  1 PHI/ A", from(12, "B"), "  2 PPH/ C", "END OF DISPLAY"}},
        Far{"Transferable",
            {"------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM  A"), from(18, "B"), from(18, "C"), ">"}},
        Far{"Documents", {"------- DOCUMENTS", "  1 PAS/ A", "  2      B", "END OF DISPLAY"}},
        Far{"Header", {"  1 PCN/ A", from(15, "B"), "  2 PIN/ C", "  3 PSL/ D", "END OF DISPLAY"}}),
    [](const auto& test) { return test.param.name; });

TEST_P(FarDown, IsReadAsTheOracleReadsIt) {
    const std::size_t step = effort(100) > 50 ? 1 : 3;
    for (std::size_t up = 0; up <= GetParam().lines.size(); up += step) {
        const Text text = farDownAfterText(lastLine - up, GetParam().lines);
        OracleMatch match;
        for (const std::string stem : {"PHI", "PPH", "Remark", "Contact", "PAS"}) {
            const std::string message = match.count(match.propertyOf(stem), text);
            ASSERT_TRUE(message.empty()) << stem << " from line " << lastLine - up << message.substr(0, 2000);
        }
        for (const std::string prefix : {"PCN", "PIN", "PSL", "ALL"}) {
            const std::string message = match.query(text, wanting(prefix));
            ASSERT_TRUE(message.empty()) << prefix << " from line " << lastLine - up << message.substr(0, 2000);
        }
    }
}

// Without an end the search runs to the counter's end, whatever the display contains.

TEST(Endless, EveryReaderFailsOnABlankDisplayOfAnyLength) {
    for (const std::size_t lines : {std::size_t{1}, std::size_t{2}, lastLine, lastLine + 1, lastLine + 2}) {
        const Profile profile = parseProfile(farDown(lines, {"X"}));
        // The name, the locator and the office need no end, and a blank line ends the notes.
        EXPECT_EQ(profile.problems.size(), familyCount + 3) << lines;
    }
}

TEST(Endless, AnEndMarkBeyondTheCounterIsNotFound) {
    const Profile profile = parseProfile(farDown(lastLine + 1, {"END OF DISPLAY", ">"}));
    EXPECT_EQ(profile.problems.size(), familyCount + 3);
}

}  // namespace
}  // namespace vantro
