// Writes the seeds of every target into its own folder: write_seeds FOLDER
#include "fuzz/seeds.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: write_seeds FOLDER\n", stderr);
        return 2;
    }
    for (const auto& target : vantro::fuzz::targets()) {
        const fs::path folder = fs::path(argv[1]) / target.name;
        fs::create_directories(folder);
        std::size_t number = 0;
        for (const std::string& seed : vantro::fuzz::sampleSeeds(target.name)) {
            write(folder / ("sample-" + std::to_string(++number)), seed);
        }
        for (const char* const kept : {"seeds", "finds"}) {
            for (const auto& input : vantro::fuzz::keptInputs(kept, target.name)) {
                write(folder / (std::string(kept) + "-" + input.name), input.bytes);
            }
        }
    }
    return 0;
}
