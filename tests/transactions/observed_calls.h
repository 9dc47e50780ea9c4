// Calls of a class with an observer and without one, compared.
#pragma once

#include "tests/support/collections.h"
#include "vantro/built_in_terminal.h"
#include "vantro/explanation.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantro::test {

/// How the terminal of a call makes its lines.
enum class TerminalLines { Slices, Own };

/// The outcome of one call.
struct CallOutcome {
    bool hasCollection = false;
    Entries entries = {};
    Text command = {};
    int count = 0;
    std::vector<int> errors = {};  ///< the numbers of the reported errors, then that of the raised one

    friend bool operator==(const CallOutcome&, const CallOutcome&) = default;
};

/// An object of a class, with an observer or without one.
class ObservedClass {
public:
    ObservedClass(TextView name, TerminalLines lines, bool isObserved);
    ~ObservedClass();
    ObservedClass(const ObservedClass&) = delete;
    ObservedClass& operator=(const ObservedClass&) = delete;

    CallOutcome command(const std::optional<Entries>& params);
    CallOutcome read(const Text& response, const std::optional<Entries>& state);
    CallOutcome count(const Text& response);

    /// The steps of the last call.
    const Explanation& explanation() const { return explanation_; }

private:
    template <class Call>
    CallOutcome outcomeOf(Call call);

    std::vector<int> errors_;
    std::unique_ptr<Terminal> inner_;
    Explanation explanation_;
    std::unique_ptr<ObservedTerminal> terminal_;
    const ClassRow& row_;
    std::unique_ptr<ProfileObject> object_;
};

/// Every text that was found, read or added has pieces that are the text when they are joined, and those with a place
/// are on the screen there. Only commas and what the state contained have no place. Returns the first other one.
std::string wrongPieces(const Explanation& explanation, const Text& screen);

/// What is wrong with the observed call, for both kinds of terminals; empty if nothing is. Its outcome must be that of
/// a call that nobody observes.
std::string wrongInReading(TextView className, const Text& response, const std::optional<Entries>& state);
std::string wrongInCommand(TextView className, const std::optional<Entries>& params);
std::string wrongInRows(TextView className, const Text& response, const std::optional<Entries>& state);

/// The step that says this rule, or null.
const KeptStep* decisionBy(const Explanation& explanation, const ReadingRule& rule);

}  // namespace vantro::test
