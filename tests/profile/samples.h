// The displays in samples/profiles and the files with their expected elements.
#pragma once

#include "tests/profile/displays.h"

#include <string>
#include <vector>

namespace vantro {

/// Names without extension, in alphabetical order.
std::vector<std::string> sampleNames();
std::vector<std::string> expectedNames();

/// The lines of a sample as the host shows them, each but the last padded to 80 characters.
Text sampleDisplay(const std::string& name);

std::string expectedJson(const std::string& name);

}  // namespace vantro
