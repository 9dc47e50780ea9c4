// The displays in samples/profiles and the files that say what they hold.
#pragma once

#include "tests/profile/displays.h"

#include <string>
#include <vector>

namespace vantro {

/// Names without extension, in alphabetical order.
std::vector<std::string> sampleNames();
std::vector<std::string> expectedNames();

/// The lines of a sample as the host shows them, each filled up to 80 characters but the last.
Text sampleDisplay(const std::string& name);

std::string expectedJson(const std::string& name);

}  // namespace vantro
