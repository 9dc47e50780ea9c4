// The built-in terminal library: replaces the terminal's own where there is no terminal.
#pragma once

#include "vantro/export.h"
#include "vantro/terminal.h"

#include <functional>
#include <span>
#include <unordered_map>
#include <vector>

namespace vantro {

/// A collection in memory whose entries can be read in order.
class VANTRO_EXPORT BuiltInCollection final : public KeyedCollection {
public:
    /// A key and its value.
    class Entry final : public KeyedItem {
    public:
        /// An entry with a value of its own, or with a shared one instead.
        Entry(TextView key, ItemValue value, std::shared_ptr<const ItemValue> shared = {})
            : key_(key), value_(std::move(value)), shared_(std::move(shared)) {}

        const Text& key() const { return key_; }
        const ItemValue& Value() const override { return shared_ ? *shared_ : value_; }

    private:
        friend class BuiltInCollection;
        Text key_;
        ItemValue value_;
        std::shared_ptr<const ItemValue> shared_;  // instead of the value, or null
    };

    void Add(TextView key, ItemValue value) override;
    void AddShared(TextView key, std::shared_ptr<const ItemValue> value) override;
    ItemPtr Item(TextView key) const override;

    /// The entries in the order in which their keys were first added.
    std::span<const Entry> entries() const { return entries_; }

private:
    static constexpr std::size_t absent = ~std::size_t{0};

    std::size_t indexOf(TextView key) const;
    void store(TextView key, ItemValue&& value, std::shared_ptr<const ItemValue>&& shared);
    void addIndexOfNext(const Text& key);

    std::vector<Entry> entries_;
    std::unordered_map<Text, std::size_t> indexes_;  // of the keys; empty while there are few
};

/// Receives the errors that are reported, not raised.
using ErrorSink = std::function<void(const Error&)>;

/// The built-in helper objects. Screen lines and fields are views of the caller's text.
class VANTRO_EXPORT BuiltInTerminal final : public Terminal, private TerminalFunctions, private ErrorReporter {
public:
    /// Reported errors go to the sink; an empty sink drops them.
    explicit BuiltInTerminal(ErrorSink sink = {}) : sink_(std::move(sink)) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return *this; }
    CollectionPtr createCollection() override { return std::make_shared<BuiltInCollection>(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    bool linesAreSlices() const override { return true; }
    void ReportError(const Error& current, const Error* replacement) override;

    ErrorSink sink_;
};

}  // namespace vantro
