// The displays of a chunk, parsed and written.
#pragma once

#include "cli/commands/display_doubts.h"
#include "cli/io/displays.h"
#include "cli/json/profile_json.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// How a profile is written.
enum class ProfileForm { JsonLine, IndentedJson, Table, Csv };

struct ProfileView {
    ProfileForm form = ProfileForm::JsonLine;
    ProfileMembers members = {};
    bool needsLocator = false;   ///< for the identifier
    bool findsUnread = false;    ///< notes the lines that nothing was read from
    bool addsPositions = false;  ///< to the JSON: where each value is
};

/// One parsed display of a chunk. Its output ends at `outEnd` in the chunk's output and begins where the output of the
/// previous display ends; it is empty for a display that could not be read.
struct ParsedDisplay {
    std::size_t outEnd = 0;
    std::size_t line = 0;  ///< its first line, counted from 1 in the chunk
    FaultyLine faulty;
    std::string problem;                ///< why its record could not be read
    std::string id;                     ///< its record's identifier as JSON; empty for none
    std::vector<std::string> controls;  ///< the warnings about control characters in its record's display
    std::string title;                  ///< the line above it that separates it from others, or ""
    std::string locator;                ///< only for the identifier
    DisplayDoubts doubts;
    std::string unanswered;  ///< the queries without an answer: "NM (error 6), SR (error 5245)"
    std::size_t unansweredCount = 0;
};

struct ParsedChunk {
    std::string out;
    std::vector<ParsedDisplay> displays;
    std::size_t lines = 0;
};

/// Parses the displays of a chunk.
ParsedChunk parseChunk(std::string_view chunk, const Splitting& splitting, const ProfileView& view);

/// Parses records: one JSON object per line with a "display" and, optionally, an "id". `jsonPadding` bytes follow the
/// last line end. The lines with these indexes were too long and are left out.
ParsedChunk parseRecords(std::span<char> lines, std::span<const std::size_t> tooLong, const ProfileView& view);

}  // namespace vantro
