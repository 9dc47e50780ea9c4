// The sample exchanges; samples/README.md describes the files.
#pragma once

#include "cli/replay/exchange.h"
#include "tests/support/collections.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace vantro::test {

/// The steps of a file. Throws std::runtime_error for a file that does not match the format; its text begins with the
/// file's name.
Exchange readExchange(const std::filesystem::path& file);

/// Entries of an exchange as those of a collection.
Entries entriesOf(const ExchangeEntries& entries);
std::optional<Entries> entriesOf(const std::optional<ExchangeEntries>& entries);

/// A new collection with these entries; null for none.
CollectionPtr collectionOf(const std::optional<ExchangeEntries>& entries);

/// The files of a folder with this extension, sorted by name.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder, std::string_view ending);

}  // namespace vantro::test
