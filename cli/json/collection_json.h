// Keyed collections as JSON objects.
#pragma once

#include "cli/json/json_out.h"
#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>

namespace vantro {

/// Writes a collection as an object, its keys in the order in which they were added; null for no collection.
/// The collection must be one of the built-in terminal library.
void writeCollection(const CollectionPtr& collection, JsonOut& out);

/// Writes a list as an array of strings.
void writeList(const TextList& list, JsonOut& out);

/// The collection that `writeCollection` wrote (null for null). `name` says in messages where the text is from.
/// Raises UsageError for anything else.
std::shared_ptr<BuiltInCollection> collectionFromJson(std::string json, const std::string& name);

}  // namespace vantro
