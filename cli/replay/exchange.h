// Sample exchanges; samples/README.md describes the files.
#pragma once

#include "vantro/collection.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// A key with its value, as in a collection.
struct ExchangeEntry {
    Text key;
    ItemValue value;

    friend bool operator==(const ExchangeEntry&, const ExchangeEntry&) = default;
};

using ExchangeEntries = std::vector<ExchangeEntry>;

/// The outcome of reading a screen.
struct ExchangeResults {
    enum class Kind { Collection, NoCollection, Raised };

    Kind kind = Kind::NoCollection;
    ExchangeEntries entries = {};  ///< of a collection
    int raised = 0;                ///< the error number

    friend bool operator==(const ExchangeResults&, const ExchangeResults&) = default;
};

/// The lines of a step's sections in the file, from 1; 0 for a section that is not there. An entry of the results is
/// one line, and they follow the line of their section.
struct SectionLines {
    int command = 0;
    int count = 0;
    int results = 0;
    int reported = 0;
};

/// One step of an exchange: a command, a screen, or both.
struct ExchangeStep {
    int line = 0;  ///< line of the file, from 1
    Text className = {};
    std::optional<ExchangeEntries> params = {};
    std::optional<Text> command = {};
    std::optional<int> commandRaises = {};
    std::optional<Text> screen = {};
    bool statePrevious = false;
    std::optional<int> count = {};
    std::optional<ExchangeResults> results = {};
    std::vector<int> reported = {};
    SectionLines lines = {};
};

using Exchange = std::vector<ExchangeStep>;

/// The most lines that a screen has in an exchange.
inline constexpr std::size_t mostScreenLines = 24;

/// The steps of an exchange. Raises UsageError, with the line number at the start of its text, for anything that does
/// not match the described format, including a screen line that is not 80 characters long.
Exchange parseExchange(std::string_view text);

/// A value as an exchange spells it.
std::string spelled(const ItemValue& value);
std::string spelled(const std::vector<int>& numbers);

/// The lines of a section, line ends (LF) included.
std::string entryLine(const ExchangeEntry& entry);
std::string commandLine(const ExchangeStep& step);
std::string screenLines(TextView screen);
std::string resultsLines(const ExchangeResults& results);

/// A whole step, from its "== CLASS" to the end of its last section.
std::string stepText(const ExchangeStep& step);

}  // namespace vantro
