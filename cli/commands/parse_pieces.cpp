#include "cli/commands/parse_pieces.h"

#include "cli/io/failure.h"
#include "cli/io/file_list.h"
#include "cli/io/standard_io.h"
#include "cli/json/input.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vantro {

namespace {

void checkStandardInput(const std::vector<std::string>& files) {
    const auto standardInputs = std::ranges::count_if(files, isStandardInput);
    if (standardInputs > 1) throw UsageError("standard input can be read once only; name it once");
    if (standardInputs == 1 && inputIsTerminal()) {
        complain("reading displays from standard input; end them with the end-of-file key");
    }
}

}  // namespace

std::vector<std::string> inputFilesOf(const ParseOptions& options) {
    std::vector<std::string> files = options.files;
    for (const std::string& list : options.fileLists) {
        for (std::string& name : namesInList(readAll(list, options.maxLine), options.zeroSeparated)) {
            files.push_back(std::move(name));
        }
    }
    if (files.empty() && options.fileLists.empty()) files.emplace_back("-");
    files = withFilesOfFolders(files);
    checkStandardInput(files);
    return files;
}

std::optional<Piece> PieceReader::next() {
    if (file_ == options_.files.size()) return std::nullopt;
    Piece piece;
    // A file that cannot be read does not stop the others.
    try {
        if (options_.areRecords ? readRecords(piece) : read(piece)) return piece;
    } catch (const std::runtime_error& problem) {
        piece.failure = problem.what();
    }
    piece.endsFile = true;
    chunks_.reset();
    lines_.reset();
    ++file_;
    return piece;
}

bool PieceReader::read(Piece& piece) {
    if (!chunks_) chunks_.emplace(openFile(), ChunkReader::defaultBlock, options_.maxLine, options_.splitting);
    std::optional<std::string> chunk = chunks_->next();
    if (!chunk) return false;
    piece.text = std::move(*chunk);
    piece.bytesRead = std::exchange(bytesRead_, 0);
    return true;
}

bool PieceReader::readRecords(Piece& piece) {
    if (!lines_) lines_.emplace(openFile(), options_.maxLine);
    std::size_t count = 0;
    while (const auto line = lines_->next()) {
        if (lines_->wasTooLong()) piece.tooLong.push_back(count);
        ++count;
        piece.text.append(line->data(), line->size()) += '\n';
        // Whoever writes the records may wait for an answer before the next one.
        if (piece.text.size() >= ChunkReader::defaultBlock || !lines_->isNextHere()) break;
    }
    piece.bytesRead = std::exchange(bytesRead_, 0);
    piece.text.append(jsonPadding, '\0');
    return count > 0;
}

}  // namespace vantro
