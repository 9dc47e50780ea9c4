// The files that a command reads.
#pragma once

#include <string>
#include <vector>

namespace vantro {

/// The files that the arguments name. A folder stands for all files in it and in the folders below it, in the order of
/// their names; those whose names begin with a dot are left out. Names are UTF-8. Raises UsageError for a folder that
/// cannot be read or contains no file.
std::vector<std::string> withFilesOfFolders(const std::vector<std::string>& arguments);

/// The names in a list: one per line, or each followed by a zero byte. Empty ones are left out.
std::vector<std::string> namesInList(const std::string& list, bool isZeroSeparated);

}  // namespace vantro
