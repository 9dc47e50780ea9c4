#include "cli/replay/recorder.h"

#include "cli/classes/identify.h"
#include "cli/io/display_lines.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/replay/player.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr const char* header =
    "# The results below were filled in by the program. Check each of them against its screen, then remove this "
    "line.\n";

constexpr TextView keyOfIndex = u"strKeyIndex";

std::string asComment(std::string_view lines) {
    std::string comment;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        const std::string_view line = lines.substr(0, end);
        comment.append(isBlank(line) ? "#" : "# ").append(isBlank(line) ? "" : line).append("\n");
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return comment;
}

// ---- The class of a screen

std::string namesOf(const std::vector<Candidate>& candidates) {
    std::string names;
    for (const Candidate& candidate : candidates) names += (names.empty() ? "" : ", ") + toUtf8(candidate.row->name);
    return names;
}

/// Raises UsageError when the screen does not say its class.
const ClassRow& classOf(TextView screen) {
    const std::vector<Candidate> candidates = identify(screen);
    if (candidates.empty()) throw UsageError("the class of the screen cannot be told: it has no mark of any class");
    const Candidate& best = candidates.front();
    if (!best.row->hasProfileTrans) throw UsageError("the screen is a profile's display; save it as a file for parse");
    if (!best.isAnswer && candidates.size() > 1) {
        throw UsageError("the class of the screen cannot be told: it may be one of " + namesOf(candidates));
    }
    return *best.row;
}

// ---- What an exchange cannot contain

void refuseScreen(TextView screen) {
    if (screen.find_first_of(u"\r\n") != TextView::npos) throw UsageError("the screen contains line ends");
    const std::size_t lines = (screen.size() + screenWidth - 1) / screenWidth;
    if (lines > mostScreenLines) {
        throw UsageError("the screen has " + std::to_string(lines) + " lines, and one of an exchange has " +
                         std::to_string(mostScreenLines) + " at most");
    }
}

// ---- Parameters of a logged command

ItemValue valueOf(const ExampleParameter& parameter) {
    if (!parameter.key.starts_with(u"bln")) return Text(parameter.value);
    return parameter.value == u"True";
}

/// The parameters of a command that is always the same; nothing for other commands.
std::optional<ExchangeEntries> parametersOf(const ClassRow& row, TextView command) {
    for (const CommandForm& form : row.description.forms) {
        if (form.form != command || form.command != command) continue;
        ExchangeEntries entries;
        for (const ExampleParameter& parameter : form.example)
            entries.push_back({Text(parameter.key), valueOf(parameter)});
        return entries;
    }
    return std::nullopt;
}

bool readsState(const ClassRow& row) { return row.description.passed == PassedCollection::Optional; }

bool needsCollection(const ClassRow& row) {
    return row.description.passed == PassedCollection::Required || row.description.passed == PassedCollection::Returned;
}

class Recorder {
public:
    explicit Recorder(Warnings& warnings) : warnings_(warnings) { recording_.text = header; }

    void add(const StepInput& input) {
        try {
            if (!input.problem.empty()) throw UsageError(input.problem);
            if (input.screen) refuseScreen(*input.screen);
            addSteps(input, input.row != nullptr ? *input.row : classOf(*input.screen));
        } catch (const UsageError& problem) {
            const std::string what = "line " + std::to_string(input.line) + ": " + asSentence(problem.what());
            warnings_.add(what + " It is a comment in the exchange");
            recording_.text += "\n" + asComment(what) + asComment(input.source);
        }
    }

    Recording result() { return std::move(recording_); }

private:
    void addSteps(const StepInput& input, const ClassRow& row) {
        ExchangeStep step{.className = Text(row.name), .params = input.params, .screen = input.screen};
        step.statePrevious = input.statePrevious;
        if (input.buildsCommand) step.command.emplace();
        if (input.isCounted) step.count = 0;
        if (input.isLogged) return addLogged(std::move(step), row, *input.sent);
        const StepOutcome outcome = write(std::move(step));
        if (!input.sent || !outcome.command || *outcome.command == *input.sent) return;
        warnings_.add("line " + std::to_string(input.line) + ": " + inQuotes(*input.sent) + " was sent, but " +
                      toUtf8(row.name) + " builds " + inQuotes(*outcome.command));
    }

    void addLogged(ExchangeStep step, const ClassRow& row, const Text& sent) {
        if (const auto parameters = parametersOf(row, sent)) {
            if (!parameters->empty()) step.params = *parameters;
            step.command.emplace();
        }
        if (!row.counts.empty()) return addEntries(std::move(step));
        if (needsCollection(row) && !step.params) step.params.emplace();
        const ClassRow* const list = std::exchange(list_, nullptr);
        const Text screen = *step.screen;
        const StepOutcome outcome = write(std::move(step));
        if (readsState(row)) list_ = &row;
        // The next page of a list: its own class returns nothing, and the one of the list reads it.
        if (list == nullptr || outcome.results->kind != ExchangeResults::Kind::NoCollection) return;
        write({.className = Text(list->name), .screen = screen, .statePrevious = true});
        list_ = list;
    }

    /// A step for each entry of a list whose entries are read one by one.
    void addEntries(ExchangeStep step) {
        step.count = 0;
        step.params = {{Text(keyOfIndex), Text(u"0")}};
        const int count = write(step).count.value_or(0);
        step.command.reset();
        for (int index = 1; index < count; ++index) {
            step.params = {{Text(keyOfIndex), toUtf16(std::to_string(index))}};
            write(step);
        }
    }

    /// Plays the step, and writes it with what came.
    StepOutcome write(ExchangeStep step) {
        StepOutcome outcome = player_.play(step);
        step.command = outcome.command;
        step.commandRaises = outcome.commandRaised;
        step.count = outcome.count;
        step.results = outcome.results;
        step.reported = outcome.reported;
        recording_.text += "\n" + stepText(step);
        ++recording_.steps;
        return outcome;
    }

    Warnings& warnings_;
    Recording recording_;
    ExchangePlayer player_;
    const ClassRow* list_ = nullptr;  // the class of the list on the screen before
};

}  // namespace

Recording record(const std::vector<StepInput>& inputs, Warnings& warnings) {
    Recorder recorder(warnings);
    for (const StepInput& input : inputs) recorder.add(input);
    return recorder.result();
}

}  // namespace vantro
