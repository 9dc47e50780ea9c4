#include "cli/shell/completion_words.h"

#include "cli/io/encoding.h"
#include "cli/io/utf.h"
#include "vantro/families.h"
#include "vantro/registry.h"

#include <algorithm>

namespace vantro {

namespace {

using Words = std::vector<std::string>;

void addNew(const std::string& word, Words& words) {
    if (std::ranges::find(words, word) == words.end()) words.push_back(word);
}

/// Only the classes that build commands and read screens take KEY=VALUE.
Words classNames(bool onlyTransactions) {
    Words names;
    for (const ClassRow& row : classTable()) {
        if (row.hasProfileTrans || !onlyTransactions) names.push_back(toUtf8(row.name));
    }
    return names;
}

Words prefixes() {
    Words words;
    for (const QueryFacts& query : profileQueries()) addNew(toUtf8(query.word), words);
    return words;
}

/// What --only takes: prefixes, and the names of members in JSON.
Words partsOfAProfile() {
    Words words;
    for (const FamilyFacts& family : families()) words.push_back(toUtf8(family.word));
    for (std::size_t index = 0; index < otherQueryCount; ++index) {
        const QueryFacts& query = factsOf(static_cast<OtherQuery>(index));
        if (query.json.empty()) continue;
        words.push_back(toUtf8(query.word));
        words.emplace_back(query.json);
    }
    return words;
}

Words commandNames(const CommandPage& tool) {
    Words names;
    for (const CommandPage& command : tool.commands) names.push_back(commandOf(command));
    return names;
}

bool takesKeys(const CommandPage& command) {
    return std::ranges::any_of(command.arguments, [](const OptionEntry& entry) { return entry.value == "KEY=VALUE"; });
}

/// What describe describes, and what explain explains: of the classes those that read screens, and whole profiles.
Words classesAndPrefixes(bool isExplained) {
    Words words;
    if (isExplained) words.emplace_back("profile");
    for (const std::string& name : classNames(isExplained)) words.push_back(name);
    for (const std::string& prefix : prefixes()) words.push_back(prefix);
    return words;
}

/// Of a list with ", " between its words.
Words wordsOf(const std::string& list) {
    Words words(1);
    for (const char character : list) {
        if (character == ',') {
            words.emplace_back();
        } else if (character != ' ') {
            words.back() += character;
        }
    }
    return words;
}

}  // namespace

Completion completionOf(const OptionEntry& entry, const CommandPage& command, const CommandPage& tool) {
    const std::string& value = entry.value;
    if (value == "FILE" || value == "FOLDER") return {Completes::Files};
    if (value == "KEY=VALUE") return {Completes::Keys};
    if (value == "CLASS") return {Completes::Words, classNames(takesKeys(command))};
    if (value == "CLASS|PREFIX") return {Completes::Words, classesAndPrefixes(commandOf(command) == "explain")};
    if (value == "FILE|KEY=VALUE") return {Completes::Files};
    if (value == "PREFIX") return {Completes::Words, prefixes()};
    if (value == "LIST") return {Completes::List, partsOfAProfile()};
    if (value == "SUBCOMMAND") return {Completes::Words, commandNames(tool)};
    if (value == "SHELL") return {Completes::Words, {"bash", "zsh", "fish"}};
    if (value == "ENCODING") return {Completes::Words, wordsOf(encodingNames())};
    if (value == "WHEN") return {Completes::Words, {"auto", "always", "never"}};
    return {};
}

std::vector<ClassKeys> classKeysFor(const std::string& command) {
    std::vector<ClassKeys> all;
    for (const ClassRow& row : classTable()) {
        if (!row.hasProfileTrans) continue;
        ClassKeys keys{.className = toUtf8(row.name), .keys = {}};
        const auto& about = row.description;
        for (const ParameterRow& parameter : command == "verify" ? about.state : about.parameters) {
            addNew(toUtf8(parameter.key), keys.keys);
        }
        if (!keys.keys.empty()) all.push_back(std::move(keys));
    }
    return all;
}

std::vector<std::string> commandsWithKeys(const CommandPage& tool) {
    Words names;
    for (const CommandPage& command : tool.commands) {
        if (takesKeys(command)) names.push_back(commandOf(command));
    }
    return names;
}

std::vector<KeyValues> valuesOfKeys() {
    std::vector<KeyValues> all;
    for (const ClassRow& row : classTable()) {
        for (const auto& parameters : {row.description.parameters, row.description.state}) {
            for (const ParameterRow& parameter : parameters) {
                if (parameter.values.empty()) continue;
                KeyValues known{.className = toUtf8(row.name), .key = toUtf8(parameter.key), .values = {}};
                for (const TextView value : parameter.values) known.values.push_back(toUtf8(value));
                all.push_back(std::move(known));
            }
        }
    }
    return all;
}

std::string shellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (const char character : text) {
        if (character == '\'') {
            quoted += "'\\''";
        } else {
            quoted += character;
        }
    }
    return quoted + "'";
}

std::string shellWords(const std::vector<std::string>& texts) {
    std::string words;
    for (const std::string& text : texts) {
        const bool isPlain = !text.empty() && std::ranges::all_of(text, [](char character) {
            return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
                   (character >= '0' && character <= '9') || character == '-' || character == '_';
        });
        words += (words.empty() ? "" : " ") + (isPlain ? text : shellQuoted(text));
    }
    return words;
}

}  // namespace vantro
