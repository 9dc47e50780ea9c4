// Terminals that make their own screen lines.
#pragma once

#include "vantro/built_in_terminal.h"

#include <cstddef>
#include <utility>

namespace vantro::test {

/// No line is a slice of the screen, and no text lives longer than the caller's store. Everything but the lines is as
/// in the built-in terminal.
class OwnLinesTerminal : public Terminal, private TerminalFunctions {
public:
    explicit OwnLinesTerminal(ErrorSink sink = {}) : inner_(std::move(sink)) {}

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

protected:
    /// The 80 characters of a line as the host prints it.
    static TextView hostLine(TextView response, std::int16_t line, std::size_t width = 80) {
        const std::size_t start = static_cast<std::size_t>(line) * width;
        return start < response.size() ? response.substr(start, width) : TextView{};
    }

private:
    /// Line n of a screen, from 0; empty past the end.
    virtual Text lineOf(TextView response, std::int16_t line) = 0;

    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return store.keep(Text(inner_.functions().ItemText(item, store)));
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        if (line < 0) fail(Failure::InvalidProcedureCall);
        return store.keep(lineOf(response, line));
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return store.keep(Text(inner_.functions().TextField(text, number, separator, store)));
    }

    BuiltInTerminal inner_;
};

/// Cuts the screen into lines of a different width.
class WideTerminal final : public OwnLinesTerminal {
public:
    explicit WideTerminal(std::size_t width, ErrorSink sink = {}) : OwnLinesTerminal(std::move(sink)), width_(width) {}

private:
    Text lineOf(TextView response, std::int16_t line) override { return Text(hostLine(response, line, width_)); }

    std::size_t width_;
};

/// Returns the host's lines followed by blanks.
class PaddingTerminal final : public OwnLinesTerminal {
public:
    explicit PaddingTerminal(std::size_t blanks = 0) : blanks_(blanks) {}

private:
    Text lineOf(TextView response, std::int16_t line) override {
        Text text(hostLine(response, line));
        return text.empty() ? text : text.append(blanks_, u' ');
    }

    std::size_t blanks_;
};

/// The built-in terminal, which begins to make its own lines when it is told to.
class SwitchingTerminal final : public Terminal {
public:
    explicit SwitchingTerminal(const bool& makesLines) : makesLines_(makesLines) {}

    TerminalFunctions& functions() override { return makesLines_ ? own_.functions() : builtIn_.functions(); }
    ErrorReporter& errorReporter() override { return builtIn_.errorReporter(); }
    CollectionPtr createCollection() override { return builtIn_.createCollection(); }

private:
    const bool& makesLines_;
    BuiltInTerminal builtIn_;
    PaddingTerminal own_;
};

}  // namespace vantro::test
