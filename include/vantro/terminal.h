// The seam to the terminal: the helper objects that the library calls and never supplies itself. The built-in
// terminal library (built_in_terminal.h) is one implementation; the terminal's own, reached through COM, is
// another; a test's failing or watching wrapper is a third.
#pragma once

#include "vantro/collection.h"
#include "vantro/error.h"
#include "vantro/export.h"
#include "vantro/text.h"

#include <cstdint>
#include <forward_list>
#include <utility>

namespace vantro {

/// Keeps texts alive for an operation that hands out views. An implementation whose results are views of its
/// arguments never touches it; one that has to make a text keeps that here.
class TextStore {
public:
    /// Takes a text over and gives a view of it that lives as long as the store.
    TextView keep(Text text) { return kept_.emplace_front(std::move(text)); }

private:
    std::forward_list<Text> kept_;
};

/// The terminal's helper operations on items and screens.
class VANTRO_EXPORT TerminalFunctions {
public:
    virtual ~TerminalFunctions() = default;

    /// The item's value as text: a text as it is, a boolean as "True" or "False", an integer in decimal, an
    /// absent item as empty text. Raises 13 for a list.
    virtual TextView ItemText(const ItemPtr& item, TextStore& store) = 0;

    /// The item's value as boolean; an absent item and the empty text are False. Raises 13 for a list and for any
    /// other text that is neither a truth word nor a whole number.
    virtual bool ItemBoolean(const ItemPtr& item) = 0;

    /// Line n of a screen (from 0), untrimmed; empty past the end. Raises 5 for n below 0.
    virtual TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) = 0;

    /// True when the marker is shown on the screen. The meaning of the line argument is the terminal's.
    virtual bool FindMarker(TextView response, TextView marker, std::int16_t line) = 0;

    /// The field with this number (from 1) of a text that the separator splits; empty where there is none.
    virtual TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) = 0;

    /// True when `ScreenLine` does nothing but slice the text every 80 characters, so that a reader may take
    /// its lines from the text itself. A wrapper that wants to see every line fetched keeps the default.
    virtual bool linesAreSlices() const { return false; }

protected:
    TerminalFunctions() = default;
    TerminalFunctions(const TerminalFunctions&) = default;
    TerminalFunctions& operator=(const TerminalFunctions&) = default;
};

/// Where readers that swallow their own errors report them.
class VANTRO_EXPORT ErrorReporter {
public:
    virtual ~ErrorReporter() = default;

    /// Reports the error being handled. With `given`, its number, source and description are reported
    /// instead; without it the terminal's operation is called with its arguments left out.
    virtual void ReportError(const Error& current, const Error* given) = 0;

protected:
    ErrorReporter() = default;
    ErrorReporter(const ErrorReporter&) = default;
    ErrorReporter& operator=(const ErrorReporter&) = default;
};

/// A terminal library as a whole. It must outlive every object that was created for it.
class VANTRO_EXPORT Terminal {
public:
    virtual ~Terminal() = default;

    virtual TerminalFunctions& functions() = 0;
    virtual ErrorReporter& errorReporter() = 0;

    /// A new, empty collection for results.
    virtual CollectionPtr createCollection() = 0;

protected:
    Terminal() = default;
    Terminal(const Terminal&) = default;
    Terminal& operator=(const Terminal&) = default;
};

}  // namespace vantro
