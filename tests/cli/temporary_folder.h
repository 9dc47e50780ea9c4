// A folder for a test, removed at its end.
#pragma once

#include <unistd.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace vantro::test {

class TemporaryFolder {
public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("vantro-folder-" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The path of a file in the folder.
    std::string in(const std::string& name) const { return (path_ / name).string(); }

    /// Writes a file, in a folder of its own if its name has one, and returns its path.
    std::string write(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
        return in(name);
    }

    std::string path() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

}  // namespace vantro::test
