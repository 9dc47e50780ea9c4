// The interface to the terminal: helper objects that the library calls. Implementations are the built-in terminal
// library (built_in_terminal.h), the terminal's own library, reached through COM, and wrappers in tests that fail or
// record calls.
#pragma once

#include "vantro/collection.h"
#include "vantro/error.h"
#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <utility>

namespace vantro {

/// Keeps texts alive for an operation that returns views. An implementation that returns views of its arguments does
/// not use it; one that creates a text stores it here.
class TextStore {
public:
    /// Stores a text and returns a view of it that is valid as long as the store.
    TextView keep(Text text) { return kept_.emplace_front(std::move(text)); }

    /// The same for a copy of the text. Copies share memory: an operation makes one of every line that it reads.
    TextView keepCopy(TextView text) {
        if (kept_.empty() || kept_.front().capacity() - kept_.front().size() < text.size()) {
            constexpr std::size_t linesOfAScreen = std::size_t{25} * 80;
            kept_.emplace_front().reserve(linesOfAScreen + text.size());
        }
        Text& last = kept_.front().append(text);  // it fits, so earlier copies stay where they are
        return TextView(last).substr(last.size() - text.size());
    }

private:
    std::forward_list<Text> kept_;
};

/// The terminal's helper operations on items and screens.
class VANTRO_EXPORT TerminalFunctions {
public:
    virtual ~TerminalFunctions() = default;

    /// The item's value as text: a text unchanged, a boolean as "True" or "False", an integer in decimal, an absent
    /// item as empty text. Raises 13 for a list.
    virtual TextView ItemText(const ItemPtr& item, TextStore& store) = 0;

    /// The item's value as boolean; an absent item and the empty text are False. Raises 13 for a list and for any other
    /// text that is neither "True" nor "False" (in any case) nor a whole number.
    virtual bool ItemBoolean(const ItemPtr& item) = 0;

    /// A line of a screen, counted from 0, untrimmed; empty after the end. Raises 5 for a line below 0.
    virtual TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) = 0;

    /// True when the screen shows the marker. The terminal defines the meaning of the line argument.
    virtual bool FindMarker(TextView response, TextView marker, std::int16_t line) = 0;

    /// The field with this number, from 1, of a text split at the separator; empty when there is none.
    virtual TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) = 0;

    /// True when `ScreenLine` only cuts the text every 80 characters, so that a reader may cut the lines itself. A
    /// wrapper that must see every line being fetched keeps the default.
    virtual bool linesAreSlices() const { return false; }

protected:
    TerminalFunctions() = default;
    TerminalFunctions(const TerminalFunctions&) = default;
    TerminalFunctions& operator=(const TerminalFunctions&) = default;
};

/// Receives the errors that a reader reports instead of raising them.
class VANTRO_EXPORT ErrorReporter {
public:
    virtual ~ErrorReporter() = default;

    /// Reports the error that is being handled. With a `replacement`, its number, source and description are reported
    /// instead; without one (null) the terminal's operation is called without arguments.
    virtual void ReportError(const Error& current, const Error* replacement) = 0;

protected:
    ErrorReporter() = default;
    ErrorReporter(const ErrorReporter&) = default;
    ErrorReporter& operator=(const ErrorReporter&) = default;
};

/// What an `ObservedTerminal` (observer.h) notes while a call runs.
class Observation;

/// A terminal library. It must outlive every object that was created with it.
class VANTRO_EXPORT Terminal {
public:
    virtual ~Terminal() = default;

    virtual TerminalFunctions& functions() = 0;
    virtual ErrorReporter& errorReporter() = 0;

    /// A new, empty collection for results.
    virtual CollectionPtr createCollection() = 0;

    /// Null unless somebody observes the readers. Not virtual, because every call asks for it.
    Observation* observation() const noexcept { return observation_; }

protected:
    Terminal() = default;
    Terminal(const Terminal&) = default;
    Terminal& operator=(const Terminal&) = default;

    /// Null ends the observation. The terminal does not own it.
    void setObservation(Observation* observation) noexcept { observation_ = observation; }

private:
    Observation* observation_ = nullptr;
};

}  // namespace vantro
