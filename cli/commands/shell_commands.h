// How the tool fits into a shell: the form of the help, the subcommands help, man and completion, and colour.
#pragma once

namespace CLI {
class App;
}

namespace vantro {

/// Sets the form of the help of the tool and of the subcommands that are added after the call.
void setHelpForm(CLI::App& tool);

/// Adds the subcommands, the last of the tool, and --color to all. The subcommands put their exit status into `status`.
void addShellCommands(CLI::App& tool, int& status);

}  // namespace vantro
