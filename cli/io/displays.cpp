#include "cli/io/displays.h"

#include "cli/io/ascii.h"
#include "cli/io/display_lines.h"
#include "cli/io/encoding.h"
#include "cli/io/pages.h"
#include "cli/io/screen_input.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <utility>

namespace vantro {

namespace {

bool containsStray(std::string_view text) { return findStrayCarriageReturn(text) != std::string_view::npos; }

bool containsControl(std::string_view line) {
    return std::ranges::any_of(line, [](char byte) { return static_cast<unsigned char>(byte) < ' '; });
}

/// True if the separator above the display has a title, even one that cannot be read.
bool isNamed(const FoundDisplay& display) { return !display.title.empty() || display.faulty.fault != LineFault::None; }

/// For a line whose text begins with "*" or ">".
void noteMark(std::string_view line, std::size_t row, FoundDisplay& display) {
    if (!line.starts_with(' ')) display.markRows.push_back(row);
    if (display.end == DisplayEnd::None && isPrompt(line)) display.end = DisplayEnd::Prompt;
}

void noteJoin(std::size_t row, FoundDisplay& display) {
    if (display.joins.empty() || display.joins.back().row != row) display.joins.push_back({row, 0});
    ++display.joins.back().leftOut;
}

/// A line and the blocks of characters that may end after it.
constexpr std::size_t rowSize = screenWidth + 2 * AsciiBlock::size;

/// Several lines: a display is made of blanks first, a few lines at a time.
const Text& blankLines() {
    constexpr std::size_t count = 25;
    static const Text lines(count * screenWidth, u' ');
    return lines;
}

}  // namespace

std::string describe(const FaultyLine& faulty, std::size_t linesAbove, std::size_t maxLine) {
    const std::size_t line = linesAbove + faulty.line;
    switch (faulty.fault) {
        case LineFault::None: break;
        case LineFault::TooLong: return tooLongLine(line, faulty.length);
        case LineFault::NotUtf8:
            return "line " + std::to_string(line) +
                   " is not UTF-8; name its encoding with --encoding, for example windows-1252, or replace such bytes "
                   "with --lenient";
        case LineFault::Utf16: return utf16Line("line " + std::to_string(line));
        case LineFault::StrayCarriageReturn: return strayCarriageReturn("line " + std::to_string(line));
        case LineFault::OverLong: return overLongLine(faulty.unbrokenLine > 0 ? faulty.unbrokenLine : line, maxLine);
        case LineFault::NothingBelow: return "no display follows the separator in line " + std::to_string(line);
    }
    return {};
}

std::size_t FoundDisplay::lineOf(std::size_t row) const {
    std::size_t number = line + row;
    for (const PageJoin& join : joins) {
        if (join.row <= row) number += join.leftOut;
    }
    return number;
}

ChunkDisplays::ChunkDisplays(std::string_view chunk, const Splitting& splitting)
    : separator_(splitting.separator),
      isLenient_(splitting.isLenient),
      joined_(splitting.pages ? joinPages(chunk, separator_) : std::string()),
      rest_(splitting.pages ? joined_ : chunk),
      endText_(endTextIn(rest_)),
      longest_(screenWidth),
      containsStrayCarriageReturn_(containsStray(rest_)) {}

std::string_view ChunkDisplays::lineHere() const { return withoutCarriageReturn(rest_.substr(0, rest_.find('\n'))); }

/// Reads the separator above the display, if there is one. Of several in a row the first one with a title counts.
void ChunkDisplays::takeSeparators(FoundDisplay& display) {
    while (!separator_.empty() && !isNamed(display)) {
        const std::size_t content = rest_.find_first_not_of(" \r\n");
        const std::size_t lineEnd = content == std::string_view::npos ? content : rest_.rfind('\n', content);
        const std::string_view below = lineEnd == std::string_view::npos ? rest_ : rest_.substr(lineEnd + 1);
        if (!isSeparator(below, separator_)) return;
        while (rest_.size() > below.size()) takeLine(rest_.find('\n'));
        const std::string_view line = takeLine(rest_.find('\n'));
        if (isUtf8(line)) {
            display.title = trimmed(line.substr(separator_.size()));
        } else {
            display.faulty = {.fault = LineFault::NotUtf8, .line = line_};
        }
    }
}

inline bool ChunkDisplays::isAtNextDisplay(const FoundDisplay& display) const {
    if (display.end == DisplayEnd::None && separator_.empty()) return false;
    const std::string_view line = lineHere();
    return isSeparator(line, separator_) || (display.end != DisplayEnd::None && isContent(line));
}

/// Widens the next line into a row of blanks, and returns the index of its line feed. Returns npos for a line that
/// needs more care: one that is not ASCII, with control characters, far too long, or near the end of the chunk.
std::size_t ChunkDisplays::widenLine(char16_t* row) const {
    for (std::size_t at = 0; at <= screenWidth && rest_.size() - at >= AsciiBlock::size; at += AsciiBlock::size) {
        const AsciiBlock block = AsciiBlock::load(rest_.data() + at);
        block.widen(row + at);
        const unsigned stop = block.outsideText();
        if (stop == 0) continue;
        const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(stop));
        std::fill_n(row + end, AsciiBlock::size, u' ');
        const std::size_t lineFeed = rest_[end] == '\r' && end + 1 < rest_.size() ? end + 1 : end;
        if (rest_[lineFeed] != '\n') break;
        return lineFeed;
    }
    return std::string_view::npos;
}

/// Takes the line that ends at this index; at npos, the last one.
std::string_view ChunkDisplays::takeLine(std::size_t end) {
    const std::string_view line = withoutCarriageReturn(rest_.substr(0, end));
    if (endText_ < line.data()) endText_ = endTextIn(rest_);
    rest_.remove_prefix(std::min(end, rest_.size() - 1) + 1);
    ++line_;
    return line;
}

std::optional<FoundDisplay> ChunkDisplays::next() {
    FoundDisplay display;
    display.line = line_ + 1;
    display.text.reserve(longest_);
    takeSeparators(display);
    display.line = line_ + 1;
    std::size_t length = 0;
    for (std::size_t start = 0; !rest_.empty() && !isAtNextDisplay(display); start += screenWidth) {
        const bool isReady = start + rowSize <= display.text.size() && !containsStrayCarriageReturn_;
        const std::size_t end = isReady ? widenLine(display.text.data() + start) : std::string_view::npos;
        const bool isWidened = end != std::string_view::npos;
        const std::string_view line = takeLine(isWidened ? end : rest_.find('\n'));
        if (!joined_.empty() && line == pageBreakMark) {
            noteJoin(start / screenWidth, display);
            start -= screenWidth;
            continue;
        }
        const std::size_t first = line.find_first_not_of(' ');
        if (first == std::string_view::npos) continue;
        if (line[first] == '*' || line[first] == '>') noteMark(line, start / screenWidth, display);
        if (endText_ < line.data() + line.size()) display.end = DisplayEnd::EndText;
        length = isWidened && line.size() <= screenWidth ? start + line.size() : add(line, start, display);
    }
    if (length == 0) {
        if (!isNamed(display)) return std::nullopt;
        if (display.faulty.fault == LineFault::None) {
            display.faulty = {.fault = LineFault::NothingBelow, .line = display.line - 1};
        }
    }
    longest_ = std::max(longest_, display.text.size());
    display.text.resize(std::min(length, display.text.size()));
    return display;
}

/// Adds any line, the blank ones above it and the rows of some more. Returns the length of the text without these rows.
std::size_t ChunkDisplays::add(std::string_view line, std::size_t start, FoundDisplay& display) const {
    Text& text = display.text;
    if (display.faulty.fault == LineFault::None) display.faulty = look(line);
    if (isLenient_) mend(display);
    if (display.faulty.fault != LineFault::None) return start + 1;
    if (containsControl(line)) display.controlLines.push_back(line_);
    while (text.size() < start) text += blankLines();
    text.resize(start);
    appendUtf16(line, text);
    if (text.size() > start + screenWidth) {
        text.resize(start + screenWidth);
        display.cutLines.push_back(line_);
    }
    const std::size_t length = text.size();
    text += blankLines();
    return length;
}

/// Excuses a line that can be used in part.
void ChunkDisplays::mend(FoundDisplay& display) const {
    const LineFault fault = display.faulty.fault;
    if (fault == LineFault::NotUtf8) display.mendedLines.push_back(line_);
    if (fault == LineFault::NotUtf8 || fault == LineFault::TooLong) display.faulty = {};
}

FaultyLine ChunkDisplays::look(std::string_view line) const {
    FaultyLine faulty{.line = line_};
    if (line.starts_with(leftOutMark)) {
        faulty.fault = LineFault::OverLong;
        line.remove_prefix(leftOutMark.size());
        std::from_chars(line.data(), line.data() + line.size(), faulty.unbrokenLine);
    } else if (looksLikeUtf16(line)) {
        faulty.fault = LineFault::Utf16;
    } else if (!isUtf8(line)) {
        faulty.fault = LineFault::NotUtf8;
    } else if (line.find('\r') != std::string_view::npos) {
        faulty.fault = LineFault::StrayCarriageReturn;
    } else if (line.size() > screenWidth && utf16Length(line) > screenWidth) {
        faulty.fault = LineFault::TooLong;
        faulty.length = utf16Length(line);
    }
    return faulty;
}

DisplayStream::DisplayStream(const std::string& file, std::size_t maxLine, Encoding encoding, Splitting splitting)
    : chunks_(openInput(file, encoding), ChunkReader::defaultBlock, maxLine, splitting),
      maxLine_(maxLine),
      splitting_(std::move(splitting)) {}

std::optional<StreamedDisplay> DisplayStream::next() {
    while (true) {
        if (displays_) {
            if (std::optional<FoundDisplay> found = displays_->next()) {
                std::string problem = describe(found->faulty, linesAbove_, maxLine_);
                return StreamedDisplay{std::move(*found), linesAbove_, std::move(problem)};
            }
            linesAbove_ += displays_->lines();
            displays_.reset();
        }
        std::optional<std::string> chunk = chunks_.next();
        if (!chunk) return std::nullopt;
        chunk_ = std::move(*chunk);
        displays_.emplace(chunk_, splitting_);
    }
}

}  // namespace vantro
