// UTF-8 for test names, messages and files; UTF-16 for the library.
#pragma once

#include "vantro/text.h"

#include <string>
#include <string_view>

namespace vantro::test {

/// Converts well-formed UTF-8; throws std::runtime_error for anything else.
Text wide(std::string_view utf8);

/// Converts to UTF-8; an unpaired surrogate becomes "?".
std::string utf8(TextView text);

}  // namespace vantro::test
