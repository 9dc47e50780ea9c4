// Compares an export with its sources.
#pragma once

#include "cli/export/archive.h"
#include "cli/export/exporter.h"
#include "cli/export/source_displays.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantro {

/// What a comparison found.
struct CheckCounts {
    std::size_t displays = 0;   ///< compared
    std::size_t rows = 0;       ///< in the tables, compared
    std::size_t missing = 0;    ///< rows that the sources have and the tables do not
    std::size_t extra = 0;      ///< the other way round
    std::size_t different = 0;  ///< rows with other cells
    std::size_t sources = 0;    ///< that are not exported, or not as far

    bool isEqual() const { return missing + extra + different + sources == 0; }
};

/// The rows of one table, display by display.
class StoredRows {
public:
    using Row = std::vector<std::string>;

    StoredRows(const TableFacts& table, std::unique_ptr<RowReader> rows);

    const TableFacts& table() const { return *table_; }

    /// The number of the display that the next row is from, or `none` after the last row.
    std::size_t nextDisplay() const { return display_; }
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    /// The next row; another one follows it.
    Row take();

private:
    void read();

    const TableFacts* table_;
    std::unique_ptr<RowReader> rows_;
    Row row_;
    std::size_t display_ = none;
};

/// Compares the sources with the tables, row by row. The sources must come in the order of `ArchiveState::sources`;
/// some may be left out.
class Checker final : public PieceSink {
public:
    /// Takes a line that describes one difference.
    using Report = std::function<void(const std::string&)>;

    /// The archive must outlive this object.
    Checker(ArchiveReader& archive, std::size_t maxLine, Report report);

    void beginSource(const std::string& name) override;
    void take(const PieceRows& piece) override;
    void endSource(const std::string& problem) override;

    /// Compares what is left in the tables. Returns all counts.
    const CheckCounts& finish();

private:
    using Rows = std::vector<StoredRows::Row>;

    /// The numbers of a source's displays in the export.
    struct Range {
        std::size_t first;
        std::size_t last;
    };

    void leaveOut();
    void compareDisplay(PieceWalk& walk);
    void compare(StoredRows& stored, const Rows& expected, std::size_t display);
    void compareByKey(const TableFacts& table, const Rows& expected, const Rows& found);
    void reportExtraBefore(std::size_t display);
    bool isLeftOut(std::size_t display) const;
    void reportDifference(const TableFacts& table, const StoredRows::Row& expected, const StoredRows::Row& found);
    void report(const char* what, const TableFacts& table, const StoredRows::Row& row, const std::string& more);

    const ArchiveState& state_;
    std::size_t maxLine_;
    Report report_;
    std::vector<StoredRows> stored_;
    std::size_t next_ = 0;  // in the state's sources
    std::size_t displaysBefore_ = 0;
    std::vector<Range> leftOut_;  // sources that are not compared
    SourcePosition position_;
    std::size_t notExported_ = 0;  // displays of this source
    CheckCounts counts_;
};

}  // namespace vantro
