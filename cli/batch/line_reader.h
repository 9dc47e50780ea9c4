// Lines of a stream, one at a time, in memory bounded by the longest line allowed.
#pragma once

#include "cli/io/input_files.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vantro {

class LineReader {
public:
    static constexpr std::size_t defaultBlock = std::size_t{256} * 1024;

    explicit LineReader(ByteSource source, std::size_t maxLine = defaultMaxLine, std::size_t block = defaultBlock);

    /// The next line without its line end, or nothing at the end of the stream. The line and the byte after it may be
    /// changed until the next call, and `jsonPadding` bytes after it may be read. The last line may lack its line end;
    /// a byte order mark at the start of the stream is not part of a line. A line of more than `maxLine` bytes is
    /// returned empty.
    std::optional<std::span<char>> next();

    /// True when the last line returned had more than `maxLine` bytes.
    bool wasTooLong() const { return tooLong_; }

    /// True when the whole next line has been read already, so that `next` would not wait for input.
    bool isNextHere();

private:
    void readMore();
    void leaveOutTooLong();
    std::span<char> takeUpTo(std::size_t lineEnd);

    ByteSource source_;
    std::size_t maxLine_;
    std::size_t block_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;    // first byte not returned yet
    std::size_t scanned_ = 0;  // there is no line end between begin_ and here
    std::size_t end_ = 0;      // one past the last byte read
    bool atStart_ = true;
    bool tooLong_ = false;
    bool sourceEnded_ = false;
};

}  // namespace vantro
