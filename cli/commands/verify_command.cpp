#include "cli/classes/screen_marks.h"
#include "cli/classes/trans_class.h"
#include "cli/classes/unknown_keys.h"
#include "cli/commands/commands.h"
#include "cli/commands/results_view.h"
#include "cli/commands/rows_view.h"
#include "cli/commands/verify_input.h"
#include "cli/io/failure.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/positions.h"

#include <memory>
#include <string>

namespace vantro {

namespace {

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

    BuiltInTerminal builtIn([](const Error& reported) {
        complain("a reader met " + asSentence(describe(reported)) + " The results hold what was read before it.");
    });
    ResultPositions positions(row);
    ResultPositions* const asked = options.positions ? &positions : nullptr;
    ObservedTerminal terminal(builtIn, asked);
    const std::unique_ptr<ProfileObject> object = createObject(row, terminal);
    const CollectionPtr results =
        options.count ? countOf(row, *object, screen) : object->profileTrans()->VerifyResponse(screen, collection);
    writeOutput(resultsText(results, chosenView(options.table, options.json), asked));
    if (!options.count && !isRecognised(row, screen, results) && !showsList(row, screen, collection)) {
        warnings.add(notRecognised(row, screen));
        return screenNotRecognised;
    }
    return warnings.statusAfter(success, options.strict);
}

}  // namespace vantro
