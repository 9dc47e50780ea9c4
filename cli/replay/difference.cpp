#include "cli/replay/difference.h"

#include "cli/classes/screen_marks.h"
#include "cli/io/utf.h"
#include "vantro/screen_lines.h"

#include <algorithm>

namespace vantro {

namespace {

using Lines = std::vector<std::size_t>;

constexpr std::size_t shortestText = 3;

void addLine(std::size_t line, Lines& lines) {
    const auto place = std::ranges::lower_bound(lines, line);
    if (place == lines.end() || *place != line) lines.insert(place, line);
}

// The lines with a value: those that contain the text, or one of the texts that only one of the lists has.
struct ValueLines {
    TextView screen;
    const ItemValue* other;

    Lines operator()(const Text& text) const { return linesWith(screen, text); }
    Lines operator()(const TextList& list) const {
        const auto* const others = other != nullptr ? std::get_if<TextList>(other) : nullptr;
        Lines lines;
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (others != nullptr && i < others->size() && (*others)[i] == list[i]) continue;
            for (const std::size_t line : linesWith(screen, list[i])) addLine(line, lines);
        }
        return lines;
    }
    Lines operator()(bool) const { return {}; }
    Lines operator()(std::int16_t) const { return {}; }
};

const ItemValue* valueOf(const ExchangeEntries& entries, TextView key) {
    const auto entry = std::ranges::find(entries, key, &ExchangeEntry::key);
    return entry == entries.end() ? nullptr : &entry->value;
}

std::string keysOf(const ExchangeEntries& entries) {
    std::string keys;
    for (const ExchangeEntry& entry : entries) keys += (keys.empty() ? "" : ", ") + toUtf8(entry.key);
    return keys.empty() ? "no key" : keys;
}

std::string commandOf(const std::optional<Text>& command, const std::optional<int>& raised) {
    if (command) return spelled(*command);
    return raised ? "error " + std::to_string(*raised) : nothing;
}

std::string kindOf(const ExchangeResults& results) {
    switch (results.kind) {
        case ExchangeResults::Kind::NoCollection: return "no collection";
        case ExchangeResults::Kind::Raised: return "error " + std::to_string(results.raised);
        case ExchangeResults::Kind::Collection: break;
    }
    return "a collection with " + keysOf(results.entries);
}

class StepComparison {
public:
    StepComparison(const ExchangeStep& step, const StepOutcome& outcome) : step_(step), outcome_(outcome) {}

    std::vector<Difference> run() {
        if (step_.command || step_.commandRaises) compareCommands();
        if (step_.count && outcome_.count != step_.count) {
            add(step_.lines.count, "count", std::to_string(*step_.count),
                outcome_.count ? std::to_string(*outcome_.count) : nothing);
        }
        if (step_.results) compareResults(*step_.results, *outcome_.results);
        if (outcome_.reported != step_.reported) {
            add(step_.lines.reported, "reported errors", spelled(step_.reported), spelled(outcome_.reported));
        }
        return std::move(differences_);
    }

private:
    void compareCommands() {
        if (outcome_.command == step_.command && outcome_.commandRaised == step_.commandRaises) return;
        add(step_.lines.command, "command", commandOf(step_.command, step_.commandRaises),
            commandOf(outcome_.command, outcome_.commandRaised));
    }

    void compareResults(const ExchangeResults& expected, const ExchangeResults& actual) {
        if (expected == actual) return;
        if (expected.kind != actual.kind || expected.kind != ExchangeResults::Kind::Collection) {
            return add(step_.lines.results, "results", kindOf(expected), kindOf(actual));
        }
        const std::size_t before = differences_.size();
        int line = step_.lines.results;
        for (const ExchangeEntry& entry : expected.entries) {
            compareValues(++line, entry.key, &entry.value, valueOf(actual.entries, entry.key));
        }
        for (const ExchangeEntry& entry : actual.entries) {
            if (valueOf(expected.entries, entry.key) != nullptr) continue;
            compareValues(step_.lines.results, entry.key, nullptr, &entry.value);
        }
        if (differences_.size() > before) return;
        add(step_.lines.results, "the order of the keys", keysOf(expected.entries), keysOf(actual.entries));
    }

    void compareValues(int line, const Text& key, const ItemValue* expected, const ItemValue* actual) {
        if (expected != nullptr && actual != nullptr && *expected == *actual) return;
        add(line, toUtf8(key), expected != nullptr ? spelled(*expected) : nothing,
            actual != nullptr ? spelled(*actual) : nothing);
        Difference& added = differences_.back();
        added.screen = *step_.screen;
        added.expectedLines = linesWithValue(expected, actual);
        added.read = piecesOf(key, expected, actual);
        added.screenLines = added.read.empty() ? linesWithValue(actual, expected) : linesOf(added.read);
        addLines(added.expectedLines, added.screenLines);
        if (added.read.empty()) addMarks(key, added.screenLines);
    }

    Lines linesWithValue(const ItemValue* value, const ItemValue* other) const {
        return value != nullptr ? std::visit(ValueLines{*step_.screen, other}, *value) : Lines();
    }

    void addMarks(const Text& key, Lines& lines) const {
        const ClassRow* const row = findClass(step_.className);
        for (const SeenMark& seen : row == nullptr ? std::vector<SeenMark>() : marksOn(*step_.screen, *row)) {
            if (seen.flag->flag == key) addLine(seen.line, lines);
        }
    }

    /// The pieces of what came; of a list, those of the entries that differ.
    KeptPieces piecesOf(const Text& key, const ItemValue* expected, const ItemValue* actual) const {
        const auto* const entries =
            actual != nullptr && outcome_.positions != nullptr ? outcome_.positions->find(key) : nullptr;
        if (entries == nullptr) return {};
        const auto* const list = std::get_if<TextList>(actual);
        const auto* const others = expected != nullptr ? std::get_if<TextList>(expected) : nullptr;
        KeptPieces pieces;
        for (std::size_t i = 0; i < entries->size(); ++i) {
            const bool isSame = list != nullptr && others != nullptr && i < list->size() && i < others->size() &&
                                (*list)[i] == (*others)[i];
            if (!isSame) pieces.insert(pieces.end(), (*entries)[i].begin(), (*entries)[i].end());
        }
        return pieces;
    }

    void add(int line, const std::string& what, std::string expected, std::string actual) {
        differences_.push_back({.line = line > 0 ? line : step_.line,
                                .where = toUtf8(step_.className) + ", " + what,
                                .expected = std::move(expected),
                                .actual = std::move(actual),
                                .screenLines = {},
                                .screen = {}});
    }

    const ExchangeStep& step_;
    const StepOutcome& outcome_;
    std::vector<Difference> differences_;
};

}  // namespace

std::vector<std::size_t> linesWith(TextView screen, TextView text) {
    Lines lines;
    if (text.size() < shortestText) return lines;
    for (std::size_t line = 0; line * screenWidth < screen.size(); ++line) {
        if (screen.substr(line * screenWidth, screenWidth).find(text) != TextView::npos) lines.push_back(line);
    }
    return lines;
}

void addLines(const std::vector<std::size_t>& further, std::vector<std::size_t>& lines) {
    for (const std::size_t line : further) addLine(line, lines);
}

std::vector<std::size_t> linesOf(const KeptPieces& pieces) {
    Lines lines;
    for (const KeptPiece& piece : pieces) {
        if (piece.place) addLine(static_cast<std::size_t>(piece.place->line), lines);
    }
    return lines;
}

std::vector<Difference> differencesOf(const ExchangeStep& step, const StepOutcome& outcome) {
    return StepComparison(step, outcome).run();
}

}  // namespace vantro
