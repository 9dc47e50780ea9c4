#include "readers/known_display.h"

#include <utility>

namespace vantro {

namespace {

/// A longer display is read anew each time. No host prints one, and what is known of it would occupy much memory.
constexpr std::size_t mostLines = 1000;

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
    if (text.data() != place_ || text.size() != size_ || Watch(terminal_)) return nullptr;
    terminal_.functions();  // fails as it does where a display is read anew
    if (std::exchange(isKept_, false)) {
        (*reading_)->startAgain();
        return &**reading_;
    }
    try {
        if (!reading_) reading_ = std::make_unique<std::optional<KnownReading>>();
        return &reading_->emplace(terminal_, text);
    } catch (...) {
        return nullptr;
    }
}

// What is known of a display pays only if it comes again.
void KnownDisplay::remember(const Display& display) noexcept {
    const bool mayBeFound = display.linesAreSlices() && display.size() <= mostLines;
    place_ = mayBeFound ? display.text().data() : nullptr;
    size_ = display.text().size();
    isKept_ = false;
}

}  // namespace vantro
