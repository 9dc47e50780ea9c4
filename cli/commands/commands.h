// The subcommands: the options of each, and the function that runs it and returns the exit status. command_line.cpp
// defines how the options are written on the command line. `batch` is in batch/run.h.
#pragma once

#include "cli/commands/display_query.h"
#include "cli/io/chunk_reader.h"
#include "cli/io/input_files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantro {

struct ClassesOptions {
    bool table = false;
    bool json = false;
};

struct CommandOptions {
    std::string className;
    std::vector<std::string> parameters;  ///< KEY=VALUE, see `addParameters`
    bool raw = false;                     ///< lets control characters through
    bool strict = false;                  ///< makes a run with warnings fail
    bool quiet = false;                   ///< prints no warnings
};

struct VerifyOptions {
    std::string className;
    std::vector<std::string> parameters;
    std::string screenFile;
    std::string stateFile;  ///< "" for none
    Encoding encoding = Encoding::ByMark;
    bool table = false;
    bool json = false;
    bool csv = false;        ///< with `rows`
    bool count = false;      ///< asks for the class's counts instead of its results
    bool rows = false;       ///< asks for the rows of the list instead of the results
    bool positions = false;  ///< adds where each value is
    bool lenient = false;    ///< cuts long lines and replaces bytes that are not UTF-8
    bool strict = false;
    bool quiet = false;
    std::size_t maxLine = defaultMaxLine;
};

struct IdentifyOptions {
    std::vector<std::string> files;  ///< a screen each, or folders of such files; empty for standard input
    bool table = false;
    bool json = false;
    Encoding encoding = Encoding::ByMark;
    bool strict = false;
    bool quiet = false;
    std::size_t maxLine = defaultMaxLine;
};

struct ReplayOptions {
    std::vector<std::string> paths;  ///< files and folders
    bool accept = false;             ///< rewrites the expectations of cases that fail
    std::string junitFile;           ///< "" for none
    bool json = false;
    bool quiet = false;  ///< prints nothing about cases that pass
};

struct RecordOptions {
    std::string file;    ///< "" for standard input
    std::string output;  ///< "" for standard output
    bool force = false;  ///< overwrites an existing file
    Encoding encoding = Encoding::ByMark;
    bool strict = false;
    bool quiet = false;
    std::size_t maxLine = defaultMaxLine;
};

struct ParseOptions {
    std::vector<std::string> files;      ///< files and folders; empty for standard input
    std::vector<std::string> fileLists;  ///< files with the names of further ones
    bool zeroSeparated = false;          ///< the names in the lists, by zero bytes instead of line ends
    Encoding encoding = Encoding::ByMark;
    bool table = false;
    bool json = false;
    bool pretty = false;
    bool csv = false;
    bool compact = false;           ///< leaves out what is empty
    bool positions = false;         ///< adds where each value is
    std::vector<std::string> only;  ///< the queries to be answered; empty for all
    std::optional<std::string> id;  ///< the pattern of the displays' identifiers, see `IdPattern`
    bool areRecords = false;        ///< the input is one JSON object per line
    std::size_t threads = 1;
    std::size_t maxLine = defaultMaxLine;
    Splitting splitting = {};
    bool quiet = false;   ///< prints no warnings, totals and progress
    bool strict = false;  ///< warnings are failures
};

struct ExportOptions {
    ParseOptions input;  ///< what is read, and how
    std::string target;  ///< a folder or database
    bool check = false;  ///< compares the target with the files instead of writing it
};

struct ElementsOptions {
    std::string prefix;
    std::optional<std::int16_t> index;
    std::vector<std::string> selection;
    std::string qualifier;
    QueryOptions common;
};

struct NotesOptions {
    std::string search;
    std::string qualifier;
    QueryOptions common;
};

struct ExplainOptions {
    std::string what;                    ///< a class, the prefix of a query, or "profile"
    std::vector<std::string> arguments;  ///< KEY=VALUE, and the file
    std::string file;                    ///< instead of one among the arguments
    std::string stateFile;
    std::optional<std::int16_t> index;
    std::vector<std::string> selection;
    std::string qualifier;
    std::string search;
    std::optional<std::size_t> display;  ///< only this display of the file, from 1
    bool rows = false;                   ///< explains the rows of a list instead of the results
    bool json = false;
    std::string htmlFile;
    Encoding encoding = Encoding::ByMark;
    Splitting splitting = {};
    bool strict = false;
    bool quiet = false;
    std::size_t maxLine = defaultMaxLine;
};

// All of them raise UsageError for options that cannot be carried out, and StreamError.
int runClasses(const ClassesOptions& options);
int runCommand(const CommandOptions& options);
int runVerify(const VerifyOptions& options);
int runIdentify(const IdentifyOptions& options);
int runReplay(const ReplayOptions& options);
int runRecord(const RecordOptions& options);
int runParse(ParseOptions options);
int runExport(ExportOptions options);
int runElements(const ElementsOptions& options);
int runNotes(const NotesOptions& options);
int runExplain(ExplainOptions options);

// The arguments of the queries that `elements` and `notes` make.
DisplayQuery queryFor(const ElementsOptions& options);
DisplayQuery queryFor(const NotesOptions& options);

/// The message for a prefix that no query has.
std::string unknownPrefix(const std::string& prefix);

/// The prefixes that `elements` knows, with blanks between them.
std::string knownPrefixes();

/// The same, one per line with its meaning.
std::string prefixesWithMeanings();

/// Those for which `elements` returns one element only: "SR, RM and AP".
std::string prefixesOfOneElement();

}  // namespace vantro
