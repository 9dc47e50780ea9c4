//   ....+....1....+....2....+....3....+....4
// n ------- PROFILE NOTES                          the section's header; line 0 is not searched
//   A CALL BEFORE TICKETING                        qualifier in column 1, text from column 3
//   B PREFERS AISLE
//   >                                              prompt: the search for another header continues after it
#include "readers/note_scanner.h"

#include <limits>

namespace vantro {

namespace {

bool isKept(const NoteFilter& filter, TextView line) {
    if (!filter.qualifier.empty() && left(line, Width{1}) != filter.qualifier) return false;
    return filter.searchString.empty() || contains(line, filter.searchString);
}

/// One scan and its counters. The notes of a second section continue the numbers of the first.
class NoteScan {
public:
    NoteScan(Display& display, const NoteFilter& filter, NoteSink& sink)
        : display_(display), filter_(filter), sink_(sink) {}

    std::int16_t run() {
        display_.readAhead(Counter(0), Display::ReadTo::DisplayEnd);
        for (;;) {
            const DisplayLine& line = nextBlankOrMarked();  // begins with line 1
            if (line.isBlank() || line.marks().containsPrompt()) break;
            if (line.marks().containsHeader(Section::Notes)) {
                if (endsInEndOfDisplay()) break;
            } else if (line.marks().containsEndText()) {
                break;
            }
        }
        return count_.value();
    }

private:
    const DisplayLine& nextBlankOrMarked() {
        for (Counter number = line_;;) {
            const DisplayLine& line = display_.line(++number);
            if (!line.isBlank() && !line.marks().any()) continue;
            line_ = number;
            return line;
        }
    }

    /// Reads a section up to the line that ends it. Returns true for the end text, false for a prompt.
    bool endsInEndOfDisplay() {
        for (;;) {
            ++line_;
            ++note_;
            if (display_.isPastEnd(line_)) runOut();
            const DisplayLine& line = display_.line(line_);
            if (line.marks().containsEndText()) return true;
            if (line.marks().containsPrompt()) return false;
            if (isKept(filter_, line.text())) store(line);
        }
    }

    /// Stores every line from here to the line counter's end as an empty note and raises 6.
    [[noreturn]] void runOut() {
        const int amount = std::numeric_limits<std::int16_t>::max() - line_.value() + 1;
        if (filter_.keepsEveryNote()) sink_.storeEmpty(note_.value(), static_cast<std::int16_t>(amount));
        fail(Failure::Overflow);
    }

    void store(const DisplayLine& line) {
        ++count_;
        sink_.store(count_.value(), {note_.value(), left(line.text(), qualifierWidth),
                                     trimmed(mid(line.rightTrimmed(), noteTextColumn))});
    }

    Display& display_;
    const NoteFilter& filter_;
    NoteSink& sink_;
    Counter line_;
    Counter note_;
    Counter count_;
};

}  // namespace

std::int16_t scanNotes(Display& display, const NoteFilter& filter, NoteSink& sink) {
    return NoteScan(display, filter, sink).run();
}

}  // namespace vantro
