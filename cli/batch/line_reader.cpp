#include "cli/batch/line_reader.h"

#include "cli/json/input.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

LineReader::LineReader(ByteSource source, std::size_t maxLine, std::size_t block)
    : source_(std::move(source)), maxLine_(maxLine), block_(block), buffer_(block + jsonPadding) {}

bool LineReader::isNextHere() {
    const void* const lineEnd = std::memchr(buffer_.data() + scanned_, '\n', end_ - scanned_);
    scanned_ = lineEnd == nullptr ? end_ : static_cast<std::size_t>(static_cast<const char*>(lineEnd) - buffer_.data());
    return lineEnd != nullptr;
}

std::optional<std::span<char>> LineReader::next() {
    tooLong_ = false;
    while (!isNextHere() && !sourceEnded_) {
        leaveOutTooLong();
        readMore();
    }
    const bool isLast = scanned_ == end_;
    if (isLast && begin_ == end_ && !tooLong_) return std::nullopt;
    const std::span<char> line = takeUpTo(scanned_);
    tooLong_ = tooLong_ || line.size() > maxLine_;
    if (tooLong_) return line.first(0);
    // A stream of a byte order mark alone contains no line.
    if (isLast && line.empty()) return std::nullopt;
    return line;
}

// Drops what has been read of a line that is too long.
void LineReader::leaveOutTooLong() {
    if (end_ - begin_ <= maxLine_) return;
    tooLong_ = true;
    begin_ = scanned_ = end_;
}

std::span<char> LineReader::takeUpTo(std::size_t lineEnd) {
    std::span<char> line(buffer_.data() + begin_, lineEnd - begin_);
    begin_ = scanned_ = std::min(lineEnd + 1, end_);
    if (std::string_view(line.data(), line.size()).starts_with(byteOrderMark) && atStart_) {
        line = line.subspan(byteOrderMark.size());
    }
    atStart_ = false;
    return line;
}

// The rest of the last block moves to the front. The buffer grows when one line fills it, up to the longest line
// allowed and a block.
void LineReader::readMore() {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    scanned_ -= begin_;
    end_ -= begin_;
    begin_ = 0;
    const auto room = [this] { return buffer_.size() - jsonPadding - end_; };
    if (room() < (block_ + 1) / 2) buffer_.resize(std::min(buffer_.size() * 2, maxLine_ + block_ + jsonPadding));
    const std::size_t count = source_({buffer_.data() + end_, room()});
    sourceEnded_ = count == 0;
    end_ += count;
}

}  // namespace vantro
