// The notes section of a profile display.
#pragma once

#include "display/display.h"

#include <cstdint>

namespace vantro {

/// The columns of a note.
inline constexpr Width qualifierWidth{2};
inline constexpr Column noteTextColumn{3};

/// Which notes are kept. An empty text filters nothing.
struct NoteFilter {
    TextView searchString;  ///< the note contains this text
    TextView qualifier;     ///< the note's first character equals this text; a longer text keeps no note

    bool keepsEveryNote() const { return searchString.empty() && qualifier.empty(); }
};

/// A note that was kept. `number` is its position in the section, from 1, where notes that were not kept count too.
struct FoundNote {
    std::int16_t number;
    TextView qualifier;  ///< the line's first two characters
    TextView text;       ///< the line from its third character on, trimmed
};

/// Receives the notes that were kept in the order of the display; `count` is the position among them, from 1.
class NoteSink {
public:
    virtual void store(std::int16_t count, const FoundNote& note) = 0;

    /// Receives `amount` empty notes at once, numbered from `number`: the lines after the end of the display.
    virtual void storeEmpty(std::int16_t number, std::int16_t amount) = 0;

protected:
    NoteSink() = default;
    NoteSink(const NoteSink&) = default;
    NoteSink& operator=(const NoteSink&) = default;
    ~NoteSink() = default;
};

/// Returns the number of notes kept. Raises 6 when the notes section has no end: every line after the display is an
/// empty note, until the 16-bit line counter overflows.
std::int16_t scanNotes(Display& display, const NoteFilter& filter, NoteSink& sink);

}  // namespace vantro
