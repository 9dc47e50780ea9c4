// An export as a folder of CSV files, one for each table, and a journal that says how far it is.
#pragma once

#include "cli/export/archive.h"

#include <memory>
#include <string>

namespace vantro {

/// See `openForWriting`.
std::unique_ptr<ArchiveWriter> writeCsvFolder(const std::string& name, const std::string& settings);

/// See `openForReading`.
std::unique_ptr<ArchiveReader> readCsvFolder(const std::string& name, const std::string& settings);

}  // namespace vantro
