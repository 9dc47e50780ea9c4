// ASCII is copied up to the first other character, at any place of texts of any length.
#include "cli/io/ascii.h"
#include "cli/io/utf.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro {

namespace {

constexpr std::size_t longest = 50;

TEST(Ascii, BytesAreWidenedUpToTheFirstOtherOneOrTheStop) {
    for (std::size_t length = 0; length <= longest; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            for (const char other : {'\x80', '\xFF', '\\'}) {
                std::string bytes(length, '\x7F');
                if (place < length) bytes[place] = other;
                Text widened(length, u'?');
                ASSERT_EQ(widenPlain(bytes, '\\', widened.data()), place) << length;
                EXPECT_EQ(widened.substr(0, place), Text(place, u'\x7F')) << length;
            }
        }
    }
}

TEST(Ascii, UnitsAreNarrowedUpToTheFirstOtherOne) {
    for (std::size_t length = 0; length <= longest; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            for (const char16_t other : {u'\x80', u'\xFF', u'\u0141', u'\u7F41', char16_t{0x8000}, char16_t{0xFFFF}}) {
                Text units(length, u'\0');
                if (place < length) units[place] = other;
                std::string narrowed(length, '?');
                ASSERT_EQ(narrowAscii(units, narrowed.data()), place) << length << " " << unsigned{other};
                EXPECT_EQ(narrowed.substr(0, place), std::string(place, '\0')) << length;
            }
        }
    }
}

TEST(Ascii, TextIsEveryCharacterFromTheBlankToTheEndOfAscii) {
    for (unsigned code = 0; code < 256; ++code) {
        for (std::size_t place = 0; place < AsciiBlock::size; ++place) {
            std::string bytes(AsciiBlock::size, '~');
            bytes[place] = static_cast<char>(code);
            const unsigned expected = code < 0x20 || code >= 0x80 ? 1U << place : 0;
            EXPECT_EQ(AsciiBlock::load(bytes.data()).outsideText(), expected) << code;
        }
    }
}

}  // namespace

}  // namespace vantro
