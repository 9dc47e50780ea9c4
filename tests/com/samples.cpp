#include "tests/com/samples.h"

#include "tests/support/text.h"

#include <cctype>
#include <fstream>

namespace vantro::test {

std::filesystem::path samples() { return VANTRO_SAMPLES_DIR; }

Text displayIn(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string line;
    Text display;
    while (std::getline(stream, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        Text text = wide(line);
        text.resize(80, u' ');
        display += text;
    }
    return display;
}

std::string testName(const std::filesystem::path& file) {
    std::string name = file.stem().string();
    for (char& character : name) {
        if (!std::isalnum(static_cast<unsigned char>(character))) character = '_';
    }
    return name;
}

}  // namespace vantro::test
