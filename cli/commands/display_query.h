// Single queries of profile displays, as a terminal makes them.
#pragma once

#include "cli/commands/results_view.h"
#include "cli/io/chunk_reader.h"
#include "cli/io/input_files.h"
#include "vantro/built_in_terminal.h"
#include "vantro/error.h"
#include "vantro/observer.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace vantro {

/// The arguments of a query.
struct DisplayQuery {
    TextView className;
    std::shared_ptr<BuiltInCollection> request;
    TextList selection = {};
    Text qualifier = {};
};

/// The file with the displays, and how the answers are printed.
struct QueryOptions {
    std::string file;
    bool table = false;
    bool json = false;
    bool positions = false;  ///< adds where each value is
    std::size_t maxLine = defaultMaxLine;
    Encoding encoding = Encoding::ByMark;
    Splitting splitting = {};
    bool quiet = false;   ///< prints no warnings
    bool strict = false;  ///< warnings are failures
};

/// The query for every display.
struct Question {
    std::function<DisplayQuery()> query;                    ///< a new one for each display
    std::function<std::string(const Error&)> missing = {};  ///< asks for the option whose lack is the error, or ""
    std::string unknown = {};                               ///< the message when the class does not know the prefix
};

/// The entries that the query adds to its request; null when the class does not know the prefix. The observer may be
/// null. Raises what the query raises.
CollectionPtr answerOf(const Text& display, DisplayQuery query, ReadingObserver* observer);

/// Queries each display of the file (standard input for "" and "-"), prints the entries that the query added to its
/// request and returns the exit status. A display that cannot be read and one without an answer are reported on
/// standard error.
int answerDisplays(const QueryOptions& options, const Question& question);

}  // namespace vantro
