// Files that the tool writes.
#pragma once

#include <string>
#include <string_view>

namespace vantro {

/// Writes a file (its name in UTF-8), which is replaced if it exists. Raises UsageError for a file that cannot be
/// opened, and StreamError.
void writeFile(const std::string& file, std::string_view bytes);

/// Returns when the disk has what was written to the file, so that it survives a power failure. Raises StreamError.
void flushToDisk(const std::string& file);

/// Replaces the text of a UTF-8 file that was read as `before`. A byte order mark stays. Raises UsageError, and leaves
/// the file as it is, if it contains something else: it is compressed, has another encoding, or was changed since.
void replaceText(const std::string& file, std::string_view before, std::string_view after);

}  // namespace vantro
