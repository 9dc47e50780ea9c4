// The subcommands. Each adds itself to the tool; when it has been chosen it runs and leaves the exit status.
#pragma once

namespace CLI {
class App;
}

namespace vantro {

void addClassesCommand(CLI::App& tool, int& status);
void addDescribeCommand(CLI::App& tool, int& status);
void addCommandCommand(CLI::App& tool, int& status);
void addVerifyCommand(CLI::App& tool, int& status);
void addBatchCommand(CLI::App& tool, int& status);
void addParseCommand(CLI::App& tool, int& status);
void addElementsCommand(CLI::App& tool, int& status);
void addNotesCommand(CLI::App& tool, int& status);

}  // namespace vantro
