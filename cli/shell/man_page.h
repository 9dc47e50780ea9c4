// Manual pages.
#pragma once

#include "cli/shell/page.h"

#include <string>

namespace vantro {

/// "vantro-profile-parse": the name under which `man` finds the page.
std::string manPageName(const CommandPage& page);

/// The page in the macros of man, for section 1. The page of the tool names those of its subcommands. `version` is
/// shown at its foot; there is no date, so that the same version makes the same page.
std::string manPage(const CommandPage& page, const std::string& version);

}  // namespace vantro
