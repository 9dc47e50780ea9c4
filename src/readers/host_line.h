// The line that the host sometimes puts above a display, and what every query does about it.
#pragma once

#include "framework/screen.h"

namespace vantro {

/// What happens to a display with a host line that is too short to have one cut off. Only a terminal that makes lines
/// of its own can show such a line.
// Meant: a query of elements fails, a query of notes reads an empty display.
enum class ShortDisplay : std::uint8_t {
    Fails,    ///< raises 5
    IsEmpty,  ///< nothing is left of it
};

/// The display proper. A display whose line 1 begins with "4505" or "PF24" loses its first line.
inline TextView withoutHostLine(Terminal& terminal, TextView display, ShortDisplay shortDisplay) {
    Screen screen(terminal, display);
    const TextView line = trimmed(screen.line(std::int16_t{1}));
    if (!line.starts_with(u"4505") && !line.starts_with(u"PF24")) return display;
    const bool isShort = display.size() < std::size_t{screenWidth};
    if (isShort && shortDisplay == ShortDisplay::Fails) fail(Failure::InvalidProcedureCall);
    return mid(display, Column{screenWidth + 1});
}

}  // namespace vantro
