#include "cli/commands/shell_commands.h"

#include "cli/classes/nearest.h"
#include "cli/commands/help.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/terminal.h"
#include "cli/io/utf.h"
#include "cli/shell/completion.h"
#include "cli/shell/help_text.h"
#include "cli/shell/man_page.h"
#include "cli/shell/page.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

namespace {

// Descriptions are wrapped where they are shown.
std::string asOneParagraph(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text;
}

std::string textOf(const CLI::Option& option) {
    std::string text = asOneParagraph(option.get_description());
    if (!option.get_default_str().empty()) text += " (default: " + option.get_default_str() + ")";
    std::string excluded;
    for (const CLI::Option* const other : option.get_excludes()) {
        excluded += (excluded.empty() ? "" : ", ") + other->get_name();
    }
    return excluded.empty() ? text : text + " (not with " + excluded + ")";
}

bool takesMany(const CLI::Option& option) { return option.get_expected_max() >= CLI::detail::expected_max_vector_size; }

OptionEntry entryOf(const CLI::Option& option) {
    OptionEntry entry{.names = {}, .value = option.get_type_name(), .text = textOf(option)};
    entry.isRequired = option.get_required();
    if (option.get_positional()) {
        entry.value = option.get_name(true, false);
        entry.isRepeated = takesMany(option);
        return entry;
    }
    for (const std::string& name : option.get_snames()) entry.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) entry.names.push_back("--" + name);
    if (option.get_type_size() == 0) entry.value.clear();
    return entry;
}

/// The page of a command and of its subcommands. `parents` are the words before its name: "vantro-profile"; empty for
/// the tool itself.
CommandPage pageOf(const CLI::App& command, const std::string& parents = {}) {
    CommandPage page;
    page.name = parents.empty() ? command.get_name() : parents + " " + command.get_name();
    page.summary = asOneParagraph(command.get_description());
    page.sections = sectionsOf(command.get_footer());
    for (const CLI::Option* const option : command.get_options()) {
        if (option->get_group().empty()) continue;  // hidden
        (option->get_positional() ? page.arguments : page.options).push_back(entryOf(*option));
    }
    for (const CLI::App* const subcommand : command.get_subcommands({})) {
        if (!subcommand->get_group().empty()) page.commands.push_back(pageOf(*subcommand, page.name));
    }
    return page;
}

/// The page of the subcommand with this name; the tool's own page for no name. Raises UsageError.
CommandPage pageNamed(const CLI::App& tool, const std::string& name) {
    CommandPage page = pageOf(tool);
    if (name.empty()) return page;
    std::vector<Text> names;
    for (CommandPage& command : page.commands) {
        if (commandOf(command) == name) return std::move(command);
        names.push_back(toUtf16(commandOf(command)));
    }
    const std::vector<TextView> known(names.begin(), names.end());
    const auto nearest = nearestName(toUtf16(name), known);
    throw UsageError("there is no subcommand '" + name + "'; " +
                     (nearest ? "did you mean '" + toUtf8(*nearest) + "'?" : "see vantro-profile --help"));
}

std::string completionFor(const std::string& shell, const CommandPage& tool) {
    if (shell == "bash") return bashCompletion(tool);
    if (shell == "zsh") return zshCompletion(tool);
    if (shell == "fish") return fishCompletion(tool);
    throw UsageError("there are completions for bash, zsh and fish, not for '" + shell + "'");
}

std::string namesOfPages(const CommandPage& tool) {
    std::string names = manPageName(tool) + "\n";
    for (const CommandPage& command : tool.commands) names += manPageName(command) + "\n";
    return names;
}

void addHelp(CLI::App& tool, int& status) {
    const auto name = std::make_shared<std::string>();
    CLI::App& command = *tool.add_subcommand("help", "Print the help of a subcommand, as its --help does");
    command.add_option("SUBCOMMAND", *name, "A subcommand, such as parse (default: help on the whole tool)")
        ->type_name("");
    command.footer(help::help);
    command.callback([&tool, &status, name] {
        writeOutput(helpText(pageNamed(tool, *name), textColumns()));
        status = success;
    });
}

void addCompletion(CLI::App& tool, int& status) {
    const auto shell = std::make_shared<std::string>();
    CLI::App& command = *tool.add_subcommand("completion", "Print a script that lets a shell complete command lines");
    command.add_option("SHELL", *shell, "bash, zsh or fish")->required()->type_name("");
    command.footer(help::completion);
    command.callback([&tool, &status, shell] {
        writeOutput(completionFor(*shell, pageOf(tool)));
        status = success;
    });
}

void addMan(CLI::App& tool, int& status) {
    const auto name = std::make_shared<std::string>();
    const auto isList = std::make_shared<bool>(false);
    CLI::App& command = *tool.add_subcommand("man", "Print a manual page, as man reads it");
    auto* const which =
        command.add_option("SUBCOMMAND", *name, "A subcommand, such as parse (default: the page of the whole tool)")
            ->type_name("");
    command.add_flag("--list", *isList, "Print the names of all pages, one per line")->excludes(which);
    command.footer(help::man);
    command.callback([&tool, &status, name, isList] {
        writeOutput(*isList ? namesOfPages(pageOf(tool)) : manPage(pageNamed(tool, *name), VANTRO_VERSION));
        status = success;
    });
}

void addColor(CLI::App& command) {
    const auto choose = [](const std::string& name) {
        const std::optional<ColorChoice> choice = colorChoiceNamed(name);
        if (!choice) throw CLI::ValidationError("--color", "the choice is auto, always or never, not '" + name + "'");
        chooseColor(*choice);
    };
    command
        .add_option_function<std::string>(
            "--color", choose, "Colour in headings and messages: auto (on terminals; the default), always or never")
        ->type_name("WHEN");
}

}  // namespace

void setHelpForm(CLI::App& tool) {
    tool.formatter_fn([](const CLI::App* command, const std::string& words, CLI::AppFormatMode) {
        const std::size_t blank = words.rfind(' ');
        return helpText(pageOf(*command, blank == std::string::npos ? "" : words.substr(0, blank)), textColumns());
    });
}

void addShellCommands(CLI::App& tool, int& status) {
    addHelp(tool, status);
    addCompletion(tool, status);
    addMan(tool, status);
    addColor(tool);
    for (CLI::App* const command : tool.get_subcommands({})) addColor(*command);
}

}  // namespace vantro
