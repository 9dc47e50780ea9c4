// Screens from text lines.
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vantro::test {
namespace {

Text padded(Text line) {
    line.resize(80, u' ');
    return line;
}

using NumbersAndLengths = std::vector<std::pair<std::size_t, std::size_t>>;

NumbersAndLengths longLinesOf(const JoinedLines& joined) {
    NumbersAndLengths lines;
    for (const LongLine& line : joined.longLines) lines.emplace_back(line.number, line.length);
    return lines;
}

TEST(JoinLines, PadsEveryLineButTheLast) {
    EXPECT_EQ(joinLines(u"PX3\n\nDONE").screen, padded(u"PX3") + padded(u"") + u"DONE");
    EXPECT_EQ(joinLines(TextList{u"PX3", u"", u"DONE"}).screen, padded(u"PX3") + padded(u"") + u"DONE");
}

TEST(JoinLines, LineEndsAreLfOrCrLf) {
    const Text screen = padded(u"PX3") + u"DONE";
    EXPECT_EQ(joinLines(u"PX3\r\nDONE\r\n").screen, screen);
    EXPECT_EQ(joinLines(u"PX3\nDONE\n").screen, screen);
    EXPECT_EQ(joinLines(TextList{u"PX3\r\n", u"DONE\n"}).screen, screen);
}

TEST(JoinLines, OneLineEndAfterTheLastLineBeginsNoLine) {
    EXPECT_EQ(joinLines(u"A\nB\n").screen, padded(u"A") + u"B");
    EXPECT_EQ(joinLines(u"A\nB\n\n").screen, padded(u"A") + padded(u"B"));
    EXPECT_EQ(joinLines(u"\n\n").screen, padded(u""));
}

TEST(JoinLines, PaddedLinesStayAsTheyAre) {
    const Text screen = padded(u"PX3") + padded(u"DONE");
    EXPECT_EQ(joinLines(padded(u"PX3") + u"\n" + padded(u"DONE") + u"\n").screen, screen);
    const Text first = padded(u"PX3");
    const Text second = padded(u"DONE");
    const std::vector<TextView> lines{first, second};
    EXPECT_EQ(joinLines(lines).screen, screen);
}

TEST(JoinLines, ATextOfOneLineIsAnUnbrokenScreen) {
    const Text unbroken(200, u'x');
    for (const Text& text : {unbroken, unbroken + u"\n", unbroken + u"\r\n"}) {
        EXPECT_EQ(joinLines(text).screen, unbroken);
        EXPECT_EQ(longLinesOf(joinLines(text)), NumbersAndLengths{});
    }
    EXPECT_EQ(joinLines(u"").screen, u"");
    EXPECT_EQ(joinLines(u"\n").screen, u"");
}

TEST(JoinLines, ASingleLineOfAListIsNoUnbrokenScreen) {
    const JoinedLines joined = joinLines(TextList{Text(200, u'x')});
    EXPECT_EQ(joined.screen, Text(80, u'x'));
    EXPECT_EQ(longLinesOf(joined), (NumbersAndLengths{{1, 200}}));
    EXPECT_EQ(joinLines(TextList{}).screen, u"");
    EXPECT_EQ(joinLines(TextList{u""}).screen, u"");
}

TEST(JoinLines, NamesTheLinesThatItCuts) {
    const JoinedLines joined = joinLines(Text(81, u'x') + u"\r\nB\n" + Text(80, u'y') + u"\n" + Text(200, u'z'));
    EXPECT_EQ(joined.screen, Text(80, u'x') + padded(u"B") + Text(80, u'y') + Text(80, u'z'));
    EXPECT_EQ(longLinesOf(joined), (NumbersAndLengths{{1, 81}, {4, 200}}));
}

TEST(JoinLines, ACarriageReturnInALineIsPartOfIt) { EXPECT_EQ(joinLines(u"A\rB\nC").screen, padded(u"A\rB") + u"C"); }

TEST(JoinLines, OfAScreenThatIsJoinedAlreadyIsThatScreen) {
    const Text screen = joinLines(u"PX3\nDONE\n").screen;
    EXPECT_EQ(joinLines(screen).screen, screen);
}

}  // namespace
}  // namespace vantro::test
