// A terminal whose screen lines are texts of its own, of any width.
#pragma once

#include "vantro/built_in_terminal.h"

#include <utility>

namespace vantro::fuzz {

/// Cuts lines of another width than the host's, or of the host's and then is nothing but a stranger: no line is a
/// slice of the screen, and no text lives longer than the caller's store.
class WideTerminal final : public Terminal, private TerminalFunctions {
public:
    explicit WideTerminal(std::size_t width, ErrorSink sink = {}) : inner_(std::move(sink)), width_(width) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return store.keep(Text(inner_.functions().ItemText(item, store)));
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        if (line < 0) fail(Failure::InvalidProcedureCall);
        const std::size_t start = static_cast<std::size_t>(line) * width_;
        return start < response.size() ? store.keep(Text(response.substr(start, width_))) : TextView{};
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return store.keep(Text(inner_.functions().TextField(text, number, separator, store)));
    }

    BuiltInTerminal inner_;
    std::size_t width_;
};

}  // namespace vantro::fuzz
