#include "framework/source_map.h"

#include "framework/screen.h"

#include <utility>

namespace vantro {

namespace {

/// Appends the pieces of the part of a screen that begins at an offset: one for each line.
void locateOnScreen(TextView part, std::size_t offset, std::vector<ValuePiece>& pieces) {
    while (!part.empty()) {
        const std::size_t column = offset % screenWidth;
        const TextView inLine = part.substr(0, screenWidth - column);
        pieces.push_back(
            {inLine, Place{static_cast<std::int32_t>(offset / screenWidth), static_cast<std::int32_t>(column) + 1,
                           static_cast<std::int32_t>(inLine.size())}});
        part.remove_prefix(inLine.size());
        offset += inLine.size();
    }
}

void locateInLine(TextView part, std::size_t offset, std::int32_t line, std::vector<ValuePiece>& pieces) {
    pieces.push_back(
        {part, Place{line, static_cast<std::int32_t>(offset) + 1, static_cast<std::int32_t>(part.size())}});
}

/// Appends the pieces of the part of a joined text that begins at an offset.
void locateInPieces(TextView part, std::size_t offset, const std::vector<ValuePiece>& joined,
                    std::vector<ValuePiece>& pieces) {
    for (const ValuePiece& piece : joined) {
        if (part.empty()) return;
        const std::size_t size = piece.text.size();
        if (offset >= size) {
            offset -= size;
            continue;
        }
        ValuePiece shared{part.substr(0, size - offset), piece.place};
        const std::size_t sharedSize = shared.text.size();
        if (shared.place) {
            shared.place->column += static_cast<std::int32_t>(offset);
            shared.place->length = static_cast<std::int32_t>(sharedSize);
        }
        pieces.push_back(shared);
        part.remove_prefix(sharedSize);
        offset = 0;
    }
}

/// Several pieces without a place, one after the other, are one.
void appendInserted(TextView text, std::vector<ValuePiece>& pieces) {
    if (!pieces.empty() && !pieces.back().place) {
        TextView& last = pieces.back().text;
        if (last.data() + last.size() == text.data()) {
            last = {last.data(), last.size() + text.size()};
            return;
        }
    }
    pieces.push_back({text, std::nullopt});
}

}  // namespace

/// The text that contains the beginning of this one, or all of it.
SourceMap::Texts::const_iterator SourceMap::find(TextView text) const {
    auto known = texts_.upper_bound(text.data());
    if (known == texts_.begin()) return texts_.end();
    --known;
    const TextView content = known->second.content;
    if (!std::less<>()(text.data(), known->first + content.size())) return texts_.end();
    const TextView shared = content.substr(static_cast<std::size_t>(text.data() - known->first), text.size());
    return text.starts_with(shared) ? known : texts_.end();
}

void SourceMap::add(TextView text, Origin origin) {
    if (text.empty()) return;
    // A text that is in the memory of an earlier one replaces it.
    auto overlapping = texts_.lower_bound(text.data());
    if (overlapping != texts_.begin()) {
        const auto before = std::prev(overlapping);
        if (std::less<>()(text.data(), before->first + before->second.content.size())) overlapping = before;
    }
    while (overlapping != texts_.end() && std::less<>()(overlapping->first, text.data() + text.size())) {
        overlapping = texts_.erase(overlapping);
    }
    texts_.emplace(text.data(), Known{Text(text), std::move(origin)});
}

void SourceMap::addScreen(TextView screen) {
    if (find(screen) == texts_.end()) add(screen, WholeScreen{});
}

void SourceMap::addLine(TextView line, std::int32_t number) {
    const auto known = find(line);
    const bool isOnScreen = known != texts_.end() && std::holds_alternative<WholeScreen>(known->second.origin);
    if (!isOnScreen) add(line, LineNumber{number});
}

void SourceMap::addJoined(TextView text, std::vector<ValuePiece> pieces) { add(text, std::move(pieces)); }

std::int32_t SourceMap::lineOf(TextView text) const {
    std::vector<ValuePiece> pieces;
    locate(text.substr(0, 1), pieces);
    return !pieces.empty() && pieces.front().place ? pieces.front().place->line : noLine;
}

void SourceMap::locate(TextView text, std::vector<ValuePiece>& pieces) const {
    while (!text.empty()) {
        const auto known = find(text);
        if (known == texts_.end()) {
            appendInserted(text.substr(0, 1), pieces);
            text.remove_prefix(1);
            continue;
        }
        const std::size_t offset = static_cast<std::size_t>(text.data() - known->first);
        const TextView part = text.substr(0, known->second.content.size() - offset);
        if (const auto* line = std::get_if<LineNumber>(&known->second.origin)) {
            locateInLine(part, offset, line->value, pieces);
        } else if (const auto* joined = std::get_if<std::vector<ValuePiece>>(&known->second.origin)) {
            locateInPieces(part, offset, *joined, pieces);
        } else {
            locateOnScreen(part, offset, pieces);
        }
        text.remove_prefix(part.size());
    }
}

}  // namespace vantro
