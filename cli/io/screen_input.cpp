#include "cli/io/screen_input.h"

#include "cli/io/display_lines.h"
#include "cli/io/encoding.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

void refuseStrayCarriageReturn(std::string_view utf8) {
    const std::size_t stray = findStrayCarriageReturn(utf8);
    if (stray == std::string_view::npos) return;
    const auto linesAbove = static_cast<std::size_t>(std::ranges::count(utf8.substr(0, stray), '\n'));
    throw UsageError(strayCarriageReturn("the screen's line " + std::to_string(linesAbove + 1)));
}

JoinedLines linesOf(std::string_view utf8) {
    if (looksLikeUtf16(utf8)) throw UsageError(utf16Line("the screen"));
    refuseStrayCarriageReturn(utf8);
    if (utf8.starts_with(byteOrderMark)) utf8.remove_prefix(byteOrderMark.size());
    return joinLines(toUtf16(withoutEndOfFileMark(utf8)));
}

}  // namespace

std::string tooLongLine(std::size_t line, std::size_t length) {
    return "line " + std::to_string(line) + " has " + std::to_string(length) + " characters, a screen line has " +
           std::to_string(screenWidth) + " at most";
}

std::string strayCarriageReturn(const std::string& line) {
    return line +
           " contains a carriage return (CR) that no line feed (LF) follows; lines end in LF or CR LF, so convert the "
           "line ends, for example with: tr '\\r' '\\n'";
}

std::string utf16Line(const std::string& line) {
    return line + " looks like UTF-16 without a byte order mark; name it with --encoding utf-16, or utf-16be";
}

std::size_t findStrayCarriageReturn(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
        if (at + 1 < text.size() && text[at + 1] != '\n') return at;
    }
    return std::string_view::npos;
}

Text screenFromText(std::string_view utf8) {
    if (!isUtf8(utf8)) {
        throw UsageError("the screen is not UTF-8; name its encoding with --encoding, for example windows-1252");
    }
    JoinedLines lines = linesOf(utf8);
    if (lines.longLines.empty()) return std::move(lines.screen);
    const LongLine& first = lines.longLines.front();
    throw UsageError("the screen's " + tooLongLine(first.number, first.length) + "; break it there");
}

Text lenientScreen(std::string_view utf8, std::vector<std::string>& faults) {
    if (!isUtf8(utf8)) faults.emplace_back("bytes of the screen that are not UTF-8 were replaced");
    JoinedLines lines = linesOf(utf8);
    for (const LongLine& line : lines.longLines) {
        faults.push_back("the screen's " + tooLongLine(line.number, line.length) + "; it was cut");
    }
    return std::move(lines.screen);
}

}  // namespace vantro
