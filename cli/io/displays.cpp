#include "cli/io/displays.h"

#include "cli/io/ascii.h"
#include "cli/io/screen_input.h"
#include "cli/io/utf.h"

#include <bit>
#include <charconv>
#include <utility>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view endText = "END OF DISPLAY";
constexpr char prompt = '>';

// Replaces a line that was left out; in an unbroken text the line's number follows. No valid line begins with it, as it
// is not UTF-8.
constexpr std::string_view leftOutMark = "\xFF(left out)";

std::string_view withoutCarriageReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool containsStray(std::string_view text) { return findStrayCarriageReturn(text) != std::string_view::npos; }

bool isBlank(std::string_view line) { return line.find_first_not_of(' ') == std::string_view::npos; }
bool isPrompt(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == prompt && isBlank(line.substr(first + 1));
}

/// True for a line that can begin a display after another one.
bool isContent(std::string_view line) { return !isBlank(line) && !isPrompt(line); }

// The first end text, or the end of the text. The last letter is searched for: it is the rarest in a profile.
const char* endTextIn(std::string_view text) {
    constexpr std::size_t before = endText.size() - 1;
    for (std::size_t last = text.find(endText.back(), before); last != std::string_view::npos;
         last = text.find(endText.back(), last + 1)) {
        if (text.substr(last - before, endText.size()) == endText) return text.data() + last - before;
    }
    return text.data() + text.size();
}

bool isEnd(std::string_view line) { return isPrompt(line) || endTextIn(line) != line.data() + line.size(); }

/// A line and the blocks of characters that may end after it.
constexpr std::size_t rowSize = screenWidth + 2 * AsciiBlock::size;

/// Several lines: a display is made of blanks first, a few lines at a time.
const Text& blankLines() {
    static const Text lines(25 * screenWidth, u' ');
    return lines;
}

/// The start of the text's last display when another one precedes it; 0 when there is none. The text's last line may
/// be incomplete: its beginning is enough to see that a display begins there.
std::size_t lastDisplayStart(std::string_view text) {
    std::size_t start = 0;
    for (std::size_t end = text.size(); end > 0;) {
        const std::size_t lineEnd = text.substr(0, end).rfind('\n');
        const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
        const std::string_view line = withoutCarriageReturn(text.substr(lineStart, end - lineStart));
        if (start != 0 && isEnd(line)) return start;
        if (isContent(line)) start = lineStart;
        if (lineStart == 0) break;
        end = lineEnd;
    }
    return 0;
}

}  // namespace

bool LineBreaker::readInto(std::string& text) {
    const std::size_t before = text.size();
    readBlock(text);
    if (std::exchange(atStart_, false)) {
        if (std::string_view(text).substr(before).starts_with(byteOrderMark)) text.erase(before, byteOrderMark.size());
        const std::string_view block = std::string_view(text).substr(before);
        const std::size_t lineEnd = block.find('\n');
        unbroken_ = (lineEnd == std::string::npos || lineEnd + 1 == block.size()) && !containsStray(block);
    }
    if (unbroken_) {
        const std::string block = text.substr(before);
        text.resize(before);
        appendBroken(block, text);
    } else {
        leaveOutLongLine(text, before);
    }
    return hasMore_;
}

/// Checks the first line of the block that begins at `before`; the line may have begun in earlier blocks.
void LineBreaker::leaveOutLongLine(std::string& text, std::size_t before) {
    const std::size_t lineEnd = text.find('\n', before);
    const std::size_t partEnd = std::min(lineEnd, text.size());
    lineLength_ += partEnd - before;
    if (leavesOut_) {
        text.erase(before, partEnd - before);
    } else if (lineLength_ > maxLine_) {
        const std::size_t start = before == 0 ? 0 : text.rfind('\n', before - 1) + 1;
        text.replace(start, partEnd - start, leftOutMark);
        leavesOut_ = true;
    }
    if (lineEnd == std::string::npos) return;
    leavesOut_ = false;
    lineLength_ = text.size() - (text.rfind('\n') + 1);
}

/// Appends the next bytes of the source, at most one block.
void LineBreaker::readBlock(std::string& text) {
    const std::size_t before = text.size();
    text.resize(before + block_);
    const std::span<char> block = std::span(text).subspan(before);
    std::size_t length = 0;
    while (hasMore_ && length < block.size()) {
        const std::size_t count = source_(block.subspan(length));
        length += count;
        hasMore_ = count > 0;
    }
    text.resize(before + length);
}

void LineBreaker::appendBroken(std::string_view bytes, std::string& text) {
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const bool beginsCharacter = (value & 0xC0U) != 0x80U;
        if (byte == '\n') {
            column_ = 0;
            lineLength_ = 0;
            leavesOut_ = false;
            ++line_;
        } else if (!fits(text)) {
            continue;
        } else if (beginsCharacter && byte != '\r') {
            if (column_ >= screenWidth) {
                text += '\n';
                column_ -= screenWidth;
            }
            column_ += value >= 0xF0 ? 2 : 1;  // a character beyond U+FFFF is two code units
        }
        text += byte;
    }
}

/// Counts one more byte of an unbroken line. For a line that is too long, the mark follows what was read of it.
bool LineBreaker::fits(std::string& text) {
    if (++lineLength_ <= maxLine_) return true;
    if (!std::exchange(leavesOut_, true)) {
        text += '\n';
        text += leftOutMark;
        text += std::to_string(line_);
    }
    return false;
}

std::optional<std::string> ChunkReader::next() {
    std::string chunk = std::exchange(rest_, {});
    bool hasMore = true;
    while (hasMore) {
        // A long display is searched again only when the chunk has doubled.
        const std::size_t enough = 2 * chunk.size();
        do {
            hasMore = lines_.readInto(chunk);
        } while (hasMore && chunk.size() < enough);
        const std::size_t cut = hasMore ? lastDisplayStart(chunk) : 0;
        if (cut == 0) continue;
        rest_ = chunk.substr(cut);
        chunk.resize(cut);
        return chunk;
    }
    if (chunk.empty()) return std::nullopt;
    return chunk;
}

std::string describe(const FaultyLine& faulty, std::size_t linesAbove, std::size_t maxLine) {
    const std::size_t line = linesAbove + faulty.line;
    switch (faulty.fault) {
        case LineFault::None: break;
        case LineFault::TooLong: return tooLongLine(line, faulty.length);
        case LineFault::NotUtf8: return "line " + std::to_string(line) + " is not UTF-8";
        case LineFault::StrayCarriageReturn: return strayCarriageReturn("line " + std::to_string(line));
        case LineFault::OverLong: return overLongLine(faulty.unbrokenLine > 0 ? faulty.unbrokenLine : line, maxLine);
    }
    return {};
}

ChunkDisplays::ChunkDisplays(std::string_view chunk)
    : rest_(chunk), endText_(endTextIn(chunk)), containsStrayCarriageReturn_(containsStray(chunk)) {}

std::string_view ChunkDisplays::lineHere() const { return withoutCarriageReturn(rest_.substr(0, rest_.find('\n'))); }

/// Widens the next line into a row of blanks, and returns the index of its line feed. Returns npos for a line that
/// needs more care: one that is not ASCII, far too long, or near the end of the chunk.
std::size_t ChunkDisplays::widenLine(char16_t* row) const {
    for (std::size_t at = 0; at <= screenWidth && rest_.size() - at >= AsciiBlock::size; at += AsciiBlock::size) {
        const AsciiBlock block = AsciiBlock::load(rest_.data() + at);
        block.widen(row + at);
        const unsigned stop = block.equal('\n') | block.beyondAscii();
        if (stop == 0) continue;
        const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(stop));
        if (rest_[end] != '\n') break;
        std::fill_n(row + end, AsciiBlock::size, u' ');
        if (end > 0 && rest_[end - 1] == '\r') row[end - 1] = u' ';
        return end;
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
    std::size_t length = 0;
    bool hasEnded = false;
    for (std::size_t start = 0; !rest_.empty(); start += screenWidth) {
        if (hasEnded && isContent(lineHere())) break;
        const bool isReady = start + rowSize <= display.text.size() && !containsStrayCarriageReturn_;
        const std::size_t end = isReady ? widenLine(display.text.data() + start) : std::string_view::npos;
        const bool isWidened = end != std::string_view::npos;
        const std::string_view line = takeLine(isWidened ? end : rest_.find('\n'));
        if (isBlank(line)) continue;
        hasEnded = hasEnded || endText_ < line.data() + line.size() || isPrompt(line);
        length = isWidened && line.size() <= screenWidth ? start + line.size() : add(line, start, display);
    }
    if (length == 0) return std::nullopt;
    longest_ = std::max(longest_, display.text.size());
    display.text.resize(std::min(length, display.text.size()));
    return display;
}

/// Adds any line, the blank ones above it and the rows of some more. Returns the length of the text without these rows.
std::size_t ChunkDisplays::add(std::string_view line, std::size_t start, FoundDisplay& display) const {
    Text& text = display.text;
    if (display.faulty.fault == LineFault::None) display.faulty = look(line);
    if (display.faulty.fault != LineFault::None) return start + 1;
    while (text.size() < start) text += blankLines();
    text.resize(start);
    appendUtf16(line, text);
    const std::size_t length = text.size();
    text += blankLines();
    return length;
}

FaultyLine ChunkDisplays::look(std::string_view line) const {
    FaultyLine faulty{.line = line_};
    if (line.starts_with(leftOutMark)) {
        faulty.fault = LineFault::OverLong;
        line.remove_prefix(leftOutMark.size());
        std::from_chars(line.data(), line.data() + line.size(), faulty.unbrokenLine);
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

DisplayStream::DisplayStream(const std::string& file, std::size_t maxLine, Encoding encoding)
    : chunks_(openInput(file, encoding), ChunkReader::defaultBlock, maxLine), maxLine_(maxLine) {}

std::optional<StreamedDisplay> DisplayStream::next() {
    while (true) {
        if (displays_) {
            if (std::optional<FoundDisplay> found = displays_->next()) {
                return StreamedDisplay{std::move(found->text), describe(found->faulty, linesAbove_, maxLine_)};
            }
            linesAbove_ += displays_->lines();
            displays_.reset();
        }
        std::optional<std::string> chunk = chunks_.next();
        if (!chunk) return std::nullopt;
        chunk_ = std::move(*chunk);
        displays_.emplace(chunk_);
    }
}

}  // namespace vantro
