#include "tests/support/exchange_file.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vantro::test {

Exchange readExchange(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) throw std::runtime_error(file.string() + ": cannot be read");
    try {
        return parseExchange(text.str());
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.filename().string() + ", " + error.what());
    }
}

Entries entriesOf(const ExchangeEntries& entries) {
    Entries found;
    for (const ExchangeEntry& entry : entries) found.emplace_back(entry.key, entry.value);
    return found;
}

std::optional<Entries> entriesOf(const std::optional<ExchangeEntries>& entries) {
    return entries ? std::optional(entriesOf(*entries)) : std::nullopt;
}

CollectionPtr collectionOf(const std::optional<ExchangeEntries>& entries) {
    return entries ? collection(entriesOf(*entries)) : nullptr;
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder, std::string_view ending) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ending) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace vantro::test
