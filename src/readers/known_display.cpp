#include "readers/known_display.h"

#include <new>
#include <utility>

namespace vantro {

namespace {

/// A longer display is read anew each time. No host prints one, and what is known of it would occupy much memory.
constexpr std::size_t mostLines = 1000;

bool areSame(TextView a, TextView b) { return a.data() == b.data() && a.size() == b.size(); }

}  // namespace

KnownReading::KnownReading(Terminal& terminal, TextView text)
    : known_(text), display_(terminal, text, &known_), joiner_(display_, texts_), found_(display_.scratchMemory()) {
    found_.reserve(usualElements);
}

void KnownReading::startAgain() {
    display_.startAgain();
    joiner_.startAgain();
    found_.clear();
}

KnownReading* KnownDisplay::find(TextView text) {
    if (!areSame(text, last_) || Watch(terminal_)) return nullptr;
    // Asked in every operation, because a terminal may fail, or begin to make its own lines.
    if (!terminal_.functions().linesAreSlices()) return nullptr;
    if (std::exchange(isKept_, false)) {
        (*reading_)->startAgain();
        return &**reading_;
    }
    try {
        if (!reading_) reading_ = std::make_unique<std::optional<KnownReading>>();
        return &reading_->emplace(terminal_, text);
    } catch (const std::bad_alloc&) {  // Not covered: what the terminal raises passes
        return nullptr;
    }
}

// A terminal may have called the object while it was asked, which then read another text.
void KnownDisplay::keep() noexcept { isKept_ = areSame((*reading_)->text(), last_); }

// What is known of a display pays only if it comes again.
void KnownDisplay::remember(const Display& display) noexcept {
    const bool mayBeFound = display.linesAreSlices() && display.size() <= mostLines;
    last_ = mayBeFound ? display.text() : TextView();
    isKept_ = false;
}

}  // namespace vantro
