#include "cli/io/output_file.h"

#include "cli/io/failure.h"
#include "cli/io/path.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vantro {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

void writeFile(const std::string& file, std::string_view bytes) {
    std::ofstream stream(pathOf(file), std::ios::binary | std::ios::trunc);
    if (!stream) throw UsageError("cannot write the file '" + file + "'; check its folder and permissions");
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw StreamError("cannot write all of the file '" + file + "'; is the disk full?");
}

#ifdef _WIN32

void flushToDisk(const std::string& file) {
    const HANDLE handle = CreateFileW(pathOf(file).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool isFlushed = handle != INVALID_HANDLE_VALUE && FlushFileBuffers(handle) != 0;
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    if (!isFlushed) throw StreamError("cannot write all of the file '" + file + "'; is the disk full?");
}

#else

void flushToDisk(const std::string& file) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    const bool isFlushed = descriptor >= 0 && fsync(descriptor) == 0;
    if (descriptor >= 0) close(descriptor);
    if (!isFlushed) throw StreamError("cannot write all of the file '" + file + "'; is the disk full?");
}

#endif

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
