#include "cli/commands/commands.h"
#include "cli/commands/parameters.h"
#include "cli/commands/results_view.h"
#include "cli/commands/screen_input.h"
#include "cli/commands/trans_class.h"
#include "cli/commands/unknown_keys.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/max_line.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/collection_json.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

namespace vantro {

namespace {

struct VerifyOptions {
    std::string className;
    std::vector<std::string> parameters;
    std::string screenFile;
    std::string stateFile;
    bool table = false;
    bool json = false;
    bool count = false;
    std::size_t maxLine = defaultMaxLine;
};

// What the transaction's collection holds: the state, and the parameters over it. With neither, no collection.
std::shared_ptr<BuiltInCollection> collectionFor(const VerifyOptions& options) {
    std::shared_ptr<BuiltInCollection> collection;
    if (!options.stateFile.empty()) {
        collection =
            collectionFromJson(readAll(options.stateFile, options.maxLine), "the state in '" + options.stateFile + "'");
    }
    if (!options.parameters.empty()) {
        if (!collection) collection = std::make_shared<BuiltInCollection>();
        addParameters(options.parameters, *collection);
    }
    return collection;
}

Text screenFor(const VerifyOptions& options) {
    const bool fromInput = isStandardInput(options.screenFile);
    if (fromInput && options.stateFile == "-") {
        throw UsageError("standard input cannot be both screen and state; name a file with --screen or --state");
    }
    if (fromInput && inputIsTerminal()) {
        complain("reading the screen from standard input; end it with the end-of-file key");
    }
    return screenFromText(readAll(options.screenFile, options.maxLine));
}

// The count of a class as a collection of one, so that it is shown like results.
CollectionPtr countOf(const ClassRow& row, ProfileObject& object, TextView screen) {
    if (row.counts.empty()) throw UsageError(toUtf8(row.name) + " counts nothing; leave --count out");
    const auto counts = std::make_shared<BuiltInCollection>();
    for (const CountProperty& property : row.counts) {
        counts->Add(property.name, property.call(object, CountRequest{screen}));
    }
    return counts;
}

int readScreen(const VerifyOptions& options) {
    const ClassRow& row = transactionClass(options.className);
    const auto collection = collectionFor(options);
    if (collection) warnAboutUnknownKeys(row, PassedFor::Screen, *collection);
    const Text screen = screenFor(options);

    BuiltInTerminal terminal([](const Error& reported) {
        complain("a reader met " + asSentence(describe(reported)) + " The results hold what was read before it.");
    });
    const std::unique_ptr<ProfileObject> object = createObject(row, terminal);
    const CollectionPtr results =
        options.count ? countOf(row, *object, screen) : object->profileTrans()->VerifyResponse(screen, collection);
    writeOutput(resultsText(results, chosenView(options.table, options.json)));
    return success;
}

}  // namespace

void addVerifyCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("verify", "Read the screen that the host answered with");
    const auto options = std::make_shared<VerifyOptions>();
    command.add_option("CLASS", options->className, "A transaction class, such as CPDNTrans")
        ->required()
        ->type_name("");
    command.add_option("KEY=VALUE", options->parameters, parameterHelp)->type_name("");
    command
        .add_option("--screen", options->screenFile,
                    "File with the screen (default: standard input): its lines, each padded to 80\n"
                    "characters, or one unbroken text")
        ->type_name("FILE");
    command
        .add_option("--state", options->stateFile,
                    "File with the results of the screen before, as --json printed them; KEY=VALUE is added over "
                    "it")
        ->type_name("FILE");
    auto* const table = command.add_flag("--table", options->table, "Print a table, also into a file or pipe");
    command.add_flag("--json", options->json, "Print one JSON object, also on a terminal")->excludes(table);
    command.add_flag("--count", options->count, "Print what the class counts on the screen, not its results");
    addMaxLine(command, options->maxLine);
    command.footer(
        "Without results, as for an empty screen, JSON is null.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile verify CPXTrans --table --screen screen.txt\n"
        "  vantro-profile verify CPDNTrans --screen first.txt --json > state.json\n"
        "  vantro-profile verify CPDNTrans --screen second.txt --state state.json");
    command.callback([options, &status] { status = readScreen(*options); });
}

}  // namespace vantro
