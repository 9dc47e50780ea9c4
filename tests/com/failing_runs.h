// One call of an operation while one call of its terminal fails: with the linked library, and with the registered
// server.
#pragma once

#include "tests/com/client.h"
#include "tests/com/failing_operations.h"
#include "tests/com/reference_terminal.h"
#include "tests/com/terminal_control.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace vantro::test {

/// The outcome of one call of an operation.
struct Outcome {
    Raised raised;
    std::string given;  ///< the command, the count, or whether a collection was returned
    Entries results;    ///< of that collection
    Entries request;    ///< of the collection passed, after the call
    std::vector<int> reported;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out);

Raised raisedFrom(const Error& error);

Outcome runLinked(const Operation& operation, ReferenceTerminal& terminal);

class ServerRun {
public:
    explicit ServerRun(const Operation& operation);

    TerminalControl& control() { return control_; }

    /// Further runs are recorded for their explanation.
    void record() { isRecorded_ = true; }

    /// The explanation of the last run; empty unless it was recorded.
    const std::string& explained() const { return explained_; }

    /// The operation's outcome with its call number `failing` (0 for none) ending so.
    Outcome run(long failing, Fault fault, Fault failingReports = Fault::None);

    /// The calls of the run in which none failed.
    const std::vector<std::string>& calls() const { return calls_; }

private:
    void call(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, Outcome& outcome, Ptr<IDispatch>& results);
    void count(const Ptr<IUnknown>& object, const Bstr& screen, Outcome& outcome);
    void query(const Ptr<IUnknown>& object, const Ptr<IDispatch>& params, const Bstr& screen, Outcome& outcome);
    Ptr<IDispatch> filled(const Entries& entries);

    const Operation& operation_;
    Ptr<IClassFactory> server_;
    Ptr<IClassFactory> collections_;
    TerminalControl control_;
    com::Member add_{u"Add"};
    bool isRecorded_ = false;
    std::string explained_;
    std::vector<std::string> calls_;
};

}  // namespace vantro::test
