// Sample exchanges; samples/README.md describes the files.
#pragma once

#include "tests/support/collections.h"
#include "vantro/text.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace vantro::test {

/// The outcome of reading a screen.
struct ExpectedResults {
    enum class Kind { Collection, NoCollection, Raised };

    Kind kind = Kind::NoCollection;
    Entries entries;  ///< of a collection
    int raised = 0;   ///< the error number
};

/// One step of an exchange: a command, a screen, or both.
struct ExchangeStep {
    int line = 0;  ///< line of the file, from 1
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

/// The steps of an exchange. Throws std::runtime_error with the line number for anything that does not match the
/// described format, including a screen line that is not 80 characters long.
Exchange parseExchange(std::string_view text);

/// The steps of a file; the text of an error begins with the file's name.
Exchange readExchange(const std::filesystem::path& file);

/// The files of a folder with this extension, sorted by name.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder, std::string_view ending);

}  // namespace vantro::test
