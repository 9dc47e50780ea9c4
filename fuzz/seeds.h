// The fuzzers' first inputs, made from the samples so that none is stored twice.
#pragma once

#include "fuzz/targets.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantro::fuzz {

/// The inputs that the samples provide for a target.
std::vector<std::string> sampleSeeds(std::string_view target);

/// The inputs stored for a target in a folder of fuzz/, "seeds" or "finds", with their names.
struct KeptInput {
    std::string name;
    std::string bytes;
};
std::vector<KeptInput> keptInputs(std::string_view folder, std::string_view target);

Bytes bytesOf(std::string_view input);

}  // namespace vantro::fuzz
