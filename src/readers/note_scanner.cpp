//   ....+....1....+....2....+....3....+....4
// n ------- PROFILE NOTES                          the section's header; line 0 is not searched
//   A CALL BEFORE TICKETING                        qualifier in column 1, text from column 3
//   B PREFERS AISLE
//   >                                              prompt: the search for another header continues after it
#include "readers/note_scanner.h"

#include "display/rules.h"

#include <limits>

namespace vantro {

namespace {

bool hasQualifier(const NoteFilter& filter, TextView line) {
    return filter.qualifier.empty() || left(line, Width{1}) == filter.qualifier;
}

bool containsText(const NoteFilter& filter, TextView line) {
    return filter.searchString.empty() || contains(line, filter.searchString);
}

// What an observer is told; functions outside the scan, whose members the compiler then keeps in registers.

/// The search for the header began in line `from`. Lines with marks of other sections do not stop it.
void sayStop(Display& display, Counter from, Counter number) {
    const Watch& watch = display.watch();
    const DisplayLine& line = display.line(number);
    const LineMarks marks = line.marks();
    const bool isHeader = marks.containsHeader(Section::Notes) && !marks.containsPrompt();
    if (!isHeader && !line.isBlank() && !marks.isEndOfDisplay()) return;
    // In a line with a prompt the header is not searched for.
    const int last = marks.containsPrompt() ? number.value() - 1 : number.value();
    if (last >= from.value()) {
        watch.searched(sectionHeaders[indexOf(Section::Notes)], MarkSearch::InLine, from.value(), last,
                       isHeader ? display.headerIn(Section::Notes, number) : TextView{});
    }
    watch.decided(line.isBlank()           ? rule::blankAboveNotes
                  : marks.containsPrompt() ? rule::promptAboveNotes
                  : isHeader               ? rule::sectionBegins
                                           : rule::endTextAboveNotes,
                  number);
}

// The number is counted here; the screen does not contain it.
void sayKept(const Watch& watch, const NoteFilter& filter, const FoundNote& note, Counter number, Counter count) {
    watch.decided(filter.keepsEveryNote() ? rule::note : rule::noteFits, number);
    watch.read(u"number", decimal(note.number), count.value());
    watch.read(u"qualifier", note.qualifier, count.value());
    watch.read(u"text", note.text, count.value());
}

/// One scan and its counters. The notes of a second section continue the numbers of the first.
class NoteScan {
public:
    NoteScan(Display& display, const NoteFilter& filter, NoteSink& sink)
        : display_(display), watch_(display.watch()), filter_(filter), sink_(sink) {}

    std::int16_t run() {
        display_.readAhead(Counter(0), Display::ReadTo::DisplayEnd);
        for (;;) {
            const DisplayLine& line = nextBlankOrMarked();  // begins with line 1
            if (watch_) sayStop(display_, searchedFrom_, line_);
            if (line.isBlank() || line.marks().containsPrompt()) break;
            if (line.marks().containsHeader(Section::Notes)) {
                if (endsInEndOfDisplay()) break;
                searchedFrom_ = line_ + 1;
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
            if (line.marks().isEndOfDisplay()) {
                const bool isEndText = line.marks().containsEndText();
                watch_.decided(isEndText ? rule::notesEnd : rule::notesPause, line_);
                return isEndText;
            }
            const bool isFitting = hasQualifier(filter_, line.text());
            if (isFitting && containsText(filter_, line.text())) {
                store(line);
            } else {
                watch_.decided(isFitting ? rule::otherNoteText : rule::otherNoteQualifier, line_);
            }
        }
    }

    /// Stores every line from here to the line counter's end as an empty note and raises 6.
    [[noreturn]] void runOut() {
        const int amount = std::numeric_limits<std::int16_t>::max() - line_.value() + 1;
        watch_.decided(rule::displayHasNoEnd, line_);
        if (filter_.keepsEveryNote()) sink_.storeEmpty(note_.value(), static_cast<std::int16_t>(amount));
        fail(Failure::Overflow);
    }

    void store(const DisplayLine& line) {
        ++count_;
        const FoundNote note{note_.value(), left(line.text(), qualifierWidth),
                             trimmed(mid(line.rightTrimmed(), noteTextColumn))};
        if (watch_) sayKept(display_.watch(), filter_, note, line_, count_);
        sink_.store(count_.value(), note);
    }

    Display& display_;
    const Watch& watch_;
    const NoteFilter& filter_;
    NoteSink& sink_;
    Counter line_;
    Counter searchedFrom_{1};  // where the search for a header began
    Counter note_;
    Counter count_;
};

}  // namespace

std::int16_t scanNotes(Display& display, const NoteFilter& filter, NoteSink& sink) {
    return NoteScan(display, filter, sink).run();
}

}  // namespace vantro
