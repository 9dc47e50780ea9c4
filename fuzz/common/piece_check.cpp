#include "fuzz/common/piece_check.h"

#include "fuzz/common/compare.h"
#include "vantro/screen_lines.h"

namespace vantro::fuzz {

void PieceCheck::observe(const ReadingStep& step) {
    switch (step.kind) {
        case StepKind::ValueRead:
        case StepKind::EntryAdded: check(step, step.text); break;
        case StepKind::KeyAdded:
            if (step.value == nullptr) check(step, step.text);
            break;
        case StepKind::MarkSearched:
            if (!step.pieces.empty()) check(step, step.text);
            break;
        case StepKind::Decided:
            if (step.rule == nullptr || step.rule->meaning.empty()) message_ = "a decision without a rule";
            break;
        default: break;
    }
}

void PieceCheck::check(const ReadingStep& step, TextView value) {
    if (!message_.empty()) return;
    Text joined;
    for (const ValuePiece& piece : step.pieces) {
        joined.append(piece.text);
        if (!isShown(piece, width_) && !isShown(piece, screenWidth))
            message_ = shown(step.name) + ": the screen does not show " + shown(piece.text) + " there";
    }
    if (joined != value)
        message_ = shown(step.name) + ": the pieces are " + shown(TextView(joined)) + ", not " + shown(value);
}

bool PieceCheck::isShown(const ValuePiece& piece, std::size_t width) const {
    if (!piece.place) return true;
    const auto line = static_cast<std::size_t>(piece.place->line);
    const auto column = static_cast<std::size_t>(piece.place->column);
    const auto length = static_cast<std::size_t>(piece.place->length);
    const std::size_t begin = line * width + column - 1;
    return length == piece.text.size() && column + length <= width + 1 && begin + length <= screen_.size() &&
           screen_.substr(begin, length) == piece.text;
}

}  // namespace vantro::fuzz
