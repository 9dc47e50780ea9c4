#include "cli/io/encoding.h"

#include "tests/cli/byte_source.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

using namespace std::string_literals;
using test::allOf;
using test::bytesOf;

std::string converted(const std::string& bytes, Encoding encoding = Encoding::ByMark) {
    const std::string whole = allOf(inUtf8(bytesOf(bytes), encoding));
    for (const std::size_t step : {1U, 2U, 3U}) EXPECT_EQ(allOf(inUtf8(bytesOf(bytes, step), encoding), step), whole);
    return whole;
}

TEST(Encoding, WithoutAMarkIsUtf8AndStaysUnchanged) {
    EXPECT_EQ(converted(""), "");
    EXPECT_EQ(converted("P"), "P");
    EXPECT_EQ(converted("PDR/ZO\xC3\x8B\n\xFF"), "PDR/ZO\xC3\x8B\n\xFF");
}

TEST(Encoding, AMarkSaysWhichOneAndIsDropped) {
    EXPECT_EQ(converted("\xEF\xBB\xBFPDR"), "PDR");
    EXPECT_EQ(converted("\xFF\xFEP\0D\0\xCB\0\r\0\n\0"s), "PD\xC3\x8B\r\n");
    EXPECT_EQ(converted("\xFE\xFF\0P\0D\0\xCB"s), "PD\xC3\x8B");
    EXPECT_EQ(converted("\xFF\xFEP\0"s, Encoding::Utf16), "P");
    EXPECT_EQ(converted("\xFE\xFF\0P"s, Encoding::Utf16), "P");
}

TEST(Encoding, ANamedOneNeedsNoMark) {
    EXPECT_EQ(converted("P\0D\0"s, Encoding::Utf16), "PD");
    EXPECT_EQ(converted("P\0D\0"s, Encoding::Utf16Le), "PD");
    EXPECT_EQ(converted("\xFF\xFEP\0"s, Encoding::Utf16Le), "P");
    EXPECT_EQ(converted("\0P\0D"s, Encoding::Utf16Be), "PD");
    EXPECT_EQ(converted("\xFE\xFF\0P"s, Encoding::Utf16Be), "P");
    EXPECT_EQ(converted("ZO\xCB \x80", Encoding::Latin1), "ZO\xC3\x8B \xC2\x80");
    EXPECT_EQ(converted("ZO\xCB \x80\x9F", Encoding::Windows1252), "ZO\xC3\x8B \xE2\x82\xAC\xC5\xB8");
}

// Some files of a folder may have a mark.
TEST(Encoding, AMarkWinsOverTheNamedOne) {
    for (const Encoding named : {Encoding::Utf8, Encoding::Utf16, Encoding::Utf16Le, Encoding::Utf16Be,
                                 Encoding::Latin1, Encoding::Windows1252}) {
        EXPECT_EQ(converted("\xFF\xFEP\0\xCB\0"s, named), "P\xC3\x8B");
        EXPECT_EQ(converted("\xFE\xFF\0P\0\xCB"s, named), "P\xC3\x8B");
        EXPECT_EQ(converted("\xEF\xBB\xBFP\xC3\x8B", named), "P\xC3\x8B");
    }
}

TEST(Encoding, CharactersOfTwoUnitsAreOne) {
    EXPECT_EQ(converted("\xFF\xFE\x3D\xD8\x00\xDE"s), "\xF0\x9F\x98\x80");  // U+1F600
}

// The tool reports a line that is not UTF-8.
TEST(Encoding, WhatDoesNotBelongToItBecomesBytesThatAreNotUtf8) {
    EXPECT_EQ(converted("\xFF\xFE\x3D\xD8P\0"s), "\xFFP");          // the first half of a character
    EXPECT_EQ(converted("\xFF\xFE\x00\xDEP\0"s), "\xFFP");          // the second half
    EXPECT_EQ(converted("\xFF\xFEP\0\x3D\xD8"s), "P\xFF");          // the input ends in a character
    EXPECT_EQ(converted("\xFF\xFEP\0D"s), "P\xFF");                 // the input ends in a unit
    EXPECT_EQ(converted("P\x81", Encoding::Windows1252), "P\xFF");  // no character
    EXPECT_EQ(converted("P\0"s, Encoding::Windows1252), "P\0"s);
}

TEST(Encoding, ZeroBytesAtEverySecondPositionLookLikeUtf16) {
    EXPECT_TRUE(looksLikeUtf16("P\0D\0R\0\r\0"s));
    EXPECT_TRUE(looksLikeUtf16("\0P\0D\0R\0\r"s));
    EXPECT_TRUE(looksLikeUtf16("\0\r\0"s));
    EXPECT_TRUE(looksLikeUtf16("P\0D\0R\0/\0A\0 \0\xAC\x20 \0"s)) << "the euro sign has no zero byte";
    EXPECT_FALSE(looksLikeUtf16(""));
    EXPECT_FALSE(looksLikeUtf16("PDR"));
    EXPECT_FALSE(looksLikeUtf16("PDR\0\0\0\0\0\0\0\0"s)) << "fields that are padded with zeros";
    EXPECT_FALSE(looksLikeUtf16("PDR\0A\0\0\0"s));
}

TEST(Encoding, LongTextsAreConvertedInBlocks) {
    std::string units = "\xFF\xFE";
    std::string text;
    for (int i = 0; i < 100'000; ++i) {
        units += "\x3D\xD8\x00\xDE"s;
        text += "\xF0\x9F\x98\x80";
    }
    EXPECT_EQ(allOf(inUtf8(bytesOf(units, 65'535), Encoding::ByMark)), text);
}

TEST(Encoding, IsFoundByItsNameInAnyCase) {
    EXPECT_EQ(encodingNamed("UTF-16LE"), Encoding::Utf16Le);
    EXPECT_EQ(encodingNamed("auto"), Encoding::ByMark);
    EXPECT_EQ(encodingNamed("cp1252"), Encoding::Windows1252);
    EXPECT_EQ(encodingNamed("Latin1"), Encoding::Latin1);
    EXPECT_EQ(encodingNamed("utf8"), Encoding::Utf8);
    EXPECT_EQ(encodingNamed("utf16"), Encoding::Utf16);
    EXPECT_EQ(encodingNamed("utf16le"), Encoding::Utf16Le);
    EXPECT_EQ(encodingNamed("utf16be"), Encoding::Utf16Be);
    EXPECT_EQ(encodingNamed("ebcdic"), std::nullopt);
    EXPECT_EQ(encodingNames(), "auto, utf-8, utf-16, utf-16le, utf-16be, latin-1, windows-1252");
}

}  // namespace
}  // namespace vantro
