#include "cli/io/chunk_reader.h"

#include "cli/io/display_lines.h"
#include "cli/io/screen_input.h"

#include <exception>
#include <span>
#include <utility>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The start of the text's last display, or of the separator above it, when another one precedes it; 0 when there is
/// none. The text's last line may be incomplete: its beginning is enough to see that a display begins there.
std::size_t lastDisplayStart(std::string_view text, const Splitting& splitting) {
    std::size_t start = 0;
    for (std::size_t end = text.size(); end > 0;) {
        const std::size_t lineEnd = text.substr(0, end).rfind('\n');
        const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
        const std::string_view line = withoutCarriageReturn(text.substr(lineStart, end - lineStart));
        if (isSeparator(line, splitting.separator)) return lineStart;
        const bool isEnd = containsEndText(line) || (!splitting.pages && isPrompt(line));
        if (start != 0 && isEnd) return start;
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
        unbroken_ = (lineEnd == std::string::npos || lineEnd + 1 == block.size()) &&
                    findStrayCarriageReturn(block) == std::string_view::npos;
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
        std::size_t count = 0;
        try {
            count = source_(block.subspan(length));
        } catch (...) {
            failure_ = std::current_exception();
        }
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

/// The chunk without what follows its last whole display.
std::string ChunkReader::wholeDisplaysOf(std::string chunk) const {
    chunk.resize(chunk.rfind('\n') + 1);  // npos + 1 is 0
    constexpr char content = '.';         // begins a display if the one above has ended
    chunk.resize(lastDisplayStart(chunk + content, splitting_));
    return chunk;
}

std::optional<std::string> ChunkReader::next() {
    std::string chunk = std::exchange(rest_, {});
    bool hasMore = !lines_.failure();
    while (hasMore) {
        // A long display is searched again only when the chunk has doubled.
        const std::size_t enough = 2 * chunk.size();
        do {
            hasMore = lines_.readInto(chunk);
        } while (hasMore && chunk.size() < enough);
        const std::size_t cut = hasMore ? lastDisplayStart(chunk, splitting_) : 0;
        if (cut == 0) continue;
        rest_ = chunk.substr(cut);
        chunk.resize(cut);
        return chunk;
    }
    if (lines_.failure()) {
        chunk = wholeDisplaysOf(std::move(chunk));
        if (chunk.empty()) std::rethrow_exception(lines_.failure());
        return chunk;
    }
    chunk.resize(withoutEndOfFileMark(chunk).size());
    if (chunk.empty()) return std::nullopt;
    return chunk;
}

}  // namespace vantro
