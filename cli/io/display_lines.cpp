#include "cli/io/display_lines.h"

namespace vantro {

namespace {

constexpr std::string_view endText = "END OF DISPLAY";
constexpr std::string_view moveDown = "PDMD";
constexpr std::string_view moveDownAdvice = "END OF BLOCK - USE PDMD";

}  // namespace

std::string_view withoutEndOfFileMark(std::string_view text) {
    const std::size_t last = text.find_last_not_of("\r\n");
    if (last == std::string_view::npos || text[last] != '\x1A') return text;
    return last == 0 || text[last - 1] == '\n' ? text.substr(0, last) : text;
}

std::string_view trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first == std::string_view::npos ? "" : line.substr(first, line.find_last_not_of(' ') - first + 1);
}

bool isContent(std::string_view line) { return !isBlank(line) && !isPrompt(line); }

// The last letter is searched for: it is the rarest in a profile.
const char* endTextIn(std::string_view text) {
    constexpr std::size_t before = endText.size() - 1;
    for (std::size_t last = text.find(endText.back(), before); last != std::string_view::npos;
         last = text.find(endText.back(), last + 1)) {
        if (text.substr(last - before, endText.size()) == endText) return text.data() + last - before;
    }
    return text.data() + text.size();
}

bool containsEndText(std::string_view line) { return endTextIn(line) != line.data() + line.size(); }

bool isSeparator(std::string_view line, std::string_view separator) {
    return !separator.empty() && line.starts_with(separator);
}

bool isPageBreak(std::string_view line, bool hasPageEnded) {
    const std::string_view text = trimmed(line);
    if (text == moveDown) return hasPageEnded;
    if (text.starts_with('>')) return text.size() == 1 || trimmed(text.substr(1)) == moveDown;
    return text == moveDownAdvice;
}

}  // namespace vantro
