// A terminal library that watches every call and fails at one of them. It is also a stranger to the library: its
// screen lines are no slices, its texts live in the caller's store alone, and its items die with their pointer.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro::test {

/// What `ReportError` was called with.
struct Report {
    Error current;
    std::shared_ptr<const Error> given;  ///< null when the arguments were left out
};

/// The calls made so far ("Item strKeyName", "ScreenLine 3", ...) and the one that is to fail.
class CallLog {
public:
    explicit CallLog(int failAt) : failAt_(failAt) {}

    /// Notes a call; the call with the chosen number (from 1) fails instead of doing its work.
    void note(std::string call);

    const std::vector<std::string>& calls() const { return calls_; }

    /// The error of the failing call: like nothing that the library raises itself.
    static Error failure() { return Error(1004, u"TerminalLibrary", u"The terminal's own failure"); }

private:
    int failAt_;
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
    /// Fails at the call with this number; 0 never fails. `ReportError` is not counted and never fails.
    explicit FailingTerminal(int failAt = 0) : log_(std::make_shared<CallLog>(failAt)) {}

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
