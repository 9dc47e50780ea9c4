// Splits a text into the profile displays in it.
//
// A display ends with the line that contains "END OF DISPLAY" or with a line of the prompt ">" alone. Blank lines and
// prompts after it belong to the same display; the next other line begins a new one. Lines after the last end are a
// display too, one without an end.
#pragma once

#include "cli/io/input_files.h"
#include "vantro/text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantro {

/// Breaks an unbroken text (UTF-8, 80 characters per line, no line ends) into lines. A text whose first block contains
/// a line end before its last byte is passed on unchanged. A byte order mark is dropped. A line of more than `maxLine`
/// bytes of input is replaced by a mark that is not UTF-8.
class LineBreaker {
public:
    // A block is no longer than the longest line, so a line that is too long never fits into one block.
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

    explicit ChunkReader(ByteSource source, std::size_t block = defaultBlock, std::size_t maxLine = defaultMaxLine)
        : lines_(std::move(source), block, maxLine) {}

    /// The next chunk, or nothing at the end of the source.
    std::optional<std::string> next();

private:
    LineBreaker lines_;
    std::string rest_;  // the text after the last chunk
};

/// The ways in which a line can be unusable.
enum class LineFault { None, TooLong, NotUtf8, StrayCarriageReturn, OverLong };

/// The first unusable line of a display.
struct FaultyLine {
    LineFault fault = LineFault::None;
    std::size_t line = 0;          ///< counted from 1 in the chunk
    std::size_t unbrokenLine = 0;  ///< counted from 1 in an unbroken text; 0 unless a line was left out of one
    std::size_t length = 0;        ///< in characters
};

/// Describes the fault for a message; `linesAbove` is the number of lines before the chunk.
std::string describe(const FaultyLine& faulty, std::size_t linesAbove, std::size_t maxLine);

/// One display of a chunk. Its text is incomplete when one of its lines is faulty.
struct FoundDisplay {
    Text text;  ///< every line but the last padded with blanks to 80 characters
    FaultyLine faulty;
    std::size_t line = 0;    ///< its first line, counted from 1 in the chunk
    std::string title = {};  ///< the line above it that separates it from the display before
};

/// Splits a chunk into its displays.
class ChunkDisplays {
public:
    explicit ChunkDisplays(std::string_view chunk);

    /// The next display, or nothing when only blank lines remain.
    std::optional<FoundDisplay> next();

    /// The number of lines read so far.
    std::size_t lines() const { return line_; }

private:
    std::string_view lineHere() const;
    std::size_t widenLine(char16_t* row) const;
    std::string_view takeLine(std::size_t end);
    std::size_t add(std::string_view line, std::size_t start, FoundDisplay& display) const;
    FaultyLine look(std::string_view line) const;

    std::string_view rest_;
    std::size_t line_ = 0;
    const char* endText_;      // the first end text that was not read yet, or the end of the chunk
    std::size_t longest_ = 0;  // text so far, so that few texts grow
    bool containsStrayCarriageReturn_;
};

struct StreamedDisplay {
    Text text;
    std::string problem;  ///< why the display cannot be read; empty when it can
};

/// The displays of a file, one after the other, in memory bounded by the longest display and the longest line allowed.
class DisplayStream {
public:
    /// The file's name in UTF-8, or "" and "-" for standard input. Raises UsageError for a file that cannot be opened.
    DisplayStream(const std::string& file, std::size_t maxLine, Encoding encoding = Encoding::ByMark);

    /// The next display, or nothing at the end. Raises StreamError.
    std::optional<StreamedDisplay> next();

private:
    ChunkReader chunks_;
    std::size_t maxLine_;
    std::string chunk_;
    std::optional<ChunkDisplays> displays_;  // of the chunk
    std::size_t linesAbove_ = 0;             // lines before the chunk
};

}  // namespace vantro
