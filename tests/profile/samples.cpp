#include "tests/profile/samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vantro {

namespace {

namespace fs = std::filesystem;

const fs::path& folder() {
    static const fs::path path = fs::path(VANTRO_SOURCE_DIR) / "samples";
    return path;
}

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file.string());
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> namesIn(const fs::path& position, const std::string& extension) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(position)) {
        if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace

std::vector<std::string> sampleNames() { return namesIn(folder() / "profiles", ".txt"); }

std::vector<std::string> expectedNames() { return namesIn(folder() / "expected", ".json"); }

Text sampleDisplay(const std::string& name) {
    std::istringstream text(contents(folder() / "profiles" / (name + ".txt")));
    Lines lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return display(lines);
}

std::string expectedJson(const std::string& name) { return contents(folder() / "expected" / (name + ".json")); }

}  // namespace vantro
