#include "cli/replay/player.h"

#include "cli/classes/trans_class.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <variant>

namespace vantro {

namespace {

constexpr TextView countOfScreen = u"RecLocCount";

CollectionPtr collectionOf(const std::optional<ExchangeEntries>& entries) {
    if (!entries) return nullptr;
    auto collection = std::make_shared<BuiltInCollection>();
    for (const ExchangeEntry& entry : *entries) collection->Add(entry.key, entry.value);
    return collection;
}

const ClassRow& rowOf(const ExchangeStep& step) {
    try {
        return transactionClass(toUtf8(step.className));
    } catch (const UsageError& problem) {
        throw UsageError("line " + std::to_string(step.line) + ": " + problem.what());
    }
}

}  // namespace

std::unique_ptr<ProfileObject> ObservedBackend::create(const ClassRow& row, Terminal& terminal) {
    if (!terminal_) terminal_.emplace(terminal, observer_);
    return library_.create(row, *terminal_);
}

std::int16_t ObservedBackend::count(ProfileObject& object, const CountProperty& property, const CountRequest& request) {
    return library_.count(object, property, request);
}

void ObservedBackend::setObserver(ReadingObserver* observer) {
    observer_ = observer;
    if (terminal_) terminal_->setObserver(observer);
}

ExchangeEntries entriesOf(const KeyedCollection& collection) {
    ExchangeEntries entries;
    for (const auto& entry : dynamic_cast<const BuiltInCollection&>(collection).entries()) {
        entries.push_back({entry.key(), entry.Value()});
    }
    return entries;
}

StepOutcome ExchangePlayer::play(const ExchangeStep& step) {
    const ClassRow& row = rowOf(step);
    const CollectionPtr params = collectionOf(step.params);
    StepOutcome outcome;
    if (step.command || step.commandRaises) {
        const Reply& reply = call(Call::CreateCommand, row, params);
        if (reply.error) {
            outcome.commandRaised = reply.error->number();
        } else {
            outcome.command = std::get<Text>(reply.result);
        }
    }
    if (step.screen) readScreen(step, row, params, outcome);
    return outcome;
}

void ExchangePlayer::readScreen(const ExchangeStep& step, const ClassRow& row, const CollectionPtr& params,
                                StepOutcome& outcome) {
    using Kind = ExchangeResults::Kind;
    if (step.count) {
        if (findCount(row, countOfScreen) == nullptr) {
            throw UsageError("line " + std::to_string(step.lines.count) + ": " + toUtf8(row.name) +
                             " counts nothing; leave 'count:' out");
        }
        const Reply& reply = call(Call::Count, row, nullptr, *step.screen);
        if (!reply.error) outcome.count = std::get<std::int16_t>(reply.result);
        outcome.reported = reply.reported;
    }
    const auto positions = std::make_shared<ResultPositions>(row);
    library_.setObserver(positions.get());
    const Reply& reply = call(Call::VerifyResponse, row, step.statePrevious ? previous_ : params, *step.screen);
    library_.setObserver(nullptr);
    outcome.positions = positions;
    outcome.reported.insert(outcome.reported.end(), reply.reported.begin(), reply.reported.end());
    ExchangeResults& results = outcome.results.emplace();
    if (reply.error) {
        results = {.kind = Kind::Raised, .raised = reply.error->number()};
    } else if (const CollectionPtr& returned = std::get<CollectionPtr>(reply.result)) {
        results = {.kind = Kind::Collection, .entries = entriesOf(*returned)};
        previous_ = returned;
    }
}

const Reply& ExchangePlayer::call(Call call, const ClassRow& row, const CollectionPtr& params, TextView screen) {
    static const Text object = u"object";  // the session keeps one of this name for each class
    Request request;
    request.row = &row;
    request.call = call;
    request.count = call == Call::Count ? findCount(row, countOfScreen) : nullptr;
    request.object = &object;
    request.params = params;
    request.screen = screen;
    return session_.call(request);
}

}  // namespace vantro
