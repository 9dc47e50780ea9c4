// The displays of a chunk, parsed and written.
#pragma once

#include "cli/commands/display_doubts.h"
#include "cli/io/displays.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// How a profile is written.
enum class ProfileForm { JsonLine, IndentedJson, Table };

/// One parsed display of a chunk. Its output ends at `outEnd` in the chunk's output and begins where the output of the
/// previous display ends.
struct ParsedDisplay {
    std::size_t outEnd = 0;
    FaultyLine faulty;
    DisplayDoubts doubts;
    std::string unanswered;  ///< the queries without an answer: "NM (error 6), SR (error 5245)"
};

struct ParsedChunk {
    std::string out;
    std::vector<ParsedDisplay> displays;
    std::size_t lines = 0;
};

/// Parses the displays of a chunk. Without `findsUnread`, lines that nothing was read from are not searched for.
ParsedChunk parseChunk(std::string_view chunk, const Splitting& splitting, ProfileForm form, bool findsUnread);

}  // namespace vantro
