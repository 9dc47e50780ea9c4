#include "cli/explain/explained_response.h"

#include "cli/classes/screen_marks.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/json/collection.h"
#include "vantro/built_in_terminal.h"

#include <string>
#include <variant>

namespace vantro {

namespace {

/// "blnKeyCompanyList is True", or that no flag is.
std::string flagsIn(const BuiltInCollection& results) {
    std::string flags;
    for (const auto& entry : results.entries()) {
        const ItemValue& value = entry.Value();
        const bool* const flag = std::get_if<bool>(&value);
        if (flag != nullptr && *flag) flags += (flags.empty() ? "" : ", ") + toUtf8(entry.key());
    }
    return flags.empty() ? "no flag is True" : "True: " + flags;
}

std::string outcomeOf(const ClassRow& row, TextView screen, const CollectionPtr& results, bool isKnown) {
    if (!results) return "No results: the response is empty.";
    if (!isKnown) return "Empty, not failed: " + asSentence(notRecognised(row, screen));
    return "The screen was recognised; " + flagsIn(dynamic_cast<const BuiltInCollection&>(*results)) + ".";
}

}  // namespace

bool explainResponse(const ClassRow& row, TextView screen, const CollectionPtr& state, Explanation& explanation,
                     Explained& explained) {
    BuiltInTerminal builtIn;
    ObservedTerminal terminal(builtIn, &explanation);
    const CollectionPtr results = createObject(row, terminal)->profileTrans()->VerifyResponse(screen, state);
    const bool isKnown = isRecognised(row, screen, results) || showsList(row, screen, state);
    explained.outcome = outcomeOf(row, screen, results, isKnown);
    explained.writeResults = [results](JsonOut& out) { writeCollection(results, out); };
    return isKnown;
}

}  // namespace vantro
