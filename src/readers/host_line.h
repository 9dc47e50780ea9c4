// The line that the host sometimes puts above a display, and what every query does about it.
#pragma once

#include "framework/screen.h"

namespace vantro {

/// The number raised for a query without a prefix.
inline constexpr int emptyPrefixError = 5065;

/// True when line 1 begins with "4505" or "PF24": the display proper then begins at line 1.
inline bool hasHostLine(Screen& display) {
    const TextView line = trimmed(display.line(std::int16_t{1}));
    return line.starts_with(u"4505") || line.starts_with(u"PF24");
}

}  // namespace vantro
