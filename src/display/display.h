// A profile display: its lines, each read once, and the marks among them.
#pragma once

#include "display/display_line.h"
#include "display/known_text.h"
#include "display/scratch_memory.h"
#include "framework/screen.h"

#include <bitset>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace vantro {

/// The lines of a display that were read so far.
class ReadLines {
public:
    /// `expected` is the number of lines in the text. A terminal may make more: these are apart.
    ReadLines(std::size_t expected, std::pmr::memory_resource* memory)
        : expected_(expected), slots_(memory), isRead_(memory) {}

    /// A line, or null when it was not read yet.
    const DisplayLine* find(std::size_t index) const {
        if (index < isRead_.size()) return isRead_[index] != 0 ? &slots_[index].line : nullptr;
        return apart_.empty() ? nullptr : findApart(index);
    }

    /// Adds a line that was not read yet; the reference is valid as long as this object.
    const DisplayLine& add(std::size_t index, TextView text);

    /// Adds lines from `first` on, before line `last`, up to the first one with a mark. Returns the line after them.
    std::size_t addUpToMark(TextView display, std::size_t first, std::size_t last);

    /// Forgets the expected lines from `line` on.
    void forgetFrom(std::size_t line) {
        for (std::size_t index = line; index < isRead_.size(); ++index) isRead_[index] = 0;
    }

private:
    /// Memory for a line, not initialised.
    union Slot {
        Slot() {}
        DisplayLine line;
    };
    static_assert(std::is_trivially_destructible_v<DisplayLine>);

    void makeRoom();
    const DisplayLine* findApart(std::size_t index) const;

    std::size_t expected_;
    std::pmr::vector<Slot> slots_;           // by line; none before the first line is read
    std::pmr::vector<std::uint8_t> isRead_;  // by line: 1 or 0
    std::unordered_map<std::size_t, DisplayLine> apart_;
};

/// The display that an operation reads, or several, one after the other. Its readers share it, so that each line is
/// read once. Lines count from 0; lines after the end are empty.
///
/// If lines are slices of the text, a sweep finds the few lines with marks. Otherwise the terminal is asked only for
/// the lines that a reader needs, in the reader's order.
class Display {
public:
    /// `known` is for a display that several operations read; it must have no lines yet. Null for any other. It is not
    /// used if the terminal makes the lines itself.
    Display(Terminal& terminal, TextView text, KnownText* known = nullptr);

    /// Begins the next operation. The text is where it was and has the same size, but any line may have changed.
    void startAgain() { confirmed_ = 0; }

    /// A line; the reference is valid as long as the display.
    const DisplayLine& line(Counter number) {
        const auto index = static_cast<std::size_t>(number.value());
        if (index >= confirmed_) confirm(index);
        const DisplayLine* const known = lines_.find(index);
        return known != nullptr ? *known : readLine(index);
    }

    /// Where a pass over the lines ends: after the line that ends the display or, earlier, after one that ends a
    /// section.
    enum class ReadTo : std::uint8_t { DisplayEnd, SectionEnd };

    /// Reads lines from `from` on in one pass, for a reader that needs most of them; the line above was read or found.
    /// Stops earlier at a line that was read before, or that has changed. Does nothing if the terminal makes the lines
    /// itself: it is asked only for those that a reader needs.
    void readAhead(Counter from, ReadTo end);

    /// True for a line that is known to be empty; all lines after it are empty too.
    bool isPastEnd(Counter number) const { return static_cast<std::size_t>(number.value()) >= size_; }

    /// A line in a search that only a mark or a text ends; null for a line after the end: the search fails, because
    /// only empty lines follow and the 16-bit line counter would overflow.
    const DisplayLine* lineBeforeEnd(Counter number) {
        const auto index = static_cast<std::size_t>(number.value());
        if (index >= confirmed_) confirm(index);
        if (const DisplayLine* const known = lines_.find(index)) return known;
        return isPastEnd(number) ? nullptr : &readLine(index);
    }

    /// The same; raises 6 for a line after the end.
    const DisplayLine& expectedLine(Counter number) {
        const DisplayLine* const found = lineBeforeEnd(number);
        if (found == nullptr) runOut(number);
        return *found;
    }

    /// A line with marks.
    struct MarkedLine {
        Counter number;
        LineMarks marks;
    };

    /// The first line at or after `from` that contains a mark, if there is one.
    std::optional<MarkedLine> nextMarked(Counter from);

    /// The first line at or after `from` that contains the section's header or ends the display, if there is one. The
    /// first search of a display that one operation reads keeps nothing of the lines that it passes over: unless lines
    /// were read before, later searches must be for the same section, or begin at the line that it found or after it.
    std::optional<MarkedLine> nextHeaderOrEnd(Section section, Counter from);

    /// The section's header in a line that contains it.
    TextView headerIn(Section section, Counter number) {
        const TextView line = screen_.line(number);
        const TextView header = sectionHeaders[indexOf(section)];
        return mid(line, find(line, header), Width{static_cast<int>(header.size())});
    }

    /// The same, and an observer is told of the search and of its end.
    std::optional<MarkedLine> seekHeader(Section section, Counter from) {
        const std::optional<MarkedLine> found = nextHeaderOrEnd(section, from);
        if (watch()) saySearched(section, from, found);
        return found;
    }

    /// The sections whose headers are in lines that were read, up to the line that ends the display. Lines must be
    /// slices of the text.
    std::bitset<sectionCount> sectionsRead() const;

    /// The number of lines that can be non-empty.
    std::size_t size() const { return size_; }

    /// For what the operation needs beside the lines.
    std::pmr::memory_resource* scratchMemory() { return scratch_.resource(); }

    Screen& screen() { return screen_; }
    bool linesAreSlices() const { return screen_.linesAreSlices(); }
    const Watch& watch() const { return screen_.watch(); }
    TextView text() const { return screen_.text(); }

private:
    [[noreturn]] void runOut(Counter number) const;
    void saySearched(Section section, Counter from, const std::optional<MarkedLine>& found);
    const DisplayLine& readLine(std::size_t index);
    void sweepNext();
    void noteSwept(LineMarks marks) {
        if (marks.any()) marked_.push_back({Counter(static_cast<std::int16_t>(swept_)), marks});
        ++swept_;
    }
    std::size_t nextMarkedIndex(Counter from);
    const MarkedLine* markedAt(std::size_t index);
    template <class Wanted>
    std::optional<MarkedLine> nextSwept(Counter from, Wanted wanted);
    bool confirm(std::size_t index);
    void forgetFrom(std::size_t line);
    template <class Wanted>
    MarkedLine nextFetched(Counter from, Wanted wanted);

    ScratchMemory scratch_;
    Screen screen_;
    KnownText* known_;
    std::size_t size_;
    ReadLines lines_;
    std::size_t confirmed_;                // what is known of the lines before it is true in this operation
    std::size_t swept_ = 0;                // the first line whose marks are not known
    std::pmr::vector<MarkedLine> marked_;  // those among them that contain marks
};

}  // namespace vantro
