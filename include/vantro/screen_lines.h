// Screens from text lines, as a terminal window, a log or a file has them.
#pragma once

#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vantro {

/// The number of characters of a screen line.
inline constexpr int screenWidth = 80;

/// A text line that is longer than a screen line.
struct LongLine {
    std::size_t number;  ///< from 1
    std::size_t length;  ///< in characters, without its line end
};

/// A screen made of text lines.
struct JoinedLines {
    Text screen;                      ///< the lines joined without separators, all but the last padded to 80 characters
    std::vector<LongLine> longLines;  ///< the lines that were cut to 80 characters, in order; empty when all fit
};

/// The screen in a text whose lines end in LF or CR LF. One line end after the last line begins no further line. A text
/// of one line is an unbroken screen: it is returned without its line end, whatever its length.
[[nodiscard]] VANTRO_EXPORT JoinedLines joinLines(TextView text);

/// The screen of these lines, also of a single one. A line may have its line end (LF or CR LF) with it, and may be
/// padded with blanks already.
[[nodiscard]] VANTRO_EXPORT JoinedLines joinLines(std::span<const TextView> lines);
[[nodiscard]] VANTRO_EXPORT JoinedLines joinLines(const TextList& lines);

}  // namespace vantro
