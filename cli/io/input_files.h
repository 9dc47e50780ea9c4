// Files and standard input, read a block at a time.
#pragma once

#include "cli/io/displays.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantro {

/// True for the names that stand for standard input: "" and "-".
bool isStandardInput(const std::string& file);

/// What messages call it: "standard input", or the file's name as it was given.
std::string inputName(const std::string& file);

/// The bytes of a file (its name in UTF-8) or of standard input. Raises UsageError for a file that cannot be
/// opened, and while it is read StreamError.
ByteSource openInput(const std::string& file);

/// All of a file or of standard input. Raises UsageError for a file that cannot be opened and for a line of more
/// bytes than `maxLine`, and StreamError.
std::string readAll(const std::string& file, std::size_t maxLine);

/// How long the files are together; 0 when that is not known of one of them.
std::uint64_t lengthInAll(const std::vector<std::string>& files);

}  // namespace vantro
