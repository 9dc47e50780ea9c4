#include "cli/commands/parameters.h"

#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/json/input.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace vantro {

namespace {

struct Pair {
    std::string key;
    std::string value;
};

Pair split(const std::string& pair) {
    const std::size_t sign = pair.find('=');
    if (sign == std::string::npos) {
        throw UsageError("'" + pair + "' is not KEY=VALUE; write for example strKeyName=SMITH");
    }
    return {pair.substr(0, sign), pair.substr(sign + 1)};
}

bool isList(std::string_view key) { return key.ends_with("()"); }

bool truth(const Pair& pair) {
    std::string word = pair.value;
    std::ranges::transform(word, word.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    if (word == "true" || word == "yes" || word == "1") return true;
    if (word == "false" || word == "no" || word == "0") return false;
    throw UsageError(pair.key + " is a boolean; give true or false, not '" + pair.value + "'");
}

std::optional<std::int16_t> wholeNumber(std::string_view digits) {
    std::int16_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, problem] = std::from_chars(digits.data(), end, number);
    if (problem != std::errc{} || stop != end) return std::nullopt;
    return number;
}

ItemValue number(const Pair& pair) {
    // The library reads "intKeyArraySize" as a text, and an empty one does not mean 0.
    if (pair.key == "intKeyArraySize") return toUtf16(pair.value);
    if (const auto value = wholeNumber(pair.value)) return *value;
    throw UsageError(pair.key + " is a 16-bit integer; give a whole number from -32768 to 32767, not '" + pair.value +
                     "'");
}

ItemValue valueOf(const Pair& pair) {
    if (pair.key.starts_with("str")) return toUtf16(pair.value);
    if (pair.key.starts_with("bln")) return truth(pair);
    if (pair.key.starts_with("int")) return number(pair);
    throw UsageError("the key '" + pair.key + "' tells no kind; keys begin with str, bln or int, or end in ()");
}

TextList entriesOf(const std::string& key, const std::vector<Pair>& pairs) {
    TextList entries;
    for (const Pair& pair : pairs) {
        if (pair.key == key) entries.push_back(toUtf16(pair.value));
    }
    return entries;
}

bool isControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

std::string codePointName(char32_t character) {
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(character));
    return name;
}

// `where` names the text in the message.
void refuseControlsIn(TextView text, const std::string& where) {
    std::size_t position = 1;
    for (std::size_t at = 0; at < text.size(); ++position) {
        const CodePoint character = codePointAt(text, at);
        if (isControl(character.value)) {
            throw UsageError(where + " contains the control character " + codePointName(character.value) +
                             " at position " + std::to_string(position) +
                             ", with which the command line could carry another command; take it out, or pass it on "
                             "with --raw");
        }
        at += character.units;
    }
}

struct ControlRefuser {
    std::string key;

    void operator()(bool /*truth*/) const {}
    void operator()(std::int16_t /*number*/) const {}
    void operator()(const Text& text) const { refuseControlsIn(text, key); }
    void operator()(const TextList& list) const {
        for (std::size_t i = 0; i < list.size(); ++i) {
            refuseControlsIn(list[i], "entry " + std::to_string(i) + " of " + key);
        }
    }
};

}  // namespace

void refuseControlCharacters(const BuiltInCollection& collection) {
    for (const auto& entry : collection.entries()) std::visit(ControlRefuser{toUtf8(entry.key())}, entry.Value());
}

void addParameters(const std::vector<std::string>& texts, BuiltInCollection& collection) {
    std::vector<Pair> pairs;
    for (const std::string& text : texts) {
        if (!isUtf8(text)) throw UsageError("a parameter is not UTF-8");
        pairs.push_back(split(text));
    }
    for (const Pair& pair : pairs) {
        const Text key = toUtf16(pair.key);
        if (isList(pair.key)) {
            collection.Add(key, entriesOf(pair.key, pairs));
        } else if (std::ranges::count(pairs, pair.key, &Pair::key) > 1) {
            throw UsageError(pair.key + " is given more than once; give it once");
        } else {
            collection.Add(key, valueOf(pair));
        }
    }
}

std::shared_ptr<BuiltInCollection> collectionFromJson(std::string json, const std::string& name) {
    JsonCollection collection;
    JsonMember state{name, &collection};
    const JsonOutcome outcome = JsonInput().readValue(json, state);
    const std::string& problem = outcome.problem.empty() ? state.fault : outcome.problem;
    if (!problem.empty()) {
        throw UsageError(name + ": " + asClause(problem) + "; give the JSON object that verify --json printed");
    }
    return collection;
}

}  // namespace vantro
