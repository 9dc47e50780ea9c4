// What can be entered for a value of the command line, whichever shell completes it.
#pragma once

#include "cli/shell/page.h"

#include <string>
#include <vector>

namespace vantro {

enum class Completes {
    Nothing,
    Files,
    Words,
    List,  ///< words with commas between them
    Keys,  ///< KEY=VALUE with the keys of the class before it
};

struct Completion {
    Completes what = Completes::Nothing;
    std::vector<std::string> words = {};  ///< for `Words` and `List`
};

/// What the value of an option or argument can be, by its name: "FILE", "CLASS", "WHEN".
Completion completionOf(const OptionEntry& entry, const CommandPage& command, const CommandPage& tool);

/// The keys that a class reads for a subcommand.
struct ClassKeys {
    std::string className;
    std::vector<std::string> keys;
};

/// For `command` the keys of a command, for `verify` those of the state. Classes without such keys are left out.
std::vector<ClassKeys> classKeysFor(const std::string& command);

/// The subcommands that take KEY=VALUE.
std::vector<std::string> commandsWithKeys(const CommandPage& tool);

/// A text of which a class knows only some values.
struct KeyValues {
    std::string className;
    std::string key;
    std::vector<std::string> values;
};
std::vector<KeyValues> valuesOfKeys();

/// Those of every key that begins with "bln".
inline constexpr auto booleanWords = "True False";

/// The texts, each in single quotation marks where a shell needs them, with blanks between them.
std::string shellWords(const std::vector<std::string>& texts);

/// A text in single quotation marks.
std::string shellQuoted(const std::string& text);

}  // namespace vantro
