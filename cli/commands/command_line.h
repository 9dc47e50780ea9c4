// The command line: subcommands, options and their help.
#pragma once

namespace vantro {

/// Reads the arguments (UTF-8, the tool's own name first), runs the subcommand that they name and returns the exit
/// status. Raises what the subcommand raises.
int runCommandLine(int argc, const char* const* argv);

}  // namespace vantro
