// The lines of a host screen or profile display. The text consists of lines of 80 characters joined without separators;
// lines count from 0.
#pragma once

#include "framework/int16.h"
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
        : functions_(terminal.functions()), response_(response), slices_(functions_.linesAreSlices()) {}

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Line `line` (from 0), untrimmed; a view that is valid as long as the screen.
    TextView line(std::int16_t line) { return slices_ && line >= 0 ? lineByPosition(response_, line) : fetch(line); }
    TextView line(Counter line) { return this->line(line.value()); }

    /// True when the terminal finds the marker on the screen.
    bool findMarker(TextView marker, std::int16_t lineArgument) {
        return functions_.FindMarker(response_, marker, lineArgument);
    }

    /// Field `number` (from 1) of a text, as the terminal splits it.
    TextView textField(TextView text, std::int16_t number, TextView separator) {
        return functions_.TextField(text, number, separator, texts_);
    }

    /// True when lines are slices of the text, so that lines after its end are empty.
    bool linesAreSlices() const { return slices_; }

    /// The whole text, for the few tests that do not call the terminal.
    TextView text() const { return response_; }

private:
    TextView fetch(std::int16_t line);

    TerminalFunctions& functions_;
    TextView response_;
    bool slices_;
    std::vector<std::optional<TextView>> fetched_;  // by line
    TextStore texts_;
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
                return seen;
            }
        }
    }
    return seen;
}

}  // namespace vantro
