#include "cli/io/standard_io.h"

#include "cli/io/failure.h"
#include "cli/io/interrupt.h"
#include "cli/io/terminal.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>

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
// The runtime library says EPIPE or EINVAL, depending on how the reader ended.
bool isClosedPipe() { return errno == EPIPE || (errno == EINVAL && !outputIsTerminal()); }
#else
bool isTerminal(int stream) { return ::isatty(stream) == 1; }
auto readSome(char* bytes, std::size_t count) { return ::read(input, bytes, count); }
auto writeSome(const char* bytes, std::size_t count) { return ::write(output, bytes, count); }
bool isClosedPipe() { return errno == EPIPE; }
#endif

// No system accepts more than this in one call.
constexpr std::size_t largestRead = std::numeric_limits<int>::max() / 2;

// The capacity of a pipe: an interrupt is noticed after this many bytes at the latest.
constexpr std::size_t largestWrite = std::size_t{64} * 1024;

[[noreturn]] void fail(const char* what) { throw StreamError(std::string(what) + ": " + std::strerror(errno)); }

// The end of the record that is partly written after this many bytes.
std::size_t recordEnd(std::size_t written, std::span<const std::size_t> ends) {
    if (written == 0) return 0;
    return *std::ranges::lower_bound(ends, written);
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
        const auto count = readSome(bytes.data(), std::min(bytes.size(), largestRead));
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EISDIR) throw StreamError("standard input is a folder, not a file; redirect a file that is in it");
        if (errno != EINTR) fail("cannot read standard input");
    }
}

void writeOutput(std::string_view bytes) {
    const std::size_t end = bytes.size();
    writeRecords(bytes, {&end, 1});
}

void writeRecords(std::string_view bytes, std::span<const std::size_t> ends) {
    const WritingRecords writing;
    std::size_t written = 0;
    while (true) {
        const std::size_t end = WritingRecords::interruptWaits() ? recordEnd(written, ends) : bytes.size();
        if (written >= end) return;
        const auto count = writeSome(bytes.data() + written, std::min(end - written, largestWrite));
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (isClosedPipe()) {
            throw ClosedPipe();
        } else if (errno != EINTR) {
            fail("cannot write to standard output");
        }
    }
}

void writeError(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stderr); }

void complain(std::string_view message) {
    std::string line = std::string(toolName) + ": " + asSentence(message);
    std::ranges::replace_if(
        line, [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7F'; }, '?');
    writeError((errorShowsColor() ? withColoredWords(line) : line) + "\n");
}

}  // namespace vantro
