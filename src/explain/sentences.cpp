// Steps in words.
#include "framework/int16.h"
#include "framework/text_ops.h"
#include "vantro/explanation.h"

namespace vantro {

namespace {

Text number(std::int32_t value) { return decimal(static_cast<std::int16_t>(value)); }

Text linesOf(const KeptStep& step) {
    if (step.line == noLine) return {};
    if (step.lastLine == noLine || step.lastLine == step.line) return u"line " + number(step.line) + u": ";
    return u"lines " + number(step.line) + u" to " + number(step.lastLine) + u": ";
}

Text familyOf(const KeptStep& step) { return step.family ? Text(factsOf(*step.family).word) + u": " : Text(); }

}  // namespace

Text sentenceOf(const KeptStep& step) {
    const Text subject = linesOf(step) + familyOf(step);
    switch (step.kind) {
        case StepKind::Decided: return subject + Text(step.rule->meaning);
        case StepKind::MarkSearched:
            return subject + u"\"" + step.text + (step.isPlaced() ? u"\" found" : u"\" not found");
        default: return subject + step.name + Text(onlyIf(!step.text.empty(), u": ")) + step.text;
    }
}

Text sentenceOf(const LookAlike& lookAlike) { return Text(lookAlike.rule->meaning); }

Text meaningOf(const KeptStep& step, const ClassRow* /*row*/) {
    return step.family ? Text(factsOf(*step.family).meaning) : Text();
}

Text textOf(const Explanation& explanation, const ClassRow* /*row*/) {
    Text text;
    for (const KeptStep& step : explanation.steps()) text += sentenceOf(step) + u"\n";
    return text;
}

std::vector<LookAlike> lookAlikes(const Explanation& /*explanation*/) { return {}; }

}  // namespace vantro
