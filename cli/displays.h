// Profile displays as people and files keep them: one or many in a text, cut apart again.
//
// A display ends with the line that holds "END OF DISPLAY" or with a line of the prompt ">" alone. Blank lines
// and prompts that follow it belong to the display above; the next other line begins a new one. What stands
// behind the last end is a display too, one without an end.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Fills the bytes as far as there is something to read and gives their number; 0 at the end.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// Breaks a text of lines without line ends (UTF-8, 80 characters a line) into lines. A text whose first block
/// holds a line end before its very end goes through unchanged. A byte order mark is left out.
class LineBreaker {
public:
    LineBreaker(ByteSource source, std::size_t block) : source_(std::move(source)), block_(block) {}

    /// Appends a block of text; false at the end of the source.
    bool readInto(std::string& text);

private:
    void readBlock(std::string& text);
    void appendBroken(std::string_view bytes, std::string& text);

    ByteSource source_;
    std::size_t block_;
    bool hasMore_ = true;
    std::size_t column_ = 0;  // characters in the line that is being made
    bool atStart_ = true;
    bool unbroken_ = false;
};

/// Reads a text in chunks of whole displays, each about a block long unless one display is longer. This is
/// the part of the work that cannot be shared, so it looks at no more lines than it must.
class ChunkReader {
public:
    static constexpr std::size_t defaultBlock = std::size_t{256} * 1024;

    explicit ChunkReader(ByteSource source, std::size_t block = defaultBlock) : lines_(std::move(source), block) {}

    /// The next chunk, or nothing at the end of the source.
    std::optional<std::string> next();

private:
    LineBreaker lines_;
    std::string rest_;  // what follows the last chunk
};

/// What can be wrong with a line.
enum class LineFault { None, TooLong, NotUtf8 };

/// One display of a chunk. It has no text to go by when one of its lines is faulty.
struct FoundDisplay {
    Text text;  ///< every line but the last padded with blanks to 80 characters
    LineFault fault = LineFault::None;
    std::size_t faultyLine = 0;    ///< counted from 1 in the chunk
    std::size_t faultyLength = 0;  ///< in characters
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

    std::string_view rest_;
    std::size_t line_ = 0;
    bool isUtf8_;
};

}  // namespace vantro
