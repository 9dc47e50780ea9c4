#include "cli/commands/commands.h"
#include "cli/commands/display_query.h"
#include "cli/io/utf.h"
#include "vantro/families.h"

#include <memory>
#include <string>

namespace vantro {

namespace {

DisplayQuery queryFor(const ElementsOptions& options) {
    DisplayQuery query{.className = u"CProfile", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", toUtf16(options.prefix));
    if (options.index) query.request->Add(u"intKeyIndex", *options.index);
    for (const std::string& entry : options.selection) query.selection.push_back(toUtf16(entry));
    query.qualifier = toUtf16(options.qualifier);
    return query;
}

std::string adviceOn(const Error& raised, const ElementsOptions& options) {
    const bool lacksIndex = raised.number() == static_cast<int>(Failure::ObjectNotSet) && !options.index;
    return lacksIndex ? "Give the place with --index." : "";
}

}  // namespace

std::string knownPrefixes() {
    std::string others;
    std::string families;
    for (const QueryFacts& query : profileQueries()) {
        std::string& known = query.family ? families : others;
        known += " " + toUtf8(query.word);
    }
    return others.substr(1) + families;
}

int runElements(const ElementsOptions& options) {
    const Question question{
        .query = [&options] { return queryFor(options); },
        .advice = [&options](const Error& raised) { return adviceOn(raised, options); },
        .unknown = "no query has the prefix '" + options.prefix + "'; there are " + knownPrefixes(),
    };
    return answerDisplays(options.common, question);
}

}  // namespace vantro
