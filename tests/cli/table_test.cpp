#include "cli/commands/table.h"

#include <gtest/gtest.h>

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

}  // namespace

}  // namespace vantro
