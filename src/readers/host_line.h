// The host line, which the host sometimes prints above a display, and its removal before a query.
#pragma once

#include "display/rules.h"
#include "framework/screen.h"

namespace vantro {

/// What happens to a display with a host line that is too short to remove 80 characters from it. Only a terminal that
/// makes its own lines can return a host line for such a display.
// Meant: a query for elements fails, a query for notes reads an empty display.
enum class ShortDisplay : std::uint8_t {
    Fails,    ///< raises 5
    IsEmpty,  ///< the display counts as empty
};

/// Returns the display, without its first 80 characters if its line 1, trimmed, begins with "4505" or "PF24".
inline TextView withoutHostLine(Terminal& terminal, TextView display, ShortDisplay shortDisplay) {
    Screen screen(terminal, display);
    const TextView line = trimmed(screen.line(std::int16_t{1}));
    if (!line.starts_with(u"4505") && !line.starts_with(u"PF24")) return display;
    const bool isShort = display.size() < std::size_t{screenWidth};
    const bool fails = isShort && shortDisplay == ShortDisplay::Fails;
    screen.watch().decided(fails ? rule::hostLineTooShort : rule::hostLine, Counter(1));
    if (fails) fail(Failure::InvalidProcedureCall);
    return mid(display, Column{screenWidth + 1});
}

}  // namespace vantro
