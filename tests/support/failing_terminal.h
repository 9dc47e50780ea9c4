// A terminal library that records every call and fails at one of them. It shares nothing with the library: its screen
// lines are not slices, its texts live only in the caller's store, and its items die with their pointer.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro::test {

/// How a call fails.
enum class FailureKind {
    TerminalsError,     ///< throws the terminal's own `Error`
    StandardException,  ///< throws std::runtime_error
    NoException,        ///< throws an object of a type that is not an exception
    OutOfMemory,        ///< throws std::bad_alloc
    WrongKind,          ///< `Item` only: it returns a value that cannot be read as the wanted kind
    AbsentItem,         ///< `Item` only: it finds nothing
};

/// What is to fail.
struct Failing {
    int call = 0;  ///< the call with this number, from 1; 0 for none
    FailureKind kind = FailureKind::TerminalsError;
    int reports = 0;  ///< this many calls of `ReportError` fail in the same way; they are not counted as calls
};

/// Throws the exception of this kind; the last two kinds throw nothing.
[[noreturn]] void raise(FailureKind kind);

/// What `StandardException` and `NoException` throw.
inline constexpr const char* exceptionsText = "the terminal's exception";
inline constexpr int thrownNumber = 42;

/// The arguments of a call of `ReportError`.
struct Report {
    Error current;
    std::shared_ptr<const Error> given;  ///< null when the arguments were omitted
};

/// The calls made so far ("Item strKeyName", "ScreenLine 3", ...) and the one that is to fail.
class CallLog {
public:
    explicit CallLog(const Failing& failing) : failing_(failing) {}

    /// Records a call; the chosen one fails. Returns true when the chosen call is an `Item` that must answer wrongly
    /// instead.
    bool note(std::string call);

    /// Fails while reports are to fail.
    void noteReport();

    FailureKind kind() const { return failing_.kind; }
    const std::vector<std::string>& calls() const { return calls_; }

    /// The error of the failing call: unlike anything that the library raises itself.
    static Error failure() { return Error(1004, u"TerminalLibrary", u"The terminal's own failure"); }

private:
    Failing failing_;
    std::vector<std::string> calls_;
};

/// A collection whose operations are recorded as calls.
class WatchedCollection final : public KeyedCollection {
public:
    WatchedCollection(std::shared_ptr<CallLog> log, std::shared_ptr<BuiltInCollection> inner)
        : log_(std::move(log)), inner_(std::move(inner)) {}

    void Add(TextView key, ItemValue value) override;
    ItemPtr Item(TextView key) const override;

    const BuiltInCollection& inner() const { return *inner_; }

private:
    std::shared_ptr<CallLog> log_;
    std::shared_ptr<BuiltInCollection> inner_;
};

class FailingTerminal final : public Terminal, private TerminalFunctions, private ErrorReporter {
public:
    explicit FailingTerminal(const Failing& failing = {}) : log_(std::make_shared<CallLog>(failing)) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return *this; }
    CollectionPtr createCollection() override;

    /// The collection as the library receives it; null stays null.
    CollectionPtr watched(std::shared_ptr<BuiltInCollection> collection) const;

    const std::vector<std::string>& calls() const { return log_->calls(); }
    const std::vector<Report>& reports() const { return reports_; }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    void ReportError(const Error& current, const Error* replacement) override;

    BuiltInTerminal inner_;
    std::shared_ptr<CallLog> log_;
    std::vector<Report> reports_;
};

}  // namespace vantro::test
