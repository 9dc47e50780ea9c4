#include "cli/screen_input.h"

#include "cli/failure.h"
#include "cli/utf.h"

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutCarriageReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

}  // namespace

std::string tooLongLine(std::size_t line, std::size_t length) {
    return "line " + std::to_string(line) + " has " + std::to_string(length) + " characters, a screen line has " +
           std::to_string(screenWidth) + " at most";
}

Text screenFromText(std::string_view utf8) {
    if (!isUtf8(utf8)) throw UsageError("the screen is not UTF-8; convert it first");
    if (utf8.starts_with(byteOrderMark)) utf8.remove_prefix(byteOrderMark.size());
    if (utf8.ends_with('\n')) utf8 = withoutCarriageReturn(utf8.substr(0, utf8.size() - 1));
    if (utf8.find('\n') == std::string_view::npos) return toUtf16(utf8);

    Text screen;
    for (std::size_t line = 1;; ++line) {
        const std::size_t end = utf8.find('\n');
        const std::size_t start = screen.size();
        appendUtf16(withoutCarriageReturn(utf8.substr(0, end)), screen);
        const std::size_t length = screen.size() - start;
        if (length > screenWidth) throw UsageError("the screen's " + tooLongLine(line, length) + "; break it there");
        if (end == std::string_view::npos) return screen;
        screen.resize(start + screenWidth, u' ');
        utf8.remove_prefix(end + 1);
    }
}

}  // namespace vantro
