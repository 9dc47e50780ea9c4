// Where texts are on the screen.
#include "framework/source_map.h"

#include "framework/joined_text.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vantro {
namespace {

using test::utf8;

std::string drawn(const std::vector<ValuePiece>& pieces) {
    std::ostringstream out;
    for (const ValuePiece& piece : pieces) {
        out << '[' << utf8(piece.text) << ']';
        if (piece.place) out << piece.place->line << ':' << piece.place->column << '+' << piece.place->length;
    }
    return out.str();
}

std::string located(const SourceMap& sources, TextView text) {
    std::vector<ValuePiece> pieces;
    sources.locate(text, pieces);
    return drawn(pieces);
}

/// Two whole lines and a short one.
Text threeLines() { return Text(80, u'A') + Text(80, u'B') + u"CDE"; }

TEST(SourceMap, AScreensTextsAreInItsLines) {
    const Text screen = threeLines();
    SourceMap sources;
    sources.addScreen(screen);
    EXPECT_EQ(located(sources, TextView(screen).substr(78, 4)), "[AA]0:79+2[BB]1:1+2");
    EXPECT_EQ(located(sources, TextView(screen).substr(161, 2)), "[DE]2:2+2");
    EXPECT_EQ(located(sources, {}), "");
    EXPECT_EQ(sources.lineOf(TextView(screen).substr(160)), 2);
}

TEST(SourceMap, TheRestOfAScreenIsPartOfIt) {
    const Text screen = threeLines();
    SourceMap sources;
    sources.addScreen(screen);
    const TextView rest = TextView(screen).substr(80);
    sources.addScreen(rest);
    EXPECT_EQ(sources.lineOf(rest), 1);
    EXPECT_EQ(located(sources, TextView(screen).substr(0, 2)), "[AA]0:1+2");
}

TEST(SourceMap, LinesFromATerminalAreWhatItSays) {
    const Text screen = threeLines();
    const Text line = u"BBBB";
    SourceMap sources;
    sources.addScreen(screen);
    sources.addLine(line, 1);
    sources.addLine(TextView(screen).substr(0, 80), 7);  // already known as part of the screen
    sources.addLine({}, 3);
    EXPECT_EQ(located(sources, TextView(line).substr(2)), "[BB]1:3+2");
    EXPECT_EQ(located(sources, TextView(screen).substr(0, 1)), "[A]0:1+1");
    sources.addLine(line, 2);  // a line that is fetched again
    EXPECT_EQ(sources.lineOf(line), 2);
}

TEST(SourceMap, OtherTextsHaveNoPlace) {
    const Text screen = threeLines();
    const Text other = u"XYZ";
    SourceMap sources;
    EXPECT_EQ(located(sources, other), "[XYZ]");
    EXPECT_EQ(sources.lineOf(other), noLine);
    sources.addScreen(screen);
    EXPECT_EQ(located(sources, other), "[XYZ]");
    sources.clear();
    EXPECT_EQ(located(sources, TextView(screen).substr(160)), "[CDE]");
}

TEST(SourceMap, PiecesOfSeveralTextsFollowEachOther) {
    const Text screen = threeLines();
    const Text other = u"XYZ";
    SourceMap sources;
    sources.addScreen(screen);
    std::vector<ValuePiece> pieces;
    sources.locate(TextView(other).substr(0, 1), pieces);
    sources.locate(TextView(other).substr(2, 1), pieces);  // not where the first one ends
    sources.locate(TextView(screen).substr(160, 1), pieces);
    sources.locate(TextView(other).substr(0, 1), pieces);
    EXPECT_EQ(drawn(pieces), "[X][Z][C]2:1+1[X]");
}

TEST(SourceMap, AJoinedTextHasThePlacesOfItsPieces) {
    const Text screen = threeLines();
    const Text joined = u"AABCD";
    SourceMap sources;
    sources.addScreen(screen);
    std::vector<ValuePiece> pieces;
    sources.locate(TextView(screen).substr(0, 2), pieces);
    pieces.push_back({u"B", std::nullopt});
    sources.locate(TextView(screen).substr(160, 2), pieces);
    sources.addJoined(joined, pieces);
    EXPECT_EQ(located(sources, joined), "[AA]0:1+2[B][CD]2:1+2");
    EXPECT_EQ(located(sources, TextView(joined).substr(1, 3)), "[A]0:2+1[B][C]2:1+1");
    EXPECT_EQ(located(sources, TextView(joined).substr(4)), "[D]2:2+1");
    EXPECT_EQ(sources.lineOf(TextView(joined).substr(2)), noLine);
}

// A list that grows moves its texts, and another one may get their memory.
TEST(SourceMap, MemoryThatIsUsedAgainIsAnotherText) {
    Text memory = u"ABCDEFGHIJKLMNOPQRST";
    SourceMap sources;
    sources.addLine(memory, 4);
    EXPECT_EQ(located(sources, TextView(memory).substr(2, 2)), "[CD]4:3+2");
    memory.replace(2, 2, u"XY");
    EXPECT_EQ(located(sources, TextView(memory).substr(2, 2)), "[XY]");
    sources.addLine(TextView(memory).substr(2, 4), 5);
    EXPECT_EQ(located(sources, TextView(memory).substr(2, 4)), "[XYEF]5:1+4");
    EXPECT_EQ(located(sources, TextView(memory).substr(0, 2)), "[AB]");  // the text before was replaced
    sources.addLine(memory, 6);
    EXPECT_EQ(located(sources, memory), "[ABXYEFGHIJKLMNOPQRST]6:1+20");
}

// Texts that are joined

class NothingObserved final : public ReadingObserver {
    void observe(const ReadingStep& /*step*/) override {}
};

class JoinedTexts : public testing::Test {
protected:
    JoinedTexts() { watch_.readsScreen(screen_); }

    /// A line of the screen; the lines are "  AB  ", "CD" and blanks.
    TextView part(std::size_t line, std::size_t size) const { return TextView(screen_).substr(line * 80, size); }

    std::string locatedPieces(TextView text) { return located(terminal_.observation()->sources(), text); }

    NothingObserved observer_;
    BuiltInTerminal builtIn_;
    ObservedTerminal terminal_{builtIn_, &observer_};
    Watch watch_{terminal_};
    const Text screen_ = u"  AB  " + Text(74, u' ') + u"CD" + Text(78, u' ') + Text(80, u' ');
};

TEST_F(JoinedTexts, KnowTheirPieces) {
    JoinedText joined(watch_);
    joined.reserve(20);
    EXPECT_TRUE(joined.empty());
    joined.append(u"DROPPED");
    joined.assign(part(0, 4));
    joined.insert(u",");
    joined.append(part(1, 2));
    EXPECT_EQ(joined.size(), 7U);
    EXPECT_EQ(utf8(joined.view()), "  AB,CD");
    EXPECT_EQ(locatedPieces(joined.text()), "[  AB]0:1+4[,][CD]1:1+2");
}

TEST_F(JoinedTexts, LoseTheBlanksAtBothEnds) {
    JoinedText joined(watch_);
    joined.append(part(2, 3));
    joined.append(part(0, 6));
    joined.insert(u" ");
    joined.append(part(2, 2));
    joined.trim();
    EXPECT_EQ(locatedPieces(joined.text()), "[AB]0:3+2");
}

TEST_F(JoinedTexts, AreTrimmedToWholeParts) {
    JoinedText joined(watch_);
    joined.append(part(1, 2));
    joined.append(part(2, 20));
    joined.trim();
    EXPECT_EQ(locatedPieces(joined.text()), "[CD]1:1+2");
    joined.trim();
    EXPECT_EQ(locatedPieces(joined.text()), "[CD]1:1+2");
}

TEST_F(JoinedTexts, OfBlanksAreEmptyAfterwards) {
    JoinedText joined(watch_);
    joined.append(part(2, 20));
    joined.insert(u" ");
    joined.trim();
    EXPECT_TRUE(joined.empty());
    EXPECT_EQ(locatedPieces(joined.text()), "");
}

TEST_F(JoinedTexts, KeepTheirPlacesWhenTheyAreTaken) {
    JoinedText joined(watch_);
    joined.append(part(0, 40));
    joined.append(part(1, 2));
    const Text taken = std::move(joined).take();
    EXPECT_EQ(locatedPieces(TextView(taken).substr(40)), "[CD]1:1+2");
}

TEST_F(JoinedTexts, AreCopiedWithTheirPlaces) {
    const Text copy = u"CD";
    const Text counted = u"12";
    watch_.copied(copy, part(1, 2));
    watch_.copied(counted, {});
    EXPECT_EQ(locatedPieces(copy), "[CD]1:1+2");
    EXPECT_EQ(locatedPieces(counted), "[12]");
}

TEST(JoinedText, IsTheSameUnobserved) {
    JoinedText joined{Watch()};
    joined.assign(u"  A");
    joined.append(u"B");
    joined.insert(u" ");
    joined.trim();
    EXPECT_EQ(utf8(joined.text()), "AB");
    joined.trim();
    EXPECT_EQ(utf8(std::move(joined).take()), "AB");
}

}  // namespace
}  // namespace vantro
