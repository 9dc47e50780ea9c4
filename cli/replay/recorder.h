// Exchanges with the results filled in by the library.
#pragma once

#include "cli/io/warnings.h"
#include "cli/replay/step_input.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

struct Recording {
    std::string text;       ///< a file for `replay`, if it has a step
    std::size_t steps = 0;  ///< those in the text
};

/// Runs the steps in their order and writes what they return as what is expected. The class of a
/// step without one is recognised from its screen. What cannot be a step becomes a comment, with a warning.
Recording record(const std::vector<StepInput>& inputs, Warnings& warnings);

}  // namespace vantro
