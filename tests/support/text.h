// UTF-8 for test names, messages and files; UTF-16 for the library.
#pragma once

#include "vantro/text.h"

#include <string>
#include <string_view>

namespace vantro::test {

/// The text of well-formed UTF-8; raises std::runtime_error for anything else.
Text wide(std::string_view utf8);

/// The UTF-8 of a text; a surrogate without its partner becomes "?".
std::string utf8(TextView text);

}  // namespace vantro::test
