// Keyed collections as JSON objects.
#pragma once

#include "cli/json/output.h"
#include "vantro/built_in_terminal.h"

namespace vantro {

class ResultPositions;

/// Writes a collection as an object with its keys in the order in which they were added, or null for no collection.
/// The collection must be a `BuiltInCollection`. With positions, the last member "positions" says where the values are
/// that are on the screen: an array of pieces for a text, an array of such arrays for a list.
void writeCollection(const CollectionPtr& collection, JsonOut& out, const ResultPositions* positions = nullptr);

/// Writes a list as an array of strings.
void writeList(const TextList& list, JsonOut& out);

}  // namespace vantro
