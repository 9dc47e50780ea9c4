// Which sources a run reads, and in which order.
#pragma once

#include "cli/export/archive.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

struct ExportPlan {
    std::vector<std::string> files;        ///< to be read, in this order
    std::size_t alreadyDone = 0;           ///< named files that are not read
    std::string continued = {};            ///< the file in which the last run was interrupted
    std::vector<std::string> faults = {};  ///< one line for each file that cannot be part of the run
};

/// The names by which the files are known in an export: without "." and "..", with slashes, "-" for standard input.
/// Files of the export itself, which may be in a folder that is exported, are left out.
std::vector<std::string> sourcesFor(const std::string& target, const std::vector<std::string>& files);

/// The files that are not exported yet. The one in which the last run was interrupted is the first. A file whose length
/// has changed since its export is a fault. Raises UsageError if the interrupted one is not among the files.
ExportPlan planExport(const ArchiveState& state, const std::vector<std::string>& files);

/// The files in the order in which they were exported. One that was not is a fault.
ExportPlan planCheck(const ArchiveState& state, const std::vector<std::string>& files);

}  // namespace vantro
