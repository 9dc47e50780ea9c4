#include "cli/commands/refusal.h"

#include "cli/classes/nearest.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

namespace vantro {

namespace {

// The parser would say of an option without its value that it misses "1 required FILE".
std::string missingValue(const CLI::ArgumentMismatch& problem) {
    const std::string words = problem.what();
    const std::string option = words.substr(0, words.find(':'));
    return option.starts_with("-") ? "the option " + option + " needs a value" : words;
}

/// The options of a subcommand, or the subcommands and options of the tool.
std::vector<Text> knownWords(const CLI::App& app) {
    std::vector<Text> words;
    for (const CLI::App* const command : app.get_subcommands({})) words.push_back(toUtf16(command->get_name()));
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) words.push_back(toUtf16("--" + name));
    }
    return words;
}

/// "; did you mean '--table'?", or nothing.
std::string nearestHint(const CLI::App& app, const std::string& unknown) {
    const std::vector<Text> words = knownWords(app);
    const std::vector<TextView> known(words.begin(), words.end());
    const auto nearest = nearestName(toUtf16(unknown.substr(0, unknown.find('='))), known);
    return nearest ? "; did you mean '" + toUtf8(*nearest) + "'?" : "";
}

/// True for words such as "--strict", "-q" and "--only=RM".
bool isOptionOf(const CLI::App& command, const std::string& word) {
    return word.starts_with('-') && command.get_option_no_throw(word.substr(0, word.find('='))) != nullptr;
}

/// What is wrong with an option before the subcommand that it belongs to; "" if no subcommand has it.
std::string misplacedOption(const CLI::App& tool, const std::string& word) {
    const auto chosen = tool.get_subcommands();
    const bool isChosen = !chosen.empty();
    const std::vector<const CLI::App*> owners =
        isChosen ? std::vector<const CLI::App*>{chosen.front()} : tool.get_subcommands({});
    const auto owner = std::ranges::find_if(owners, [&word](const CLI::App* app) { return isOptionOf(*app, word); });
    if (owner == owners.end()) return {};
    const std::string name = (*owner)->get_name();
    return "'" + word + "' is an option of " + (isChosen ? "" : "subcommands such as ") + name +
           " and follows the subcommand: " + toolName + " " + name + " " + word;
}

// The parser would say of an unknown subcommand only that one is missing.
std::string describeProblem(const CLI::App& tool, const CLI::ParseError& problem) {
    const auto chosen = tool.get_subcommands();
    const std::vector<std::string> unknown = tool.remaining(true);
    if (const std::vector<std::string> early = tool.remaining(false); !early.empty()) {
        if (std::string misplaced = misplacedOption(tool, early.front()); !misplaced.empty()) return misplaced;
    }
    if (chosen.empty() && !unknown.empty())
        return "there is no subcommand or option '" + unknown.front() + "'" + nearestHint(tool, unknown.front());
    const auto option = std::ranges::find_if(unknown, [](const std::string& word) { return word.starts_with("-"); });
    if (option != unknown.end()) return "there is no option '" + *option + "'" + nearestHint(*chosen.front(), *option);
    const auto* const mismatch = dynamic_cast<const CLI::ArgumentMismatch*>(&problem);
    return mismatch != nullptr ? missingValue(*mismatch) : problem.what();
}

// The option parser's own words, as one clause of a sentence.
std::string asOneClause(std::string message) {
    std::ranges::replace(message, '\n', ' ');
    const char second = message.size() > 1 ? message[1] : '\0';
    const bool isWord = second == ' ' || (second >= 'a' && second <= 'z');
    if (isWord && message[0] >= 'A' && message[0] <= 'Z') message[0] = static_cast<char>(message[0] - 'A' + 'a');
    return asClause(message);
}

std::string helpHint(const CLI::App& tool) {
    const auto chosen = tool.get_subcommands();
    return toolName + (chosen.empty() ? "" : " " + chosen.front()->get_name()) + " --help";
}

}  // namespace

std::string refusalOf(const CLI::App& tool, const CLI::ParseError& problem) {
    const std::string words = asOneClause(describeProblem(tool, problem));
    return words + (words.ends_with('?') ? " See " : "; see ") + helpHint(tool);
}

}  // namespace vantro
