// The tables of an export: what each column means, and rows of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// Raised when a column changes its meaning or goes; not when one is added at the end of its table.
inline constexpr int exportVersion = 1;

enum class ColumnKind { String, Integer };

struct Column {
    std::string_view name;
    ColumnKind kind;
    std::string_view meaning;
};

/// The tables that the displays fill.
enum class ExportTable : std::uint8_t { Profiles, Elements, Notes, Problems };

inline constexpr std::size_t exportTableCount = 4;

/// The rows of each table, by `indexOf`.
using RowCounts = std::array<std::size_t, exportTableCount>;

constexpr std::size_t indexOf(ExportTable table) { return static_cast<std::size_t>(table); }

struct TableFacts {
    ExportTable table;
    std::string_view name;
    std::string_view meaning;
    std::span<const Column> columns;  ///< display_id; with `hasOrigin` then source, display and line; then the others
    std::size_t keyLength;            ///< the first columns, with which no two rows are equal
    bool hasOrigin;

    std::size_t ownColumn() const { return hasOrigin ? 4 : 1; }  ///< the index of the first of the others
};

/// All tables, by `indexOf`.
std::span<const TableFacts, exportTableCount> exportTables();

const TableFacts& factsOf(ExportTable table);

/// The columns of `sources` and `runs`, which say how far the export is: see `SourceState` and `RunState`.
std::span<const Column> sourceColumns();
std::span<const Column> runColumns();

/// Where a display is from.
struct DisplayOrigin {
    std::size_t id = 0;         ///< its number in the export, from 1
    std::string_view source{};  ///< the file
    std::size_t display = 0;    ///< its number in the source, from 1
    std::size_t line = 0;       ///< its first line in the source, from 1
};

/// A row of a table, cell by cell, in UTF-8. An empty cell is no value.
using Cells = std::vector<std::string_view>;

/// Rows of one table without the columns that say where the display is from, each with the index of its display.
class TableRows {
public:
    explicit TableRows(const TableFacts& facts) : columns_(facts.columns.size() - facts.ownColumn()) {}

    /// Begins a row; its cells follow, one for each column.
    void begin(std::size_t display) { displays_.push_back(display); }
    void cell(std::string_view utf8) {
        bytes_ += utf8;
        ends_.push_back(bytes_.size());
    }
    void cell(std::size_t number) { cell(std::to_string(number)); }

    std::size_t size() const { return displays_.size(); }
    std::size_t displayOf(std::size_t row) const { return displays_[row]; }

    /// Appends the cells of a row; valid until the rows change.
    void read(std::size_t row, Cells& cells) const;

private:
    std::size_t columns_;
    std::string bytes_;
    std::vector<std::size_t> ends_;
    std::vector<std::size_t> displays_;
};

/// One whole row at a time: where its display is from, then its own cells.
class WholeRow {
public:
    /// The rows that follow are from this display.
    void setOrigin(const DisplayOrigin& origin);

    /// Valid until the next call, and as long as the source's name and the rows.
    const Cells& of(const TableFacts& facts, const TableRows& rows, std::size_t row);

private:
    std::string_view source_;
    std::string id_;
    std::string display_;
    std::string line_;
    Cells cells_;
};

/// Rows of every table, by `indexOf`.
using RowsOfTables = std::array<TableRows, exportTableCount>;

RowsOfTables emptyRows();

}  // namespace vantro
