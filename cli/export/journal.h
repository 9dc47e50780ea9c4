// The journal of an export to a folder: how far it was at each commit.
#pragma once

#include "cli/export/archive.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace vantro {

/// The lengths of the tables' files in bytes, by `indexOf`.
using TableLengths = std::array<std::uintmax_t, exportTableCount>;

class Journal {
public:
    /// Opens the journal of a folder (its name in UTF-8), and begins one if there is none. Raises UsageError for a
    /// journal of another version or with other settings.
    static Journal opened(const std::string& folder, const std::string& settings);

    /// True if the folder contains a journal.
    static bool isIn(const std::string& folder);

    /// What the last commit left.
    const ArchiveState& state() const { return state_; }
    const TableLengths& lengths() const { return lengths_; }

    /// Removes what an interrupted run wrote after its last commit.
    void dropUncommitted();

    /// Appends a commit. Raises StreamError.
    void commit(std::span<const SourceState> changed, const RunState& thisRun, const TableLengths& lengths);

private:
    Journal(std::string file, const std::string& settings);

    void begin(const std::string& settings);
    void read(const std::string& settings);
    void append(const std::string& records);

    std::string file_;
    std::uintmax_t length_ = 0;
    ArchiveState state_;
    TableLengths lengths_{};
};

}  // namespace vantro
