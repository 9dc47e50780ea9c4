// Runs the built tool as its users do.
#pragma once

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

/// Runs `batch`; the input is taken as it is.
Finished runBatch(const std::string& input);

/// The lines of a text, without their line ends.
std::vector<std::string> linesOf(const std::string& text);

/// The response lines that `batch` gives to these request lines.
std::vector<std::string> answersTo(const std::vector<std::string>& requests);

/// A conversation with `batch` over pipes, its input kept open.
class Dialogue {
public:
    Dialogue();
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    /// Sends a text as it is.
    void send(const std::string& text);
    /// The next response line; "" when none comes within some seconds.
    std::string receiveLine();

private:
    int toTool_ = -1;
    int fromTool_ = -1;
    int process_ = -1;
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
