// Runs the built tool as a process.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantro::test {

struct Finished {
    int status;  // exit status; -1 when the process did not exit by itself
    std::string out;
    std::string err;
    long peakKilobytes;
};

/// Runs the tool with these arguments and this standard input.
Finished runTool(const std::vector<std::string>& arguments, const std::string& input = {});

/// The same with standard output redirected to this file, whose content is ignored.
Finished runToolInto(const std::string& outputFile, const std::vector<std::string>& arguments,
                     const std::string& input = {});

/// The same with standard output connected to a pipe that nobody reads.
Finished runToolIntoClosedPipe(const std::vector<std::string>& arguments);

/// What the tool writes to a terminal of this many columns, both streams together, with LF as line end.
Finished runToolOnTerminal(std::size_t columns, const std::vector<std::string>& arguments);

/// Runs `batch` with this input.
Finished runBatch(const std::string& input);

/// The lines of a text, without their line ends.
std::vector<std::string> linesOf(const std::string& text);

/// The response lines of `batch` to these request lines.
std::vector<std::string> answersTo(const std::vector<std::string>& requests);

/// A conversation with `batch` over pipes, its input kept open.
class Dialogue {
public:
    Dialogue();
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    /// Sends a text unchanged.
    void send(const std::string& text);
    /// The next response line; "" when there is none within some seconds.
    std::string receiveLine();

private:
    int toTool_ = -1;
    int fromTool_ = -1;
    int process_ = -1;
};

/// The bytes of a file.
std::string contentOf(const std::string& file);

/// A running tool whose output the test reads from a pipe.
class Running {
public:
    /// Without a file for standard input, the tool waits for input that never arrives.
    explicit Running(const std::vector<std::string>& arguments, const std::string& inputFile = {});
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    /// The result of one read of at most this many bytes; "" at the end.
    std::string read(std::size_t most);
    std::string readRest();
    void closeOutput();
    void signal(int number) const;

    /// Waits for the end and returns the signal that ended the tool; 0 when it exited by itself.
    int endingSignal();

private:
    int toTool_ = -1;
    int fromTool_ = -1;
    int process_ = -1;
};

/// A variable of the environment, for the tools that a test starts.
class TemporaryVariable {
public:
    TemporaryVariable(std::string name, const std::string& value);
    ~TemporaryVariable();
    TemporaryVariable(const TemporaryVariable&) = delete;
    TemporaryVariable& operator=(const TemporaryVariable&) = delete;

private:
    std::string name_;
};

/// A file with this content, removed at the end of the test.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace vantro::test
