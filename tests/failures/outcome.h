// One call with a failing terminal, and its outcome.
#pragma once

#include "tests/failures/inputs.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/failure_rules.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantro::test {

/// An error in one line: number, source and description.
std::string described(const Error& error);
std::string described(int number, std::string_view source, std::string_view description);

/// The outcome of the steps in one line: an error as above, "std::bad_alloc", "std::runtime_error: ...", "int 42";
/// empty when they succeed.
std::string thrownBy(const std::function<void()>& steps);

/// How a failure of this kind appears when it passes unchanged, and when it is reported.
std::string thrownAs(FailureKind kind);
std::string reportedAs(FailureKind kind);

struct Outcome {
    std::string thrown;  ///< as above
    Text command;
    int count = 0;
    TextList selection;
    bool returnedCollection = false;
    Entries results;  ///< of a collection that the call created
    Entries added;    ///< to the collection passed in
    std::vector<std::string> reports;
    std::vector<std::string> reportArguments;  ///< empty texts where the report had no arguments
    Calls calls;

    bool sameAnswer(const Outcome& other) const;
};

/// An object whose terminal fails once.
class Calling {
public:
    explicit Calling(const Input& input, const Failing& failing = {})
        : input_(input), terminal_(failing), object_(createObject(*findClass(input.className), terminal_)) {}

    /// Makes the call; again each time it is called.
    Outcome call();

private:
    const Input& input_;
    FailingTerminal terminal_;
    std::unique_ptr<ProfileObject> object_;
};

/// The outcome that the rules state for the failure of call `failing` (from 0).
Consequence consequence(const Input& input, const Calls& calls, std::size_t failing);

}  // namespace vantro::test
