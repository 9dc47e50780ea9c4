#include "cli/shell/completion.h"
#include "cli/shell/completion_words.h"

namespace vantro {

namespace {

constexpr auto beginning = R"script(#compdef vantro-profile
# Completes command lines of vantro-profile in zsh; made by "vantro-profile completion zsh".

_vantro_profile() {
    local curcontext=$curcontext context state line ret=1
    typeset -A opt_args
)script";

// The words of the subcommand alone, with its name as the first.
constexpr auto chosenCommand = R"script(    [[ $state == arguments ]] || return ret
    words=($line[1] "${words[@]}")
    ((CURRENT++))
    curcontext=${curcontext%:*:*}:vantro-profile-$line[1]:
    case $line[1] in
)script";

constexpr auto ending = R"script(
_vantro_profile "$@"
)script";

/// A text within brackets or between colons.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        if (character == '\\' || character == '[' || character == ']' || character == ':') result += '\\';
        result += character;
    }
    return result;
}

/// What follows the second colon in a row of _arguments.
std::string actionOf(const Completion& completion, const std::string& command) {
    switch (completion.what) {
        case Completes::Files: return "_files";
        case Completes::Keys: return " _vantro_profile_keys " + command;  // after a blank, _arguments adds no arguments
        case Completes::List: return " _values -s , part " + shellWords(completion.words);
        case Completes::Words: return "(" + shellWords(completion.words) + ")";
        case Completes::Nothing: break;
    }
    return " ";
}

std::string valueOf(const OptionEntry& entry, const CommandPage& command, const CommandPage& tool) {
    return ":" + escaped(entry.value) + ":" + actionOf(completionOf(entry, command, tool), commandOf(command));
}

void addOptions(const CommandPage& command, const CommandPage& tool, const std::string& indent, std::string& script) {
    for (const OptionEntry& option : command.options) {
        for (const std::string& name : option.names) {
            std::string others;
            for (const std::string& other : option.names) others += (others.empty() ? "" : " ") + other;
            std::string row = option.names.size() > 1 ? "(" + others + ")" : "";
            row += name;
            if (!option.value.empty()) row += name.starts_with("--") ? "=" : "+";
            row += "[" + escaped(option.text) + "]";
            if (!option.value.empty()) row += valueOf(option, command, tool);
            script += indent + shellQuoted(row) + " \\\n";
        }
    }
}

void addCommand(const CommandPage& command, const CommandPage& tool, std::string& script) {
    const std::string indent(16, ' ');
    script += "        " + commandOf(command) + ")\n            _arguments \\\n";
    addOptions(command, tool, indent, script);
    for (const OptionEntry& argument : command.arguments) {
        const std::string row = (argument.isRepeated ? "*" : "") + valueOf(argument, command, tool);
        script += indent + shellQuoted(row) + " \\\n";
    }
    script += indent + "&& ret=0\n            ;;\n";
}

std::string keys(const CommandPage& tool) {
    std::string script =
        "\n_vantro_profile_keys() {\n    local -a keys values\n"
        "    local class=${${words[2,-1]:#-*}[1]}\n"
        "    if compset -P 1 '*='; then\n        case \"$class ${IPREFIX%=}\" in\n";
    for (const KeyValues& row : valuesOfKeys()) {
        script += "        '" + row.className + " " + row.key + "') values=(" + shellWords(row.values) + ") ;;\n";
    }
    script += std::string("        *' bln'*) values=(") + booleanWords + ") ;;\n";
    script += "        esac\n        compadd -a values\n        return\n    fi\n    case \"$1 $class\" in\n";
    for (const std::string& command : commandsWithKeys(tool)) {
        for (const ClassKeys& row : classKeysFor(command)) {
            script += "        '" + command + " " + row.className + "') keys=(" + shellWords(row.keys) + ") ;;\n";
        }
    }
    return script + "    esac\n    compadd -S = -a keys\n}\n";
}

}  // namespace

std::string zshCompletion(const CommandPage& tool) {
    std::string script = beginning;
    script += "    local -a commands=(\n";
    for (const CommandPage& command : tool.commands) {
        script += "        " + shellQuoted(commandOf(command) + ":" + escaped(command.summary)) + "\n";
    }
    script += "    )\n    _arguments -C \\\n";
    addOptions(tool, tool, "        ", script);
    script += "        '1:subcommand:->subcommand' '*:::argument:->arguments' && ret=0\n";
    script += "    [[ $state == subcommand ]] && _describe -t commands subcommand commands && ret=0\n";
    script += chosenCommand;
    for (const CommandPage& command : tool.commands) addCommand(command, tool, script);
    return script + "    esac\n    return ret\n}\n" + keys(tool) + ending;
}

}  // namespace vantro
