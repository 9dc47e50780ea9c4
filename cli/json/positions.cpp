#include "cli/json/positions.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace vantro {

namespace {

KeptPieces kept(ValuePieces pieces) {
    KeptPieces own;
    for (const ValuePiece& piece : pieces) own.push_back({Text(piece.text), piece.place});
    return own;
}

bool areOnScreen(std::span<const KeptPiece> pieces) {
    return std::ranges::any_of(pieces, [](const KeptPiece& piece) { return piece.place.has_value(); });
}

}  // namespace

bool areOf(std::span<const KeptPiece> pieces, TextView value) {
    Text joined;
    for (const KeptPiece& piece : pieces) joined += piece.text;
    return joined == value;
}

void writePieces(std::span<const KeptPiece> pieces, JsonOut& out) {
    out.beginArray();
    for (const KeptPiece& piece : pieces) {
        out.beginObject();
        if (piece.place) {
            out.key("line");
            out.number(piece.place->line);
            out.key("column");
            out.number(piece.place->column);
            out.key("length");
            out.number(piece.place->length);
        } else {
            out.key("inserted");
            out.text(piece.text);
        }
        out.endObject();
    }
    out.endArray();
}

std::string placesOf(std::span<const KeptPiece> pieces) {
    std::string places;
    for (const KeptPiece& piece : pieces) {
        if (!piece.place) continue;
        const auto [line, column, length] = *piece.place;
        if (!places.empty()) places += ' ';
        places += std::to_string(line) + ":" + std::to_string(column);
        if (length > 1) places += "-" + std::to_string(column + length - 1);
    }
    return places;
}

// ---- Profiles

void ProfilePositions::observe(const ReadingStep& step) {
    if (step.kind == StepKind::CallBegins) {
        values_.clear();
    } else if (step.kind == StepKind::QueryBegins) {
        query_ = step.name;
    } else if (step.kind == StepKind::ValueRead) {
        values_[{query_, step.index, Text(step.name)}] = {Text(step.text), kept(step.pieces)};
    }
}

const KeptPieces* ProfilePositions::find(TextView query, std::int32_t index, TextView part, TextView value) const {
    const auto found = values_.find({Text(query), index, Text(part)});
    if (found == values_.end() || found->second.text != value || !areOnScreen(found->second.pieces)) return nullptr;
    return &found->second.pieces;
}

void PositionsMember::add(TextView query, std::string_view name, TextView value) {
    const Text part(name.begin(), name.end());
    const KeptPieces* const pieces = what_.positions->find(query, what_.index, part, value);
    if (pieces == nullptr) return;
    if (!std::exchange(isBegun_, true)) {
        if (followsPieces_) out_.piece(",");
        out_.key("positions");
        out_.beginObject();
    }
    out_.key(name);
    writePieces(*pieces, out_);
}

void PositionsMember::end() {
    if (isBegun_) out_.endObject();
}

// ---- Results

void ResultPositions::observe(const ReadingStep& step) {
    if (step.kind == StepKind::CallBegins) {
        keys_.clear();
        marks_.clear();
    } else if (step.kind == StepKind::MarkSearched && !step.pieces.empty()) {
        marks_.insert_or_assign(Text(step.text), kept(step.pieces));
    } else if (step.kind == StepKind::KeyAdded) {
        auto& pieces = keys_[Text(step.name)];
        pieces.clear();
        const bool* const flag = step.value != nullptr ? std::get_if<bool>(step.value) : nullptr;
        if (step.value == nullptr) pieces.push_back(kept(step.pieces));
        if (flag != nullptr && *flag) pieces.push_back(markOf(step.name));
    } else if (step.kind == StepKind::EntryAdded) {
        keys_[Text(step.name)].push_back(kept(step.pieces));
    }
}

/// Of several marks of a flag, the first one in the row that was found.
KeptPieces ResultPositions::markOf(TextView flag) const {
    for (const ScreenFlag& row : row_.description.flags) {
        if (row.flag != flag) continue;
        if (const auto found = marks_.find(row.mark); found != marks_.end()) return found->second;
    }
    return {};
}

const std::vector<KeptPieces>* ResultPositions::find(TextView key) const {
    const auto found = keys_.find(key);
    if (found == keys_.end() || std::ranges::none_of(found->second, areOnScreen)) return nullptr;
    return &found->second;
}

}  // namespace vantro
