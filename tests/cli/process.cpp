#include "tests/cli/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>

namespace vantro::test {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

File temporary(const std::string& content = {}) {
    File file(std::tmpfile());
    std::fwrite(content.data(), 1, content.size(), file.get());
    std::rewind(file.get());
    return file;
}

std::string contentOf(std::FILE* file) {
    std::string content;
    std::array<char, 65536> block{};
    std::rewind(file);
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file))
        content.append(block.data(), count);
    return content;
}

[[noreturn]] void becomeTool(const std::vector<std::string>& arguments) {
    // Memory that a sanitizer keeps after it is freed would hide the tool's own use.
    ::setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
    std::vector<char*> pointers;
    std::string name = VANTRO_PROFILE_TOOL;
    pointers.push_back(name.data());
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    ::execv(VANTRO_PROFILE_TOOL, pointers.data());
    ::_exit(127);
}

void connect(int from, int to) {
    ::dup2(from, to);
    if (from != to) ::close(from);
}

}  // namespace

namespace {

Finished runToolWith(std::FILE* output, const std::vector<std::string>& arguments, const std::string& input) {
    const File in = temporary(input);
    const File err = temporary();
    const pid_t process = ::fork();
    if (process == 0) {
        connect(::fileno(in.get()), 0);
        connect(::fileno(output), 1);
        connect(::fileno(err.get()), 2);
        becomeTool(arguments);
    }
    int status = 0;
    rusage usage{};
    ::wait4(process, &status, 0, &usage);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", contentOf(err.get()), usage.ru_maxrss};
}

}  // namespace

Finished runTool(const std::vector<std::string>& arguments, const std::string& input) {
    const File out = temporary();
    Finished finished = runToolWith(out.get(), arguments, input);
    finished.out = contentOf(out.get());
    return finished;
}

Finished runToolInto(const std::string& outputFile, const std::vector<std::string>& arguments,
                     const std::string& input) {
    const File out(std::fopen(outputFile.c_str(), "wb"));
    return runToolWith(out.get(), arguments, input);
}

Finished runToolIntoClosedPipe(const std::vector<std::string>& arguments) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return {-1, "", "no pipe", 0};
    ::close(ends[0]);
    const File out(::fdopen(ends[1], "wb"));
    return runToolWith(out.get(), arguments, "");
}

Finished runToolOnTerminal(std::size_t columns, const std::vector<std::string>& arguments) {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) return {-1, "", "no terminal", 0};
    const int side = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    ::ioctl(side, TIOCSWINSZ, &size);
    const pid_t process = ::fork();
    if (process == 0) {
        ::close(terminal);
        for (const int stream : {0, 1, 2}) ::dup2(side, stream);
        becomeTool(arguments);
    }
    ::close(side);
    // At the end of the last writer, reading fails.
    std::string out;
    std::array<char, 4096> block{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(terminal, block.data(), block.size());
        if (count > 0) out.append(block.data(), static_cast<std::size_t>(count));
    }
    ::close(terminal);
    int status = 0;
    ::waitpid(process, &status, 0);
    std::erase(out, '\r');
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out, "", 0};
}

Finished runBatch(const std::string& input) { return runTool({"batch"}, input); }

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> answersTo(const std::vector<std::string>& requests) {
    std::string input;
    for (const std::string& request : requests) input += request + "\n";
    return linesOf(runBatch(input).out);
}

Dialogue::Dialogue() {
    std::array<int, 2> requests{};
    std::array<int, 2> responses{};
    if (::pipe(requests.data()) != 0 || ::pipe(responses.data()) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
        ::close(requests[1]);
        ::close(responses[0]);
        connect(requests[0], 0);
        connect(responses[1], 1);
        becomeTool({"batch"});
    }
    ::close(requests[0]);
    ::close(responses[1]);
    toTool_ = requests[1];
    fromTool_ = responses[0];
}

Dialogue::~Dialogue() {
    ::close(toTool_);
    ::close(fromTool_);
    ::waitpid(process_, nullptr, 0);
}

void Dialogue::send(const std::string& text) {
    EXPECT_EQ(::write(toTool_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

std::string Dialogue::receiveLine() {
    constexpr int patience = 20'000;  // milliseconds
    std::string line;
    pollfd ready{fromTool_, POLLIN, 0};
    char byte = '\0';
    while (::poll(&ready, 1, patience) == 1 && ::read(fromTool_, &byte, 1) == 1 && byte != '\n') line += byte;
    return byte == '\n' ? line : "";
}

Running::Running(const std::vector<std::string>& arguments, const std::string& inputFile) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (::pipe(input.data()) != 0 || ::pipe(output.data()) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
        ::close(input[1]);
        ::close(output[0]);
        connect(inputFile.empty() ? input[0] : ::open(inputFile.c_str(), O_RDONLY), 0);
        connect(output[1], 1);
        connect(::open("/dev/null", O_WRONLY), 2);
        becomeTool(arguments);
    }
    ::close(input[0]);
    ::close(output[1]);
    toTool_ = input[1];
    fromTool_ = output[0];
}

Running::~Running() {
    ::close(toTool_);
    closeOutput();
    endingSignal();
}

std::string Running::read(std::size_t most) {
    std::string text(most, '\0');
    const ssize_t count = ::read(fromTool_, text.data(), text.size());
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
}

std::string Running::readRest() {
    constexpr std::size_t block = 65536;
    std::string rest;
    for (std::string part = read(block); !part.empty(); part = read(block)) rest += part;
    return rest;
}

void Running::closeOutput() {
    if (fromTool_ >= 0) ::close(fromTool_);
    fromTool_ = -1;
}

void Running::signal(int number) const { ::kill(process_, number); }

int Running::endingSignal() {
    if (process_ < 0) return 0;
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TemporaryVariable::TemporaryVariable(std::string name, const std::string& value) : name_(std::move(name)) {
    ::setenv(name_.c_str(), value.c_str(), 1);
}

TemporaryVariable::~TemporaryVariable() { ::unsetenv(name_.c_str()); }

TemporaryFile::TemporaryFile(const std::string& content) {
    std::string name = ::testing::TempDir() + "/vantro-profile-XXXXXX";
    const int file = ::mkstemp(name.data());
    ::close(file);
    path_ = name;
    std::ofstream(path_, std::ios::binary) << content;
}

TemporaryFile::~TemporaryFile() { std::remove(path_.c_str()); }

}  // namespace vantro::test
