// Lines that look like elements and are none, and the decisions about them, from the steps of the families' queries.
#include "explain/words.h"
#include "framework/screen.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <map>
#include <set>

namespace vantro {

namespace {

/// The line of a decision about the whole search: below all lines.
constexpr std::int32_t wholeSearch = std::numeric_limits<std::int32_t>::max();

/// The decisions about a line.
struct LineDecisions {
    const ReadingRule* first;
    const ReadingRule* last;
};

using Decisions = std::map<std::int32_t, LineDecisions>;

/// What the last query for a family decided and read.
struct FamilyQuery {
    Decisions decisions = {};
    std::map<std::int32_t, std::set<std::int32_t>> elements = {};  // the lines of each element, by its index

    void add(const KeptStep& step) {
        if (step.kind == StepKind::Decided) {
            const std::int32_t line = step.line == noLine ? wholeSearch : step.line;
            decisions.try_emplace(line, LineDecisions{step.rule, step.rule}).first->second.last = step.rule;
        } else if (step.kind == StepKind::ValueRead) {
            for (const KeptPiece& piece : step.pieces) {
                if (piece.place) elements[step.index].insert(piece.place->line);
            }
        }
    }
};

using Queries = std::array<FamilyQuery, familyCount>;

Queries queriesOf(const Explanation& explanation) {
    Queries queries;
    FamilyQuery* running = nullptr;
    for (const KeptStep& step : explanation.steps()) {
        if (step.kind == StepKind::QueryBegins && step.family) {
            running = &queries[indexOf(*step.family)];
            *running = {};
        } else if (step.kind == StepKind::QueryEnds) {
            running = nullptr;
        } else if (running != nullptr) {
            running->add(step);
        }
    }
    return queries;
}

/// Finds the lines of one family.
class LookAlikeSearch {
public:
    LookAlikeSearch(const FamilyFacts& family, const FamilyQuery& query)
        : family_(family), decisions_(query.decisions) {
        for (const auto& [index, lines] : query.elements) {
            for (const std::int32_t line : lines) noteElement(line, *lines.begin());
        }
    }

    void addFrom(TextView screen, std::vector<LookAlike>& found) const {
        if (decisions_.empty()) return;
        const auto width = static_cast<std::int32_t>(family_.tag.size());
        for (std::int32_t line = 0; static_cast<std::size_t>(line) * screenWidth < screen.size(); ++line) {
            const TextView text = screen.substr(static_cast<std::size_t>(line) * screenWidth, screenWidth);
            const Column tag = find(text, family_.tag);
            if (tag == Column{0} || beginOf(line) == line) continue;
            found.push_back({.line = line, .family = *family_.family, .tag = {line, tag.value, width}});
            decide(found.back());
        }
    }

private:
    /// A line that continues an element may begin another one.
    void noteElement(std::int32_t line, std::int32_t begin) {
        std::int32_t& known = begins_.try_emplace(line, begin).first->second;
        known = std::max(known, begin);
    }

    /// The line in which the element begins that contains the line, or `noLine`.
    std::int32_t beginOf(std::int32_t line) const {
        const auto begin = begins_.find(line);
        return begin != begins_.end() ? begin->second : noLine;
    }

    void decide(LookAlike& found) const {
        const auto own = decisions_.find(found.line);
        if (own != decisions_.end()) return set(found, own, DecisionAt::Line);
        const auto element = decisions_.find(beginOf(found.line));
        if (element != decisions_.end()) return set(found, element, DecisionAt::ElementAbove);
        const auto below = decisions_.upper_bound(found.line);
        if (below == decisions_.begin()) return set(found, below, DecisionAt::LineBelow);
        set(found, std::prev(below), below == decisions_.end() ? DecisionAt::SearchEnd : DecisionAt::LineAbove);
    }

    // The search arrived in a line below with the first decision about it.
    static void set(LookAlike& found, Decisions::const_iterator decision, DecisionAt at) {
        found.rule = at == DecisionAt::LineBelow ? decision->second.first : decision->second.last;
        found.decidedIn = decision->first == wholeSearch ? noLine : decision->first;
        found.decidedAt = at;
    }

    const FamilyFacts& family_;
    const Decisions& decisions_;
    std::map<std::int32_t, std::int32_t> begins_;  // for each line of an element the one in which that begins
};

/// The words before the rule; a line above or below is between `before` and `after`.
struct DecisionWords {
    DecisionAt at;
    TextView before;
    TextView after;
};

// clang-format off
constexpr auto decisionWords = std::to_array<DecisionWords>({
    {DecisionAt::Line,         {},                                           {}},
    {DecisionAt::ElementAbove, u"the text belongs to the element of ",       u": "},
    {DecisionAt::SearchEnd,    u"the search ended in ",                      u": "},
    {DecisionAt::LineAbove,    u"the last decision above it is that about ", u": "},
    {DecisionAt::LineBelow,    u"the search passed over it, to ",            u": "},
});
// clang-format on

static_assert(std::ranges::all_of(decisionWords, [next = 0](const DecisionWords& row) mutable {
    return static_cast<int>(row.at) == next++;
}));

}  // namespace

std::vector<LookAlike> lookAlikes(const Explanation& explanation) {
    const Queries queries = queriesOf(explanation);
    std::vector<LookAlike> found;
    for (const FamilyFacts& family : families()) {
        LookAlikeSearch(family, queries[indexOf(*family.family)]).addFrom(explanation.screen(), found);
    }
    std::ranges::stable_sort(found, {}, &LookAlike::line);
    return found;
}

Text sentenceOf(const LookAlike& lookAlike) {
    const DecisionWords& words = decisionWords[static_cast<std::size_t>(lookAlike.decidedAt)];
    Text where;
    if (!words.before.empty() && lookAlike.decidedIn != noLine) {
        where = concat({words.before, linesInWords(lookAlike.decidedIn, lookAlike.decidedIn), words.after});
    }
    return concat({factsOf(lookAlike.family).word, u" in ", linesInWords(lookAlike.line, lookAlike.line), u": ", where,
                   lookAlike.rule->meaning});
}

}  // namespace vantro
