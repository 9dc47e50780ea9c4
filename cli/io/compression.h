// Compressed files, unpacked as they are read.
#pragma once

#include "cli/io/input_files.h"

#include <string>

namespace vantro {

/// The content of a source that is compressed with gzip or Zstandard, recognised by its first bytes, also if it
/// consists of several compressed parts; any other source unchanged. `name` is the input's name for messages. Reading
/// raises StreamError for damaged data and for a format that this build was made without.
ByteSource unpacked(ByteSource source, std::string name);

}  // namespace vantro
