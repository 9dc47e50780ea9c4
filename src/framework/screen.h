// The lines of a host screen or profile display. The text consists of lines of 80 characters joined without separators;
// lines count from 0.
#pragma once

#include "framework/int16.h"
#include "framework/observation.h"
#include "framework/text_ops.h"
#include "vantro/screen_lines.h"
#include "vantro/terminal.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantro {

/// Line `line` (from 0), cut from the text; empty after the end.
constexpr TextView lineByPosition(TextView text, std::int16_t line) {
    const auto start = static_cast<std::size_t>(line) * screenWidth;
    return start < text.size() ? text.substr(start, screenWidth) : TextView{};
}

/// The screen that an operation reads. Lines come from the terminal's `ScreenLine`, each fetched at most once; if the
/// terminal's lines are slices of the text, they are cut from the text instead.
class Screen {
public:
    Screen(Terminal& terminal, TextView response)
        : functions_(terminal.functions()),
          response_(response),
          slices_(functions_.linesAreSlices()),
          watch_(terminal) {
        watch_.readsScreen(response);
    }

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Line `line` (from 0), untrimmed; a view that is valid as long as the screen.
    TextView line(std::int16_t line) { return slices_ && line >= 0 ? lineByPosition(response_, line) : fetch(line); }
    TextView line(Counter line) { return this->line(line.value()); }

    /// True when the terminal finds the marker on the screen.
    bool findMarker(TextView marker, std::int16_t lineArgument) {
        const bool isShown = functions_.FindMarker(response_, marker, lineArgument);
        if (watch_) sayMarker(marker, isShown);
        return isShown;
    }

    /// True when the text contains the mark, in any line or across two.
    bool contains(TextView mark) const { return find(mark) > Column{0}; }

    /// The first position of the mark in the whole text at or after `from`, both from 1, or Column{0}.
    Column find(TextView mark, Column from = Column{1}) const;

    /// Field `number` (from 1) of a text, as the terminal splits it.
    TextView textField(TextView text, std::int16_t number, TextView separator) {
        const TextView field = functions_.TextField(text, number, separator, texts_);
        if (watch_) sayField(field, text);
        return field;
    }

    /// True when lines are slices of the text, so that lines after its end are empty.
    bool linesAreSlices() const { return slices_; }

    /// The whole text, for the few tests that do not call the terminal.
    TextView text() const { return response_; }

    /// For what the readers of this screen decide.
    const Watch& watch() const { return watch_; }

private:
    TextView fetch(std::int16_t line);
    void sayMarker(TextView marker, bool isShown) const;
    void sayMark(TextView mark, MarkSearch search, Column found) const;
    void sayField(TextView field, TextView text) const;

    TerminalFunctions& functions_;
    TextView response_;
    bool slices_;
    std::vector<std::optional<TextView>> fetched_;  // by line
    TextStore texts_;
    Watch watch_;
};

/// Where in its line a mark must be.
enum class Match : std::uint8_t { LineStart, Anywhere };

/// Where a reader's lines come from: the terminal, or the text by position.
enum class LineSource : std::uint8_t { Terminal, ByPosition };

/// The lines that a reader tests; `last` is inclusive.
struct LineRange {
    std::int16_t first;
    std::int16_t last;
    LineSource source = LineSource::Terminal;
};

/// One test of a reader: the mark, where in its line it must be, and what a screen with it shows.
template <class Shown>
struct ScreenTest {
    TextView mark;
    Match match;
    Shown shown;
};

/// The result of a search: what the screen shows, and the line that matched. When no line matched, the line is the last
/// one tested.
template <class Shown>
struct ShownLine {
    Shown shown;
    std::int16_t number;
    TextView line;
};

inline bool matches(TextView line, TextView mark, Match match) {
    return match == Match::LineStart ? beginsWith(line, mark) : contains(line, mark);
}

/// Says where the marks of a table were searched for, in the table's order. On the last line only those up to the one
/// that matched were tested, or all if none did.
template <class Shown, std::size_t N>
void saySearched(const Screen& screen, LineRange range, const ScreenTest<Shown> (&tests)[N], std::int16_t last,
                 TextView line, const ScreenTest<Shown>* matched) {
    bool isBeforeMatch = true;
    for (const ScreenTest<Shown>& test : tests) {
        const TextView found =
            &test == matched ? mid(line, find(line, test.mark), Width{static_cast<int>(test.mark.size())}) : TextView{};
        const int lastTested = isBeforeMatch ? last : last - 1;
        if (lastTested >= range.first) {
            screen.watch().searched(test.mark,
                                    test.match == Match::LineStart ? MarkSearch::StartsLine : MarkSearch::InLine,
                                    range.first, lastTested, found);
        }
        isBeforeMatch = isBeforeMatch && &test != matched;
    }
}

/// Runs every test of the table, in the table's order, on one line after the other; the first match decides. Without a
/// match `shown` is `nothing`.
template <class Shown, std::size_t N>
ShownLine<Shown> findShown(Screen& screen, LineRange range, const ScreenTest<Shown> (&tests)[N], Shown nothing) {
    ShownLine<Shown> seen{nothing, range.first, {}};
    for (int line = range.first; line <= range.last; ++line) {
        const auto number = static_cast<std::int16_t>(line);
        seen.number = number;
        seen.line = range.source == LineSource::Terminal ? screen.line(number) : lineByPosition(screen.text(), number);
        for (const ScreenTest<Shown>& test : tests) {
            if (matches(seen.line, test.mark, test.match)) {
                seen.shown = test.shown;
                if (screen.watch()) saySearched(screen, range, tests, number, seen.line, &test);
                return seen;
            }
        }
    }
    if (screen.watch()) saySearched<Shown>(screen, range, tests, range.last, {}, nullptr);
    return seen;
}

}  // namespace vantro
