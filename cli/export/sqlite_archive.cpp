#include "cli/export/sqlite_archive.h"

#include "cli/io/failure.h"

namespace vantro {

std::unique_ptr<ArchiveWriter> writeDatabase(const std::string& /*name*/, const std::string& /*settings*/) {
    throw UsageError("this program was built without SQLite; export into a folder");
}

std::unique_ptr<ArchiveReader> readDatabase(const std::string& /*name*/, const std::string& /*settings*/) {
    throw UsageError("this program was built without SQLite; export into a folder");
}

}  // namespace vantro
