// Runs the steps of an exchange against the library.
#pragma once

#include "cli/batch/session.h"
#include "cli/json/positions.h"
#include "cli/replay/exchange.h"

#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// What a step returned. The members of calls that the step does not make are empty.
struct StepOutcome {
    std::optional<Text> command;
    std::optional<int> commandRaised;
    std::optional<int> count;
    std::optional<ExchangeResults> results;
    std::vector<int> reported;                              ///< while the screen was read
    std::shared_ptr<const ResultPositions> positions = {};  ///< where the results are on the screen
};

/// The linked library, whose calls can be observed.
class ObservedBackend final : public Backend {
public:
    /// All objects are created with the terminal of the first one.
    std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) override;
    std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) override;

    /// Null ends the observation.
    void setObserver(ReadingObserver* observer);

private:
    LinkedBackend library_;
    std::optional<ObservedTerminal> terminal_;
    ReadingObserver* observer_ = nullptr;
};

/// Plays the steps of one exchange in their order, with one object per class.
class ExchangePlayer {
public:
    /// Raises UsageError for a class that does not exist, builds no commands, or lacks the count that the step names.
    StepOutcome play(const ExchangeStep& step);

private:
    const Reply& call(Call call, const ClassRow& row, const CollectionPtr& params, TextView screen = {});
    void readScreen(const ExchangeStep& step, const ClassRow& row, const CollectionPtr& params, StepOutcome& outcome);

    ObservedBackend library_;
    Session session_{library_};
    CollectionPtr previous_;  // the last collection that a step returned
};

/// The entries of a collection of the built-in terminal, in their order.
ExchangeEntries entriesOf(const KeyedCollection& collection);

}  // namespace vantro
