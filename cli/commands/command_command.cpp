#include "cli/commands/commands.h"
#include "cli/commands/parameters.h"
#include "cli/commands/trans_class.h"
#include "cli/commands/unknown_keys.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

namespace vantro {

namespace {

struct CommandOptions {
    std::string className;
    std::vector<std::string> parameters;
    bool raw = false;
};

int buildCommand(const CommandOptions& options) {
    const ClassRow& row = transactionClass(options.className);
    const auto params = std::make_shared<BuiltInCollection>();
    addParameters(options.parameters, *params);
    if (!options.raw) refuseControlCharacters(*params);
    warnAboutUnknownKeys(row, PassedFor::Command, *params);

    BuiltInTerminal terminal;
    const Text command = createObject(row, terminal)->profileTrans()->CreateCommand(params);
    writeOutput(toUtf8(command) + "\n");
    if (command.empty()) complain("the parameters are not sufficient: the command is empty, nothing is to be sent");
    return success;
}

}  // namespace

void addCommandCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("command", "Print the command line for the host");
    const auto options = std::make_shared<CommandOptions>();
    command.add_option("CLASS", options->className, "A transaction class, such as CPDNTrans")
        ->required()
        ->type_name("");
    command.add_option("KEY=VALUE", options->parameters, parameterHelp)->type_name("");
    command.add_flag("--raw", options->raw, "Let control characters in parameters through into the command line");
    command.footer(
        "A line break or another control character in a parameter is refused, because what follows it could reach\n"
        "the host as a command of its own. What is passed on with --raw must come from a source that is trusted.\n"
        "An empty command is printed as an empty line: the parameters are not sufficient, and nothing is to be sent.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile command CPDNTrans strKeyName=SMITH blnKeyExactMatch=true\n"
        "  vantro-profile command CPTTrans intKeyArraySize=1 'strKeyElArray()=1' 'strKeyElArray()=4' \\\n"
        "      'strKeySegArray()=' 'strKeySegArray()=2' 'strKeyPasArray()=' 'strKeyPasArray()=1'");
    command.callback([options, &status] { status = buildCommand(*options); });
}

}  // namespace vantro
