// Scripts with which shells complete command lines of the tool.
#pragma once

#include "cli/shell/page.h"

#include <string>

namespace vantro {

/// From the page of the tool with its subcommands. The scripts are complete: they do not start the tool.
std::string bashCompletion(const CommandPage& tool);
std::string zshCompletion(const CommandPage& tool);
std::string fishCompletion(const CommandPage& tool);

}  // namespace vantro
