// Files and standard input, read a block at a time.
#pragma once

#include "cli/displays.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantro {

/// True for the names that stand for standard input: "" and "-".
bool isStandardInput(const std::string& file);

/// The bytes of a file (its name in UTF-8) or of standard input. Raises UsageError for a file that cannot be
/// opened, and while it is read StreamError.
ByteSource openInput(const std::string& file);

/// How long the files are together; 0 when that is not known of one of them.
std::uint64_t lengthInAll(const std::vector<std::string>& files);

}  // namespace vantro
