#include "display/line_bits.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vantro {
namespace {

/// A set of positions written as text: "1" for a position that is in the set.
using Written = std::string;

Written written(LineBits bits) {
    Written text(LineBits::capacity, '0');
    for (; bits.any(); bits.removeLowest()) text.at(bits.lowest()) = '1';
    return text;
}

LineBits bitsOf(const Written& text) {
    LineBits bits;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] == '1') bits = bits | LineBits::range(position, 1);
    }
    return bits;
}

/// True when the text, padded with zeros, contains these characters at a position.
bool isAt(const Written& text, std::size_t position, const Written& wanted) {
    const Written padded = text + Written(LineBits::capacity, '0');
    return padded.compare(position, wanted.size(), wanted) == 0;
}

/// Every position where the wanted characters begin.
Written positionsOf(const Written& text, const Written& wanted) {
    Written positions(LineBits::capacity, '0');
    for (std::size_t position = 0; position < positions.size(); ++position) {
        if (isAt(text, position, wanted)) positions[position] = '1';
    }
    return positions;
}

/// A set of random density.
Written randomSet(std::mt19937& engine) {
    Written text(LineBits::capacity, '0');
    const auto share = engine() % 10 + 1;
    for (char& position : text) position = engine() % 10 < share ? '1' : '0';
    return text;
}

TEST(LineBits, ContainsItsPositionsOnly) {
    const LineBits bits = LineBits::range(62, 3);
    for (std::size_t position = 0; position < LineBits::capacity; ++position) {
        EXPECT_EQ(bits.contains(position), position >= 62 && position <= 64) << position;
    }
}

TEST(LineBits, ARangeIsThePositionsFromItsBegin) {
    for (std::size_t begin = 0; begin < 140; ++begin) {
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{6}, std::size_t{63}}) {
            Written expected(LineBits::capacity, '0');
            for (std::size_t position = begin; position < begin + count && position < expected.size(); ++position) {
                expected[position] = '1';
            }
            EXPECT_EQ(written(LineBits::range(begin, count)), expected) << begin << ", " << count;
        }
    }
}

TEST(LineBits, AllPositionsFromABeginAreInTheSet) {
    for (std::size_t begin = 0; begin < 140; ++begin) {
        Written expected(LineBits::capacity, '1');
        for (std::size_t position = 0; position < begin && position < expected.size(); ++position) {
            expected[position] = '0';
        }
        EXPECT_EQ(written(LineBits::from(begin)), expected) << begin;
    }
}

TEST(LineBits, BlanksBeforeWordsOfALengthAndOneMoreAreFound) {
    std::mt19937 engine(1);
    for (int round = 0; round < 500; ++round) {
        const Written text = randomSet(engine);
        for (const unsigned length : {1U, 2U, 3U, 4U}) {
            const Written word = "1" + Written(length, '0') + "1";
            const Written longerWord = "1" + Written(length + 1, '0') + "1";
            Written expected = positionsOf(text, word);
            std::ranges::transform(expected, positionsOf(text, longerWord), expected.begin(),
                                   [](char one, char other) { return std::max(one, other); });
            EXPECT_EQ(written(bitsOf(text).beforeWords(length)), expected) << text;
        }
    }
}

TEST(LineBits, RunsOfALengthAreFound) {
    std::mt19937 engine(2);
    for (int round = 0; round < 500; ++round) {
        const Written text = randomSet(engine);
        for (const unsigned length : {2U, 5U, 7U}) {
            EXPECT_EQ(written(bitsOf(text).runs(length)), positionsOf(text, Written(length, '1'))) << text;
        }
    }
}

TEST(LineCharacters, AreComparedOneByOneInALineOfAnyLength) {
    std::mt19937 engine(3);
    const Text alphabet = u" /->F\u00AF\u012F\u202F\uFF2F";  // some share their low byte with the slash
    for (std::size_t length = 0; length <= LineBits::capacity; ++length) {
        Text line(length, u' ');
        for (char16_t& character : line) character = alphabet[engine() % alphabet.size()];
        Written blanks(LineBits::capacity, '1');
        Written slashes(LineBits::capacity, '0');
        for (std::size_t position = 0; position < length; ++position) {
            blanks[position] = line[position] == u' ' ? '1' : '0';
            slashes[position] = line[position] == u'/' ? '1' : '0';
        }
        withCharacters(line, [&](const auto& characters) {
            EXPECT_EQ(written(characters.blanks()), blanks) << length;
            EXPECT_EQ(written(characters.where('/')), slashes) << length;
        });
    }
}

}  // namespace
}  // namespace vantro
