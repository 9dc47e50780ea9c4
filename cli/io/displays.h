// Profile displays as people and files keep them: one or many in a text, cut apart again.
//
// A display ends with the line that holds "END OF DISPLAY" or with a line of the prompt ">" alone. Blank lines
// and prompts that follow it belong to the display above; the next other line begins a new one. What stands
// behind the last end is a display too, one without an end.
#pragma once

#include "cli/io/input_files.h"
#include "vantro/text.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Breaks a text of lines without line ends (UTF-8, 80 characters a line) into lines. A text whose first block
/// holds a line end before its very end goes through unchanged. A byte order mark is left out. In the place of a line
/// of more than `maxLine` bytes, as it was read, stands a mark that is no UTF-8.
class LineBreaker {
public:
    // In blocks no longer than the longest line, a line that is too long is never inside one block.
    LineBreaker(ByteSource source, std::size_t block, std::size_t maxLine)
        : source_(std::move(source)), block_(std::min(block, maxLine)), maxLine_(maxLine) {}

    /// Appends a block of text; false at the end of the source.
    bool readInto(std::string& text);

private:
    void readBlock(std::string& text);
    void leaveOutLongLine(std::string& text, std::size_t before);
    void appendBroken(std::string_view bytes, std::string& text);
    bool fits(std::string& text);

    ByteSource source_;
    std::size_t block_;
    std::size_t maxLine_;
    bool hasMore_ = true;
    std::size_t lineLength_ = 0;  // bytes read of the last line
    bool leavesOut_ = false;      // what is left of that line
    bool atStart_ = true;
    bool unbroken_ = false;
    std::size_t column_ = 0;  // in an unbroken text: characters in the line that is being made
    std::size_t line_ = 1;    // the same: the number of the line that is being broken
};

/// Reads a text in chunks of whole displays, each about a block long unless one display is longer. This is
/// the part of the work that cannot be shared, so it looks at no more lines than it must.
class ChunkReader {
public:
    static constexpr std::size_t defaultBlock = std::size_t{256} * 1024;

    explicit ChunkReader(ByteSource source, std::size_t block = defaultBlock, std::size_t maxLine = defaultMaxLine)
        : lines_(std::move(source), block, maxLine) {}

    /// The next chunk, or nothing at the end of the source.
    std::optional<std::string> next();

private:
    LineBreaker lines_;
    std::string rest_;  // what follows the last chunk
};

/// What can be wrong with a line.
enum class LineFault { None, TooLong, NotUtf8, StrayCarriageReturn, OverLong };

/// The first line of a display with which something is wrong.
struct FaultyLine {
    LineFault fault = LineFault::None;
    std::size_t line = 0;          ///< counted from 1 in the chunk
    std::size_t unbrokenLine = 0;  ///< counted from 1 in an unbroken text, for a line that was left out of it
    std::size_t length = 0;        ///< in characters
};

/// What is wrong with the line, in words, when so many lines stand above the chunk.
std::string describe(const FaultyLine& faulty, std::size_t linesAbove, std::size_t maxLine);

/// One display of a chunk. It has no text to go by when one of its lines is faulty.
struct FoundDisplay {
    Text text;  ///< every line but the last padded with blanks to 80 characters
    FaultyLine faulty;
};

/// Takes a chunk apart.
class ChunkDisplays {
public:
    explicit ChunkDisplays(std::string_view chunk);

    /// The next display, or nothing when only blank lines are left.
    std::optional<FoundDisplay> next();

    /// The lines taken so far.
    std::size_t lines() const { return line_; }

private:
    std::string_view lineHere() const;
    std::string_view takeLine();
    void add(std::string_view line, std::size_t place, FoundDisplay& display) const;
    FaultyLine look(std::string_view line) const;

    std::string_view rest_;
    std::size_t line_ = 0;
    bool isUtf8_;
    bool containsStrayCarriageReturn_;
};

struct StreamedDisplay {
    Text text;
    std::string problem;  ///< why the display cannot be read, in words; empty for one that can
};

/// Reads in memory bounded by the longest display and the longest line that is let in.
class DisplayStream {
public:
    /// The file's name in UTF-8, or "" and "-" for standard input. Raises UsageError for a file that cannot be opened.
    DisplayStream(const std::string& file, std::size_t maxLine);

    /// The next display, or nothing at the end. Raises StreamError.
    std::optional<StreamedDisplay> next();

private:
    ChunkReader chunks_;
    std::size_t maxLine_;
    std::string chunk_;
    std::optional<ChunkDisplays> displays_;  // of the chunk
    std::size_t linesAbove_ = 0;             // the chunk
};

}  // namespace vantro
