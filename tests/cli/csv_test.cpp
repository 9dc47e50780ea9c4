#include "cli/io/csv.h"

#include "cli/io/csv_reader.h"
#include "cli/io/failure.h"
#include "tests/cli/byte_source.h"

#include <gtest/gtest.h>
#include <string>
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

std::vector<std::vector<std::string>> recordsIn(const std::string& text, std::size_t bytesAtOnce = 1000) {
    CsvReader reader(test::bytesOf(text, bytesAtOnce));
    std::vector<std::vector<std::string>> records;
    while (const auto* const cells = reader.next()) records.emplace_back(cells->begin(), cells->end());
    return records;
}

using Records = std::vector<std::vector<std::string>>;

TEST(CsvReader, CommasAndLineEndsSeparate) {
    EXPECT_EQ(recordsIn("A,B\n,\nC,\n"), (Records{{"A", "B"}, {"", ""}, {"C", ""}}));
    EXPECT_EQ(recordsIn("A\r\nB"), (Records{{"A"}, {"B"}}));
    EXPECT_EQ(recordsIn(""), Records{});
    EXPECT_EQ(recordsIn("\n"), (Records{{""}}));
}

TEST(CsvReader, QuotationMarksProtectWhatTheyContain) {
    EXPECT_EQ(recordsIn("\"A,B\",\"C\"\"D\"\n\"E\r\nF\"\r\n"), (Records{{"A,B", "C\"D"}, {"E\r\nF"}}));
    EXPECT_EQ(recordsIn("A\"B,\"\"\n"), (Records{{"A\"B", ""}}));
}

TEST(CsvReader, WhatTheWriterWroteComesBackInAnyBlocks) {
    const Records rows{{" A", "B\"\"", ",", "\n"}, {"", "\r", "\u00C5SE ", "x"}};
    std::string text;
    for (const auto& cells : rows) appendCsvRow(cells, text);
    for (const std::size_t block : {1U, 2U, 3U, 100U}) EXPECT_EQ(recordsIn(text, block), rows);
}

TEST(CsvReader, CountsTheBytesOfTheRecords) {
    CsvReader reader(test::bytesOf("A,B\r\n\"C\nD\"\nE"));
    reader.next();
    EXPECT_EQ(reader.position(), 5U);
    reader.next();
    EXPECT_EQ(reader.position(), 11U);
}

TEST(CsvReader, AQuotedCellWithoutAnEndIsAnError) { EXPECT_THROW(recordsIn("\"A\nB"), StreamError); }

}  // namespace
}  // namespace vantro
