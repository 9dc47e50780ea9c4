#include "cli/shell/completion.h"
#include "cli/shell/completion_words.h"

#include <algorithm>

namespace vantro {

namespace {

// The first function sets vantro_words to the subcommand and the arguments that have been entered.
constexpr auto beginning =
    R"script(# Completes command lines of vantro-profile in fish; made by "vantro-profile completion fish".

function __vantro_profile_words
    set -l awaited 0
    for word in (commandline -opc)[2..-1]
        if test $awaited = 1
            set awaited 0
            continue
        end
        switch $word
            case @options with values@
                set awaited 1
            case '-*'
            case '*'
                echo -- $word
        end
    end
end

# Without a name: no subcommand has been entered.
function __vantro_profile_in
    set -l words (__vantro_profile_words)
    test "$words[1]" = "$argv[1]"
end

# The number of the argument that is entered, from 1.
function __vantro_profile_at
    set -l words (__vantro_profile_words)
    test "$words[1]" = "$argv[1]"; and test (count $words) = $argv[2]
end

function __vantro_profile_keys
    set -l words (__vantro_profile_words)
    set -l current (commandline -ct)
    if string match -q -- '*=*' $current
        set -l key (string split -m 1 = -- $current)[1]
        set -l values
        switch "$words[2] $key"
@values@        end
        printf '%s\n' $key=$values
        return
    end
    switch "$words[1] $words[2]"
@keys@    end
end

# The words, after the list that has been entered up to its last comma.
function __vantro_profile_list
    set -l typed (commandline -ct)
    set -l list (string replace -r -- '^--[^=]*=' '' "$typed")
    set -l before (string replace -r -- '[^,]*$' '' "$list")
    printf '%s\n' "$before"$argv
end

complete -c vantro-profile -f
)script";

// Fish escapes both within single quotation marks, and only with backslashes.
std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text) {
        if (character == '\\' || character == '\'') result += '\\';
        result += character;
    }
    return result + "'";
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : " ") + text;
    return all;
}

std::string quotedWords(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += " " + quoted(text);
    return all;
}

std::string replaced(std::string text, const std::string& mark, const std::string& by) {
    return text.replace(text.find(mark), mark.size(), by);
}

/// Options of complete(1) for what can be entered.
std::string optionsFor(const Completion& completion) {
    switch (completion.what) {
        case Completes::Files: return " -F";
        case Completes::Keys: return " -a '(__vantro_profile_keys)'";
        case Completes::List: return " -a " + quoted("(__vantro_profile_list " + joined(completion.words) + ")");
        case Completes::Words: return " -a " + quoted(joined(completion.words));
        case Completes::Nothing: break;
    }
    return "";
}

void addOptions(const CommandPage& command, const CommandPage& tool, std::string& script) {
    for (const OptionEntry& option : command.options) {
        script += "complete -c vantro-profile -n " + quoted("__vantro_profile_in '" + commandOf(command) + "'");
        for (const std::string& name : option.names) {
            script += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
        }
        if (!option.value.empty()) {
            const Completion completion = completionOf(option, command, tool);
            script += (completion.what == Completes::Files ? " -r" : " -x") + optionsFor(completion);
        }
        script += " -d " + quoted(option.text) + "\n";
    }
}

void addArguments(const CommandPage& command, const CommandPage& tool, std::string& script) {
    std::size_t position = 0;
    for (const OptionEntry& argument : command.arguments) {
        ++position;
        const std::string name = commandOf(command);
        const std::string condition = argument.isRepeated
                                          ? "__vantro_profile_in " + name
                                          : "__vantro_profile_at " + name + " " + std::to_string(position);
        const std::string completion = optionsFor(completionOf(argument, command, tool));
        if (!completion.empty()) {
            script += "complete -c vantro-profile -n " + quoted(condition) + completion + "\n";
        }
    }
}

std::string optionsWithValues(const CommandPage& tool) {
    std::vector<std::string> names;
    const auto add = [&names](const CommandPage& command) {
        for (const OptionEntry& option : command.options) {
            if (option.value.empty()) continue;
            for (const std::string& name : option.names) {
                if (std::ranges::find(names, name) == names.end()) names.push_back(name);
            }
        }
    };
    add(tool);
    for (const CommandPage& command : tool.commands) add(command);
    return joined(names);
}

std::string keys(const CommandPage& tool) {
    std::string cases;
    for (const std::string& command : commandsWithKeys(tool)) {
        for (const ClassKeys& row : classKeysFor(command)) {
            std::vector<std::string> beginnings;
            for (const std::string& key : row.keys) beginnings.push_back(key + "=");
            cases += "        case " + quoted(command + " " + row.className) + "\n            printf '%s\\n'" +
                     quotedWords(beginnings) + "\n";
        }
    }
    return cases;
}

std::string values() {
    std::string cases;
    for (const KeyValues& row : valuesOfKeys()) {
        cases += "            case " + quoted(row.className + " " + row.key) + "\n                set values" +
                 quotedWords(row.values) + "\n";
    }
    return cases + "            case '* bln*'\n                set values " + booleanWords + "\n";
}

}  // namespace

std::string fishCompletion(const CommandPage& tool) {
    std::string script = replaced(beginning, "@options with values@", optionsWithValues(tool));
    script = replaced(replaced(script, "@values@", values()), "@keys@", keys(tool)) + "\n";
    for (const CommandPage& command : tool.commands) {
        script += "complete -c vantro-profile -n '__vantro_profile_in \"\"' -a " + commandOf(command) + " -d " +
                  quoted(command.summary) + "\n";
    }
    addOptions(tool, tool, script);
    for (const CommandPage& command : tool.commands) {
        script += "\n";
        addOptions(command, tool, script);
        addArguments(command, tool, script);
    }
    return script;
}

}  // namespace vantro
