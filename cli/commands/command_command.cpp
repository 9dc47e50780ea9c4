#include "cli/classes/missing_keys.h"
#include "cli/classes/trans_class.h"
#include "cli/classes/unknown_keys.h"
#include "cli/commands/commands.h"
#include "cli/commands/parameters.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"

#include <memory>

namespace vantro {

namespace {

int reportFailure(const ClassRow& row, const BuiltInCollection& params, const Error& raised) {
    const std::string reason = reasonOfFailedCommand(row, params, raised);
    complain("the call failed with " + asClause(describe(raised)) + (reason.empty() ? "" : "; " + reason));
    return callFailed;
}

}  // namespace

int runCommand(const CommandOptions& options) {
    const ClassRow& row = transactionClass(options.className);
    const auto params = std::make_shared<BuiltInCollection>();
    addParameters(options.parameters, *params);
    if (!options.raw) refuseControlCharacters(*params);
    Warnings warnings(options.quiet);
    warnAboutUnknownKeys(row, PassedFor::Command, *params, warnings);

    BuiltInTerminal terminal;
    Text command;
    try {
        command = createObject(row, terminal)->profileTrans()->CreateCommand(params);
    } catch (const Error& raised) {
        return reportFailure(row, *params, raised);
    }
    writeOutput(toUtf8(command) + "\n");
    if (!command.empty()) return warnings.statusAfter(success, options.strict);
    complain(messageOfEmptyCommand(row, *params));
    return insufficientParameters;
}

}  // namespace vantro
