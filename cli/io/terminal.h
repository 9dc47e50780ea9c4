// What the terminal shows: its width and its colours.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantro {

/// What --color asks for.
enum class ColorChoice { Auto, Always, Never };

/// Sets the choice for the rest of the run, before the first output. Without it, it is `Auto`.
void chooseColor(ColorChoice choice);

/// The choice with this name: "auto", "always", "never".
std::optional<ColorChoice> colorChoiceNamed(std::string_view name);

/// The variables of the environment that speak about colour. A variable that is absent is empty here.
struct ColorVariables {
    std::string noColor = {};        ///< NO_COLOR: no colour, unless it is empty
    std::string cliColorForce = {};  ///< CLICOLOR_FORCE: colour also in files and pipes, unless it is empty or 0
    std::string cliColor = {};       ///< CLICOLOR: 0 for no colour
    std::string term = {};           ///< TERM: "dumb" for a terminal without colour
};

/// True when output is to be coloured. The choice decides; `Auto` leaves it to the first variable that says something,
/// in the order above, and then to whether the output is a terminal.
bool wantsColor(ColorChoice choice, const ColorVariables& variables, bool isTerminal);

bool outputShowsColor();
bool errorShowsColor();

/// The columns of the terminal that standard output is written to; COLUMNS when the terminal does not say. 0 for a file
/// or pipe, and when both are unknown.
std::size_t outputColumns();

/// The columns for text that is wrapped in files and pipes too: those of the terminal, or COLUMNS, or 80.
std::size_t textColumns();

std::string inBold(const std::string& text);

/// A message with its word "warning" in yellow, or its words "error" before a number in red.
std::string withColoredWords(std::string message);

}  // namespace vantro
