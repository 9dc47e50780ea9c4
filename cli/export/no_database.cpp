// Instead of sqlite_archive.cpp in a build without SQLite.
#include "cli/export/sqlite_archive.h"
#include "cli/io/failure.h"

namespace vantro {

namespace {

[[noreturn]] void refuse(const std::string& name) {
    throw UsageError("cannot use the database '" + name +
                     "': this build of the tool has no SQLite; name a folder, for CSV files");
}

}  // namespace

std::unique_ptr<ArchiveWriter> writeDatabase(const std::string& name, const std::string&) { refuse(name); }

std::unique_ptr<ArchiveReader> readDatabase(const std::string& name, const std::string&) { refuse(name); }

}  // namespace vantro
