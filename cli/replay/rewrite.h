// Rewrites the expectations of files, and leaves every other byte as it is.
#pragma once

#include "cli/replay/player.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// Bytes of a text that are replaced.
struct Edit {
    std::size_t begin;
    std::size_t end;  ///< one past the last byte
    std::string text;
};

/// The text with these edits, which are in the order of their positions and do not overlap.
std::string edited(std::string_view text, const std::vector<Edit>& edits);

/// The text of an exchange in which each step expects its outcome. What a step expects already, comments and
/// everything else keep their bytes.
std::string withOutcomes(std::string_view text, const Exchange& steps, const std::vector<StepOutcome>& outcomes);

}  // namespace vantro
