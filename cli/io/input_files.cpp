#include "cli/io/input_files.h"

#include "cli/io/compression.h"
#include "cli/io/encoding.h"
#include "cli/io/failure.h"
#include "cli/io/path.h"
#include "cli/io/standard_io.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace vantro {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t blockSize = std::size_t{64} * 1024;

/// Checks the lengths of lines that arrive in blocks.
class LineLengths {
public:
    explicit LineLengths(std::size_t most) : most_(most) {}

    /// Counts the lines of the next block. False when one is too long.
    bool take(std::string_view block) {
        while (true) {
            const std::size_t lineEnd = block.find('\n');
            length_ += std::min(lineEnd, block.size());
            if (length_ > most_) return false;
            if (lineEnd == std::string_view::npos) return true;
            block.remove_prefix(lineEnd + 1);
            length_ = 0;
            ++line_;
        }
    }

    /// The number, from 1, of the line that the last block ended in.
    std::size_t line() const { return line_; }

private:
    std::size_t most_;
    std::size_t length_ = 0;
    std::size_t line_ = 1;
};

}  // namespace

std::string overLongLine(std::size_t line, std::size_t maxLine) {
    return "line " + std::to_string(line) + " has more than " + std::to_string(maxLine) +
           " bytes; --max-line lets longer lines in";
}

bool isStandardInput(const std::string& file) { return file.empty() || file == "-"; }

bool isFile(const std::string& file) {
    std::error_code ignored;
    return fs::is_regular_file(pathOf(file), ignored);
}

std::string inputName(const std::string& file) { return isStandardInput(file) ? "standard input" : file; }

namespace {

ByteSource openBytes(const std::string& file) {
    if (isStandardInput(file)) return readInput;
    // A folder can be opened and fails only when it is read.
    std::error_code ignored;
    if (fs::is_directory(pathOf(file), ignored)) {
        throw UsageError("'" + file + "' is a folder, not a file; give the name of a file in it");
    }
    const auto stream = std::make_shared<std::ifstream>(pathOf(file), std::ios::binary);
    if (!*stream) throw UsageError("cannot read the file '" + file + "'; check its name and permissions");
    return [stream, file](std::span<char> bytes) {
        stream->read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (stream->bad()) throw StreamError("cannot go on reading the file '" + file + "'");
        return static_cast<std::size_t>(stream->gcount());
    };
}

ByteSource counted(ByteSource source, std::uint64_t* bytesRead) {
    return [source = std::move(source), bytesRead](std::span<char> bytes) {
        const std::size_t count = source(bytes);
        *bytesRead += count;
        return count;
    };
}

}  // namespace

ByteSource openInput(const std::string& file, Encoding encoding, std::uint64_t* bytesRead) {
    ByteSource source = openBytes(file);
    if (bytesRead != nullptr) source = counted(std::move(source), bytesRead);
    return inUtf8(unpacked(std::move(source), inputName(file)), encoding);
}

std::string readAll(const std::string& file, std::size_t maxLine, Encoding encoding) {
    const ByteSource source = openInput(file, encoding);
    LineLengths lengths(maxLine);
    std::string all;
    std::string block(blockSize, '\0');
    while (const std::size_t count = source(block)) {
        const std::string_view read = std::string_view(block).substr(0, count);
        if (!lengths.take(read)) throw UsageError(inputName(file) + ": " + overLongLine(lengths.line(), maxLine));
        all += read;
    }
    return all;
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
