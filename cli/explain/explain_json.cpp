#include "cli/explain/explain_json.h"

#include "cli/io/utf.h"
#include "cli/json/collection.h"
#include "cli/json/positions.h"
#include "vantro/families.h"
#include "vantro/screen_lines.h"

#include <array>
#include <variant>

namespace vantro {

namespace {

constexpr std::array<std::string_view, 11> kindNames{"callBegins", "callEnds",     "queryBegins", "queryEnds",
                                                     "keyRead",    "markSearched", "decided",     "valueRead",
                                                     "keyAdded",   "entryAdded",   "reported"};

constexpr std::array<std::string_view, 4> searchNames{"startsLine", "inLine", "onScreen", "terminal"};

bool isValue(const KeptStep& step) {
    return step.kind == StepKind::ValueRead || step.kind == StepKind::KeyAdded || step.kind == StepKind::EntryAdded;
}

struct ItemWriter {
    JsonOut& out;

    void operator()(bool truth) const { out.boolean(truth); }
    void operator()(std::int16_t number) const { out.number(number); }
    void operator()(const Text& text) const { out.text(text); }
    void operator()(const TextList& list) const { writeList(list, out); }
};

class ExplanationWriter {
public:
    ExplanationWriter(const Explained& explained, JsonOut& out)
        : explained_(explained), steps_(explained.explanation.steps()), out_(out) {}

    void write() {
        out_.beginObject();
        writeSource();
        textMember("call", toText(explained_.call));
        if (explained_.row != nullptr) textMember("class", explained_.row->name);
        writeScreen();
        writeValues();
        writeSteps();
        writeLookAlikes();
        writeEnd();
        out_.endObject();
    }

private:
    static Text toText(std::string_view ascii) { return Text(ascii.begin(), ascii.end()); }

    void textMember(std::string_view name, TextView text) {
        out_.key(name);
        out_.text(text);
    }
    void textUnlessEmpty(std::string_view name, TextView text) {
        if (!text.empty()) textMember(name, text);
    }
    void numberMember(std::string_view name, int number) {
        out_.key(name);
        out_.number(number);
    }

    void writeSource() {
        out_.key("source");
        out_.beginObject();
        textMember("file", toUtf16(explained_.file));
        if (explained_.display != 0) numberMember("display", static_cast<int>(explained_.display));
        numberMember("line", static_cast<int>(explained_.line));
        out_.endObject();
    }

    void writeScreen() {
        out_.key("screen");
        out_.beginArray();
        TextView rest = explained_.explanation.screen();
        while (!rest.empty()) {
            out_.text(rest.substr(0, screenWidth));
            rest.remove_prefix(std::min<std::size_t>(rest.size(), screenWidth));
        }
        out_.endArray();
    }

    void writeValues() {
        out_.key("values");
        out_.beginArray();
        for (std::size_t at = 0; at < steps_.size(); ++at) {
            if (isValue(steps_[at])) writeValue(steps_[at], at);
        }
        out_.endArray();
    }

    void writeValue(const KeptStep& step, std::size_t at) {
        out_.beginObject();
        numberMember("step", static_cast<int>(at));
        writeName(step);
        out_.key("value");
        step.value ? std::visit(ItemWriter{out_}, *step.value) : out_.text(step.text);
        textUnlessEmpty("meaning", meaningOf(step, explained_.row));
        out_.key("pieces");
        writePieces(step.pieces, out_);
        out_.endObject();
    }

    void writeName(const KeptStep& step) {
        textMember("name", step.name);
        if (step.family) textMember("family", factsOf(*step.family).word);
        if (step.index != 0 || step.kind == StepKind::EntryAdded) numberMember("index", step.index);
    }

    void writeSteps() {
        out_.key("steps");
        out_.beginArray();
        int value = 0;
        for (const KeptStep& step : steps_) writeStep(step, isValue(step) ? value++ : -1);
        out_.endArray();
    }

    /// `value` is the index of the step's value, or -1.
    void writeStep(const KeptStep& step, int value) {
        out_.beginObject();
        textMember("kind", toText(kindNames[static_cast<std::size_t>(step.kind)]));
        textMember("sentence", sentenceOf(step));
        if (value >= 0) {
            numberMember("value", value);
        } else {
            writeMembers(step);
        }
        if (step.error) writeError(*step.error);
        out_.endObject();
    }

    void writeMembers(const KeptStep& step) {
        if (step.line != noLine) numberMember("line", step.line);
        if (step.lastLine != noLine) numberMember("lastLine", step.lastLine);
        if (step.family) textMember("family", factsOf(*step.family).word);
        if (step.rule != nullptr) textMember("rule", toText(step.rule->name));
        textUnlessEmpty("name", step.name);
        if (step.kind == StepKind::KeyRead) textMember("text", step.text);
        if (step.kind == StepKind::MarkSearched) writeMark(step);
        textUnlessEmpty("meaning", meaningOf(step, explained_.row));
    }

    void writeMark(const KeptStep& step) {
        textMember("mark", step.text);
        textMember("search", toText(searchNames[static_cast<std::size_t>(step.search)]));
        out_.key("isFound");
        out_.boolean(!step.pieces.empty());
        out_.key("pieces");
        writePieces(step.pieces, out_);
    }

    void writeError(const Error& error) {
        out_.key("error");
        out_.beginObject();
        numberMember("number", error.number());
        textMember("source", error.source());
        textMember("description", error.description());
        out_.endObject();
    }

    void writeLookAlikes() {
        out_.key("lookAlikes");
        out_.beginArray();
        for (const LookAlike& lookAlike : lookAlikes(explained_.explanation)) {
            out_.beginObject();
            numberMember("line", lookAlike.line);
            textMember("family", factsOf(lookAlike.family).word);
            textMember("meaning", factsOf(lookAlike.family).meaning);
            out_.key("pieces");
            const KeptPiece tag{Text(factsOf(lookAlike.family).tag), lookAlike.tag};
            writePieces({&tag, 1}, out_);
            if (lookAlike.rule != nullptr) textMember("rule", toText(lookAlike.rule->name));
            if (lookAlike.decidedIn != noLine) numberMember("decidedIn", lookAlike.decidedIn);
            textMember("sentence", sentenceOf(lookAlike));
            out_.endObject();
        }
        out_.endArray();
    }

    void writeEnd() {
        if (explained_.error) return writeError(*explained_.error);
        textMember("outcome", toUtf16(explained_.outcome));
        out_.key("results");
        explained_.writeResults(out_);
    }

    const Explained& explained_;
    std::span<const KeptStep> steps_;
    JsonOut& out_;
};

}  // namespace

void writeExplanation(const Explained& explained, JsonOut& out) { ExplanationWriter(explained, out).write(); }

}  // namespace vantro
