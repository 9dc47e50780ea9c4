#include "cli/commands/commands.h"
#include "cli/commands/parameters.h"
#include "cli/commands/trans_class.h"
#include "cli/commands/unknown_keys.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"

#include <memory>

namespace vantro {

int runCommand(const CommandOptions& options) {
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

}  // namespace vantro
