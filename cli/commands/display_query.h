// Single queries of profile displays, as a terminal makes them.
#pragma once

#include "cli/commands/results_view.h"
#include "cli/io/input_files.h"
#include "vantro/built_in_terminal.h"
#include "vantro/error.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace vantro {

/// What a query is made with.
struct DisplayQuery {
    TextView className;
    std::shared_ptr<BuiltInCollection> request;
    TextList selection = {};
    Text qualifier = {};
};

/// Where the displays are, and how the answers are printed.
struct QueryOptions {
    std::string file;
    bool table = false;
    bool json = false;
    std::size_t maxLine = defaultMaxLine;
};

/// What is asked of every display.
struct Question {
    std::function<DisplayQuery()> query;                   ///< a new one for each display
    std::function<std::string(const Error&)> advice = {};  ///< a sentence to add to an error, or ""
    std::string unknown = {};                              ///< what to say when the class does not know the prefix
};

/// Asks each display of the file (standard input for "" and "-"), prints what the query added to its request and gives
/// the exit status. A display that cannot be read and one without an answer are said on standard error.
int answerDisplays(const QueryOptions& options, const Question& question);

}  // namespace vantro
