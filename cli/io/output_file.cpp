#include "cli/io/output_file.h"

#include "cli/io/failure.h"

#include <filesystem>
#include <fstream>

namespace vantro {

void writeFile(const std::string& file, std::string_view bytes) {
    std::ofstream stream(std::filesystem::path(std::u8string(file.begin(), file.end())),
                         std::ios::binary | std::ios::trunc);
    if (!stream) throw UsageError("cannot write the file '" + file + "'; check its folder and permissions");
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw StreamError("cannot write all of the file '" + file + "'; is the disk full?");
}

}  // namespace vantro
