#include "cli/input_files.h"

#include "cli/failure.h"
#include "cli/standard_io.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace vantro {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& file) { return std::u8string(file.begin(), file.end()); }

}  // namespace

bool isStandardInput(const std::string& file) { return file.empty() || file == "-"; }

ByteSource openInput(const std::string& file) {
    if (isStandardInput(file)) return readInput;
    const auto stream = std::make_shared<std::ifstream>(pathOf(file), std::ios::binary);
    std::error_code ignored;
    if (!*stream || fs::is_directory(pathOf(file), ignored)) {
        throw UsageError("cannot read the file '" + file + "'; check its name and permissions");
    }
    return [stream, file](std::span<char> bytes) {
        stream->read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (stream->bad()) throw StreamError("cannot go on with the file '" + file + "'");
        return static_cast<std::size_t>(stream->gcount());
    };
}

std::uint64_t lengthInAll(const std::vector<std::string>& files) {
    std::uint64_t sum = 0;
    for (const std::string& file : files) {
        std::error_code unknown;
        const auto length = isStandardInput(file) ? 0 : fs::file_size(pathOf(file), unknown);
        if (isStandardInput(file) || unknown) return 0;
        sum += length;
    }
    return sum;
}

}  // namespace vantro
