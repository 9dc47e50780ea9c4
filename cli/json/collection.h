// Keyed collections as JSON objects.
#pragma once

#include "cli/json/output.h"
#include "vantro/built_in_terminal.h"

namespace vantro {

/// Writes a collection as an object with its keys in the order in which they were added, or null for no collection.
/// The collection must be a `BuiltInCollection`.
void writeCollection(const CollectionPtr& collection, JsonOut& out);

/// Writes a list as an array of strings.
void writeList(const TextList& list, JsonOut& out);

}  // namespace vantro
