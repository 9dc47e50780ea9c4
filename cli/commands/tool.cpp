#include "cli/commands/tool.h"

#include "cli/commands/commands.h"
#include "cli/io/failure.h"
#include "cli/io/interrupt.h"
#include "cli/io/standard_io.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

namespace vantro {

namespace {

constexpr const char* toolName = "vantro-profile";

constexpr auto examples =
    "Examples:\n"
    "  vantro-profile command CPDNTrans strKeyName=SMITH\n"
    "  vantro-profile verify CPXTrans --screen screen.txt\n"
    "  vantro-profile verify --help\n"
    "\n"
    "Exit status: 0 done, 1 a call failed (or a batch line was not a request), 2 bad usage.";

void describeTool(CLI::App& tool) {
    tool.set_version_flag("--version", std::string(toolName) + " " VANTRO_VERSION);
    tool.set_help_flag("-h,--help", "Print this help and exit");
    tool.require_subcommand(1);
    tool.allow_windows_style_options(false);
    tool.footer(examples);
}

std::string helpHint(const CLI::App& tool) {
    const auto chosen = tool.get_subcommands();
    return std::string("see ") + toolName + (chosen.empty() ? "" : " " + chosen.front()->get_name()) + " --help";
}

// An option without its value would otherwise be said to miss "1 required FILE".
std::string missingValue(const CLI::ArgumentMismatch& problem) {
    const std::string words = problem.what();
    const std::string option = words.substr(0, words.find(':'));
    return option.starts_with("-") ? "the option " + option + " needs a value" : words;
}

// A word that is no subcommand would otherwise only be called a missing one.
std::string describeProblem(const CLI::App& tool, const CLI::ParseError& problem) {
    const std::vector<std::string> unknown = tool.remaining();
    if (tool.get_subcommands().empty() && !unknown.empty())
        return "there is no subcommand or option '" + unknown.front() + "'";
    const auto* const mismatch = dynamic_cast<const CLI::ArgumentMismatch*>(&problem);
    return mismatch != nullptr ? missingValue(*mismatch) : problem.what();
}

// The library's own words, as one clause of a sentence.
std::string asOneClause(std::string message) {
    std::ranges::replace(message, '\n', ' ');
    const char second = message.size() > 1 ? message[1] : '\0';
    const bool isWord = second == ' ' || (second >= 'a' && second <= 'z');
    if (isWord && message[0] >= 'A' && message[0] <= 'Z') message[0] = static_cast<char>(message[0] - 'A' + 'a');
    return asClause(message);
}

// What --help and --version print is output like any other, and may fail like it.
int answer(const CLI::App& tool, const CLI::ParseError& question) {
    std::ostringstream out;
    const int status = tool.exit(question, out, out);
    writeOutput(out.str());
    return status;
}

int parseFailure(const CLI::App& tool, const CLI::ParseError& problem) {
    if (problem.get_exit_code() == 0) return answer(tool, problem);
    complain(asOneClause(describeProblem(tool, problem)) + "; " + helpHint(tool));
    return badUsage;
}

int runCommands(int argc, const char* const* argv) {
    int status = success;
    CLI::App tool("Commands for the reservation host's profiles, and what its screens and displays say", toolName);
    describeTool(tool);
    addClassesCommand(tool, status);
    addDescribeCommand(tool, status);
    addCommandCommand(tool, status);
    addVerifyCommand(tool, status);
    addBatchCommand(tool, status);
    addParseCommand(tool, status);
    addElementsCommand(tool, status);
    addNotesCommand(tool, status);
    try {
        tool.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return parseFailure(tool, problem);
    }
    return status;
}

}  // namespace

int runTool(int argc, const char* const* argv) {
    useBinaryStreams();
    tameInterrupts();
    try {
        return runCommands(argc, argv);
    } catch (const UsageError& problem) {
        complain(problem.what());
        return badUsage;
    } catch (const Error& raised) {
        complain("the call failed with " + describe(raised));
        return callFailed;
    } catch (const std::exception& problem) {
        complain(problem.what());
        return callFailed;
    }
}

}  // namespace vantro
