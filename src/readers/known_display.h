// The display of the operation before.
#pragma once

#include "display/joiner.h"
#include "readers/extractors.h"

#include <array>
#include <memory>
#include <optional>

namespace vantro {

/// A display that several operations read, one after the other, with the memory that they need.
class KnownReading {
public:
    KnownReading(Terminal& terminal, TextView text);

    /// Begins the next operation. What the one before found is not valid any more.
    void startAgain();

    TextView text() const { return display_.text(); }
    Joiner& joiner() { return joiner_; }
    FoundElements& found() { return found_; }

private:
    KnownText known_;
    Display display_;
    std::array<char16_t, 1024> texts_;  // not initialised
    Joiner joiner_;
    FoundElements found_;
};

/// Keeps what was read of a display for the next operation. Most terminals ask for one family of a display after the
/// other. The second operation that reads a text keeps its lines. Those after it compare the text with them, which
/// takes a fraction of the time of reading it.
class KnownDisplay {
public:
    explicit KnownDisplay(Terminal& terminal) : terminal_(terminal) {}

    /// The display, with what is known of it, if the text of the operation before was in the same place and had the
    /// same size. Null for any other text, if the call is observed, and if memory runs out. Raises what the terminal
    /// raises.
    KnownReading* find(TextView text);

    /// Says that an operation reads a display that was not found. It may be found from then on, if its lines are slices
    /// of the text and at most 1,000.
    void remember(const Display& display) noexcept;

    /// Keeps what the operation read of the display that was found. An operation that fails does not call it, because
    /// it may have left something half read.
    void keep() noexcept;

private:
    Terminal& terminal_;
    TextView last_;  // the text of the operation before, if it may be found; not read before it is passed again
    bool isKept_ = false;
    std::unique_ptr<std::optional<KnownReading>> reading_;  // made when it is needed, and its memory used again
};

}  // namespace vantro
