// Host screens from files and standard input.
#pragma once

#include "vantro/screen_lines.h"
#include "vantro/text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// The message for a line (counted from 1) that is longer than a screen line.
std::string tooLongLine(std::size_t line, std::size_t length);

/// The message for a line ("line 3") with a carriage return that is not part of its end, as in a text whose lines end
/// in a carriage return alone.
std::string strayCarriageReturn(const std::string& line);

/// The message for a line or a screen ("line 3") with the zero bytes of UTF-16.
std::string utf16Line(const std::string& line);

/// The index of the first carriage return that is neither followed by a line feed nor the last character; npos for
/// none.
std::size_t findStrayCarriageReturn(std::string_view text);

/// The screen in a UTF-8 text. A text of one line is the unbroken screen itself; in a text of several lines, every line
/// but the last is padded with blanks to 80 characters. A byte order mark, the line ends (LF or CR LF) and one line end
/// after the last line are not part of the screen, nor is a final line of the character 0x1A alone. Raises UsageError
/// for a line over 80 characters in a text of several lines, for a stray carriage return, for bytes that are not UTF-8
/// and for the zero bytes of UTF-16.
Text screenFromText(std::string_view utf8);

/// The same, but long lines are cut, and bytes that are not UTF-8 replaced. Each is described in `faults`.
Text lenientScreen(std::string_view utf8, std::vector<std::string>& faults);

}  // namespace vantro
