#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "cli/replay/exchange.h"
#include "vantro/screen_lines.h"

#include <algorithm>

namespace vantro {

namespace {

std::string quoted(TextView text) {
    std::string json;
    JsonOut(json).text(text);
    return json;
}

struct Speller {
    std::string operator()(bool truth) const { return truth ? "true" : "false"; }
    std::string operator()(std::int16_t number) const { return std::to_string(number); }
    std::string operator()(const Text& text) const { return quoted(text); }
    std::string operator()(const TextList& list) const {
        std::string texts;
        for (const Text& text : list) texts += (texts.empty() ? "" : ", ") + quoted(text);
        return "[" + texts + "]";
    }
};

std::string entryLines(const ExchangeEntries& entries) {
    std::string lines;
    for (const ExchangeEntry& entry : entries) lines += entryLine(entry);
    return lines;
}

}  // namespace

std::string spelled(const ItemValue& value) { return std::visit(Speller(), value); }

std::string spelled(const std::vector<int>& numbers) {
    std::string list;
    for (const int number : numbers) list += (list.empty() ? "" : ", ") + std::to_string(number);
    return "[" + list + "]";
}

std::string entryLine(const ExchangeEntry& entry) {
    return "  \"" + toUtf8(entry.key) + "\": " + spelled(entry.value) + "\n";
}

std::string commandLine(const ExchangeStep& step) {
    if (step.command) return "command: " + spelled(*step.command) + "\n";
    return step.commandRaises ? "command raises: " + std::to_string(*step.commandRaises) + "\n" : "";
}

std::string screenLines(TextView screen) {
    std::string lines;
    for (; !screen.empty(); screen.remove_prefix(std::min<std::size_t>(screenWidth, screen.size()))) {
        lines += "|" + toUtf8(screen.substr(0, screenWidth)) + "|\n";
    }
    return lines;
}

std::string resultsLines(const ExchangeResults& results) {
    switch (results.kind) {
        case ExchangeResults::Kind::NoCollection: return "results: none\n";
        case ExchangeResults::Kind::Raised: return "results raises: " + std::to_string(results.raised) + "\n";
        case ExchangeResults::Kind::Collection: break;
    }
    return "results:\n" + entryLines(results.entries);
}

std::string stepText(const ExchangeStep& step) {
    std::string text = "== " + toUtf8(step.className) + "\n";
    if (step.params) text += "params:\n" + entryLines(*step.params);
    text += commandLine(step);
    if (step.screen) text += "screen:\n" + screenLines(*step.screen);
    if (step.statePrevious) text += "state: previous\n";
    if (step.count) text += "count: " + std::to_string(*step.count) + "\n";
    if (step.results) text += resultsLines(*step.results);
    if (!step.reported.empty()) text += "reported: " + spelled(step.reported) + "\n";
    return text;
}

}  // namespace vantro
