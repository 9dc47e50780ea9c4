#include "cli/commands/chosen_queries.h"

#include "cli/classes/nearest.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <vector>

namespace vantro {

namespace {

/// The other queries that a whole profile answers.
template <class Use>
void forEachOtherQuery(Use use) {
    for (std::size_t index = 0; index < otherQueryCount; ++index) {
        const auto query = static_cast<OtherQuery>(index);
        if (!factsOf(query).json.empty()) use(query, factsOf(query));
    }
}

bool choose(const std::string& name, ProfileQueries& queries) {
    bool isKnown = false;
    for (const FamilyName& row : familyNames()) {
        if (toUtf8(row.prefix) != name) continue;
        queries.families.set(indexOf(row.family));
        isKnown = true;
    }
    forEachOtherQuery([&](OtherQuery query, const QueryFacts& facts) {
        if (toUtf8(facts.word) != name && facts.json != name) return;
        queries.others.set(indexOf(query));
        isKnown = true;
    });
    return isKnown;
}

[[noreturn]] void refuse(const std::string& name) {
    std::vector<Text> jsonNames;  // the names below are views of these
    forEachOtherQuery([&](OtherQuery /*query*/, const QueryFacts& facts) { jsonNames.push_back(toUtf16(facts.json)); });
    std::vector<TextView> names;
    for (const FamilyName& row : familyNames()) names.push_back(row.prefix);
    forEachOtherQuery([&](OtherQuery /*query*/, const QueryFacts& facts) { names.push_back(facts.word); });
    names.insert(names.end(), jsonNames.begin(), jsonNames.end());
    std::string message = "--only: nothing in a profile is named '" + name + "'; ";
    if (const auto nearest = nearestName(toUtf16(name), names)) {
        throw UsageError(message + "did you mean " + toUtf8(*nearest) + "?");
    }
    message += "there are";
    for (const TextView known : std::span(names).first(names.size() - jsonNames.size())) message += " " + toUtf8(known);
    throw UsageError(message);
}

}  // namespace

ProfileQueries chosenQueries(std::span<const std::string> names) {
    ProfileQueries queries;
    if (names.empty()) return queries;
    queries.families.reset();
    queries.others.reset();
    for (const std::string& name : names) {
        if (!choose(name, queries)) refuse(name);
    }
    return queries;
}

}  // namespace vantro
