// What the keys, marks, values and families of steps mean, from their rows.
#include "framework/constants.h"
#include "framework/text_ops.h"
#include "vantro/explanation.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

/// The meaning of the row with this key; empty if there is none.
template <class Rows>
TextView meaningIn(const Rows& rows, TextView key) {
    const auto found = std::ranges::find(rows, key, &Rows::value_type::key);
    return found != rows.end() ? found->meaning : TextView();
}

TextView firstOf(std::initializer_list<TextView> meanings) {
    const auto* const found = std::ranges::find_if(meanings, [](TextView meaning) { return !meaning.empty(); });
    return found != meanings.end() ? *found : TextView();
}

// Queries and values

/// The first of the queries for something other than a family that fits, or null.
template <class Fits>
const QueryFacts* findQuery(Fits fits) {
    for (std::size_t query = 0; query < otherQueryCount; ++query) {
        const QueryFacts& facts = factsOf(static_cast<OtherQuery>(query));
        if (fits(facts)) return &facts;
    }
    return nullptr;
}

Text ofQuery(const KeptStep& step, const ClassRow* /*row*/) {
    if (step.family) return Text(factsOf(*step.family).meaning);
    const QueryFacts* const query = findQuery([&](const QueryFacts& facts) { return facts.word == step.name; });
    return Text(query != nullptr ? query->meaning : TextView());
}

Text ofFamily(const KeptStep& step, const ClassRow* /*row*/) {
    if (!step.family) return {};
    return Text(factsOf(*step.family).meaning);
}

bool isName(std::string_view name, TextView text) {
    return std::ranges::equal(name, text, [](char a, char16_t b) { return b == static_cast<char16_t>(a); });
}

TextView meaningOfPart(Family family, TextView name) {
    for (const ElementPart part : factsOf(family).parts) {
        if (isName(factsOf(part).json, name)) return factsOf(part).meaning;
    }
    return {};
}

/// A value outside the families is a header value, or in a column of a list.
TextView meaningOfOther(TextView name, const ClassRow* row) {
    const auto columns = row != nullptr ? row->description.columns : std::span<const ListColumn>();
    const auto column = std::ranges::find(columns, name, &ListColumn::name);
    if (column != columns.end()) return column->meaning;
    const QueryFacts* const query = findQuery([&](const QueryFacts& facts) { return isName(facts.json, name); });
    return query != nullptr ? query->meaning : TextView();
}

Text ofValue(const KeptStep& step, const ClassRow* row) {
    return Text(step.family ? meaningOfPart(*step.family, step.name) : meaningOfOther(step.name, row));
}

// Keys

Text ofParameter(const KeptStep& step, const ClassRow* row) {
    if (row == nullptr) return {};
    const ClassDescription& about = row->description;
    return Text(firstOf({meaningIn(about.parameters, step.name), meaningIn(about.state, step.name),
                         meaningIn(about.request, step.name)}));
}

TextView meaningOfResult(const ClassRow& row, TextView key) {
    return firstOf({meaningIn(row.description.results, key), meaningIn(row.description.elements, key)});
}

Text ofResult(const KeptStep& step, const ClassRow* row) {
    if (row == nullptr) return {};
    return Text(meaningOfResult(*row, step.name));
}

// Marks

struct MarkRow {
    TextView mark;
    TextView meaning;
};

// clang-format off
constexpr auto marks = std::to_array<MarkRow>({
    {mark::travellerProfile,  u"the mark of a traveller's profile"},
    {mark::companyProfile,    u"the mark of a company's profile"},
    {mark::merged,            u"the mark of a profile that is merged with another one"},
    {mark::similarTravellers, u"the title of a list of travellers with similar names"},
    {mark::similarCompanies,  u"the title of a list of companies with similar names"},
    {mark::companyColumn,     u"the column header above the companies of a list"},
    {mark::nameColumn,        u"the column header above the travellers of a list"},
    {u"     RECLOC     ",     u"the title of the column of record locators"},
    {u"RECLOC ",              u"the title of the column of record locators"},
    {mark::endOfBlock,        u"the list continues on another screen"},
    {mark::noSuchElement,     u"the profile or the list has no such entry"},
    {mark::pnr,               u"the beginning of a PNR"},
    {mark::pnrUpdated,        u"the host has updated the PNR"},
    {mark::prompt,            u"the host's prompt"},
    {mark::endOfDisplay,      u"the end of the display"},
});
// clang-format on

/// The mark of a header value is its query's word in blanks, or before a slash: " NM ", "PIN/".
bool isMarkOf(const QueryFacts& query, TextView text) {
    const TextView word = trimmed(text);
    return word == query.word || (word.ends_with(u'/') && word.substr(0, word.size() - 1) == query.word);
}

/// A mark of the display itself: the header of a section, or what comes before a family's or header value's text.
TextView meaningOfDisplayMark(TextView text) {
    const QueryFacts* const query = findQuery([&](const QueryFacts& facts) { return isMarkOf(facts, text); });
    if (query != nullptr) return query->meaning;
    for (const FamilyFacts& family : families()) {
        if (family.tag == text) return family.meaning;
    }
    const auto isHeader = [&](const FamilyFacts& family) { return family.section == text; };
    const bool isNotes = text.ends_with(titleOf(Section::Notes));
    return onlyIf(isNotes || std::ranges::any_of(families(), isHeader), u"the header of a section");
}

/// What a flag's mark does: "blnKeyTrList: a list of similar traveller names is shown".
Text effectOf(const ClassRow& row, const ScreenFlag& flag) {
    if (flag.flag.empty()) return u"ends the search and sets no flag";
    return concat({onlyIf(!flag.command.empty(), u"after "), flag.command, onlyIf(!flag.command.empty(), u", "),
                   onlyIf(flag.position == MarkPosition::NotOnScreen, u"if it is not there, "), flag.flag, u": ",
                   meaningOfResult(row, flag.flag)});
}

Text effectsOf(const ClassRow& row, TextView text) {
    Text effects;
    for (const ScreenFlag& flag : row.description.flags) {
        if (flag.mark == text) effects += concat({onlyIf(!effects.empty(), u"; "), effectOf(row, flag)});
    }
    return effects;
}

Text ofMark(const KeptStep& step, const ClassRow* row) {
    if (row != nullptr) {
        if (Text effects = effectsOf(*row, step.text); !effects.empty()) return effects;
    }
    const auto* const found = std::ranges::find(marks, TextView(step.text), &MarkRow::mark);
    return Text(found != marks.end() ? found->meaning : meaningOfDisplayMark(step.text));
}

// Errors

constexpr std::array<TextView, 3> callNames{u"CreateCommand", u"VerifyResponse", u"ProfileElements"};

/// The meaning of the number that a call raises.
Text ofCallEnd(const KeptStep& step, const ClassRow* row) {
    if (row == nullptr || !step.error) return {};
    const auto call = static_cast<ClassCall>(std::ranges::find(callNames, TextView(step.name)) - callNames.begin());
    for (const ErrorRow& error : row->description.errors) {
        if (error.call == call && error.number == step.error->number()) return Text(error.meaning);
    }
    return {};
}

Text ofNothing(const KeptStep& /*step*/, const ClassRow* /*row*/) { return {}; }

struct MeaningRow {
    StepKind kind;
    Text (*meaning)(const KeptStep&, const ClassRow*);
};

constexpr auto meanings = std::to_array<MeaningRow>({
    {StepKind::CallBegins, ofNothing},
    {StepKind::CallEnds, ofCallEnd},
    {StepKind::QueryBegins, ofQuery},
    {StepKind::QueryEnds, ofQuery},
    {StepKind::KeyRead, ofParameter},
    {StepKind::MarkSearched, ofMark},
    {StepKind::Decided, ofFamily},
    {StepKind::ValueRead, ofValue},
    {StepKind::KeyAdded, ofResult},
    {StepKind::EntryAdded, ofResult},
    {StepKind::Reported, ofNothing},
});

static_assert(std::ranges::all_of(meanings, [next = 0](const MeaningRow& row) mutable {
    return static_cast<int>(row.kind) == next++;
}));

}  // namespace

Text meaningOf(const KeptStep& step, const ClassRow* row) {
    return meanings[static_cast<std::size_t>(step.kind)].meaning(step, row);
}

}  // namespace vantro
