#include "cli/explain/page_model.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace vantro {

namespace {

Text decimalText(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

Text textOf(const ItemValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) return *flag ? u"True" : u"False";
    if (const std::int16_t* number = std::get_if<std::int16_t>(&value)) return decimalText(*number);
    if (const Text* text = std::get_if<Text>(&value)) return *text;
    const std::size_t entries = std::get<TextList>(value).size();
    return decimalText(static_cast<int>(entries)) + (entries == 1 ? u" entry" : u" entries");
}

bool isValue(StepKind kind) {
    return kind == StepKind::ValueRead || kind == StepKind::KeyAdded || kind == StepKind::EntryAdded;
}

bool samePieces(const std::vector<KeptPiece>& a, const std::vector<KeptPiece>& b) {
    return std::ranges::equal(a, b, [](const KeptPiece& one, const KeptPiece& other) {
        return one.place == other.place && one.text == other.text;
    });
}

std::optional<Place> firstPlaceOf(const std::vector<KeptPiece>& pieces) {
    for (const KeptPiece& piece : pieces) {
        if (piece.place) return piece.place;
    }
    return std::nullopt;
}

/// Builds the model from the steps, one after the other.
class Builder {
public:
    Builder(const Explanation& explanation, const ClassRow* row) : row_(row) {
        model_.screen = explanation.screen();
        for (const KeptStep& step : explanation.steps()) add(step);
        for (const LookAlike& found : lookAlikes(explanation)) model_.lookAlikes.push_back({found, sentenceOf(found)});
        describeDecisions();
        dropEmptyCalls();
    }

    PageModel take() { return std::move(model_); }

private:
    void add(const KeptStep& step) {
        switch (step.kind) {
            case StepKind::CallBegins:
            case StepKind::QueryBegins: begin(step); return;
            case StepKind::CallEnds:
            case StepKind::QueryEnds: end(step); return;
            default: break;
        }
        if (isValue(step.kind)) {
            addValue(step);
        } else {
            addDecision(step);
        }
    }

    void begin(const KeptStep& step) {
        open_.push_back(model_.groups.size());
        model_.groups.push_back(
            {.name = step.name, .meaning = step.kind == StepKind::QueryBegins ? queryMeaning(step) : Text()});
        isCall_.push_back(step.kind == StepKind::CallBegins);
    }

    void end(const KeptStep& step) {
        if (open_.empty()) return;
        if (step.error) current().error = step.error;
        open_.pop_back();
    }

    PageGroup& current() {
        if (open_.empty()) begin({});
        return model_.groups[open_.back()];
    }

    Text queryMeaning(const KeptStep& step) const {
        for (const QueryFacts& query : profileQueries()) {
            if (query.word == step.name) return Text(query.meaning);
        }
        return meaningOf(step, row_);
    }

    void addValue(const KeptStep& step) {
        // Most lists begin with an empty entry, so that element k has index k.
        if (step.kind == StepKind::EntryAdded && step.index == 0 && step.text.empty()) return;
        PageGroup& group = current();
        const Text text = step.value ? textOf(*step.value) : step.text;
        if (PageValue* const known = sameValue(step)) {
            if (std::ranges::find(known->names, step.name) == known->names.end()) known->names.push_back(step.name);
            return;
        }
        PageValue value{.names = {step.name}, .index = step.index, .group = open_.back(), .text = text};
        value.meaning = meaningOf(step, row_);
        value.pieces = step.pieces;
        value.rule = ruleFor(group, value);
        if (const auto place = value.firstPlace()) {
            placed_.emplace(std::tuple(open_.back(), place->line, place->column), model_.values.size());
        }
        group.values.push_back(model_.values.size());
        model_.values.push_back(std::move(value));
    }

    // The value of the same query that consists of the same characters; null for none.
    PageValue* sameValue(const KeptStep& step) {
        const auto place = firstPlaceOf(step.pieces);
        if (!place) return nullptr;
        const auto [first, end] = placed_.equal_range(std::tuple(open_.back(), place->line, place->column));
        for (auto each = first; each != end; ++each) {
            PageValue& known = model_.values[each->second];
            if (samePieces(known.pieces, step.pieces)) return &known;
        }
        return nullptr;
    }

    static const ReadingRule* ruleFor(const PageGroup& group, const PageValue& value) {
        const auto place = value.firstPlace();
        if (!place) return nullptr;
        const auto decided = std::find_if(group.decisions.rbegin(), group.decisions.rend(), [&](const auto& decision) {
            const KeptStep& step = decision.step;
            return step.rule != nullptr && step.line <= place->line && place->line <= step.lastLine;
        });
        return decided != group.decisions.rend() ? decided->step.rule : nullptr;
    }

    void addDecision(KeptStep step) {
        PageGroup& group = current();
        if (step.kind == StepKind::Reported && !group.error) group.error = step.error;
        if (step.lastLine == noLine) step.lastLine = step.line;
        if (continuesLast(group, step)) {
            group.decisions.back().step.lastLine = step.line;
            return;
        }
        PageDecision decision{.step = step, .meaning = meaningOf(step, row_)};
        if (decision.meaning == group.meaning) decision.meaning.clear();
        group.decisions.push_back(std::move(decision));
    }

    void describeDecisions() {
        for (PageGroup& group : model_.groups) {
            for (PageDecision& decision : group.decisions) describe(decision, group);
        }
    }

    static void describe(PageDecision& decision, const PageGroup& group) {
        KeptStep step = decision.step;
        if (step.family && factsOf(*step.family).word == group.name) step.family.reset();  // the heading says it
        decision.sentence = sentenceOf(step);
        const std::size_t colon = decision.sentence.find(u": ");
        if (!decision.sentence.starts_with(u"line") || colon == Text::npos) return;
        decision.lines = decision.sentence.substr(0, colon);
        decision.sentence.erase(0, colon + 2);
    }

    static bool continuesLast(const PageGroup& group, const KeptStep& step) {
        if (step.kind != StepKind::Decided || step.line == noLine || group.decisions.empty()) return false;
        const KeptStep& last = group.decisions.back().step;
        return last.kind == step.kind && last.rule == step.rule && last.family == step.family &&
               last.lastLine + 1 == step.line;
    }

    // A call whose steps are all in its queries says nothing of its own, unless it failed.
    void dropEmptyCalls() {
        std::vector<std::size_t> moved(model_.groups.size());
        std::vector<PageGroup> kept;
        for (std::size_t at = 0; at < model_.groups.size(); ++at) {
            PageGroup& group = model_.groups[at];
            const bool saysNothing = group.decisions.empty() && group.values.empty() && !group.error;
            moved[at] = kept.size();
            if (!isCall_[at] || !saysNothing) kept.push_back(std::move(group));
        }
        for (PageValue& value : model_.values) value.group = moved[value.group];
        model_.groups = std::move(kept);
    }

    const ClassRow* row_;
    PageModel model_;
    std::vector<std::size_t> open_;  // the groups that have begun and not ended
    std::vector<bool> isCall_;       // by group
    std::multimap<std::tuple<std::size_t, std::int32_t, std::int32_t>, std::size_t>
        placed_;  // by group and first place
};

}  // namespace

std::optional<Place> PageValue::firstPlace() const { return firstPlaceOf(pieces); }

PageModel pageModel(const Explanation& explanation, const ClassRow* row) { return Builder(explanation, row).take(); }

}  // namespace vantro
