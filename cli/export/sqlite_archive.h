// An export as a SQLite database.
#pragma once

#include "cli/export/archive.h"

#include <memory>
#include <string>

namespace vantro {

/// See `openForWriting`. Raises UsageError if this build was made without SQLite.
std::unique_ptr<ArchiveWriter> writeDatabase(const std::string& name, const std::string& settings);

/// See `openForReading`. Raises UsageError if this build was made without SQLite.
std::unique_ptr<ArchiveReader> readDatabase(const std::string& name, const std::string& settings);

}  // namespace vantro
