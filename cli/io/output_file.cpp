#include "cli/io/output_file.h"

#include "cli/io/failure.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::filesystem::path pathOf(const std::string& file) { return std::u8string(file.begin(), file.end()); }

}  // namespace

void writeFile(const std::string& file, std::string_view bytes) {
    std::ofstream stream(pathOf(file), std::ios::binary | std::ios::trunc);
    if (!stream) throw UsageError("cannot write the file '" + file + "'; check its folder and permissions");
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw StreamError("cannot write all of the file '" + file + "'; is the disk full?");
}

void replaceText(const std::string& file, std::string_view before, std::string_view after) {
    std::ifstream stream(pathOf(file), std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    const std::string bytes = content.str();
    const std::string_view mark = bytes.starts_with(byteOrderMark) ? byteOrderMark : std::string_view();
    if (!stream || std::string_view(bytes).substr(mark.size()) != before) {
        throw UsageError("'" + file + "' cannot be rewritten, because it is not a plain UTF-8 file");
    }
    writeFile(file, std::string(mark) + std::string(after));
}

}  // namespace vantro
