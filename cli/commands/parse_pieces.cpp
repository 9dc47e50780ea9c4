#include "cli/commands/parse_pieces.h"

#include "cli/json/input.h"

#include <stdexcept>
#include <utility>

namespace vantro {

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
