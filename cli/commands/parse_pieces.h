// The files of `parse`, read one after the other, a piece at a time.
#pragma once

#include "cli/batch/line_reader.h"
#include "cli/commands/commands.h"
#include "cli/io/displays.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantro {

/// Whole displays or records of one of the files, or the end of the file.
struct Piece {
    std::string text;                  ///< for records, `jsonPadding` bytes follow the last line end
    std::vector<std::size_t> tooLong;  ///< the indexes of records longer than the longest line allowed: empty lines
    std::uint64_t bytesRead = 0;       ///< of the file, which may be compressed
    bool endsFile = false;
    std::string failure;  ///< why the file ends early
};

/// The files to be read: those of the lists follow the others, and a folder stands for the files in it. Says so when
/// displays are awaited from a keyboard. Raises UsageError.
std::vector<std::string> inputFilesOf(const ParseOptions& options);

class PieceReader {
public:
    /// The options must outlive the reader.
    explicit PieceReader(const ParseOptions& options) : options_(options) {}

    /// The next piece, or nothing after the end of the last file.
    std::optional<Piece> next();

private:
    bool read(Piece& piece);
    bool readRecords(Piece& piece);

    ByteSource openFile() { return openInput(options_.files[file_], options_.encoding, &bytesRead_); }

    const ParseOptions& options_;
    std::uint64_t bytesRead_ = 0;  // since the last piece
    std::size_t file_ = 0;
    std::optional<ChunkReader> chunks_;
    std::optional<LineReader> lines_;
};

}  // namespace vantro
