// Names of files.
#pragma once

#include <filesystem>
#include <string>

namespace vantro {

/// The path with this name, which is UTF-8 on every system.
inline std::filesystem::path pathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

}  // namespace vantro
