// The facts in the public headers about queries, families, parts and lists, built from their rows.
#include "display/display_line.h"
#include "display/families.h"
#include "framework/keys.h"
#include "profile/element_parts.h"
#include "profile/element_query.h"
#include "profile/family_sentences.h"
#include "vantro/lists.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vantro {

namespace {

// The queries other than families

constexpr std::array nameKeys{key::strKeyElement.name};
constexpr std::array numberedKeys{key::strKeyElement.name, key::strKeyElementNr.name};
constexpr std::array elementNumbersKeys{key::strKeyElNbrsArray.name};
constexpr std::array notesKeys{key::strKeyElement_list.name, key::strKeyElementNr_list.name,
                               key::strKeyQualifier_list.name};

struct OtherQueryRow {
    OtherQuery query;
    int order;  ///< position, from 1, in the order in which queries compare their words; 0 for the notes
    TextView word;
    WordMatch match;
    std::span<const TextView> keys;
    std::string_view json;
    TextView meaning;
};

// clang-format off
constexpr auto otherQueryRows = std::to_array<OtherQueryRow>({
    // query                          order word             match                  keys                JSON                meaning
    {OtherQuery::Name,                1,  u"NM",            WordMatch::Whole,      nameKeys,           "name",             u"name of the profile: the traveller's, or else the company's"},
    {OtherQuery::RecordLocator,       8,  u"RECLOC",        WordMatch::Whole,      nameKeys,           "recordLocator",    u"record locator of the profile"},
    {OtherQuery::OfficeIdentifier,    9,  u"OFFID",         WordMatch::Whole,      nameKeys,           "officeIdentifier", u"office identifier of the profile"},
    {OtherQuery::CompanyName,         10, u"PCN",           WordMatch::FirstThree, numberedKeys,       "companyName",      u"company name line, without a number key where it has no number"},
    {OtherQuery::Pin,                 15, u"PIN",           WordMatch::FirstThree, numberedKeys,       "pin",              u"PIN line"},
    {OtherQuery::Psl,                 16, u"PSL",           WordMatch::FirstThree, numberedKeys,       "psl",              u"PSL line, without any key where there is none"},
    {OtherQuery::TransferableNumbers, 17, u"ALL",           WordMatch::Whole,      elementNumbersKeys, "",                 u"numbers of the transferable elements that the selection names"},  // Meant: "ALL" and "RC" are tested after the PSL row
    {OtherQuery::Notes,               0,  u"ProfileNotes",  WordMatch::Whole,      notesKeys,          "notes",            u"notes of the profile"},
});
// clang-format on

constexpr QueryFacts queryFrom(const OtherQueryRow& row) {
    QueryFacts facts;
    facts.word = row.word;
    facts.match = row.match;
    facts.meaning = row.meaning;
    facts.keys = row.keys;
    facts.json = row.json;
    facts.other = row.query;
    return facts;
}

constexpr auto otherQueries = [] {
    std::array<QueryFacts, otherQueryCount> all;
    for (const OtherQueryRow& row : otherQueryRows) all.at(indexOf(row.query)) = queryFrom(row);
    return all;
}();

static_assert(otherQueryRows.size() == otherQueryCount);
static_assert(std::ranges::none_of(otherQueries, [](const QueryFacts& query) { return query.word.empty(); }));
static_assert(companyNamePrefix.starts_with(otherQueries[indexOf(OtherQuery::CompanyName)].word));
static_assert(pinPrefix.starts_with(otherQueries[indexOf(OtherQuery::Pin)].word));
static_assert(pslPrefix.starts_with(otherQueries[indexOf(OtherQuery::Psl)].word));

// Families

constexpr std::array listKeys{key::strKeyElement_list.name, key::strKeyElementNr_list.name};
constexpr std::array elementAndListKeys{key::strKeyElement.name, key::strKeyElementNr.name,
                                        key::strKeyElement_list.name, key::strKeyElementNr_list.name};

constexpr TextView keyOf(ElementPart part) {
    return part == ElementPart::Asterisk ? key::blnKeyAsterix.name : rowOf(part).key->name;
}

/// The keys of a split element, in the order of its parts.
template <Split split>
constexpr auto keysOfSplit = [] {
    std::array<TextView, partsOf(split).size()> keys;
    std::ranges::transform(partsOf(split), keys.begin(), keyOf);
    return keys;
}();

constexpr std::span<const TextView> keysOf(ElementOutput output, Split split) {
    if (output == ElementOutput::Lists) return listKeys;
    if (output == ElementOutput::ElementAndLists) return elementAndListKeys;
    switch (split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer: return keysOfSplit<Split::FrequentFlyer>;
        case Split::ServiceRequest: return keysOfSplit<Split::ServiceRequest>;
        case Split::RemarkDetail: return keysOfSplit<Split::RemarkDetail>;
    }
    return keysOfSplit<Split::None>;
}

constexpr Split splitOf(const TransferableFamily& row) { return row.split; }
constexpr Split splitOf(const auto& /*row*/) { return Split::None; }

constexpr int indexErrorOf(const auto& row) {
    if (row.about.output == ElementOutput::Lists) return 0;
    return row.about.indexError != 0 ? row.about.indexError : row.error;
}

constexpr auto familyFrom = [](const auto& row) {
    FamilyFacts facts;
    facts.word = wordOf(row);
    facts.match = isTransferable(row.family) ? WordMatch::Whole : WordMatch::FirstThree;
    facts.meaning = row.about.meaning;
    facts.keys = keysOf(row.about.output, splitOf(row));
    facts.family = row.family;
    facts.tag = tagOf(row);
    facts.section = sectionHeaders.at(indexOf(sectionOf(row)));
    facts.inSection = sectionOf(row);
    facts.sample = row.about.sample;
    facts.lines = linesOf(row);
    facts.joining = joiningOf(row);
    facts.output = row.about.output;
    facts.parts = partsOf(splitOf(row));
    facts.countProperty = row.about.countProperty;
    facts.firstIndex = isTransferable(row.family) ? 0 : 1;
    facts.countError = row.error;
    facts.indexError = indexErrorOf(row);
    return facts;
};

constexpr auto familyTable = [] {
    std::array<FamilyFacts, familyCount> all;
    for (std::size_t index = 0; index < familyCount; ++index) {
        all[index] = withRow(static_cast<Family>(index), familyFrom);
    }
    return all;
}();

// All queries, ordered. No position is empty, because there are as many queries as positions.

constexpr std::size_t queryCount = familyCount + otherQueryCount - 1;  // all but the notes

constexpr auto queries = [] {
    std::array<QueryFacts, queryCount> all;
    for (const FamilyFacts& facts : familyTable) {
        const int order = withRow(*facts.family, [](const auto& row) { return row.about.queryOrder; });
        all.at(static_cast<std::size_t>(order) - 1) = facts;
    }
    for (const OtherQueryRow& row : otherQueryRows) {
        if (row.order != 0) all.at(static_cast<std::size_t>(row.order) - 1) = queryFrom(row);
    }
    return all;
}();

static_assert(std::ranges::none_of(queries, [](const QueryFacts& query) { return query.word.empty(); }));
static_assert(std::ranges::all_of(queries, [](const QueryFacts& query) {
    const bool isWordUnique = std::ranges::count(queries, query.word, &QueryFacts::word) == 1;
    return isWordUnique && (query.match == WordMatch::Whole || query.word.size() == 3);
}));

/// The first three letters of a word, or fewer.
constexpr std::uint64_t beginningOf(TextView word) {
    std::uint64_t letters = 0;
    for (std::size_t index = 0; index < 3 && index < word.size(); ++index) letters = letters << 16 | word[index];
    return letters;
}

constexpr auto wordBeginnings = [] {
    std::array<std::uint64_t, queryCount> all{};
    std::ranges::transform(queries, all.begin(), [](const QueryFacts& query) { return beginningOf(query.word); });
    return all;
}();

static_assert(std::ranges::all_of(wordBeginnings, [](std::uint64_t beginning) {
    return std::ranges::count(wordBeginnings, beginning) == 1;
}));

/// Compares a prefix as it is stored, blanks and case included.
bool matches(const QueryFacts& query, TextView prefix) {
    return query.match == WordMatch::Whole ? prefix == query.word : prefix.starts_with(query.word);
}

constexpr auto names = [] {
    std::array<FamilyName, familyCount> all{};
    std::size_t next = 0;
    for (const QueryFacts& query : queries) {
        if (query.family) all.at(next++) = {*query.family, query.word};
    }
    return all;
}();

// Lists

/// A list's name, built from the rows of its family and its part.
class ListName {
public:
    constexpr ListName() = default;
    constexpr ListName(const FamilyFacts& family, ElementPart part) {
        append(part == ElementPart::Asterisk ? u"bln" : u"str");
        append(family.countProperty.substr(0, family.countProperty.find(u"ElementsCount")));
        append(rowOf(part).listEnding);
    }

    constexpr TextView text() const { return {letters_.data(), size_}; }

private:
    constexpr void append(TextView part) {
        for (const char16_t letter : part) letters_.at(size_++) = letter;
    }

    std::array<char16_t, 32> letters_{};
    std::size_t size_ = 0;
};

constexpr std::size_t listCount = [] {
    std::size_t count = 0;
    for (const FamilyFacts& family : familyTable) count += family.parts.size();
    return count;
}();

/// Calls `use` with each list's index, family and part.
template <class Use>
constexpr void forEachList(Use use) {
    std::size_t index = 0;
    for (const FamilyFacts& family : familyTable) {
        for (const ElementPart part : family.parts) use(index++, family, part);
    }
}

constexpr auto listNames = [] {
    std::array<ListName, listCount> all;
    forEachList([&](std::size_t index, const FamilyFacts& family, ElementPart part) { all[index] = {family, part}; });
    return all;
}();

constexpr auto lists = [] {
    std::array<ElementListName, listCount> all{};
    forEachList([&](std::size_t index, const FamilyFacts& family, ElementPart part) {
        all[index] = {listNames[index].text(), *family.family, part};
    });
    return all;
}();

static_assert(std::ranges::all_of(lists, [](const ElementListName& list) {
    return std::ranges::count(lists, list.name, &ElementListName::name) == 1;
}));

// Parts

constexpr auto parts = [] {
    std::array<PartFacts, elementPartCount> all;
    for (const ElementPartRow& row : elementParts) {
        all[indexOf(row.part)] = {.part = row.part,
                                  .meaning = row.meaning,
                                  .key = keyOf(row.part),
                                  .listKey = row.listKey == nullptr ? TextView() : row.listKey->name,
                                  .listEnding = row.listEnding,
                                  .json = row.json,
                                  .label = row.label,
                                  .value = row.value};
    }
    return all;
}();

}  // namespace

const PartFacts& factsOf(ElementPart part) noexcept { return parts[indexOf(part)]; }

const QueryFacts& factsOf(OtherQuery query) noexcept { return otherQueries[indexOf(query)]; }

const FamilyFacts& factsOf(Family family) noexcept { return familyTable[indexOf(family)]; }

TextView titleOf(Section section) noexcept { return sectionHeaders[indexOf(section)].substr(headerStart.size()); }

Section sectionOf(Family family) { return factsOf(family).inSection; }

std::span<const QueryFacts> profileQueries() noexcept { return queries; }

const QueryFacts* queryFor(TextView prefix) noexcept {
    const auto found = std::ranges::find(wordBeginnings, beginningOf(prefix));
    if (found == wordBeginnings.end()) return nullptr;
    const QueryFacts& query = queries[static_cast<std::size_t>(found - wordBeginnings.begin())];
    return matches(query, prefix) ? &query : nullptr;
}

std::span<const FamilyFacts> families() noexcept { return familyTable; }

std::span<const FamilyName> familyNames() { return names; }

std::span<const ElementListName> elementLists() noexcept { return lists; }

}  // namespace vantro
