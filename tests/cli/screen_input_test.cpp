#include "cli/io/screen_input.h"

#include "cli/io/failure.h"

#include <gtest/gtest.h>

namespace vantro {

namespace {

Text padded(Text line) {
    line.resize(80, u' ');
    return line;
}

TEST(ScreenInput, EveryLineButTheLastIsPaddedTo80) {
    EXPECT_EQ(screenFromText("PX3\n\nDONE"), padded(u"PX3") + padded(u"") + u"DONE");
}

TEST(ScreenInput, OneLineIsAnUnbrokenText) {
    const std::string unbroken(200, 'x');
    EXPECT_EQ(screenFromText(unbroken), Text(200, u'x'));
    EXPECT_EQ(screenFromText(unbroken + "\n"), Text(200, u'x'));
    EXPECT_EQ(screenFromText(""), u"");
    EXPECT_EQ(screenFromText("\n"), u"");
}

TEST(ScreenInput, OneLineEndAtTheVeryEndBeginsNoLine) {
    EXPECT_EQ(screenFromText("A\nB\n"), padded(u"A") + u"B");
    EXPECT_EQ(screenFromText("A\nB\n\n"), padded(u"A") + padded(u"B"));
}

TEST(ScreenInput, CarriageReturnsBelongToTheLineEnds) {
    EXPECT_EQ(screenFromText("A\r\nB\r\n"), padded(u"A") + u"B");
    EXPECT_EQ(screenFromText("A\r\n"), u"A");
}

TEST(ScreenInput, ALenientScreenIsCutAndMended) {
    std::vector<std::string> faults;
    EXPECT_EQ(lenientScreen("A\n" + std::string(81, 'B') + "\nC\xFF\n", faults),
              u"A" + Text(79, u' ') + Text(80, u'B') + u"C\uFFFD");
    EXPECT_EQ(faults, (std::vector<std::string>{
                          "bytes of the screen that are not UTF-8 were replaced",
                          "the screen's line 2 has 81 characters, a screen line has 80 at most; it was cut"}));
    faults.clear();
    EXPECT_EQ(lenientScreen("A", faults), u"A");
    EXPECT_TRUE(faults.empty());
}

TEST(ScreenInput, ACarriageReturnAloneIsNoLineEnd) {
    EXPECT_EQ(screenFromText("A\r"), u"A");
    for (const std::string text : {"A\n>\nB\rC\n", "A\nB\n\r\r\n"}) {
        try {
            screenFromText(text);
            ADD_FAILURE();
        } catch (const UsageError& problem) {
            EXPECT_STREQ(
                problem.what(),
                "the screen's line 3 contains a carriage return (CR) that no line feed (LF) follows; lines end in "
                "LF or CR LF, so convert the line ends, for example with: tr '\\r' '\\n'");
        }
    }
}

TEST(ScreenInput, AByteOrderMarkIsNotPartOfTheScreen) {
    EXPECT_EQ(screenFromText("\xEF\xBB\xBF"
                             "A\nB"),
              padded(u"A") + u"B");
}

TEST(ScreenInput, AnEndOfFileMarkIsNotPartOfTheScreen) {
    EXPECT_EQ(screenFromText("A\nB\n\x1A"), padded(u"A") + u"B");
    EXPECT_EQ(screenFromText("A\r\nB\r\n\x1A\r\n"), padded(u"A") + u"B");
    EXPECT_EQ(screenFromText("A\nB\x1A"), padded(u"A") + u"B\x1A");
    EXPECT_EQ(screenFromText("A\n\x1A\nB"), padded(u"A") + padded(u"\x1A") + u"B");
    EXPECT_EQ(screenFromText("\x1A"), u"");
}

TEST(ScreenInput, TheWidthIsCountedInCodeUnits) {
    std::string line;
    for (int i = 0; i < 80; ++i) line += "\xC3\xA9";
    EXPECT_EQ(screenFromText(line + "\nB"), Text(80, u'\u00E9') + u"B");
    std::string wide;
    for (int i = 0; i < 41; ++i) wide += "\xF0\x9F\x98\x80";
    EXPECT_THROW(screenFromText(wide + "\nB"), UsageError);
}

TEST(ScreenInput, ALineOver80AmongSeveralIsRefusedWithItsNumber) {
    try {
        screenFromText("A\n" + std::string(81, 'x') + "\nB\n");
        ADD_FAILURE();
    } catch (const UsageError& problem) {
        EXPECT_STREQ(problem.what(),
                     "the screen's line 2 has 81 characters, a screen line has 80 at most; break it there");
    }
    EXPECT_THROW(screenFromText("A\n" + std::string(81, 'x')), UsageError);
    EXPECT_EQ(screenFromText(std::string(80, 'x') + "\n" + std::string(80, 'y')), Text(80, u'x') + Text(80, u'y'));
}

std::string refusalOf(const std::string& screen, bool isLenient = false) {
    try {
        std::vector<std::string> faults;
        isLenient ? lenientScreen(screen, faults) : screenFromText(screen);
        return {};
    } catch (const UsageError& problem) {
        return problem.what();
    }
}

TEST(ScreenInput, BytesThatAreNotUtf8AreRefused) {
    EXPECT_EQ(refusalOf("A\xFF"),
              "the screen is not UTF-8; name its encoding with --encoding, for example windows-1252");
}

TEST(ScreenInput, TheZeroBytesOfUtf16AreRefused) {
    const std::string screen("P\0X\0\r\0\n\0Y\0", 10);
    const std::string refusal =
        "the screen looks like UTF-16 without a byte order mark; name it with --encoding utf-16, or utf-16be";
    EXPECT_EQ(refusalOf(screen), refusal);
    EXPECT_EQ(refusalOf(screen, true), refusal);
}

}  // namespace

}  // namespace vantro
