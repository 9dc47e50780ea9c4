// Records which keys a class asks its collections for and which it adds.
#pragma once

#include "vantro/built_in_terminal.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace vantro::test {

/// How the item of a key was read.
enum class Reading { AsText, AsBoolean, AsValue };

/// What one call did.
struct Record {
    std::map<Text, std::set<Reading>> asked;
    std::vector<Text> firstAsked;                   ///< the keys in the order in which each was first asked for
    std::vector<std::pair<Text, ItemValue>> added;  ///< in the order of the calls of `Add`
    int reports = 0;                                ///< calls of the error reporter
};

/// The built-in terminal, but every collection writes into the record. A call has to be over before the next begins.
class RecordingTerminal final : public Terminal, private TerminalFunctions, private ErrorReporter {
public:
    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return *this; }
    CollectionPtr createCollection() override { return recorded(std::make_shared<BuiltInCollection>()); }

    /// The collection as a class gets it; null stays null.
    CollectionPtr recorded(std::shared_ptr<BuiltInCollection> collection);

    /// What was recorded since the last time; the record is empty after it.
    Record take();

private:
    class Recorded;

    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    bool linesAreSlices() const override { return true; }
    void ReportError(const Error& current, const Error* replacement) override;

    void note(Reading reading);
    void noteUnread();

    BuiltInTerminal inner_;
    Record record_;
    Text lastAsked_;  // the key of an item that has not been read yet
};

}  // namespace vantro::test
