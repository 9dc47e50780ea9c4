// What an export is written to and read from: a folder of CSV files, or a database.
#pragma once

#include "cli/export/tables.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vantro {

/// How far a source is exported.
struct SourceState {
    std::string name;
    std::uint64_t bytes = 0;    ///< the length of its file; 0: unknown
    std::size_t displays = 0;   ///< taken from it so far
    std::size_t failed = 0;     ///< of these, those that could not be read
    std::string lastHash = {};  ///< of the last of these displays
    bool isDone = false;
    std::string problem = {};  ///< why reading ended early
};

/// What a run has done so far.
struct RunState {
    std::size_t run = 0;        ///< from 1
    std::string started = {};   ///< in UTC: "2026-11-23T08:15:00Z"
    std::string finished = {};  ///< likewise; "" for a run that was interrupted
    std::string version = {};
    std::size_t sources = 0;  ///< read to their ends
    std::size_t displays = 0;
    std::size_t failed = 0;
    RowCounts rows{};
};

/// The cells of their rows, by `sourceColumns` and `runColumns`.
std::vector<std::string> cellsOf(const SourceState& source);
std::vector<std::string> cellsOf(const RunState& run);

/// The same backwards. A cell that is no number counts as 0.
SourceState sourceOf(const Cells& cells);
RunState runOf(const Cells& cells);

/// How far an export is.
struct ArchiveState {
    std::vector<SourceState> sources;  ///< in the order of their displays
    std::vector<RunState> runs;

    /// Replaces the last source if it has the same name, or adds the source, and the run likewise by its number.
    void take(const SourceState& source);
    void take(const RunState& run);

    /// False after an interruption.
    bool isFinished() const { return !runs.empty() && !runs.back().finished.empty(); }
};

/// An export that is being written. What is added is kept only by `commit`: a run that is interrupted leaves what its
/// last commit left. All functions raise StreamError when nothing can be written.
class ArchiveWriter {
public:
    virtual ~ArchiveWriter() = default;
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    /// What earlier runs left.
    virtual const ArchiveState& state() const = 0;

    /// Adds a row with a cell for each column. An empty cell is no value.
    virtual void add(const TableFacts& table, const Cells& row) = 0;

    /// Keeps what was added since the last commit, with the sources that it is from and what the run has done. See
    /// `ArchiveState::take`.
    virtual void commit(std::span<const SourceState> changed, const RunState& run) = 0;

    /// All sources are exported, and all rows committed: makes what helps readers, such as indexes, and keeps the run.
    virtual void finish(const RunState& run) = 0;

protected:
    ArchiveWriter() = default;
};

/// The rows of one table of an export, in the order of the displays.
class RowReader {
public:
    virtual ~RowReader() = default;
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    /// The next row, or null after the last one. Valid until the next call. Raises StreamError.
    virtual const Cells* next() = 0;

protected:
    RowReader() = default;
};

/// An export that was written.
class ArchiveReader {
public:
    virtual ~ArchiveReader() = default;
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    virtual const ArchiveState& state() const = 0;

    /// The reader must not outlive this object.
    virtual std::unique_ptr<RowReader> rows(const TableFacts& table) = 0;

protected:
    ArchiveReader() = default;
};

/// True for the name of a database: it ends in ".db", ".sqlite" or ".sqlite3", in any case.
bool isDatabase(const std::string& name);

/// Opens a database or a folder (its name in UTF-8) for writing, and makes it if there is none. `settings` describe
/// what changes the displays that are found in a source. Raises UsageError for a folder or database that contains
/// something else, or an export of another version or with other settings.
std::unique_ptr<ArchiveWriter> openForWriting(const std::string& name, const std::string& settings);

/// Raises UsageError if there is no export, or one of another version or with other settings.
std::unique_ptr<ArchiveReader> openForReading(const std::string& name, const std::string& settings);

}  // namespace vantro
