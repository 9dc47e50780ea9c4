#include "cli/io/display_stream.h"

#include "cli/io/input_files.h"

#include <utility>

namespace vantro {

DisplayStream::DisplayStream(const std::string& file, std::size_t maxLine)
    : chunks_(openInput(file), ChunkReader::defaultBlock, maxLine), maxLine_(maxLine) {}

std::optional<StreamedDisplay> DisplayStream::next() {
    while (true) {
        if (displays_) {
            if (std::optional<FoundDisplay> found = displays_->next()) {
                return StreamedDisplay{std::move(found->text), describe(found->faulty, linesAbove_, maxLine_)};
            }
            linesAbove_ += displays_->lines();
            displays_.reset();
        }
        std::optional<std::string> chunk = chunks_.next();
        if (!chunk) return std::nullopt;
        chunk_ = std::move(*chunk);
        displays_.emplace(chunk_);
    }
}

}  // namespace vantro
