// Terminal libraries other than the built-in one.
#pragma once

#include "vantro/built_in_terminal.h"

namespace vantro {

/// Gives every line as a text of its own, with blanks behind it. Without blanks it shows the same lines as the
/// built-in one; with many its lines are longer than any that a host prints.
class CopyingTerminal final : public Terminal, private TerminalFunctions {
public:
    explicit CopyingTerminal(std::size_t blanks = 0) : blanks_(blanks) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return store.keep(Text(inner_.functions().ItemText(item, store)));
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        Text text(inner_.functions().ScreenLine(response, line, store));
        if (text.empty()) return {};
        return store.keep(text.append(blanks_, u' '));
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return store.keep(Text(inner_.functions().TextField(text, number, separator, store)));
    }

    BuiltInTerminal inner_;
    std::size_t blanks_;
};

/// Cuts a screen into lines of another width than the host's, each a text of its own.
class WideTerminal final : public Terminal, private TerminalFunctions {
public:
    explicit WideTerminal(std::size_t width) : width_(width) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return inner_.functions().ItemText(item, store);
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        const std::size_t start = static_cast<std::size_t>(line) * width_;
        return start < response.size() ? store.keep(Text(response.substr(start, width_))) : TextView{};
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return inner_.functions().TextField(text, number, separator, store);
    }

    BuiltInTerminal inner_;
    std::size_t width_;
};

}  // namespace vantro
