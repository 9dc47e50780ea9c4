// Texts split into chunks and displays, with every block size.
#include "cli/io/displays.h"
#include "cli/io/utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vantro {

namespace {

ByteSource bytesOf(std::string text) {
    return [text = std::move(text), at = std::size_t{0}](std::span<char> bytes) mutable {
        const std::size_t count = std::min(bytes.size(), text.size() - at);
        std::copy_n(text.data() + at, count, bytes.data());
        at += count;
        return count;
    };
}

std::vector<std::string> chunksOf(const std::string& text, std::size_t block = ChunkReader::defaultBlock,
                                  const Splitting& splitting = {}) {
    ChunkReader reader(bytesOf(text), block, defaultMaxLine, splitting);
    std::vector<std::string> chunks;
    while (auto chunk = reader.next()) chunks.push_back(std::move(*chunk));
    return chunks;
}

std::vector<std::string> displaysOf(const std::string& text, std::size_t block = ChunkReader::defaultBlock) {
    std::vector<std::string> found;
    for (const std::string& chunk : chunksOf(text, block)) {
        ChunkDisplays displays(chunk);
        while (auto display = displays.next()) {
            EXPECT_EQ(display->faulty.fault, LineFault::None);
            found.push_back(toUtf8(display->text));
        }
    }
    return found;
}

/// The displays as "title: text", or the fault's description.
std::vector<std::string> titledDisplaysOf(const std::string& text, const Splitting& splitting,
                                          std::size_t block = ChunkReader::defaultBlock) {
    std::vector<std::string> found;
    std::size_t linesAbove = 0;
    for (const std::string& chunk : chunksOf(text, block, splitting)) {
        ChunkDisplays displays(chunk, splitting);
        while (auto display = displays.next()) {
            const std::string fault = describe(display->faulty, linesAbove, defaultMaxLine);
            found.push_back(display->title + ": " + (fault.empty() ? toUtf8(display->text) : fault));
        }
        linesAbove += displays.lines();
    }
    return found;
}

std::string padded(std::string line) {
    line.resize(80, ' ');
    return line;
}

using Displays = std::vector<std::string>;

TEST(SplitDisplays, EndWithTheEndTextOrAPromptAlone) {
    EXPECT_EQ(displaysOf("A\nEND OF DISPLAY\nB\n>\nC\n"),
              (Displays{padded("A") + "END OF DISPLAY", padded("B") + ">", "C"}));
    EXPECT_EQ(displaysOf("A\n  > \nB"), (Displays{padded("A") + "  > ", "B"}));
    EXPECT_EQ(displaysOf("A\n--- END OF DISPLAY ---\nB"), (Displays{padded("A") + "--- END OF DISPLAY ---", "B"}));
}

TEST(SplitDisplays, APromptWithOtherTextInItsLineIsNoEnd) {
    EXPECT_EQ(displaysOf(">PDR/A\n-> >\nB"), (Displays{padded(">PDR/A") + padded("-> >") + "B"}));
}

TEST(SplitDisplays, PartOfTheEndTextIsNoEnd) {
    EXPECT_EQ(
        displaysOf("END OF DISPLA\nND OF DISPLAY\nEND OF  DISPLAY\nYY\nB"),
        (Displays{padded("END OF DISPLA") + padded("ND OF DISPLAY") + padded("END OF  DISPLAY") + padded("YY") + "B"}));
}

TEST(SplitDisplays, BlankLinesAndPromptsBelowAnEndBelongToIt) {
    EXPECT_EQ(displaysOf("A\nEND OF DISPLAY\n\n>\n\nB\n>\n"),
              (Displays{padded("A") + padded("END OF DISPLAY") + padded("") + ">", padded("B") + ">"}));
}

TEST(SplitDisplays, BlankLinesBeforeTheFirstOneCount) {
    EXPECT_EQ(displaysOf("\nA\n>\n"), (Displays{padded("") + padded("A") + ">"}));
}

TEST(SplitDisplays, ABlankTextContainsNone) {
    EXPECT_EQ(displaysOf(""), Displays{});
    EXPECT_EQ(displaysOf("\n  \r\n\n"), Displays{});
    EXPECT_EQ(displaysOf("\xEF\xBB\xBF"), Displays{});
}

TEST(SplitDisplays, CarriageReturnsAndAByteOrderMarkAreNotPartOfThem) {
    EXPECT_EQ(displaysOf("\xEF\xBB\xBF"
                         "A\r\n>\r\nB\r\n"),
              (Displays{padded("A") + ">", "B"}));
}

TEST(SplitDisplays, AnUnbrokenTextIsSplitInto80Characters) {
    const std::string first = padded("A") + padded("B") + padded("END OF DISPLAY");
    EXPECT_EQ(displaysOf(first + padded("C") + ">"), (Displays{first, padded("C") + ">"}));
    EXPECT_EQ(displaysOf(first + "\r\n"), Displays{first});
    // The end text does not count when it spans two lines.
    const std::string across = std::string(76, 'A') + "END OF DISPLAY";
    EXPECT_EQ(displaysOf(across + padded("").substr(14)).size(), 1U);
    EXPECT_EQ(displaysOf(std::string(79, 'A') + "\xC3\xA9" + "B"), Displays{std::string(79, 'A') + "\xC3\xA9" + "B"});
}

TEST(SplitDisplays, ALineOfMoreThan80CharactersMakesOnlyItsDisplayUnreadable) {
    const std::string chunk = "A\n>\nB\n" + std::string(81, 'X') + "\n" + std::string(90, 'X') + "\n>\nC\n";
    ChunkDisplays displays(chunk);
    EXPECT_EQ(displays.next()->faulty.fault, LineFault::None);
    const auto spoiled = displays.next();
    ASSERT_TRUE(spoiled);
    EXPECT_EQ(spoiled->faulty.fault, LineFault::TooLong);
    EXPECT_EQ(spoiled->faulty.line, 4U);
    EXPECT_EQ(spoiled->faulty.length, 81U);
    const auto next = displays.next();
    ASSERT_TRUE(next);
    EXPECT_EQ(next->faulty.fault, LineFault::None);
    EXPECT_EQ(next->text, u"C");
    EXPECT_FALSE(displays.next());
    EXPECT_EQ(displays.lines(), 7U);
}

TEST(SplitDisplays, ALineMayHave80CharactersOfAnyNumberOfBytes) {
    std::string line;
    for (int i = 0; i < 80; ++i) line += "\xC3\x85";
    EXPECT_EQ(displaysOf(line + "\n>\n"), (Displays{line + ">"}));
}

TEST(SplitDisplays, OtherThanAsciiMayStandAtAnyPlaceOfAnyLine) {
    for (std::size_t place = 0; place < 80; ++place) {
        std::string line(79, 'x');
        line.replace(place, 0, "\xC3\x85");
        const std::string shorter = line.substr(0, place + 2);
        EXPECT_EQ(displaysOf("A\n" + line + "\n" + shorter + "\nB"),
                  Displays{padded("A") + line + shorter + std::string(79 - place, ' ') + "B"});
    }
}

TEST(SplitDisplays, AnyNumberOfBlankLinesMayPrecedeALine) {
    for (std::size_t blank = 0; blank < 70; ++blank) {
        const std::string blanks(blank, '\n');
        EXPECT_EQ(displaysOf(blanks + "A\n" + blanks + "B\xC3\x85\n" + blanks + "C\n"),
                  Displays{std::string(80 * blank, ' ') + padded("A") + std::string(80 * blank, ' ') + "B\xC3\x85" +
                           std::string(78, ' ') + std::string(80 * blank, ' ') + "C"});
    }
}

TEST(SplitDisplays, ALineMayContainTheEndTextTwice) {
    EXPECT_EQ(displaysOf("A\nEND OF DISPLAY END OF DISPLAY\nB\nEND OF DISPLAYEND OF DISPLAY\n>\nC"),
              (Displays{padded("A") + "END OF DISPLAY END OF DISPLAY",
                        padded("B") + padded("END OF DISPLAYEND OF DISPLAY") + ">", "C"}));
}

TEST(SplitDisplays, BytesThatAreNotUtf8MakeOnlyTheirDisplayUnreadable) {
    ChunkDisplays displays("A\n>\n\xFF\n>\n\xC3\x85\n");
    EXPECT_EQ(displays.next()->faulty.fault, LineFault::None);
    EXPECT_EQ(displays.next()->faulty.fault, LineFault::NotUtf8);
    EXPECT_EQ(displays.next()->text, u"\u00C5");
}

// The lines of the first display of a chunk, from 1, as they are found from the rows of its text.
std::vector<std::size_t> lineNumbersOf(const FoundDisplay& display) {
    std::vector<std::size_t> numbers;
    for (std::size_t row = 0; row * 80 < display.text.size(); ++row) numbers.push_back(display.lineOf(row));
    return numbers;
}

TEST(FoundDisplay, KnowsItsFirstLineAndItsEnd) {
    ChunkDisplays displays("\nA\nEND OF DISPLAY\n>\n\nB\n>\n>\nC");
    const auto first = displays.next();
    EXPECT_EQ(first->line, 1U);
    EXPECT_EQ(first->end, DisplayEnd::EndText);
    const auto second = displays.next();
    EXPECT_EQ(second->line, 6U);
    EXPECT_EQ(second->end, DisplayEnd::Prompt);
    const auto third = displays.next();
    EXPECT_EQ(third->line, 9U);
    EXPECT_EQ(third->end, DisplayEnd::None);
    EXPECT_EQ(lineNumbersOf(*second), (std::vector<std::size_t>{6, 7, 8}));
}

TEST(FoundDisplay, NamesLinesWithControlCharactersAnywhereInTheChunk) {
    for (std::size_t place = 0; place < 80; ++place) {
        std::string line(80, 'x');
        line[place] = '\t';
        const std::string chunk = "A\nB\r\n" + line + "\r\nC\n" + line + "\n" + std::string(100, '\n') + ">\n";
        ChunkDisplays displays(chunk);
        const auto display = displays.next();
        EXPECT_EQ(display->controlLines, (std::vector<std::size_t>{3, 5})) << place;
        EXPECT_EQ(toUtf8(display->text.substr(160, 80)), line) << place;
        EXPECT_EQ(display->faulty.fault, LineFault::None);
    }
}

TEST(FoundDisplay, ATextKeepsItsMemoryWhenItIsMoved) {
    ChunkDisplays displays("A");
    auto display = displays.next();
    const TextView text = display->text;
    const Text moved = std::move(display->text);
    EXPECT_EQ(moved.data(), text.data());
}

TEST(Separators, BeginDisplaysAndNameThem) {
    const Splitting equalSigns{.separator = "=="};
    const std::string text =
        "== FIRST  OF ALL \nA\n>\n==SECOND\r\nB\nC\n==\nD\nEND OF DISPLAY\n>\nE\n  == NOT ONE\n==  \xC3\x85\nF\n";
    const Displays expected{"FIRST  OF ALL: " + padded("A") + ">", "SECOND: " + padded("B") + "C",
                            ": " + padded("D") + padded("END OF DISPLAY") + ">", ": " + padded("E") + "  == NOT ONE",
                            "\xC3\x85: F"};
    EXPECT_EQ(titledDisplaysOf(text, equalSigns), expected);
    for (std::size_t block = 1; block < 90; ++block) {
        EXPECT_EQ(titledDisplaysOf(text, equalSigns, block), expected) << block;
    }
}

TEST(Separators, ATitleWithoutADisplayIsReportedAndOthersAreSkipped) {
    const Splitting hyphens{.separator = "--"};
    EXPECT_EQ(titledDisplaysOf("\n--\n\n-- ONE\n\n-- TWO\nA\n--\n--\n\n-- THREE\n\n", hyphens),
              (Displays{"ONE: no display follows the separator in line 4", "TWO: A",
                        "THREE: no display follows the separator in line 11"}));
    EXPECT_EQ(titledDisplaysOf("A\n>\n--\n", hyphens), Displays{": " + padded("A") + ">"});
}

const std::string notUtf8 =
    " is not UTF-8; name its encoding with --encoding, for example windows-1252, or replace such bytes with --lenient";

TEST(Separators, ATitleThatIsNotUtf8MakesItsDisplayUnreadable) {
    EXPECT_EQ(titledDisplaysOf("## ONE\nA\n##\xFF\nB\n## THREE\nC\n", {.separator = "##"}),
              (Displays{"ONE: A", ": line 3" + notUtf8, "THREE: C"}));
    EXPECT_EQ(titledDisplaysOf("##\xFF\n\n## TWO\nC\n", {.separator = "##"}),
              (Displays{": line 1" + notUtf8, "TWO: C"}));
}

TEST(Separators, BlankLinesBelowOneBelongToTheDisplay) {
    EXPECT_EQ(titledDisplaysOf("--\n\nA\n", {.separator = "--"}), Displays{": " + padded("") + "A"});
}

TEST(Pages, AreJoinedUpToTheEndText) {
    const Splitting pages{.pages = true};
    const std::string text =
        "A\nB\n>\nC\n\n\n>PDMD\nPDMD\n\n D\n  END OF BLOCK - USE PDMD\n>\nE\nEND OF DISPLAY\n>\nF\n>\n";
    const Displays expected{
        ": " + padded("A") + padded("B") + padded("C") + padded(" D") + padded("E") + padded("END OF DISPLAY") + ">",
        ": " + padded("F") + ">"};
    EXPECT_EQ(titledDisplaysOf(text, pages), expected);
    for (std::size_t block = 1; block < 120; ++block)
        EXPECT_EQ(titledDisplaysOf(text, pages, block), expected) << block;
}

TEST(Pages, EndAtSeparators) {
    EXPECT_EQ(titledDisplaysOf("== X\nA\n>\nB\n>\n== Y\nC\n>\n", {.pages = true, .separator = "=="}),
              (Displays{"X: " + padded("A") + padded("B") + ">", "Y: " + padded("C") + ">"}));
}

TEST(Pages, BlankLinesAndTheWordPdmdInsideAPageRemain) {
    EXPECT_EQ(titledDisplaysOf("A\n\nPDMD\n>\nB\n", {.pages = true}),
              Displays{": " + padded("A") + padded("") + padded("PDMD") + "B"});
}

TEST(Pages, LeaveTheNumbersOfLinesCorrect) {
    const Splitting pages{.pages = true};
    ChunkDisplays displays("A\nB\n\n>\nC\n>\nPDMD\nD\n\tE\nEND OF DISPLAY\n", pages);
    const auto display = displays.next();
    EXPECT_EQ(lineNumbersOf(*display), (std::vector<std::size_t>{1, 2, 5, 8, 9, 10}));
    EXPECT_EQ(display->controlLines, std::vector<std::size_t>{9});
    EXPECT_EQ(displays.lines(), 10U);
}

TEST(Pages, AJoinedTextIsTheSameForEveryLengthOfAPage) {
    std::string whole;
    for (int i = 0; i < 60; ++i)
        whole += std::string(static_cast<std::size_t>(1 + i), static_cast<char>('A' + i % 26)) + "\n";
    const std::string end = "END OF DISPLAY\n";
    for (std::size_t length = 1; length < 62; ++length) {
        std::string paged;
        std::size_t lines = 0;
        for (const char byte : whole) {
            paged += byte;
            if (byte == '\n' && ++lines % length == 0) paged += ">\n";
        }
        EXPECT_EQ(titledDisplaysOf(paged + end, {.pages = true}), titledDisplaysOf(whole + end, {})) << length;
    }
}

TEST(Chunks, ContainWholeDisplaysAndTheWholeText) {
    std::string text;
    for (int i = 0; i < 200; ++i) {
        text += "PDR/A" + std::to_string(i) + "\n*T*\n" + (i % 3 == 0 ? ">\n" : "END OF DISPLAY\n>\n\n");
    }
    const Displays whole = displaysOf(text);
    ASSERT_EQ(whole.size(), 200U);
    for (std::size_t block = 81; block < 300; block += 7) {
        EXPECT_EQ(displaysOf(text, block), whole) << block;
        std::string joined;
        for (const std::string& chunk : chunksOf(text, block)) joined += chunk;
        EXPECT_EQ(joined, text) << block;
    }
    EXPECT_GT(chunksOf(text, 300).size(), text.size() / 600);
}

TEST(Chunks, OfAnUnbrokenTextDoNotDependOnTheBlockSize) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += padded("PDR/A" + std::to_string(i)) + padded("END OF DISPLAY");
    const Displays whole = displaysOf(text);
    ASSERT_EQ(whole.size(), 40U);
    EXPECT_EQ(displaysOf(text, 100), whole);
    EXPECT_EQ(displaysOf(text, 333), whole);
}

// The problem of each display of a text that is read in blocks of this size; "" for a readable one.
std::vector<std::string> problemsOf(const std::string& text, std::size_t maxLine, std::size_t block) {
    ChunkReader reader(bytesOf(text), block, maxLine);
    std::vector<std::string> problems;
    std::size_t linesAbove = 0;
    while (const auto chunk = reader.next()) {
        EXPECT_LE(chunk->size(), maxLine + maxLine / 2 + 2 * block);
        ChunkDisplays displays(*chunk);
        while (const auto display = displays.next()) problems.push_back(describe(display->faulty, linesAbove, maxLine));
        linesAbove += displays.lines();
    }
    return problems;
}

std::string overLong(std::size_t line, std::size_t maxLine) {
    return "line " + std::to_string(line) + " has more than " + std::to_string(maxLine) +
           " bytes; --max-line lets longer lines in";
}

TEST(LongLines, MakeOnlyTheirDisplayUnreadableForAnyBlockSize) {
    const std::string longLine(5000, 'X');
    const std::string text = "A\n>\nB\n" + longLine + "\nC\n>\nD\n>\n" + longLine + "\n>\nE\n>\n";
    for (std::size_t block = 81; block < 7000; block = block * 3 / 2) {
        EXPECT_EQ(problemsOf(text, 1024, block), (Displays{"", overLong(4, 1024), "", overLong(9, 1024), ""})) << block;
    }
}

TEST(LongLines, BeginAboveTheLimitInBytes) {
    // 80 characters of three bytes fit a screen line.
    std::string wide;
    for (int i = 0; i < 80; ++i) wide += "\xE2\x82\xAC";
    EXPECT_EQ(problemsOf("A\n" + wide + "\n>\nB\n", 240, 1000), (Displays{"", ""}));
    EXPECT_EQ(problemsOf("A\n" + wide + "\n>\nB\n", 239, 1000), (Displays{overLong(2, 239), ""}));
    EXPECT_EQ(problemsOf("A\n" + wide, 239, 1000), Displays{overLong(2, 239)});
}

TEST(LongLines, AnUnbrokenTextIsOneLine) {
    const std::string longLine(5000, 'X');
    const std::string first = padded("A") + padded("END OF DISPLAY");
    for (std::size_t block = 81; block < 7000; block = block * 3 / 2) {
        EXPECT_EQ(problemsOf(longLine, 1024, block), Displays{overLong(1, 1024)}) << block;
        EXPECT_EQ(problemsOf(first + longLine, 1024, block), (Displays{"", overLong(1, 1024)})) << block;
    }
}

TEST(LongLines, TextAfterAnUnbrokenOneIsRead) {
    const std::string text = std::string(5000, 'X') + "\n>\nB\n>\n";
    for (std::size_t block = 81; block < 5000; block = block * 3 / 2) {
        EXPECT_EQ(problemsOf(text, 1024, block), (Displays{overLong(1, 1024), ""})) << block;
    }
}

TEST(EndOfFileMark, BeginsNoDisplay) {
    for (const std::size_t block : {1U, 5U, 1000U}) {
        for (const std::string end : {"\x1A", "\x1A\n", "\x1A\r\n", ">\n\x1A"}) {
            EXPECT_EQ(problemsOf("A\n>\nB\n>\n" + end, 1024, block), (Displays{"", ""})) << block;
        }
        EXPECT_EQ(problemsOf("A\n>\n\x1A\nB\n", 1024, block), (Displays{"", ""})) << block;
        EXPECT_EQ(problemsOf("\x1A", 1024, block), Displays{}) << block;
    }
}

TEST(Utf16, WithoutAMarkIsReportedAtItsFirstLine) {
    const std::string text("P\0D\0R\0\r\0\n\0>\0\r\0\n\0", 16);
    EXPECT_EQ(
        problemsOf(text, 1024, 1000),
        Displays{"line 1 looks like UTF-16 without a byte order mark; name it with --encoding utf-16, or utf-16be"});
}

TEST(CarriageReturns, AloneAsLineEndsAreReportedAtTheirFirstLine) {
    const std::string problem =
        " contains a carriage return (CR) that no line feed (LF) follows; lines end in LF or CR LF, so convert the "
        "line "
        "ends, for example with: tr '\\r' '\\n'";
    EXPECT_EQ(problemsOf("A\rEND OF DISPLAY\rB\rEND OF DISPLAY\r", 1024, 1000), Displays{"line 1" + problem});
    EXPECT_EQ(problemsOf("A\n>\nB\nC\rD\n>\nE\n", 1024, 1000), (Displays{"", "line 4" + problem, ""}));
    EXPECT_EQ(problemsOf("A\r\n>\r\nB\r", 1024, 1000), (Displays{"", ""}));
}

}  // namespace

}  // namespace vantro
