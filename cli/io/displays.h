// Splits a text into the profile displays in it.
//
// A display ends with the line that contains "END OF DISPLAY" or with a line of the prompt ">" alone. Blank lines and
// prompts after it belong to the same display; the next other line begins a new one. Lines after the last end are a
// display too, one without an end. `Splitting` changes this.
#pragma once

#include "cli/io/chunk_reader.h"
#include "vantro/text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro {

/// The ways in which a line can be unusable.
enum class LineFault { None, TooLong, NotUtf8, Utf16, StrayCarriageReturn, OverLong, NothingBelow };

/// The first unusable line of a display.
struct FaultyLine {
    LineFault fault = LineFault::None;
    std::size_t line = 0;          ///< counted from 1 in the chunk
    std::size_t unbrokenLine = 0;  ///< counted from 1 in an unbroken text; 0 unless a line was left out of one
    std::size_t length = 0;        ///< in characters
};

/// Describes the fault for a message; `linesAbove` is the number of lines before the chunk.
std::string describe(const FaultyLine& faulty, std::size_t linesAbove, std::size_t maxLine);

/// The lines that were left out between two pages.
struct PageJoin {
    std::size_t row;      ///< the first line of the second page, from 0 in the display
    std::size_t leftOut;  ///< the number of lines left out
};

enum class DisplayEnd { None, Prompt, EndText };

/// One display of a chunk. Its text is incomplete when one of its lines is faulty.
struct FoundDisplay {
    Text text;             ///< every line but the last padded with blanks to 80 characters
    std::size_t line = 0;  ///< its first line, counted from 1 in the chunk
    std::string title;     ///< the separator line's text after the separator, trimmed, in UTF-8
    FaultyLine faulty;
    DisplayEnd end = DisplayEnd::None;
    std::vector<std::size_t> markRows;      ///< lines that begin with "*" or ">", from 0: marks, prompts, echoes
    std::vector<std::size_t> controlLines;  ///< lines with control characters, counted from 1 in the chunk
    std::vector<std::size_t> cutLines;      ///< lines over 80 characters, in the same way; if they are cut
    std::vector<std::size_t> mendedLines;   ///< lines with bytes that are not UTF-8; if they are replaced
    std::vector<PageJoin> joins;            ///< in the order of their rows

    /// The number in the chunk, from 1, of a line of the text, from 0.
    std::size_t lineOf(std::size_t row) const;
};

/// Splits a chunk into its displays.
class ChunkDisplays {
public:
    explicit ChunkDisplays(std::string_view chunk, const Splitting& splitting = {});
    ChunkDisplays(const ChunkDisplays&) = delete;
    ChunkDisplays& operator=(const ChunkDisplays&) = delete;

    /// The next display, or nothing when only blank lines remain. A display has memory of its own, however short it is:
    /// views of it remain valid when it is moved.
    std::optional<FoundDisplay> next();

    /// The number of lines read so far.
    std::size_t lines() const { return line_; }

private:
    std::string_view lineHere() const;
    void takeSeparators(FoundDisplay& display);
    bool isAtNextDisplay(const FoundDisplay& display) const;
    std::size_t widenLine(char16_t* row) const;
    std::string_view takeLine(std::size_t end);
    std::size_t add(std::string_view line, std::size_t start, FoundDisplay& display) const;
    void mend(FoundDisplay& display) const;
    FaultyLine look(std::string_view line) const;

    std::string separator_;
    bool isLenient_;
    std::string joined_;  // the chunk with joined pages
    std::string_view rest_;
    std::size_t line_ = 0;
    const char* endText_;  // the first end text that was not read yet, or the end of the chunk
    std::size_t longest_;  // text so far, so that few texts grow; never so short that a text needs no memory
    bool containsStrayCarriageReturn_;
};

struct StreamedDisplay {
    FoundDisplay found;
    std::size_t linesAbove;  ///< lines before its chunk
    std::string problem;     ///< why the display cannot be read; empty when it can
};

/// The displays of a file, one after the other, in memory bounded by the longest display and the longest line allowed.
class DisplayStream {
public:
    /// The file's name in UTF-8, or "" and "-" for standard input. Raises UsageError for a file that cannot be opened.
    DisplayStream(const std::string& file, std::size_t maxLine, Encoding encoding = Encoding::ByMark,
                  Splitting splitting = {});

    /// The next display, or nothing at the end. Raises StreamError.
    std::optional<StreamedDisplay> next();

private:
    ChunkReader chunks_;
    std::size_t maxLine_;
    Splitting splitting_;
    std::string chunk_;
    std::optional<ChunkDisplays> displays_;  // of the chunk
    std::size_t linesAbove_ = 0;             // lines before the chunk
};

}  // namespace vantro
