#include "cli/standard_io.h"

#include "cli/failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace vantro {

namespace {

constexpr int input = 0;
constexpr int output = 1;
constexpr int error = 2;

#ifdef _WIN32
bool isTerminal(int stream) { return _isatty(stream) != 0; }
auto readSome(char* bytes, std::size_t count) { return _read(input, bytes, static_cast<unsigned>(count)); }
auto writeSome(const char* bytes, std::size_t count) { return _write(output, bytes, static_cast<unsigned>(count)); }
#else
bool isTerminal(int stream) { return ::isatty(stream) == 1; }
auto readSome(char* bytes, std::size_t count) { return ::read(input, bytes, count); }
auto writeSome(const char* bytes, std::size_t count) { return ::write(output, bytes, count); }
#endif

// One system call takes no more than this anywhere.
constexpr std::size_t largestTransfer = std::numeric_limits<int>::max() / 2;

[[noreturn]] void failOn(const char* stream) {
    throw StreamError(std::string("cannot go on with ") + stream + ": " + std::strerror(errno));
}

std::string readWholeInput() {
    std::string all;
    std::array<char, 65536> block{};
    while (const std::size_t count = readInput(block)) all.append(block.data(), count);
    return all;
}

}  // namespace

void useBinaryStreams() {
#ifdef _WIN32
    _setmode(input, _O_BINARY);
    _setmode(output, _O_BINARY);
#endif
}

bool inputIsTerminal() { return isTerminal(input); }
bool outputIsTerminal() { return isTerminal(output); }
bool errorIsTerminal() { return isTerminal(error); }

std::size_t readInput(std::span<char> bytes) {
    while (true) {
        const auto count = readSome(bytes.data(), std::min(bytes.size(), largestTransfer));
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) failOn("standard input");
    }
}

void writeOutput(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = writeSome(bytes.data(), std::min(bytes.size(), largestTransfer));
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            failOn("standard output");
        }
    }
}

void writeError(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stderr); }

void complain(std::string_view message) { writeError("vantro-profile: " + std::string(message) + "\n"); }

std::string readAll(const std::string& file) {
    if (file.empty() || file == "-") return readWholeInput();
    const std::filesystem::path path(std::u8string(file.begin(), file.end()));
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    // A folder opens and fails only when it is read; an empty file sets the target's fail bit and is fine.
    if (std::filesystem::is_directory(path) || !stream) {
        throw UsageError("cannot read the file '" + file + "'; check its name and permissions");
    }
    text << stream.rdbuf();
    return std::move(text).str();
}

}  // namespace vantro
