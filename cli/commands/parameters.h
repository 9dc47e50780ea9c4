// The collection that a transaction is called with: KEY=VALUE parameters and the JSON of an earlier call.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro {

/// Adds KEY=VALUE pairs (UTF-8) to a collection. The key determines the kind of value. The pairs of a key that ends in
/// "()" are the entries of its list, in order; the list replaces one that the collection has. Raises UsageError for a
/// pair that cannot be read, and for any other key that occurs twice.
void addParameters(const std::vector<std::string>& pairs, BuiltInCollection& collection);

/// Raises UsageError for a text in the collection with a control character (U+0000 to U+001F, U+007F to U+009F).
void refuseControlCharacters(const BuiltInCollection& collection);

/// Reads the JSON that `writeCollection` writes: an object, or null for no collection. `name` is the text's name in
/// messages. Raises UsageError for any other text.
std::shared_ptr<BuiltInCollection> collectionFromJson(std::string json, const std::string& name);

}  // namespace vantro
