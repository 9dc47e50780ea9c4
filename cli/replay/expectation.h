// What a display is expected to contain: JSON as `parse` prints it.
#pragma once

#include "cli/json/tree.h"
#include "cli/replay/difference.h"
#include "cli/replay/rewrite.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// An expectation compared with what came.
struct ExpectationResult {
    std::vector<Difference> differences;
    std::vector<Edit> edits;  ///< of the expectation's text: they make it expect what came
};

/// Compares the profile of a display with its expectation. Members may be in any order, what is empty may be absent,
/// and the members "source" and "id" of the expectation are ignored. Raises UsageError, with the line number at the
/// start of its text, for an expectation that is not a JSON object.
ExpectationResult compareWithExpectation(std::string_view expectation, const Text& display);

}  // namespace vantro
