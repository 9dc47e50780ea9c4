// A terminal of the linked library of which one call fails: the reference for the server, whose registered terminal
// fails at the same call.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantro::test {

/// How a call ends: as usual, with an error, or with an absent value: no item, an empty text, False.
struct Ending {
    enum class Kind { Usual, Raised, Absent };

    static Ending usual() { return {Kind::Usual, {}}; }
    static Ending absent() { return {Kind::Absent, {}}; }
    static Ending raised(Error error) { return {Kind::Raised, std::move(error)}; }

    Kind kind;
    std::optional<Error> error;
};

/// The calls made so far ("Item strKeyName", "ScreenLine 3", ...) and how one of them ends.
class CallScript {
public:
    CallScript(long chosen, Ending ending) : chosen_(chosen), ending_(std::move(ending)) {}

    /// Records a call; true when it must return an absent value. Raises the error of the chosen call.
    bool enter(std::string call);

    const std::vector<std::string>& calls() const { return calls_; }

private:
    long chosen_;
    Ending ending_;
    std::vector<std::string> calls_;
};

class ReferenceTerminal final : public Terminal, private TerminalFunctions, private ErrorReporter {
public:
    /// The call with the number `chosen` (from 1, 0 for none) ends so. Reports are not counted; with `failedReport`
    /// every one of them fails.
    ReferenceTerminal(long chosen, Ending ending, std::optional<Error> failedReport = {});

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return *this; }
    CollectionPtr createCollection() override;

    /// A collection whose operations are calls of this terminal; null stays null.
    CollectionPtr watched(std::shared_ptr<BuiltInCollection> collection) const;

    /// The collection that a watched one wraps; null stays null.
    static CollectionPtr inner(const CollectionPtr& collection);

    const std::vector<std::string>& calls() const { return script_->calls(); }
    const std::vector<int>& reported() const { return reported_; }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    void ReportError(const Error& current, const Error* replacement) override;

    BuiltInTerminal inner_;
    std::shared_ptr<CallScript> script_;
    std::optional<Error> failedReport_;
    std::vector<int> reported_;
};

}  // namespace vantro::test
