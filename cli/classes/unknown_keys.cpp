#include "cli/classes/unknown_keys.h"

#include "cli/classes/nearest.h"
#include "cli/io/utf.h"

#include <cstring>
#include <optional>
#include <span>

namespace vantro {

namespace {

std::span<const ParameterRow> keysFor(const ClassRow& row, PassedFor purpose) {
    return purpose == PassedFor::Command ? row.description.parameters : row.description.state;
}

// `batch` compares the keys of every request: most keys differ in length or in the last character.
bool isSame(TextView left, TextView right) {
    if (left.size() != right.size()) return false;
    return left.empty() ||
           (left.back() == right.back() && std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}

template <class Row>
bool contains(std::span<const Row> rows, TextView key) {
    for (const Row& row : rows) {
        if (isSame(row.key, key)) return true;
    }
    return false;
}

bool reads(const ClassRow& row, PassedFor purpose, TextView key) { return contains(keysFor(row, purpose), key); }

bool isKnown(const ClassRow& row, PassedFor purpose, TextView key) {
    return reads(row, purpose, key) ||
           (purpose == PassedFor::Screen && contains(std::span(row.description.results), key));
}

std::optional<TextView> nearestKey(const ClassRow& row, PassedFor purpose, TextView key) {
    std::vector<TextView> names;
    for (const ParameterRow& parameter : keysFor(row, purpose)) names.push_back(parameter.key);
    return nearestName(key, names);
}

std::string warningAbout(const ClassRow& row, PassedFor purpose, TextView key) {
    const bool isForCommand = purpose == PassedFor::Command;
    const std::string name = toUtf8(row.name);
    const std::string warning = name + " does not know " + inQuotes(key);
    if (reads(row, isForCommand ? PassedFor::Screen : PassedFor::Command, key)) {
        return warning +
               (isForCommand ? " for a command; it reads it for a screen" : " for a screen; it reads it for a command");
    }
    if (const auto nearest = nearestKey(row, purpose, key))
        return warning + "; did you mean " + inQuotes(*nearest) + "?";
    return warning + "; 'vantro-profile describe " + name + "' lists the keys";
}

}  // namespace

std::vector<std::string> unknownKeyWarnings(const ClassRow& row, PassedFor purpose,
                                            const BuiltInCollection& collection) {
    std::vector<std::string> warnings;
    for (const auto& entry : collection.entries()) {
        if (!isKnown(row, purpose, entry.key())) warnings.push_back(warningAbout(row, purpose, entry.key()));
    }
    return warnings;
}

void warnAboutUnknownKeys(const ClassRow& row, PassedFor purpose, const BuiltInCollection& collection,
                          Warnings& warnings) {
    for (const std::string& warning : unknownKeyWarnings(row, purpose, collection)) warnings.add(warning);
}

}  // namespace vantro
