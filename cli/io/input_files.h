// Files and standard input, read a block at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vantro {

/// Reads up to as many bytes as fit and returns their number; 0 at the end.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// How the characters of an input without a byte order mark are stored. A mark says what the input is, whatever was
/// named. `ByMark` is UTF-8 without a mark, `Utf16` is little-endian, as on Windows.
enum class Encoding : std::uint8_t { ByMark, Utf8, Utf16, Utf16Le, Utf16Be, Latin1, Windows1252 };

/// The default length, in bytes, that no line of an input may exceed, so that memory stays bounded for any input.
inline constexpr std::size_t defaultMaxLine = std::size_t{16} * 1024 * 1024;

/// The message for a line (counted from 1) of more than `maxLine` bytes.
std::string overLongLine(std::size_t line, std::size_t maxLine);

/// True for the names that mean standard input: "" and "-".
bool isStandardInput(const std::string& file);

/// The name for messages: "standard input", or the file's name unchanged.
std::string inputName(const std::string& file);

/// True when the name (in UTF-8) is that of an existing file.
bool isFile(const std::string& file);

/// Opens a file (its name in UTF-8) or standard input, unpacks it if it is compressed (see compression.h) and converts
/// it to UTF-8. `bytesRead`, if not null, counts the bytes of the file itself. Raises UsageError for a file that cannot
/// be opened; reading from the source raises StreamError.
ByteSource openInput(const std::string& file, Encoding encoding = Encoding::ByMark, std::uint64_t* bytesRead = nullptr);

/// The whole content of a file or of standard input. Raises UsageError for a file that cannot be opened and for a line
/// of more than `maxLine` bytes, and StreamError.
std::string readAll(const std::string& file, std::size_t maxLine, Encoding encoding = Encoding::ByMark);

/// The total length of the files in bytes; 0 when the length of one of them is unknown.
std::uint64_t lengthInAll(const std::vector<std::string>& files);

}  // namespace vantro
