#include "tests/transactions/observed_calls.h"

#include "tests/support/own_lines_terminal.h"
#include "tests/support/text.h"

#include <algorithm>
#include <utility>

namespace vantro::test {

namespace {

std::unique_ptr<Terminal> makeTerminal(TerminalLines lines, ErrorSink sink) {
    if (lines == TerminalLines::Slices) return std::make_unique<BuiltInTerminal>(std::move(sink));
    return std::make_unique<WideTerminal>(80, std::move(sink));
}

CollectionPtr given(const std::optional<Entries>& entries) { return entries ? collection(*entries) : nullptr; }

bool mayHaveNoPlace(const KeptStep& step, const KeptPiece& piece) {
    return piece.text == u"," || step.name == u"strKeyRecLocPos" || step.name == u"command";
}

std::string wrongPiece(const KeptStep& step, const KeptPiece& piece, const Text& screen) {
    if (!piece.place) return mayHaveNoPlace(step, piece) ? "" : " has no place";
    const auto begin = static_cast<std::size_t>(piece.place->line * 80 + piece.place->column - 1);
    const auto length = static_cast<std::size_t>(piece.place->length);
    return begin < screen.size() && screen.substr(begin, length) == piece.text ? "" : " is elsewhere";
}

bool hasPieces(const KeptStep& step) {
    if (step.kind == StepKind::MarkSearched) return !step.pieces.empty();
    if (step.kind == StepKind::KeyAdded) return !step.value;
    return step.kind == StepKind::ValueRead || step.kind == StepKind::EntryAdded;
}

std::size_t reportsIn(const Explanation& explanation) {
    return static_cast<std::size_t>(std::ranges::count(explanation.steps(), StepKind::Reported, &KeptStep::kind));
}

/// The call begins and ends once, and says as many reported errors as the terminal received.
std::string wrongFrame(const Explanation& explanation, const CallOutcome& outcome) {
    const auto steps = explanation.steps();
    if (std::ranges::count(steps, StepKind::CallBegins, &KeptStep::kind) != 1) return "begins more than once";
    if (steps.front().kind != StepKind::CallBegins || steps.back().kind != StepKind::CallEnds) return "has no frame";
    const std::size_t errors = reportsIn(explanation) + (steps.back().error ? 1U : 0U);
    return errors == outcome.errors.size() ? "" : "does not say its errors";
}

template <class Call>
std::string wrongIn(TextView className, const Text& screen, Call call) {
    for (const TerminalLines lines : {TerminalLines::Slices, TerminalLines::Own}) {
        ObservedClass plain(className, lines, false);
        ObservedClass observed(className, lines, true);
        const CallOutcome outcome = call(observed);
        if (outcome != call(plain)) return "the outcome differs";
        std::string wrong = wrongFrame(observed.explanation(), outcome);
        if (wrong.empty()) wrong = wrongPieces(observed.explanation(), screen);
        if (!wrong.empty()) return wrong;
    }
    return {};
}

bool areEqual(const ListRow& one, const ListRow& other) {
    return one.line == other.line && one.kind == other.kind && one.number == other.number && one.name == other.name &&
           one.recordLocator == other.recordLocator && one.company == other.company && one.office == other.office &&
           one.passenger == other.passenger;
}

/// Reads the rows, or returns the number of the error in place of them.
template <class Read>
std::pair<ListRows, int> rowsOrError(Read read) {
    try {
        return {read(), 0};
    } catch (const Error& error) {
        return {{}, error.number()};
    }
}

/// What the steps say about a cell; the last step counts.
Text cellIn(const Explanation& explanation, TextView column, std::size_t row) {
    Text cell;
    for (const KeptStep& step : explanation.steps()) {
        const bool isCell = step.kind == StepKind::ValueRead && step.name == column;
        if (isCell && static_cast<std::size_t>(step.index) == row) cell = step.text;
    }
    return cell;
}

std::string wrongCells(const Explanation& explanation, const ListRows& found, const ClassRow& row) {
    for (std::size_t k = 0; k < found.rows.size(); ++k) {
        for (const ListColumn& column : row.description.columns) {
            if (cellIn(explanation, column.name, k + 1) != found.rows[k].*column.cell) {
                return "row " + std::to_string(k + 1) + " says another " + utf8(column.name);
            }
        }
    }
    return {};
}

}  // namespace

ObservedClass::ObservedClass(TextView name, TerminalLines lines, bool isObserved)
    : inner_(makeTerminal(lines, [this](const Error& error) { errors_.push_back(error.number()); })),
      terminal_(std::make_unique<ObservedTerminal>(*inner_, isObserved ? &explanation_ : nullptr)),
      row_(*findClass(name)),
      object_(createObject(row_, *terminal_)) {}

ObservedClass::~ObservedClass() = default;

template <class Call>
CallOutcome ObservedClass::outcomeOf(Call call) {
    errors_.clear();
    explanation_.clear();
    CallOutcome outcome;
    try {
        call(outcome);
    } catch (const Error& error) {
        errors_.push_back(error.number());
    }
    outcome.errors = errors_;
    return outcome;
}

CallOutcome ObservedClass::command(const std::optional<Entries>& params) {
    return outcomeOf(
        [&](CallOutcome& outcome) { outcome.command = object_->profileTrans()->CreateCommand(given(params)); });
}

CallOutcome ObservedClass::read(const Text& response, const std::optional<Entries>& state) {
    return outcomeOf([&](CallOutcome& outcome) {
        const CollectionPtr results = object_->profileTrans()->VerifyResponse(response, given(state));
        outcome.hasCollection = results != nullptr;
        if (results) outcome.entries = entriesOf(results);
    });
}

CallOutcome ObservedClass::count(const Text& response) {
    return outcomeOf(
        [&](CallOutcome& outcome) { outcome.count = row_.counts.front().call(*object_, CountRequest{response}); });
}

std::string wrongPieces(const Explanation& explanation, const Text& screen) {
    for (const KeptStep& step : explanation.steps()) {
        if (!hasPieces(step)) continue;
        Text joined;
        for (const KeptPiece& piece : step.pieces) {
            joined += piece.text;
            const std::string wrong = wrongPiece(step, piece, screen);
            if (!wrong.empty()) return utf8(step.name) + ": '" + utf8(piece.text) + "'" + wrong;
        }
        if (joined != step.text) return utf8(step.name) + ": the pieces are '" + utf8(joined) + "'";
    }
    return {};
}

std::string wrongInReading(TextView className, const Text& response, const std::optional<Entries>& state) {
    return wrongIn(className, response, [&](ObservedClass& object) { return object.read(response, state); });
}

std::string wrongInCommand(TextView className, const std::optional<Entries>& params) {
    return wrongIn(className, {}, [&](ObservedClass& object) { return object.command(params); });
}

std::string wrongInRows(TextView className, const Text& response, const std::optional<Entries>& state) {
    Explanation explanation;
    const CollectionPtr passed = given(state);
    const auto plain = rowsOrError([&] { return readRows(className, response, passed); });
    const auto observed = rowsOrError([&] { return readRows(className, response, passed, explanation); });
    if (plain.second != observed.second) return "another error";
    if (plain.first.isList != observed.first.isList || plain.first.continues != observed.first.continues ||
        !std::ranges::equal(plain.first.rows, observed.first.rows, areEqual)) {
        return "the rows differ";
    }
    const std::string wrong = wrongPieces(explanation, response);
    return wrong.empty() ? wrongCells(explanation, observed.first, *findClass(className)) : wrong;
}

const KeptStep* decisionBy(const Explanation& explanation, const ReadingRule& rule) {
    const auto steps = explanation.steps();
    const auto step = std::ranges::find_if(
        steps, [&](const KeptStep& kept) { return kept.rule != nullptr && kept.rule->name == rule.name; });
    return step == steps.end() ? nullptr : &*step;
}

}  // namespace vantro::test
