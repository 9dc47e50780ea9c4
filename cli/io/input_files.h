// Files and standard input, read a block at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vantro {

/// Fills the bytes as far as there is something to read and returns their number; 0 at the end.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// The default length, in bytes, that no line of an input may exceed, so that memory stays bounded for any input.
inline constexpr std::size_t defaultMaxLine = std::size_t{16} * 1024 * 1024;

/// The message for a line (counted from 1) of more than `maxLine` bytes.
std::string overLongLine(std::size_t line, std::size_t maxLine);

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
