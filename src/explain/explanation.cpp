#include "vantro/explanation.h"

namespace vantro {

void Explanation::observe(const ReadingStep& step) {
    if (step.kind == StepKind::CallBegins && screen_.empty()) screen_ = step.text;
    KeptStep& kept = steps_.emplace_back();
    kept.kind = step.kind;
    kept.line = step.line;
    kept.lastLine = step.lastLine;
    kept.family = step.family;
    kept.rule = step.rule;
    kept.search = step.search;
    kept.name = step.name;
    if (step.kind != StepKind::CallBegins) kept.text = step.text;
    kept.index = step.index;
    for (const ValuePiece& piece : step.pieces) kept.pieces.push_back({Text(piece.text), piece.place});
    if (step.value != nullptr) kept.value = *step.value;
    if (step.error != nullptr) kept.error = *step.error;
}

void Explanation::clear() {
    steps_.clear();
    screen_.clear();
}

}  // namespace vantro
