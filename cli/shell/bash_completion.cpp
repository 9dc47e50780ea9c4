#include "cli/shell/completion.h"
#include "cli/shell/completion_words.h"

namespace vantro {

namespace {

// Everything but the rows. Bash cuts words at "=", so that KEY=VALUE and --option=value arrive in pieces. A key with
// brackets is inserted with backslashes before them.
constexpr auto beginning =
    R"script(# Completes command lines of vantro-profile in bash; made by "vantro-profile completion bash".

_vantro_profile() {
    local -a typed=() words=()
    local i word joined= kind= command= class= option= position=1
    for ((i = 1; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ ${#typed[@]} -gt 0 && ($joined || $word == '='*) ]]; then
            typed[${#typed[@]} - 1]+=$word
        else
            typed+=("$word")
        fi
        joined=
        [[ $word == *'=' ]] && joined=1
    done

    local current=${typed[${#typed[@]} - 1]}
    for ((i = 0; i < ${#typed[@]} - 1; i++)); do
        word=${typed[i]}
        if [[ $option ]]; then
            option=
        elif [[ $word == -* ]]; then
            _vantro_profile_option "$command" "$word" && option=$word
        elif [[ -z $command ]]; then
            command=$word
        else
            [[ $position == 1 ]] && class=$word
            ((position++))
        fi
    done

    words=() kind=
    if [[ $option ]]; then
        _vantro_profile_option "$command" "$option"
        [[ $current == '=' ]] && current=
    elif [[ $current == --*=* ]]; then
        _vantro_profile_option "$command" "${current%%=*}"
        current=${current#*=}
    elif [[ $current == -* ]]; then
        _vantro_profile_options "$command"
    else
        _vantro_profile_argument "$command" "$position"
    fi
    if [[ $kind == keys ]]; then
        if [[ $current == *=* ]]; then
            _vantro_profile_values "$class ${current%%=*}"
            current=${current#*=}
        else
            _vantro_profile_keys "$command" "$class"
            compopt -o nospace 2>/dev/null
        fi
    fi

    COMPREPLY=()
    local quote=
    if [[ $current == [\'\"]* ]]; then
        quote=1 current=${current:1}
    else
        current=${current//\\/}
    fi
    if [[ $kind == list ]]; then
        quote=1  # the words need no backslashes
        [[ $current == *,* ]] && words=("${words[@]/#/"${current%,*},"}")
        compopt -o nospace 2>/dev/null
    fi
    for word in "${words[@]}"; do
        [[ $word == "$current"* ]] || continue
        [[ $quote ]] || printf -v word %q "$word"
        COMPREPLY+=("$word")
    done
    # Outside of a completion, as in a test, bash has no completion of its own to fall back on.
    if [[ $kind == files ]] && ! compopt -o default 2>/dev/null; then
        while IFS= read -r word; do COMPREPLY+=("$word"); done < <(compgen -f -- "$current")
    fi
}
)script";

std::string assignment(const Completion& completion) {
    switch (completion.what) {
        case Completes::Files: return "kind=files";
        case Completes::Keys: return "kind=keys";
        case Completes::List: return "kind=list words=(" + shellWords(completion.words) + ")";
        case Completes::Words: return "words=(" + shellWords(completion.words) + ")";
        case Completes::Nothing: break;
    }
    return ":";
}

/// Fails for an option without a value.
std::string optionsWithValues(const CommandPage& tool) {
    std::string cases;
    const auto add = [&](const CommandPage& command, const std::string& name) {
        for (const OptionEntry& option : command.options) {
            if (option.value.empty()) continue;
            std::string patterns;
            for (const std::string& each : option.names) {
                patterns.append(patterns.empty() ? "'" : "|'").append(name).append(" ").append(each).append("'");
            }
            cases += "        " + patterns + ") " + assignment(completionOf(option, command, tool)) + " ;;\n";
        }
    };
    add(tool, "");
    for (const CommandPage& command : tool.commands) add(command, commandOf(command));
    return "\n_vantro_profile_option() {\n    case \"$1 $2\" in\n" + cases + "        *) return 1 ;;\n    esac\n}\n";
}

std::string allNames(const CommandPage& command) {
    std::vector<std::string> names;
    for (const OptionEntry& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return "words=(" + shellWords(names) + ")";
}

std::string options(const CommandPage& tool) {
    std::string cases = "        '') " + allNames(tool) + " ;;\n";
    for (const CommandPage& command : tool.commands) {
        cases += "        " + commandOf(command) + ") " + allNames(command) + " ;;\n";
    }
    return "\n_vantro_profile_options() {\n    case $1 in\n" + cases + "    esac\n}\n";
}

std::string arguments(const CommandPage& tool) {
    std::vector<std::string> names;
    for (const CommandPage& command : tool.commands) names.push_back(commandOf(command));
    std::string cases = "        ' 1') words=(" + shellWords(names) + ") ;;\n";
    for (const CommandPage& command : tool.commands) {
        std::size_t position = 0;
        for (const OptionEntry& argument : command.arguments) {
            ++position;
            cases += "        '" + commandOf(command) + " '" + (argument.isRepeated ? "*" : std::to_string(position)) +
                     ") " + assignment(completionOf(argument, command, tool)) + " ;;\n";
        }
    }
    return "\n_vantro_profile_argument() {\n    case \"$1 $2\" in\n" + cases + "    esac\n}\n";
}

std::string keys(const CommandPage& tool) {
    std::string cases;
    for (const std::string& command : commandsWithKeys(tool)) {
        for (const ClassKeys& row : classKeysFor(command)) {
            std::vector<std::string> beginnings;
            for (const std::string& key : row.keys) beginnings.push_back(key + "=");
            cases += "        '" + command + " " + row.className + "') words=(" + shellWords(beginnings) + ") ;;\n";
        }
    }
    return "\n_vantro_profile_keys() {\n    case \"$1 $2\" in\n" + cases + "    esac\n}\n";
}

std::string values() {
    std::string cases;
    for (const KeyValues& row : valuesOfKeys()) {
        cases += "        '" + row.className + " " + row.key + "') words=(" + shellWords(row.values) + ") ;;\n";
    }
    cases += std::string("        *' bln'*) words=(") + booleanWords + ") ;;\n";
    return "\n_vantro_profile_values() {\n    case $1 in\n" + cases + "    esac\n}\n";
}

}  // namespace

std::string bashCompletion(const CommandPage& tool) {
    return beginning + optionsWithValues(tool) + options(tool) + arguments(tool) + keys(tool) + values() +
           "\ncomplete -F _vantro_profile vantro-profile\n";
}

}  // namespace vantro
