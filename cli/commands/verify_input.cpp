#include "cli/commands/verify_input.h"

#include "cli/commands/parameters.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/screen_input.h"
#include "cli/io/standard_io.h"

#include <string>
#include <vector>

namespace vantro {

namespace {

// A screen's file that was named without its option.
void refuseFiles(const std::vector<std::string>& parameters) {
    for (const std::string& parameter : parameters) {
        if (parameter.find('=') != std::string::npos || !isFile(parameter)) continue;
        throw UsageError("'" + parameter + "' is not KEY=VALUE, but a file; name a screen's file with --screen");
    }
}

}  // namespace

std::shared_ptr<BuiltInCollection> collectionFor(const VerifyOptions& options) {
    std::shared_ptr<BuiltInCollection> collection;
    if (!options.stateFile.empty()) {
        collection =
            collectionFromJson(readAll(options.stateFile, options.maxLine), "the state in '" + options.stateFile + "'");
    }
    if (!options.parameters.empty()) {
        refuseFiles(options.parameters);
        if (!collection) collection = std::make_shared<BuiltInCollection>();
        addParameters(options.parameters, *collection);
    }
    return collection;
}

Text screenFor(const VerifyOptions& options, Warnings& warnings) {
    const bool fromInput = isStandardInput(options.screenFile);
    if (fromInput && options.stateFile == "-") {
        throw UsageError("standard input cannot be both screen and state; name a file with --screen or --state");
    }
    if (fromInput && inputIsTerminal()) {
        complain("reading the screen from standard input; end it with the end-of-file key");
    }
    const std::string text = readAll(options.screenFile, options.maxLine, options.encoding);
    if (!options.lenient) return screenFromText(text);
    std::vector<std::string> faults;
    Text screen = lenientScreen(text, faults);
    for (const std::string& fault : faults) warnings.add(fault);
    return screen;
}

}  // namespace vantro
