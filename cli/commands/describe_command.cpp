#include "cli/commands/commands.h"
#include "cli/commands/describe.h"
#include "cli/io/standard_io.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

namespace vantro {

namespace {

struct DescribeOptions {
    std::string className;
    bool json = false;
};

}  // namespace

void addDescribeCommand(CLI::App& tool, int& /*status*/) {
    CLI::App& command =
        *tool.add_subcommand("describe", "Say what a class is for, what it takes and what comes out of it");
    const auto options = std::make_shared<DescribeOptions>();
    command.add_option("CLASS", options->className, "A class, such as CPDNTrans (default: all, in a line or two each)")
        ->type_name("");
    command.add_flag("--json", options->json, "Print one JSON value");
    command.footer(
        "An unknown class is exit status 1.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile describe\n"
        "  vantro-profile describe CPDNTrans");
    command.callback([options] {
        const bool isOne = !options->className.empty();
        writeOutput(isOne ? describedClass(options->className, options->json) : describedClasses(options->json));
    });
}

}  // namespace vantro
