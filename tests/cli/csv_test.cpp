#include "cli/io/csv.h"

#include <gtest/gtest.h>
#include <vector>

namespace vantro {
namespace {

std::string row(const std::vector<std::string>& cells) {
    std::string out;
    appendCsvRow(cells, out);
    return out;
}

TEST(Csv, CommasSeparateTheCells) { EXPECT_EQ(row({"1", "", "AISLE SEAT"}), "1,,AISLE SEAT\n"); }

TEST(Csv, CellsThatWouldBeMisreadAreQuoted) {
    EXPECT_EQ(row({"A,B"}), "\"A,B\"\n");
    EXPECT_EQ(row({"A\"B"}), "\"A\"\"B\"\n");
    EXPECT_EQ(row({"A\nB"}), "\"A\nB\"\n");
    EXPECT_EQ(row({"A\rB"}), "\"A\rB\"\n");
    EXPECT_EQ(row({" A"}), "\" A\"\n");
    EXPECT_EQ(row({"A "}), "\"A \"\n");
}

TEST(Csv, RowsFollowEachOther) {
    std::string out = "HEAD\n";
    appendCsvRow(std::vector<std::string>{"A"}, out);
    EXPECT_EQ(out, "HEAD\nA\n");
}

}  // namespace
}  // namespace vantro
