#include "cli/batch/line_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vantro {

namespace {

// Returns a text in pieces of this size.
class Pieces {
public:
    Pieces(std::string text, std::size_t size) : text_(std::move(text)), size_(size) {}

    std::size_t operator()(std::span<char> bytes) {
        const std::size_t count = std::min({size_, bytes.size(), text_.size() - given_});
        std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(given_), count, bytes.begin());
        given_ += count;
        return count;
    }

private:
    std::string text_;
    std::size_t size_;
    std::size_t given_ = 0;
};

using Lines = std::vector<std::string>;

// The lines must not depend on the pieces of the stream nor on the block size.
Lines linesIn(const std::string& text) {
    std::vector<Lines> all;
    for (const std::size_t piece : {1U, 2U, 3U, 7U, 1000U}) {
        for (const std::size_t block : {1U, 16U, 4096U}) {
            LineReader reader(Pieces(text, piece), defaultMaxLine, block);
            Lines lines;
            while (const auto line = reader.next()) lines.emplace_back(line->begin(), line->end());
            all.push_back(lines);
        }
    }
    for (const Lines& lines : all) EXPECT_EQ(lines, all.front());
    return all.front();
}

TEST(LineReader, AnEmptyStreamHasNoLines) { EXPECT_EQ(linesIn(""), Lines{}); }

TEST(LineReader, NoLineFollowsTheLastLineEnd) { EXPECT_EQ(linesIn("a\nbc\n"), (Lines{"a", "bc"})); }

TEST(LineReader, ALastLineWithoutLineEndCounts) { EXPECT_EQ(linesIn("a\nbc"), (Lines{"a", "bc"})); }

TEST(LineReader, EmptyLinesAreLines) { EXPECT_EQ(linesIn("\n\na\n\n"), (Lines{"", "", "a", ""})); }

TEST(LineReader, ACarriageReturnStays) { EXPECT_EQ(linesIn("a\r\nb\r"), (Lines{"a\r", "b\r"})); }

TEST(LineReader, AByteOrderMarkAtTheStartIsSkipped) {
    EXPECT_EQ(linesIn("\xEF\xBB\xBF"
                      "a\n"),
              Lines{"a"});
    EXPECT_EQ(linesIn("\xEF\xBB\xBF\n"), Lines{""});
    EXPECT_EQ(linesIn("\xEF\xBB\xBF"), Lines{});
}

TEST(LineReader, AByteOrderMarkElsewhereStays) {
    EXPECT_EQ(linesIn("a\n\xEF\xBB\xBF"
                      "b\n"),
              (Lines{"a",
                     "\xEF\xBB\xBF"
                     "b"}));
    EXPECT_EQ(linesIn("\xEF\xBB\xBF\xEF\xBB\xBF\n"), Lines{"\xEF\xBB\xBF"});
}

TEST(LineReader, ALineOfManyBlocksIsReturnedWhole) {
    const std::string longLine(10'000, 'x');
    EXPECT_EQ(linesIn("a\n" + longLine + "\nb\n"), (Lines{"a", longLine, "b"}));
}

TEST(LineReader, TheNextLineIsAvailableOnceItsLineEndIsRead) {
    LineReader reader(Pieces("ab\ncd\nef", 7), defaultMaxLine, 4096);
    EXPECT_FALSE(reader.isNextHere());
    ASSERT_TRUE(reader.next());
    EXPECT_TRUE(reader.isNextHere());
    ASSERT_TRUE(reader.next());
    EXPECT_FALSE(reader.isNextHere());
    ASSERT_TRUE(reader.next());
    EXPECT_FALSE(reader.next());
}

TEST(LineReader, TheByteAfterALineMayBeWritten) {
    LineReader reader(Pieces("ab\ncd", 100), defaultMaxLine, 4096);
    for (const std::string wanted : {"ab", "cd"}) {
        const auto line = reader.next();
        ASSERT_TRUE(line);
        line->data()[line->size()] = '\0';
        EXPECT_EQ(line->data(), wanted);
    }
}

// A line that is too long is shown as "too long".
Lines linesUpTo(std::size_t maxLine, const std::string& text, std::size_t piece, std::size_t block) {
    LineReader reader(Pieces(text, piece), maxLine, block);
    Lines lines;
    while (const auto line = reader.next()) {
        lines.emplace_back(line->begin(), line->end());
        if (!reader.wasTooLong()) continue;
        EXPECT_EQ(lines.back(), "");
        lines.back() = "too long";
    }
    return lines;
}

TEST(LineReader, ALineThatIsTooLongIsEmptyAndDoesNotAffectTheOthers) {
    const std::string five = "abcde";
    const std::string six = "abcdef";
    const std::string many(1000, 'x');
    for (const std::size_t piece : {1U, 2U, 3U, 7U, 2000U}) {
        for (const std::size_t block : {1U, 5U, 6U, 16U, 4096U}) {
            const auto lines = [&](const std::string& text) { return linesUpTo(5, text, piece, block); };
            EXPECT_EQ(lines(five + "\n" + six + "\n" + five), (Lines{five, "too long", five}));
            EXPECT_EQ(lines(many + "\n\n" + many + "\na\n"), (Lines{"too long", "", "too long", "a"}));
            EXPECT_EQ(lines("a\n" + many), (Lines{"a", "too long"}));
            EXPECT_EQ(lines(many + "\n"), (Lines{"too long"}));
        }
    }
}

}  // namespace

}  // namespace vantro
