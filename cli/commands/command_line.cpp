// Only this source, refusal.cpp and shell_commands.cpp include the option parser: it takes longer to compile than the
// rest of the tool.
#include "cli/commands/command_line.h"

#include "cli/batch/run.h"
#include "cli/commands/commands.h"
#include "cli/commands/describe.h"
#include "cli/commands/help.h"
#include "cli/commands/refusal.h"
#include "cli/commands/shell_commands.h"
#include "cli/io/encoding.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

namespace {

// ---- Values of options

/// Accepts whole numbers from `smallest` to `largest`.
CLI::Validator wholeNumber(int smallest, int largest) {
    const auto check = [smallest, largest](const std::string& text) -> std::string {
        int number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, problem] = std::from_chars(text.data(), end, number);
        if (problem == std::errc{} && stop == end && number >= smallest && number <= largest) return {};
        return "give a whole number from " + std::to_string(smallest) + " to " + std::to_string(largest) + ", not '" +
               text + "'";
    };
    return {check, ""};
}

constexpr std::size_t kibibyte = 1024;

// No line of a screen is longer than the smallest limit: 80 characters are at most 240 bytes.
constexpr std::size_t smallestMaxLine = kibibyte;
constexpr std::size_t largestMaxLine = std::numeric_limits<std::int32_t>::max();

std::size_t unitOf(std::string_view suffix) {
    if (suffix.empty()) return 1;
    if (suffix == "K" || suffix == "k") return kibibyte;
    if (suffix == "M" || suffix == "m") return kibibyte * kibibyte;
    return 0;
}

std::optional<std::size_t> maxLineIn(std::string_view text) {
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, number);
    if (problem != std::errc{}) return std::nullopt;
    const std::uint64_t size = std::uint64_t{number} * unitOf({stop, static_cast<std::size_t>(end - stop)});
    if (size < smallestMaxLine || size > largestMaxLine) return std::nullopt;
    return static_cast<std::size_t>(size);
}

/// Replaces a length such as "16M" by its number of bytes.
CLI::Validator lineLength() {
    const auto toBytes = [](std::string& text) -> std::string {
        const auto size = maxLineIn(text);
        if (!size) return "'" + text + "' is no length; give bytes, or a number with K or M, from 1K to 2047M";
        text = std::to_string(*size);
        return {};
    };
    return {toBytes, ""};
}

// ---- Options that several subcommands share

void addMaxLine(CLI::App& command, std::size_t& maxLine) {
    command
        .add_option("--max-line", maxLine,
                    "Length of the longest line accepted, in bytes or with K or M (default: 16M)")
        ->transform(lineLength())
        ->type_name("N");
}

void addEncoding(CLI::App& command, Encoding& encoding) {
    const auto read = [&encoding](const std::string& name) {
        const std::optional<Encoding> named = encodingNamed(name);
        if (!named) throw CLI::ValidationError("--encoding", "'" + name + "' is none of " + encodingNames());
        encoding = *named;
    };
    command
        .add_option_function<std::string>("--encoding", read,
                                          "Encoding of input without a byte order mark: utf-8, utf-16, utf-16le,\n"
                                          "utf-16be, latin-1 or windows-1252 (default: auto, which is UTF-8); a mark\n"
                                          "says by itself what the input is")
        ->type_name("ENCODING");
}

/// Accepts what no line of a display begins with, as far as that can be known.
CLI::Validator separator() {
    constexpr std::size_t longestCommandWord = 4;
    const auto check = [](const std::string& text) -> std::string {
        if (text.find_first_not_of(' ') == std::string::npos || text.find('\n') != std::string::npos) {
            return "a separator is the beginning of a line and not blank";
        }
        const bool isEcho = text.starts_with("P") && text.find('/') <= longestCommandWord;
        if (text.find_first_not_of('-') != std::string::npos && text != ">" && !isEcho) return {};
        return "'" + text + "' is no separator, lines of displays begin with it; give a longer one";
    };
    return {check, ""};
}

void addLenient(CLI::App& command, bool& isLenient) {
    command.add_flag("--lenient", isLenient,
                     "Cut lines over 80 characters and replace bytes that are not UTF-8, with a warning,\n"
                     "instead of refusing them");
}

template <class Options>
void addSplitting(CLI::App& command, Options& options) {
    command.add_flag("--pages", options.splitting.pages,
                     "Join the pages of displays that were captured screen by screen: only END OF DISPLAY, a\n"
                     "separator and the end of the file end a display, and prompts between pages are left out");
    command
        .add_option("--separator", options.splitting.separator,
                    "A line that begins with TEXT begins a display; the rest of that line is the display's\n"
                    "title")
        ->check(separator())
        ->type_name("TEXT");
    addLenient(command, options.splitting.isLenient);
}

void addClassAndParameters(CLI::App& command, std::string& className, std::vector<std::string>& parameters) {
    command.add_option("CLASS", className, "A transaction class, such as CPDNTrans")->required()->type_name("");
    command.add_option("KEY=VALUE", parameters, help::parameter)->type_name("");
}

void addWarnings(CLI::App& command, bool& strict, bool& quiet, const char* quietMeaning = "Print no warnings") {
    command.add_flag("--strict", strict, "Exit with status 5 if there were warnings");
    command.add_flag("-q,--quiet", quiet, quietMeaning);
}

void addInputFiles(CLI::App& command, ParseOptions& options) {
    command
        .add_option("FILE", options.files,
                    "Files with displays, and folders of such files (default, and for -: standard\ninput)")
        ->type_name("");
    command
        .add_option("--files-from", options.fileLists,
                    "File with the names of further files and folders, one per line (-: standard\ninput)")
        ->type_name("FILE")
        ->allow_extra_args(false);
    command.add_flag("-0,--null", options.zeroSeparated,
                     "The names in --files-from end in zero bytes, as find -print0 writes them");
}

void addThreads(CLI::App& command, std::size_t& threads) {
    constexpr int mostThreads = 256;
    command.add_option("-j,--jobs", threads, "Parse on N threads, with the output in the same order")
        ->check(wholeNumber(1, mostThreads))
        ->type_name("N")
        ->capture_default_str();
}

void addDisplayFile(CLI::App& command, QueryOptions& options) {
    command.add_option("FILE", options.file, "File with displays (default: standard input)")->type_name("");
}

void addQueryOptions(CLI::App& command, QueryOptions& options) {
    auto* const table = command.add_flag("--table", options.table, "Print a table, also into a file or pipe");
    command.add_flag("--json", options.json, "Print one JSON object per display, also on a terminal")->excludes(table);
    command.add_flag("--positions", options.positions,
                     "Print also the lines (from 0 in the display) and columns (from 1) of each value");
    addEncoding(command, options.encoding);
    addMaxLine(command, options.maxLine);
    addSplitting(command, options);
    addWarnings(command, options.strict, options.quiet);
}

/// What the class is like that was named together with --help: its description below the help. Raises UnknownClass.
std::string describedClassOf(const CLI::App& tool) {
    const auto chosen = tool.get_subcommands();
    const CLI::Option* const name = chosen.empty() ? nullptr : chosen.front()->get_option_no_throw("CLASS");
    return name == nullptr || name->empty() ? "" : "\n" + describedClass(name->results().front(), false);
}

// ---- The command line

class CommandLine {
public:
    CommandLine();

    int run(int argc, const char* const* argv);

private:
    void addClasses();
    void addDescribe();
    void addCommand();
    void addVerify();
    void addIdentify();
    void addReplay();
    void addRecord();
    void addBatch();
    void addParse();
    void addExport();
    void addElements();
    void addNotes();
    void addExplain();

    int answer(const CLI::ParseError& question) const;
    int refuse(const CLI::ParseError& problem) const;

    CLI::App tool_{"Commands for the reservation host's profiles, and what its screens and displays say", toolName};
    int status_ = success;

    ClassesOptions classes_;
    DescribeOptions describe_;
    CommandOptions command_;
    VerifyOptions verify_;
    IdentifyOptions identify_;
    ReplayOptions replay_;
    RecordOptions record_;
    BatchOptions batch_;
    ParseOptions parse_;
    ExportOptions export_;
    ElementsOptions elements_;
    NotesOptions notes_;
    ExplainOptions explain_;
};

CommandLine::CommandLine() {
    setHelpForm(tool_);
    tool_.set_help_flag("-h,--help", "Print this help and exit");
    tool_.set_version_flag("-V,--version", std::string(toolName) + " " VANTRO_VERSION, "Print the version and exit");
    tool_.require_subcommand(1);
    tool_.allow_windows_style_options(false);
    tool_.footer(help::tool);
    // In the order of the help.
    addClasses();
    addDescribe();
    addCommand();
    addVerify();
    addIdentify();
    addReplay();
    addRecord();
    addBatch();
    addParse();
    addExport();
    addElements();
    addNotes();
    addExplain();
    addShellCommands(tool_, status_);
}

int CommandLine::run(int argc, const char* const* argv) {
    try {
        tool_.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return problem.get_exit_code() == 0 ? answer(problem) : refuse(problem);
    }
    return status_;
}

// The output of --help and --version can fail like any other.
int CommandLine::answer(const CLI::ParseError& question) const {
    std::ostringstream out;
    const int status = tool_.exit(question, out, out);
    out << describedClassOf(tool_);
    writeOutput(out.str());
    return status;
}

int CommandLine::refuse(const CLI::ParseError& problem) const {
    complain(refusalOf(tool_, problem));
    return badUsage;
}

void CommandLine::addClasses() {
    CLI::App& command = *tool_.add_subcommand("classes", "List the classes, their interfaces and host transactions");
    auto* const table = command.add_flag("--table", classes_.table, "Print a table (the default)");
    command.add_flag("--json", classes_.json, "Print one JSON array, the counts by name")->excludes(table);
    command.footer(help::classes);
    command.callback([this] { status_ = runClasses(classes_); });
}

void CommandLine::addDescribe() {
    CLI::App& command =
        *tool_.add_subcommand("describe", "Say what a class or a query is for, what it takes and what comes out of it");
    command
        .add_option("CLASS|PREFIX", describe_.name,
                    "A class, such as CPDNTrans, or the prefix of a query of a display, such as PHI (default: all "
                    "classes, briefly)")
        ->type_name("");
    command.add_flag("--json", describe_.json, "Print one JSON value");
    command.footer(help::describe);
    command.callback([this] { status_ = runDescribe(describe_); });
}

void CommandLine::addCommand() {
    CLI::App& command = *tool_.add_subcommand("command", "Print the command line for the host");
    addClassAndParameters(command, command_.className, command_.parameters);
    command.add_flag("--raw", command_.raw, "Let control characters in parameters through into the command line");
    addWarnings(command, command_.strict, command_.quiet);
    command.footer(help::command);
    command.callback([this] { status_ = runCommand(command_); });
}

void CommandLine::addVerify() {
    CLI::App& command = *tool_.add_subcommand("verify", "Read the screen that the host answered with");
    addClassAndParameters(command, verify_.className, verify_.parameters);
    command
        .add_option("--screen", verify_.screenFile,
                    "File with the screen (default: standard input): its lines, each padded to 80\n"
                    "characters, or one unbroken text")
        ->type_name("FILE");
    command
        .add_option("--state", verify_.stateFile,
                    "File with the results of the screen before, as --json printed them; KEY=VALUE is added over it")
        ->type_name("FILE");
    auto* const table = command.add_flag("--table", verify_.table, "Print a table, also into a file or pipe");
    command.add_flag("--json", verify_.json, "Print one JSON object, also on a terminal")->excludes(table);
    command.add_flag("--count", verify_.count, "Print what the class counts on the screen, not its results");
    command.add_flag("--rows", verify_.rows, "Print the entries of the list on the screen, not the results")
        ->excludes("--count");
    command.add_flag("--csv", verify_.csv, "With --rows: print CSV, with the names of the columns in its first line")
        ->needs("--rows")
        ->excludes("--table")
        ->excludes("--json");
    command
        .add_flag("--positions", verify_.positions,
                  "Print also the lines (from 0) and columns (from 1) of each value, and of the mark that set a flag")
        ->excludes("--count")
        ->excludes("--csv");
    addEncoding(command, verify_.encoding);
    addMaxLine(command, verify_.maxLine);
    addLenient(command, verify_.lenient);
    addWarnings(command, verify_.strict, verify_.quiet);
    command.footer(help::verify);
    command.callback([this] { status_ = runVerify(verify_); });
}

void CommandLine::addIdentify() {
    CLI::App& command = *tool_.add_subcommand("identify", "Say which class reads a screen, and by which marks");
    command
        .add_option("FILE", identify_.files,
                    "Files with a screen each, or folders of such files (default, and for -: standard\n"
                    "input)")
        ->type_name("");
    auto* const table = command.add_flag("--table", identify_.table, "Print a table, also into a file or pipe");
    command.add_flag("--json", identify_.json, "Print one JSON object per screen, also on a terminal")->excludes(table);
    addEncoding(command, identify_.encoding);
    addMaxLine(command, identify_.maxLine);
    addWarnings(command, identify_.strict, identify_.quiet);
    command.footer(help::identify);
    command.callback([this] { status_ = runIdentify(identify_); });
}

void CommandLine::addReplay() {
    CLI::App& command =
        *tool_.add_subcommand("replay", "Run sample exchanges and displays, and compare what comes out");
    command.add_option("FILE", replay_.paths, "Exchanges, displays with their expectations, and folders of them")
        ->required()
        ->type_name("");
    command.add_flag("--accept", replay_.accept, "Rewrite the expectations of cases that fail to what came");
    command.add_option("--junit", replay_.junitFile, "Write the results to a file as JUnit XML")->type_name("FILE");
    command.add_flag("--json", replay_.json, "Print one JSON object per case");
    command.add_flag("-q,--quiet", replay_.quiet, "Print nothing about cases that pass");
    command.footer(help::replay);
    command.callback([this] { status_ = runReplay(replay_); });
}

void CommandLine::addRecord() {
    CLI::App& command = *tool_.add_subcommand("record", "Make sample exchanges of commands and screens");
    command
        .add_option("FILE", record_.file,
                    "Log of a terminal, or steps as one JSON object per line (default: standard\ninput)")
        ->type_name("");
    command.add_option("-o,--output", record_.output, "File for the exchange (default: standard output)")
        ->type_name("FILE");
    command.add_flag("--force", record_.force, "Overwrite an existing file");
    addEncoding(command, record_.encoding);
    addMaxLine(command, record_.maxLine);
    addWarnings(command, record_.strict, record_.quiet);
    command.footer(help::record);
    command.callback([this] { status_ = runRecord(record_); });
}

void CommandLine::addBatch() {
    CLI::App& command =
        *tool_.add_subcommand("batch", "Answer requests, one JSON object per line, from standard input");
    addMaxLine(command, batch_.maxLine);
    addWarnings(command, batch_.strict, batch_.quiet);
    command.footer(help::batch);
    command.callback([this] {
        LinkedBackend library;
        status_ = answerRequests(library, batch_);
    });
}

void CommandLine::addParse() {
    CLI::App& command = *tool_.add_subcommand("parse", "Print everything that profile displays contain");
    addInputFiles(command, parse_);
    auto* const table = command.add_flag("--table", parse_.table, "Print tables, also into a file or pipe");
    auto* const json = command.add_flag("--json", parse_.json, "Print JSON, also on a terminal")->excludes(table);
    auto* const pretty =
        command.add_flag("--pretty", parse_.pretty, "Print JSON with an indent of 2 blanks per level")->excludes(table);
    auto* const csv = command.add_flag("--csv", parse_.csv, "Print comma-separated values, one row per element")
                          ->excludes(table)
                          ->excludes(json)
                          ->excludes(pretty);
    command.add_flag("--compact", parse_.compact, "Print JSON without what is empty")->excludes(table)->excludes(csv);
    command
        .add_flag("--positions", parse_.positions,
                  "Print JSON with the lines (from 0 in the display) and columns (from 1) of each value")
        ->excludes(table)
        ->excludes(csv);
    command
        .add_option("--only", parse_.only,
                    "Only these, with commas between them: prefixes such as PPR,RM (see vantro-profile "
                    "help\nelements), or names of members")
        ->delimiter(',')
        ->type_name("LIST")
        ->allow_extra_args(false);
    auto* const id =
        command
            .add_option("--id", parse_.id,
                        "Add an identifier to each record: text with {locator}, {title} (the line above the display),\n"
                        "{file}, {name} (the file's name without folder and extensions), {display} and {line}")
            ->type_name("PATTERN")
            ->excludes(table);
    command
        .add_flag("--jsonl", parse_.areRecords, R"(Read records, one JSON object per line: {"id":1,"display":[...]})")
        ->excludes(id);
    addThreads(command, parse_.threads);
    addEncoding(command, parse_.encoding);
    addMaxLine(command, parse_.maxLine);
    addSplitting(command, parse_);
    addWarnings(command, parse_.strict, parse_.quiet, "Print no warnings, no totals and no progress");
    command.footer(help::parse);
    command.callback([this] { status_ = runParse(parse_); });
}

void CommandLine::addExport() {
    CLI::App& command = *tool_.add_subcommand("export", "Write everything that profile displays contain into tables");
    ParseOptions& input = export_.input;
    addInputFiles(command, input);
    command
        .add_option("--to", export_.target,
                    "Folder for CSV files, or a SQLite database, whose name ends in .db, .sqlite or .sqlite3; one\n"
                    "that exists is continued")
        ->required()
        ->type_name("DIR|FILE");
    command.add_flag("--check", export_.check, "Compare the tables with the files, and print what differs");
    addThreads(command, input.threads);
    addEncoding(command, input.encoding);
    addMaxLine(command, input.maxLine);
    addSplitting(command, input);
    command.add_flag("-q,--quiet", input.quiet, "Print no totals and no progress");
    command.footer(help::exportTables);
    command.callback([this] { status_ = runExport(export_); });
}

void CommandLine::addElements() {
    CLI::App& command = *tool_.add_subcommand("elements", "Ask profile displays for one kind of element");
    command.add_option("PREFIX", elements_.prefix, "What to ask for, such as PHI or RM")->required()->type_name("");
    addDisplayFile(command, elements_.common);
    command
        .add_option("--index", elements_.index,
                    "Index of one element, from 1; " + prefixesOfOneElement() + " return one element only, the\n" +
                        "others return lists whose entry 0 is empty")
        ->check(wholeNumber(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()))
        ->type_name("N");
    command
        .add_option("--selection", elements_.selection,
                    "With ALL: text that an element begins with (\"\" for every element), after \"S  \" or \"A  \"\n"
                    "for that kind of element only; may be given several times")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    command.add_option("--qualifier", elements_.qualifier, "With ALL: the first word of the elements' text")
        ->type_name("TEXT");
    addQueryOptions(command, elements_.common);
    command.footer("Prefixes:\n" + prefixesWithMeanings() + "\n" + help::manyDisplays + help::elements);
    command.callback([this] { status_ = runElements(elements_); });
}

void CommandLine::addNotes() {
    CLI::App& command = *tool_.add_subcommand("notes", "Print the notes in profile displays");
    addDisplayFile(command, notes_.common);
    command.add_option("--search", notes_.search, "Only notes that contain this text")->type_name("TEXT");
    command
        .add_option("--qualifier", notes_.qualifier, "Only notes with this qualifier, the character before the text")
        ->type_name("TEXT");
    addQueryOptions(command, notes_.common);
    command.footer(std::string(help::manyDisplays) + help::notes);
    command.callback([this] { status_ = runNotes(notes_); });
}

void CommandLine::addExplain() {
    CLI::App& command = *tool_.add_subcommand("explain", "Show how a screen or display is read, and why");
    command
        .add_option("CLASS|PREFIX", explain_.what,
                    "A transaction class, whose screen is explained; the prefix of a query of a display, as for\n"
                    "elements; or profile, for everything that parse reads")
        ->required()
        ->type_name("");
    command
        .add_option("FILE|KEY=VALUE", explain_.arguments,
                    "File with the screen or the displays (default: standard input), and for a class the\n"
                    "parameters, as for verify")
        ->type_name("");
    command.add_option("--screen", explain_.file, "The same file, as verify takes it")->type_name("FILE");
    command.add_option("--state", explain_.stateFile, "For a class: file with the results of the screen before")
        ->type_name("FILE");
    command.add_flag("--rows", explain_.rows, "For a class: explain the entries of the list on the screen");
    command
        .add_option("--index", explain_.index,
                    "For a query: index of one element, from 1 (default: all elements are explained)")
        ->check(wholeNumber(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()))
        ->type_name("N");
    command
        .add_option("--selection", explain_.selection, "With ALL: text that an element begins with, as for elements")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    command
        .add_option("--qualifier", explain_.qualifier,
                    "With ALL: the first word of the elements' text; with ProfileNotes: the notes' qualifier")
        ->type_name("TEXT");
    command.add_option("--search", explain_.search, "With ProfileNotes: only notes that contain this text")
        ->type_name("TEXT");
    command.add_option("--display", explain_.display, "Only this display of the file, from 1 (default: all of them)")
        ->check(wholeNumber(1, std::numeric_limits<std::int32_t>::max()))
        ->type_name("N");
    auto* const json = command.add_flag("--json", explain_.json, "Print one JSON object per screen or display");
    command
        .add_option("--html", explain_.htmlFile,
                    "Write one page for a browser into this file (-: to standard output), complete in itself")
        ->excludes(json)
        ->type_name("FILE");
    addEncoding(command, explain_.encoding);
    addMaxLine(command, explain_.maxLine);
    addSplitting(command, explain_);
    addWarnings(command, explain_.strict, explain_.quiet);
    command.footer(help::explain);
    command.callback([this] { status_ = runExplain(explain_); });
}

}  // namespace

int runCommandLine(int argc, const char* const* argv) { return CommandLine().run(argc, argv); }

}  // namespace vantro
