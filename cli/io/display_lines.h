// The lines of a capture that say where displays and their pages begin and end.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantro {

/// The bytes of the line without a carriage return at its end.
inline std::string_view withoutCarriageReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

/// The text without a character 0x1A that is alone in its last line: old programs on Windows and DOS end files with it.
std::string_view withoutEndOfFileMark(std::string_view text);

/// The line without the blanks around its text.
std::string_view trimmed(std::string_view line);

inline bool isBlank(std::string_view line) { return line.find_first_not_of(' ') == std::string_view::npos; }

/// True for a line of the prompt ">" alone.
inline bool isPrompt(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == '>' && isBlank(line.substr(first + 1));
}

/// True for a line that can begin a display after another one.
bool isContent(std::string_view line);

/// The first "END OF DISPLAY", or the end of the text.
const char* endTextIn(std::string_view text);

bool containsEndText(std::string_view line);

/// True for a line that begins with the separator. Without one ("") no line does.
bool isSeparator(std::string_view line, std::string_view separator);

/// True for a line that the terminal or the host prints where a page of a long display ends or the next one begins: the
/// prompt alone, ">PDMD", the advice to enter it, and, if the page has ended above, its echo "PDMD". A page is as long
/// as the terminal's screen; the host shows the next one after the command PDMD.
bool isPageBreak(std::string_view line, bool hasPageEnded);

}  // namespace vantro
