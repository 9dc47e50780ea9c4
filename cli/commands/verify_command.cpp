#include "cli/classes/screen_marks.h"
#include "cli/classes/trans_class.h"
#include "cli/classes/unknown_keys.h"
#include "cli/commands/commands.h"
#include "cli/commands/parameters.h"
#include "cli/commands/results_view.h"
#include "cli/commands/rows_view.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/screen_input.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"

#include <memory>
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

// The transaction's collection: the entries of the state, then the parameters, which replace them. Without either,
// none.
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

// The counts of a class as a collection, so that they are shown like results.
CollectionPtr countOf(const ClassRow& row, ProfileObject& object, TextView screen) {
    if (row.counts.empty()) throw UsageError(toUtf8(row.name) + " counts nothing; leave --count out");
    const auto counts = std::make_shared<BuiltInCollection>();
    for (const CountProperty& property : row.counts) {
        counts->Add(property.name, property.call(object, CountRequest{screen}));
    }
    return counts;
}

}  // namespace

int runVerify(const VerifyOptions& options) {
    const ClassRow& row = transactionClass(options.className);
    if (options.rows) requireLists(row);
    const auto collection = collectionFor(options);
    Warnings warnings(options.quiet);
    if (collection) warnAboutUnknownKeys(row, PassedFor::Screen, *collection, warnings);
    const Text screen = screenFor(options, warnings);
    for (const std::string& warning : screenWarnings(screen)) warnings.add(warning);
    if (options.rows) return showRows(row, screen, collection, options, warnings);

    BuiltInTerminal terminal([](const Error& reported) {
        complain("a reader met " + asSentence(describe(reported)) + " The results hold what was read before it.");
    });
    const std::unique_ptr<ProfileObject> object = createObject(row, terminal);
    const CollectionPtr results =
        options.count ? countOf(row, *object, screen) : object->profileTrans()->VerifyResponse(screen, collection);
    writeOutput(resultsText(results, chosenView(options.table, options.json)));
    if (!options.count && !isRecognised(row, screen, results) && !showsList(row, screen, collection)) {
        warnings.add(notRecognised(row, screen));
        return screenNotRecognised;
    }
    return warnings.statusAfter(success, options.strict);
}

}  // namespace vantro
