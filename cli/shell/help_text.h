// A command's help.
#pragma once

#include "cli/shell/page.h"

#include <cstddef>
#include <string>

namespace vantro {

/// The summary, the examples, the usage, arguments, options and subcommands, and the other sections, in lines of at
/// most `width` columns, and of 100 in a wider terminal. A word that is longer is not cut.
std::string helpText(const CommandPage& page, std::size_t width);

}  // namespace vantro
