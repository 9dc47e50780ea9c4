#include "cli/commands/commands.h"
#include "cli/commands/describe.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace vantro {

void addDescribeCommand(CLI::App& tool, int& status) {
    CLI::App& command =
        *tool.add_subcommand("describe", "Say what a class is for, what it takes and what comes out of it");
    const auto options = std::make_shared<DescribeOptions>();
    command.add_option("CLASS", options->className, "A class, such as CPDNTrans (default: all classes, briefly)")
        ->type_name("");
    command.add_flag("--json", options->json, "Print one JSON value");
    command.footer(
        "An unknown class is exit status 1.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile describe\n"
        "  vantro-profile describe CPDNTrans");
    command.callback([options, &status] { status = runDescribe(*options); });
}

}  // namespace vantro
