// The displays of a file, one after the other.
#pragma once

#include "cli/io/displays.h"

#include <cstddef>
#include <optional>
#include <string>

namespace vantro {

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
