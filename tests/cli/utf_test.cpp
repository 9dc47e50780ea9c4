#include "cli/io/utf.h"

#include <gtest/gtest.h>

namespace vantro {

namespace {

struct Sample {
    const char* rule;
    std::string utf8;
    Text text;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.rule; }

class WellFormed : public testing::TestWithParam<Sample> {};

INSTANTIATE_TEST_SUITE_P(
    Utf, WellFormed,
    testing::Values(Sample{"empty", "", u""}, Sample{"ascii", "PX3", u"PX3"},
                    Sample{"sixteen bytes at a time", std::string(37, 'A'), Text(37, u'A')},
                    Sample{"smallest and largest of two bytes", "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
                    Sample{"smallest and largest of three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
                    Sample{"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},
                    Sample{"smallest and largest of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
                           u"\U00010000\U0010FFFF"},
                    Sample{"a zero character", std::string("a\0b", 3), Text(u"a\0b", 3)},
                    Sample{"after a block of ascii", "0123456789abcdef\xC3\xA9z", u"0123456789abcdef\u00E9z"}));

TEST_P(WellFormed, IsDecodedToCodeUnits) { EXPECT_EQ(toUtf16(GetParam().utf8), GetParam().text); }
TEST_P(WellFormed, IsEncodedToTheSameBytes) { EXPECT_EQ(toUtf8(GetParam().text), GetParam().utf8); }
TEST_P(WellFormed, IsUtf8) { EXPECT_TRUE(isUtf8(GetParam().utf8)); }

class Malformed : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Utf, Malformed,
                         testing::Values("\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
                                         "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF",
                                         "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xC3(", "\xE2\x82(",
                                         "0123456789abcdef\xFF"));

TEST_P(Malformed, IsNotUtf8) { EXPECT_FALSE(isUtf8(GetParam())); }
TEST_P(Malformed, IsDecodedWithReplacementCharacters) {
    EXPECT_NE(toUtf16(GetParam()).find(replacementCharacter), Text::npos);
}

TEST(Utf, BytesThatBeginNoCharacterAreReplacedOneByOne) { EXPECT_EQ(toUtf16("a\xFF\x80z"), u"a\uFFFD\uFFFDz"); }

TEST(Utf, AnUnpairedSurrogateIsWrittenAsReplacementCharacter) {
    EXPECT_EQ(toUtf8(Text{u'a', char16_t{0xD83D}}), "a\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(Text{char16_t{0xDE00}, u'b'}),
              "\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(toUtf8(Text{char16_t{0xD83D}, char16_t{0xD83D}, char16_t{0xDE00}}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(Utf, AsciiIsBelow128) {
    EXPECT_TRUE(isAscii("plain text of more than sixteen bytes\x7F"));
    EXPECT_FALSE(isAscii("sixteen bytes, then \x80"));
}

TEST(Utf, ALongQuotedTextIsShortened) {
    EXPECT_EQ(inQuotes(u"CPXTrans"), "\"CPXTrans\"");
    EXPECT_EQ(inQuotes(Text(61, u'x')), "\"" + std::string(60, 'x') + "...\"");
}

TEST(Utf, WideningEndsAtTheStopCharacter) {
    const std::string text = "0123456789ABCDEF\xC3\xA9\xF0\x9F\x98\x80 0123456789ABCDEF";
    for (std::size_t place = 0; place <= text.size(); ++place) {
        if (place < text.size() && (text[place] & 0xC0) == 0x80) continue;  // inside a character
        const std::string head = text.substr(0, place);
        const std::string whole = head + "|\xC3\xA9";
        Text target(whole.size(), u'?');
        const Widened widened = widen(whole, '|', target.data());
        EXPECT_EQ(widened.bytes, place);
        EXPECT_EQ(target.substr(0, widened.units), toUtf16(head));
    }
}

TEST(Utf, MendingReplacesTheBytesThatBelongToNoCharacter) {
    std::string text = "a\xC3\xA9\xFFz\xE2\x82";
    mendUtf8(text);
    EXPECT_EQ(text, "a\xC3\xA9?z??");
}

TEST(Utf, TheLengthInUtf16IsTheTextsLength) {
    for (const std::string text :
         {"", "A", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "a\xC3\xA9\xF0\x9F\x98\x80z"}) {
        EXPECT_EQ(utf16Length(text), toUtf16(text).size()) << text;
    }
}

}  // namespace

}  // namespace vantro
