// Reads a text in chunks of whole displays.
#pragma once

#include "cli/io/input_files.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vantro {

/// Where displays begin and end, and what is done with lines that no screen can contain.
struct Splitting {
    bool pages = false;          ///< a prompt ends a page of a display instead of the display, see `joinPages`
    std::string separator = {};  ///< unless empty: a line that begins with it begins a display and is not part of it
    bool isLenient = false;  ///< long lines are cut and bytes that are not UTF-8 replaced; both are faults otherwise
};

/// Breaks an unbroken text (UTF-8, 80 characters per line, no line ends) into lines. A text whose first block contains
/// a line end before its last byte is passed on unchanged. A byte order mark is dropped. A line of more than `maxLine`
/// bytes of input is replaced by a mark that is not UTF-8.
class LineBreaker {
public:
    // A block is no longer than the longest line, so a line that is too long never fits into one block.
    LineBreaker(ByteSource source, std::size_t block, std::size_t maxLine)
        : source_(std::move(source)), block_(std::min(block, maxLine)), maxLine_(maxLine) {}

    /// Appends a block of text; false at the end of the source, and when reading it has failed.
    bool readInto(std::string& text);

    /// Why reading has failed, or null.
    const std::exception_ptr& failure() const { return failure_; }

private:
    void readBlock(std::string& text);
    void leaveOutLongLine(std::string& text, std::size_t before);
    void appendBroken(std::string_view bytes, std::string& text);
    bool fits(std::string& text);

    ByteSource source_;
    std::size_t block_;
    std::size_t maxLine_;
    bool hasMore_ = true;
    std::exception_ptr failure_;
    std::size_t lineLength_ = 0;  // bytes read of the last line
    bool leavesOut_ = false;      // the rest of that line
    bool atStart_ = true;
    bool unbroken_ = false;
    std::size_t column_ = 0;  // in an unbroken text: characters in the current output line
    std::size_t line_ = 1;    // in an unbroken text: the number of the input line
};

/// Reads a text in chunks of whole displays, each about one block long unless a display is longer. This part of the
/// work is not shared among threads, so it looks at as few lines as possible.
class ChunkReader {
public:
    static constexpr std::size_t defaultBlock = std::size_t{256} * 1024;

    explicit ChunkReader(ByteSource source, std::size_t block = defaultBlock, std::size_t maxLine = defaultMaxLine,
                         Splitting splitting = {})
        : lines_(std::move(source), block, maxLine), splitting_(std::move(splitting)) {}

    /// The next chunk, or nothing at the end of the source. What the source throws is thrown after the last whole
    /// display before it.
    std::optional<std::string> next();

private:
    std::string wholeDisplaysOf(std::string chunk) const;

    LineBreaker lines_;
    Splitting splitting_;
    std::string rest_;  // the text after the last chunk
};

/// Replaces a line that was left out; in an unbroken text the line's number follows. No valid line begins with it, as
/// it is not UTF-8.
inline constexpr std::string_view leftOutMark = "\xFF(left out)";

}  // namespace vantro
