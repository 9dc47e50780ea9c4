#include "cli/displays.h"

#include "cli/screen_input.h"
#include "cli/utf.h"

#include <utility>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view endText = "END OF DISPLAY";
constexpr char prompt = '>';

std::string_view withoutCarriageReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool isBlank(std::string_view line) { return line.find_first_not_of(' ') == std::string_view::npos; }
bool isPrompt(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == prompt && isBlank(line.substr(first + 1));
}

/// True for a line that can begin a display behind another one.
bool isContent(std::string_view line) { return !isBlank(line) && !isPrompt(line); }

// The last letter of the end text is its rarest on a profile.
bool holdsEndText(std::string_view line) {
    constexpr std::size_t before = endText.size() - 1;
    for (std::size_t last = line.find(endText.back(), before); last != std::string_view::npos;
         last = line.find(endText.back(), last + 1)) {
        if (line.substr(last - before, endText.size()) == endText) return true;
    }
    return false;
}

bool isEnd(std::string_view line) { return isPrompt(line) || holdsEndText(line); }

/// Where the last display of a text begins that has another one above it; 0 when there is none. The text's last
/// line may be broken off: what stands there already decides only that a display begins.
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
        const std::size_t lineEnd = text.find('\n', before);
        unbroken_ = lineEnd == std::string::npos || lineEnd + 1 == text.size();
    }
    if (unbroken_) {
        const std::string block = text.substr(before);
        text.resize(before);
        appendBroken(block, text);
    }
    return hasMore_;
}

/// Appends what the source gives, a block at the most.
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
        } else if (beginsCharacter && byte != '\r') {
            if (column_ >= screenWidth) {
                text += '\n';
                column_ -= screenWidth;
            }
            column_ += value >= 0xF0 ? 2 : 1;  // a character beyond U+FFFF takes two places
        }
        text += byte;
    }
}

std::optional<std::string> ChunkReader::next() {
    std::string chunk = std::exchange(rest_, {});
    bool hasMore = true;
    while (hasMore) {
        // A display that goes on and on is looked at again only when as much again has come.
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

ChunkDisplays::ChunkDisplays(std::string_view chunk) : rest_(chunk), isUtf8_(isUtf8(chunk)) {}

std::string_view ChunkDisplays::lineHere() const { return withoutCarriageReturn(rest_.substr(0, rest_.find('\n'))); }

std::string_view ChunkDisplays::takeLine() {
    const std::size_t end = rest_.find('\n');
    const std::string_view line = withoutCarriageReturn(rest_.substr(0, end));
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    ++line_;
    return line;
}

std::optional<FoundDisplay> ChunkDisplays::next() {
    FoundDisplay display;
    bool holdsAnything = false;
    bool hasEnded = false;
    for (std::size_t place = 0; !rest_.empty(); ++place) {
        if (hasEnded && isContent(lineHere())) break;
        const std::string_view line = takeLine();
        if (isBlank(line)) continue;
        holdsAnything = true;
        hasEnded = hasEnded || isEnd(line);
        add(line, place, display);
    }
    if (!holdsAnything) return std::nullopt;
    return display;
}

// Blank lines come to stand in the text with the line below them, so that a last line stays as it is.
void ChunkDisplays::add(std::string_view line, std::size_t place, FoundDisplay& display) const {
    if (display.fault != LineFault::None) return;
    const std::size_t start = place * screenWidth;
    display.text.resize(start, u' ');
    appendUtf16(line, display.text);
    const std::size_t length = display.text.size() - start;
    if (!isUtf8_ && !isUtf8(line)) {
        display.fault = LineFault::NotUtf8;
    } else if (length > screenWidth) {
        display.fault = LineFault::TooLong;
    }
    if (display.fault == LineFault::None) return;
    display.faultyLine = line_;
    display.faultyLength = length;
}

}  // namespace vantro
