// Text in other encodings than UTF-8, converted as it is read.
#pragma once

#include "cli/io/input_files.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantro {

/// The encoding with this name ("utf-16", "latin-1", "cp1252", ...), in any case; nothing for an unknown name.
std::optional<Encoding> encodingNamed(std::string_view name);

/// The name of an encoding: "utf-16".
std::string_view nameOf(Encoding encoding);

/// The names without other spellings, for a message: "auto, utf-8, ...".
std::string encodingNames();

/// True if every second byte is zero, but for a few, as in UTF-16 that was read as text of one byte per character.
bool looksLikeUtf16(std::string_view text);

/// The same text in UTF-8. What does not belong to the encoding becomes bytes that are not UTF-8, so that the reader of
/// the text reports its line. A byte order mark is dropped. It says what the encoding is, whatever `encoding` says.
ByteSource inUtf8(ByteSource source, Encoding encoding);

}  // namespace vantro
