// Where the fuzzers begin: inputs made of the samples, so that none of them is kept twice.
#pragma once

#include "fuzz/targets.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantro::fuzz {

/// The inputs that the samples make for a target.
std::vector<std::string> sampleSeeds(std::string_view target);

/// The inputs that are kept for it in a folder of fuzz/, "seeds" or "finds", with their names.
struct KeptInput {
    std::string name;
    std::string bytes;
};
std::vector<KeptInput> keptInputs(std::string_view folder, std::string_view target);

Bytes bytesOf(std::string_view input);

}  // namespace vantro::fuzz
