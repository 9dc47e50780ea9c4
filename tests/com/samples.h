// The sample exchanges and profiles, for the tests of the server.
#pragma once

#include "vantro/text.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantro::test {

/// The folder of the samples.
std::filesystem::path samples();

/// A profile display from a text file with one screen line per line.
Text displayIn(const std::filesystem::path& file);

/// The file's name without its extension, as a valid test name.
std::string testName(const std::filesystem::path& file);

}  // namespace vantro::test
