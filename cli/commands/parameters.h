// The collection that a transaction is called with: KEY=VALUE parameters and the JSON of an earlier call.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro {

/// Adds KEY=VALUE pairs (UTF-8) to a collection, each as the kind that its key tells. Pairs of a key ending in
/// "()" are the entries of its list, in order, and replace a list that is there. Raises UsageError for a pair
/// that cannot be read, and for any other key given twice.
void addParameters(const std::vector<std::string>& pairs, BuiltInCollection& collection);

/// Raises UsageError for a text in the collection with a control character (U+0000 to U+001F, U+007F to U+009F).
void refuseControlCharacters(const BuiltInCollection& collection);

/// The collection that `writeCollection` wrote (null for null). `name` says in messages where the text is from.
/// Raises UsageError for anything else.
std::shared_ptr<BuiltInCollection> collectionFromJson(std::string json, const std::string& name);

}  // namespace vantro
