// Recorded exchanges, as samples/README.md describes their files.
#pragma once

#include "tests/support/collections.h"
#include "vantro/text.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace vantro::test {

/// What reading a screen ends with.
struct ExpectedResults {
    enum class Kind { Collection, NoCollection, Raised };

    Kind kind = Kind::NoCollection;
    Entries entries;  ///< of a collection
    int raised = 0;   ///< the error's number
};

/// One step of an exchange: a command, a screen, or both.
struct ExchangeStep {
    int line = 0;  ///< of the file, from 1
    Text className;
    std::optional<Entries> params;
    std::optional<Text> command;
    std::optional<int> commandRaises;
    std::optional<Text> screen;
    bool statePrevious = false;
    std::optional<int> count;
    std::optional<ExpectedResults> results;
    std::vector<int> reported;
};

using Exchange = std::vector<ExchangeStep>;

/// The steps of an exchange. Raises std::runtime_error with the line's number for anything that is not of the
/// described form, a screen line of another length than 80 included.
Exchange parseExchange(std::string_view text);

/// The steps of a file; the error's text then begins with its name.
Exchange readExchange(const std::filesystem::path& file);

/// The files of a folder with this ending, sorted by name.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder, std::string_view ending);

}  // namespace vantro::test
