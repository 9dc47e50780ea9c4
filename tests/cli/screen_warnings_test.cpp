#include "cli/io/screen_warnings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Texts = std::vector<std::string>;

TEST(ScreenWarnings, AreNoneForAGoodScreen) {
    EXPECT_EQ(screenWarnings(u""), Texts{});
    EXPECT_EQ(screenWarnings(u" ~\u00A0\u2028" + Text(200, u'x')), Texts{});
}

TEST(ScreenWarnings, NameTheFirstOfEachKindWithItsPosition) {
    EXPECT_EQ(screenWarnings(u"PX3\nDONE"), Texts{"the screen contains a line end in line 1, column 4; a screen is "
                                                  "lines of 80 characters without line ends, or a list of lines"});
    EXPECT_EQ(screenWarnings(Text(160, u' ') + u"  \t\t"),
              Texts{"the screen contains 2 tabs, the first in line 3, column 3; replace tabs by the blanks that they "
                    "stand for"});
    EXPECT_EQ(screenWarnings(Text(79, u' ') + u"\u001B"),
              Texts{"the screen contains a control character in line 1, column 80 (U+001B)"});
}

TEST(ScreenWarnings, AreOneForEachKind) {
    const Texts warnings = screenWarnings(
        u"A\u0085B\tC\r\nD\u0000E"
        u"\u007F");
    ASSERT_EQ(warnings.size(), 3U);
    EXPECT_NE(warnings[0].find("2 line ends, the first in line 1, column 6"), std::string::npos) << warnings[0];
    EXPECT_NE(warnings[1].find("a tab in line 1, column 4"), std::string::npos) << warnings[1];
    EXPECT_NE(warnings[2].find("control character"), std::string::npos) << warnings[2];
}

TEST(ScreenWarnings, KnowEveryControlCharacter) {
    for (char16_t unit = 0; unit < 0x120; ++unit) {
        const bool isControl = unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
        for (const std::size_t length : {5U, 80U, 200U}) {
            EXPECT_EQ(screenWarnings(Text(length, unit)).size(), isControl ? 1U : 0U) << static_cast<int>(unit);
        }
    }
}

TEST(ScreenWarnings, FindOneControlCharacterAtEveryPosition) {
    for (const char16_t other : {u' ', u'\u00A0', u'\u8000', u'\uFFFF'}) {
        for (const char16_t control : {u'\u0000', u'\u001F', u'\u007F', u'\u009F'}) {
            for (std::size_t at = 0; at < 170; ++at) {
                Text screen(170, other);
                EXPECT_EQ(screenWarnings(screen), Texts{});
                screen[at] = control;
                EXPECT_EQ(screenWarnings(screen).size(), 1U) << at;
            }
        }
    }
}

}  // namespace
}  // namespace vantro::test
