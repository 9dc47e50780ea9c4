// A terminal library that watches every call and fails at one of them. It is also a stranger to the library: its
// screen lines are no slices, its texts live in the caller's store alone, and its items die with their pointer.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro::test {

/// How a call fails.
enum class FailureKind {
    TerminalsError,     ///< an `Error` of the terminal's own
    StandardException,  ///< std::runtime_error
    NoException,        ///< an object of a type that is no exception
    OutOfMemory,        ///< std::bad_alloc
    WrongKind,          ///< `Item` alone: it gives a value that cannot be read as the wanted kind
    AbsentItem,         ///< `Item` alone: it finds nothing
};

/// What is to fail.
struct Failing {
    int call = 0;  ///< the call with this number, from 1; 0 for none
    FailureKind kind = FailureKind::TerminalsError;
    int reports = 0;  ///< so many calls of `ReportError`, which are not counted among the calls, fail in the same way
};

/// Fails in this way; the last two kinds have nothing to raise.
[[noreturn]] void raise(FailureKind kind);

/// What is thrown for `StandardException` and `NoException`.
inline constexpr const char* exceptionsText = "the terminal's exception";
inline constexpr int thrownNumber = 42;

/// What `ReportError` was called with.
struct Report {
    Error current;
    std::shared_ptr<const Error> given;  ///< null when the arguments were left out
};

/// The calls made so far ("Item strKeyName", "ScreenLine 3", ...) and the one that is to fail.
class CallLog {
public:
    explicit CallLog(const Failing& failing) : failing_(failing) {}

    /// Notes a call; the chosen one fails instead of doing its work. True for the chosen one when it is an `Item`
    /// that has to answer wrongly.
    bool note(std::string call);

    /// Fails as long as reports have to.
    void noteReport();

    FailureKind kind() const { return failing_.kind; }
    const std::vector<std::string>& calls() const { return calls_; }

    /// The error of the failing call: like nothing that the library raises itself.
    static Error failure() { return Error(1004, u"TerminalLibrary", u"The terminal's own failure"); }

private:
    Failing failing_;
    std::vector<std::string> calls_;
};

/// A collection whose operations are calls of the log.
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

    /// The collection as the library gets it; null stays null.
    CollectionPtr watched(std::shared_ptr<BuiltInCollection> collection) const;

    const std::vector<std::string>& calls() const { return log_->calls(); }
    const std::vector<Report>& reports() const { return reports_; }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    void ReportError(const Error& current, const Error* given) override;

    BuiltInTerminal inner_;
    std::shared_ptr<CallLog> log_;
    std::vector<Report> reports_;
};

}  // namespace vantro::test
