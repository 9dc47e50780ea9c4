// The recorded samples, as the tests of the server play them.
#pragma once

#include "vantro/text.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {

/// The folder of the samples.
std::filesystem::path samples();

/// A profile as a text file holds it, a screen line a line.
Text displayIn(const std::filesystem::path& file);

/// The file's name without ending, as a test may be named.
std::string testName(const std::filesystem::path& file);

}  // namespace vantro::test
