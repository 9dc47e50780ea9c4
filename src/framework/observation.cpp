#include "framework/observation.h"

#include "framework/text_ops.h"

#include <algorithm>

namespace vantro {

void Observation::passLocated(ReadingStep step, TextView located) {
    pieces_.clear();
    sources_.locate(located, pieces_);
    step.pieces = pieces_;
    pass(step);
}

void Watch::decide(const ReadingRule& rule, std::int32_t line, std::optional<Family> family) const {
    observation_->pass({.kind = StepKind::Decided, .line = line, .family = family, .rule = &rule});
}

void Watch::passSearch(TextView mark, MarkSearch search, int first, int last, TextView found) const {
    const bool hasLines = first != noLine;
    observation_->passLocated({.kind = StepKind::MarkSearched,
                               .line = hasLines ? first + firstLine_ : noLine,
                               .lastLine = hasLines ? last + firstLine_ : noLine,
                               .search = search,
                               .text = mark},
                              found);
}

void Watch::passValue(TextView name, TextView value, std::int32_t index, std::optional<Family> family) const {
    observation_->passLocated(
        {.kind = StepKind::ValueRead, .family = family, .name = name, .text = value, .index = index}, value);
}

void Watch::passQuery(StepKind kind, TextView word, std::optional<Family> family, const Error* error) const {
    observation_->pass({.kind = kind, .family = family, .name = word, .error = error});
}

void Watch::passKey(TextView key, TextView value) const {
    observation_->pass({.kind = StepKind::KeyRead, .name = key, .text = value});
}

void Watch::passText(TextView key, TextView value) const {
    observation_->passLocated({.kind = StepKind::KeyAdded, .name = key, .text = value}, value);
}

void Watch::passAdded(TextView key, const ItemValue& value) const {
    observation_->pass({.kind = StepKind::KeyAdded, .name = key, .value = &value});
}

void Watch::passList(TextView key, const TextList& value) const {
    const ItemValue list = value;
    observation_->pass({.kind = StepKind::KeyAdded, .name = key, .value = &list});
    std::int32_t index = 0;
    for (const Text& entry : value) {
        observation_->passLocated({.kind = StepKind::EntryAdded, .name = key, .text = entry, .index = index}, entry);
        ++index;
    }
}

void Watch::passReported(const Error& error) const {
    observation_->pass({.kind = StepKind::Reported, .error = &error});
}

void Watch::addScreen(TextView screen) {
    SourceMap& sources = observation_->sources();
    sources.addScreen(screen);
    firstLine_ = std::max(sources.lineOf(screen), 0);
}

void Watch::addCopy(TextView copy, TextView original) const {
    const bool isCopy = copy.size() == original.size();
    const JoinedPart whole{isCopy ? original : copy, !isCopy};
    addJoined(copy, {&whole, 1});
}

void Watch::addJoined(TextView text, std::span<const JoinedPart> parts) const {
    std::vector<ValuePiece> pieces;
    for (const JoinedPart& part : parts) {
        if (part.isInserted) {
            pieces.push_back({part.text, std::nullopt});
        } else {
            observation_->sources().locate(part.text, pieces);
        }
    }
    observation_->sources().addJoined(text, std::move(pieces));
}

namespace {

/// The outermost call forgets where the texts of the call before it were.
class ObservedCall {
public:
    ObservedCall(Observation& observation, TextView name, TextView screen) : ObservedCall(observation, name) {
        // The object is complete here: it leaves the observation also if the observer throws.
        observation_.pass({.kind = StepKind::CallBegins, .name = name, .text = screen});
    }
    ~ObservedCall() { observation_.leave(); }
    ObservedCall(const ObservedCall&) = delete;
    ObservedCall& operator=(const ObservedCall&) = delete;

    void end(const Error* error) { observation_.pass({.kind = StepKind::CallEnds, .name = name_, .error = error}); }

private:
    ObservedCall(Observation& observation, TextView name) : observation_(observation), name_(name) {
        observation_.enter();
    }

    Observation& observation_;
    TextView name_;
};

}  // namespace

void runObserved(Observation& observation, TextView name, TextView screen, const std::function<void()>& body) {
    ObservedCall call(observation, name, screen);
    sayingEnd([&](const Error* error) { call.end(error); }, body);
}

ObservedTerminal::ObservedTerminal(Terminal& terminal, ReadingObserver* observer) : terminal_(terminal) {
    setObserver(observer);
}

ObservedTerminal::~ObservedTerminal() = default;

void ObservedTerminal::setObserver(ReadingObserver* observer) {
    own_ = observer != nullptr ? std::make_unique<Observation>(*observer) : nullptr;
    setObservation(own_.get());
}

}  // namespace vantro
