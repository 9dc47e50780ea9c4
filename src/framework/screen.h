// A host screen or profile display: an object that is asked for its lines. The text is lines of 80 characters
// joined without separators; lines count from 0.
#pragma once

#include "framework/int16.h"
#include "framework/text_ops.h"
#include "vantro/terminal.h"

#include <cstdint>
#include <unordered_map>

namespace vantro {

/// Characters of a screen line.
inline constexpr int screenWidth = 80;

/// Line `line` (from 0) cut straight from the text; empty past the end.
constexpr TextView lineByPosition(TextView text, std::int16_t line) {
    const auto start = static_cast<std::size_t>(line) * screenWidth;
    return start < text.size() ? text.substr(start, screenWidth) : TextView{};
}

/// The screen that an operation reads. Every line comes through the terminal's `ScreenLine`, once a call; where
/// the terminal says that its lines are slices of the text, they are taken from the text itself.
class Screen {
public:
    Screen(Terminal& terminal, TextView response)
        : functions_(terminal.functions()), response_(response), slices_(functions_.linesAreSlices()) {}

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Line `line` (from 0), untrimmed; a view that lives as long as the screen.
    TextView line(std::int16_t line) { return slices_ && line >= 0 ? lineByPosition(response_, line) : fetch(line); }
    TextView line(Counter line) { return this->line(line.value()); }

    /// True when the terminal finds the marker on the screen.
    bool findMarker(TextView marker, std::int16_t lineArgument) {
        return functions_.FindMarker(response_, marker, lineArgument);
    }

    /// The n-th field (from 1) of a text, as the terminal splits it.
    TextView textField(TextView text, std::int16_t number, TextView separator) {
        return functions_.TextField(text, number, separator, texts_);
    }

    /// True when lines are slices of the text, and so empty past its end.
    bool linesAreSlices() const { return slices_; }

    /// The whole text, for the few tests that are made without the terminal's help.
    TextView text() const { return response_; }

private:
    TextView fetch(std::int16_t line);

    TerminalFunctions& functions_;
    TextView response_;
    bool slices_;
    std::unordered_map<std::int16_t, TextView> fetched_;
    TextStore texts_;
};

/// Where in its line a mark has to stand.
enum class Place : std::uint8_t { StartsLine, InLine };

/// How a reader takes its lines: through the terminal, or straight from the text by position.
enum class LineSource : std::uint8_t { Terminal, ByPosition };

/// The lines that a reader looks at, both ends included.
struct LineRange {
    std::int16_t first;
    std::int16_t last;
    LineSource source = LineSource::Terminal;
};

/// One test of a reader: the mark, its place, and what it shows.
template <class Shown>
struct ScreenTest {
    TextView mark;
    Place place;
    Shown shown;
};

/// The line at which a reader stopped looking: what it shows (nothing when no line matched, and then `number`
/// and `line` are those of the last line looked at).
template <class Shown>
struct ShownLine {
    Shown shown;
    std::int16_t number;
    TextView line;
};

inline bool stands(TextView line, TextView mark, Place place) {
    return place == Place::StartsLine ? line.starts_with(mark) : contains(line, mark);
}

/// Looks at the lines one by one and makes every test of the table on each, in the table's order; the first
/// match decides. `nothing` is what no match shows.
template <class Shown, std::size_t N>
ShownLine<Shown> findShown(Screen& screen, LineRange range, const ScreenTest<Shown> (&tests)[N], Shown nothing) {
    ShownLine<Shown> seen{nothing, range.first, {}};
    for (int line = range.first; line <= range.last; ++line) {
        const auto number = static_cast<std::int16_t>(line);
        seen.number = number;
        seen.line = range.source == LineSource::Terminal ? screen.line(number) : lineByPosition(screen.text(), number);
        for (const ScreenTest<Shown>& test : tests) {
            if (stands(seen.line, test.mark, test.place)) {
                seen.shown = test.shown;
                return seen;
            }
        }
    }
    return seen;
}

}  // namespace vantro
