#include "cli/classes/nearest.h"
#include "cli/commands/commands.h"
#include "cli/commands/display_query.h"
#include "cli/io/utf.h"
#include "vantro/families.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro {

namespace {

std::string missingOption(const Error& raised, const ElementsOptions& options) {
    const bool lacksIndex = raised.number() == static_cast<int>(Failure::ObjectNotSet) && !options.index;
    return lacksIndex ? "name the " + options.prefix + " element's index with --index" : "";
}

}  // namespace

DisplayQuery queryFor(const ElementsOptions& options) {
    DisplayQuery query{.className = u"CProfile", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", toUtf16(options.prefix));
    if (options.index) query.request->Add(u"intKeyIndex", *options.index);
    for (const std::string& entry : options.selection) query.selection.push_back(toUtf16(entry));
    query.qualifier = toUtf16(options.qualifier);
    return query;
}

std::string unknownPrefix(const std::string& prefix) {
    std::vector<TextView> words;
    for (const QueryFacts& query : profileQueries()) words.push_back(query.word);
    const auto nearest = nearestName(toUtf16(prefix), words);
    const std::string hint = nearest ? "; did you mean " + toUtf8(*nearest) + "? There are " : "; there are ";
    return "no query has the prefix '" + prefix + "'" + hint + knownPrefixes();
}

std::string knownPrefixes() {
    std::string others;
    std::string families;
    for (const QueryFacts& query : profileQueries()) {
        std::string& known = query.family ? families : others;
        known += " " + toUtf8(query.word);
    }
    return others.substr(1) + families;
}

std::string prefixesWithMeanings() {
    constexpr std::size_t longest = 6;
    std::string lines;
    for (const QueryFacts& query : profileQueries()) {
        std::string word = toUtf8(query.word);
        word.resize(longest, ' ');
        lines += "  " + word + "  " + toUtf8(query.meaning) + "\n";
    }
    return lines;
}

std::string prefixesOfOneElement() {
    std::vector<std::string> words;
    for (const QueryFacts& query : profileQueries()) {
        const bool isOne = query.family && factsOf(*query.family).output == ElementOutput::Element;
        if (isOne) words.push_back(toUtf8(query.word));
    }
    std::string text = words.front();
    for (std::size_t index = 1; index + 1 < words.size(); ++index) text += ", " + words[index];
    return text + " and " + words.back();
}

int runElements(const ElementsOptions& options) {
    const Question question{
        .query = [&options] { return queryFor(options); },
        .missing = [&options](const Error& raised) { return missingOption(raised, options); },
        .unknown = unknownPrefix(options.prefix),
    };
    return answerDisplays(options.common, question);
}

}  // namespace vantro
