// A whole explanation as text: the steps line by line, indented, with their meanings, and the lines that look like
// elements.
#include "explain/words.h"
#include "framework/text_ops.h"

#include <algorithm>
#include <set>

namespace vantro {

namespace {

bool begins(const KeptStep& step) { return step.kind == StepKind::CallBegins || step.kind == StepKind::QueryBegins; }
bool ends(const KeptStep& step) { return step.kind == StepKind::CallEnds || step.kind == StepKind::QueryEnds; }

bool isFalse(const KeptStep& step) { return step.value == ItemValue(false); }

/// Whether a step says of the next line what the one before it says of its own.
bool continues(const KeptStep& range, const KeptStep& step) {
    return range.kind == StepKind::Decided && step.kind == StepKind::Decided && range.rule == step.rule &&
           range.family == step.family && range.line != noLine && step.line == std::max(range.line, range.lastLine) + 1;
}

/// The values of a query.
class Outcome {
public:
    void add(const KeptStep& step) {
        elements_ = std::max(elements_, step.kind == StepKind::ValueRead ? step.index : 0);
        const bool isValue = step.kind == StepKind::ValueRead || step.kind == StepKind::KeyAdded;
        hasValue_ = hasValue_ || (isValue && !step.text.empty()) || step.kind == StepKind::EntryAdded;
    }

    /// "no element", "2 elements"; for a query without elements "a value" or "no value".
    Text inWords(const KeptStep& end) const {
        if (elements_ > 0) return concat({numberInWords(elements_), elements_ == 1 ? u" element" : u" elements"});
        if (end.family) return u"no element";
        return hasValue_ ? u"a value" : u"no value";
    }

private:
    std::int32_t elements_ = 0;
    bool hasValue_ = false;
};

class Writer {
public:
    explicit Writer(const ClassRow* row) : row_(row) {}

    void add(const KeptStep& step) {
        if (begins(step)) startOver();
        if (ends(step)) --depth_;
        outcome_.add(step);
        addLine(step.kind == StepKind::QueryEnds ? queryEnd(step) : sentenceOf(step), newMeaning(step));
        if (begins(step)) ++depth_;
    }

    void add(const LookAlike& lookAlike) { addLine(sentenceOf(lookAlike), {}); }

    void addLine(TextView sentence, TextView meaning) {
        text_.append(2 * static_cast<std::size_t>(std::max(depth_, 0)), u' ');
        text_ += sentence;
        if (!meaning.empty()) text_ += concat({u" (", meaning, u")"});
        text_ += u'\n';
    }

    void indent() { ++depth_; }

    Text take() { return std::move(text_); }

private:
    void startOver() {
        said_.clear();
        outcome_ = {};
    }

    Text queryEnd(const KeptStep& step) const {
        if (step.error) return concat({step.name, u": failed with ", errorInWords(*step.error)});
        return concat({step.name, u": ", outcome_.inWords(step)});
    }

    /// The meaning of a step, unless it is in a line of the same call or query already. That of a flag is a sentence,
    /// which does not hold for a False flag.
    Text newMeaning(const KeptStep& step) {
        Text meaning = meaningOf(step, row_);
        const bool isSaid = !said_.insert(meaning).second;
        if (meaning.empty() || isSaid) return {};
        const bool isConstant = meaning.starts_with(u"always");  // "always False"
        return isFalse(step) && !isConstant ? concat({u"True means: ", meaning}) : meaning;
    }

    const ClassRow* row_;
    Text text_;
    int depth_ = 0;
    std::set<Text> said_;
    Outcome outcome_;
};

void addSteps(std::span<const KeptStep> steps, Writer& writer) {
    for (auto step = steps.begin(); step != steps.end();) {
        KeptStep range = *step;
        for (++step; step != steps.end() && continues(range, *step); ++step) range.lastLine = step->line;
        writer.add(range);
    }
}

}  // namespace

Text textOf(const Explanation& explanation, const ClassRow* row) {
    Writer writer(row);
    addSteps(explanation.steps(), writer);
    const std::vector<LookAlike> found = lookAlikes(explanation);
    if (!found.empty()) {
        writer.addLine(u"lines that contain a family's mark and begin none of its elements:", {});
        writer.indent();
        for (const LookAlike& line : found) writer.add(line);
    }
    return writer.take();
}

}  // namespace vantro
