// Files that the tool writes.
#pragma once

#include <string>
#include <string_view>

namespace vantro {

/// Writes a file (its name in UTF-8), which is replaced if it exists. Raises UsageError for a file that cannot be
/// opened, and StreamError.
void writeFile(const std::string& file, std::string_view bytes);

}  // namespace vantro
