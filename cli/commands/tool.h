// The tool as a whole.
#pragma once

namespace vantro {

/// Runs the tool with its arguments in UTF-8, its own name first, and gives the exit status.
int runTool(int argc, const char* const* argv);

}  // namespace vantro
