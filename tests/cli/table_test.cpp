#include "cli/commands/table.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace vantro {

namespace {

TEST(Table, ColumnsAreAsWideAsTheirWidestCell) {
    Table table({"KEY", "VALUE"});
    table.add({"strKeyName", "SMITH"});
    table.add({"x", ""});
    EXPECT_EQ(table.text(),
              "KEY         VALUE\n"
              "----------  -----\n"
              "strKeyName  SMITH\n"
              "x\n");
}

TEST(Table, WidthIsCountedInCharacters) {
    Table table({"\xC3\x89V", "B"});
    table.add({"abc", "d"});
    EXPECT_EQ(table.text(), "\xC3\x89V   B\n---  -\nabc  d\n");
}

TEST(Table, ControlCharactersDoNotReachTheTerminal) {
    Table table({"A"});
    table.add({"x\x1B[2J\n\x7F"});
    EXPECT_EQ(table.text(), "A\n-------\nx?[2J??\n");
}

Table sampleTable() {
    Table table({"KEY", "VALUE"});
    table.add({"strKeyName", "SMITH ANNA MS AND SMITH BRUNO MR"});
    table.add({"blnKeyExactMatch", "True"});
    return table;
}

TEST(Table, ATableThatFitsIsNotWrapped) {
    EXPECT_EQ(sampleTable().text({.width = 50}), sampleTable().text());
    EXPECT_NE(sampleTable().text({.width = 49}), sampleTable().text());
}

TEST(Table, TheWidestColumnIsWrappedAtBlanks) {
    EXPECT_EQ(sampleTable().text({.width = 34}),
              "KEY               VALUE\n"
              "----------------  ----------------\n"
              "strKeyName        SMITH ANNA MS\n"
              "                  AND SMITH BRUNO\n"
              "                  MR\n"
              "blnKeyExactMatch  True\n");
}

TEST(Table, SeveralWideColumnsShareTheWidth) {
    EXPECT_EQ(sampleTable().text({.width = 25}),
              "KEY          VALUE\n"
              "-----------  ------------\n"
              "strKeyName   SMITH ANNA\n"
              "             MS AND SMITH\n"
              "             BRUNO MR\n"
              "blnKeyExact  True\n"
              "Match\n");
}

TEST(Table, AWordThatIsTooLongIsCutBetweenItsPartsOrAnywhere) {
    Table table({"A"});
    table.add({"AAAA,BBBB,CCCC"});
    table.add({"abcdefghijklmn"});
    table.add({"\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89"});
    EXPECT_EQ(table.text({.width = 8}),
              "A\n--------\nAAAA,\nBBBB,\nCCCC\nabcdefgh\nijklmn\n"
              "\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\xC3\x89\n\xC3\x89\n");
}

// Whatever the width, all characters but blanks are shown, each in its column.
TEST(Table, NothingIsLostAtAnyWidth) {
    const std::string left = "strKeyOfficeID, strKeyRecLoc,strKeyName";
    const std::string right = "A  WITH TWO BLANKS, AN-UNUSUALLY/LONGWORDTHATMUSTBECUT AND MORE";
    const auto withoutBlanks = [](std::string text) {
        std::erase(text, ' ');
        return text;
    };
    Table table({"L", "R"});
    table.add({left, right});
    for (std::size_t width = 18; width < 110; ++width) {
        const std::string text = table.text({.width = width});
        std::istringstream lines(text);
        std::string line;
        std::getline(lines, line);
        std::getline(lines, line);
        const std::size_t column = line.find(' ') + 2;
        std::string shownLeft;
        std::string shownRight;
        while (std::getline(lines, line)) {
            EXPECT_LE(line.size(), width) << text;
            shownLeft += line.substr(0, column);
            if (line.size() > column) shownRight += line.substr(column);
        }
        EXPECT_EQ(withoutBlanks(shownLeft), withoutBlanks(left)) << text;
        EXPECT_EQ(withoutBlanks(shownRight), withoutBlanks(right)) << text;
    }
}

TEST(Table, BlanksAtTheBeginningOfACellAreKept) {
    Table table({"A"});
    table.add({"     ABCDEFGH IJ"});
    EXPECT_EQ(table.text({.width = 10}), "A\n----------\n     ABCDE\nFGH IJ\n");
}

TEST(Table, NoColumnIsNarrowerThanEight) {
    Table table({"A", "B"});
    table.add({"abcdefghijkl", "x"});
    EXPECT_EQ(table.text({.width = 1}), "A         B\n--------  -\nabcdefgh  x\nijkl\n");
}

TEST(Table, TheHeaderIsBoldInColor) {
    Table table({"A", "B"});
    table.add({"x", "y"});
    EXPECT_EQ(table.text({.hasColor = true}), "\x1B[1mA  B\x1B[0m\n-  -\nx  y\n");
}

}  // namespace

}  // namespace vantro
