#include "profile/element_query.h"

#include "framework/constants.h"
#include "framework/error_frame.h"
#include "framework/int16.h"
#include "readers/header_readers.h"
#include "readers/host_line.h"
#include "readers/transferable_scanner.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantro {

namespace {

/// How a prefix is compared. It is compared as stored, blanks and case included.
enum class Match : std::uint8_t {
    Whole,       ///< equals the word
    FirstThree,  ///< its first three characters equal the word
};

struct DispatchRow {
    Match match;
    TextView word;
    void (ProfileQuery::*answer)(Family family);
    std::optional<Family> family = {};  // of the answers that serve more than one
};

using Query = ProfileQuery;

// The first row that matches answers.
// Meant: "ALL" and "RC" stand behind the PSL row.
// clang-format off
constexpr std::array<DispatchRow, 36> dispatchTable{{
    {Match::Whole,      u"NM",     &Query::addName},
    {Match::Whole,      u"SR",     &Query::addIndexed,             Family::ServiceRequest},
    {Match::Whole,      u"RM",     &Query::addIndexed,             Family::Remark},
    {Match::Whole,      u"AP",     &Query::addIndexed,             Family::Contact},
    {Match::Whole,      u"OS",     &Query::addIndexed,             Family::OtherService},
    {Match::Whole,      u"FFN",    &Query::addIndexed,             Family::FrequentFlyer},
    {Match::Whole,      u"ST",     &Query::addIndexed,             Family::Seat},
    {Match::Whole,      u"RECLOC", &Query::addRecordLocator},
    {Match::Whole,      u"OFFID",  &Query::addOfficeIdentifier},
    {Match::FirstThree, u"PCN",    &Query::addCompanyName},
    {Match::FirstThree, u"PHI",    &Query::addLists,               Family::PHI},
    {Match::FirstThree, u"PPH",    &Query::addLists,               Family::PPH},
    {Match::FirstThree, u"PCI",    &Query::addLists,               Family::PCI},
    {Match::FirstThree, u"PPC",    &Query::addLists,               Family::PPC},
    {Match::FirstThree, u"PIN",    &Query::addPin},
    {Match::FirstThree, u"PSL",    &Query::addPsl},
    {Match::Whole,      u"ALL",    &Query::addTransferableNumbers},
    {Match::Whole,      u"RC",     &Query::addIndexed,             Family::RemarkConf},
    {Match::FirstThree, u"PPR",    &Query::addIndexedWithLists,    Family::PPR},
    {Match::FirstThree, u"PPS",    &Query::addIndexedWithLists,    Family::PPS},
    {Match::FirstThree, u"PGL",    &Query::addIndexedWithLists,    Family::PGL},
    {Match::FirstThree, u"PPA",    &Query::addLists,               Family::PPA},
    {Match::FirstThree, u"PPK",    &Query::addLists,               Family::PPK},
    {Match::FirstThree, u"PPI",    &Query::addLists,               Family::PPI},
    {Match::FirstThree, u"PXC",    &Query::addLists,               Family::PXC},
    {Match::FirstThree, u"PXA",    &Query::addLists,               Family::PXA},
    {Match::FirstThree, u"PXK",    &Query::addLists,               Family::PXK},
    {Match::FirstThree, u"PSH",    &Query::addLists,               Family::PSH},
    {Match::FirstThree, u"PSC",    &Query::addLists,               Family::PSC},
    {Match::FirstThree, u"PPT",    &Query::addLists,               Family::PPT},
    {Match::FirstThree, u"PXT",    &Query::addLists,               Family::PXT},
    {Match::FirstThree, u"PAS",    &Query::addLists,               Family::PAS},
    {Match::FirstThree, u"PIV",    &Query::addLists,               Family::PIV},
    {Match::FirstThree, u"PCE",    &Query::addLists,               Family::PCE},
    {Match::FirstThree, u"PID",    &Query::addLists,               Family::PID},
    {Match::FirstThree, u"PFO",    &Query::addLists,               Family::PFO},
}};
// clang-format on

bool matches(const DispatchRow& row, TextView prefix) {
    return row.match == Match::Whole ? prefix == row.word : prefix.starts_with(row.word);
}

static_assert(std::ranges::all_of(dispatchTable, [](const DispatchRow& row) {
    return row.match == Match::Whole || row.word.size() == 3;
}));

constexpr std::array<FamilyName, familyCount> namesOfFamilies() {
    std::array<FamilyName, familyCount> names{};
    std::size_t next = 0;
    for (const DispatchRow& row : dispatchTable) {
        if (row.family) names.at(next++) = {*row.family, row.word};
    }
    return names;
}

constexpr std::array<FamilyName, familyCount> names = namesOfFamilies();

/// The numbers raised for an index beyond the count.
struct OutputError {
    Family family;
    int error;
};

// clang-format off
constexpr auto outputErrors = std::to_array<OutputError>({
    {Family::PPR,            5266},
    {Family::PGL,            5266},  // Meant: the priority lines' number, though its own extractor raises 5267
    {Family::PPS,            5270},
    {Family::Remark,         5260},
    {Family::Contact,        5235},
    {Family::OtherService,   5250},
    {Family::FrequentFlyer,  5255},
    {Family::Seat,           5240},
    {Family::ServiceRequest, 5245},
    {Family::RemarkConf,     5265},  // Meant: its extractor raises 5260
});
// clang-format on

void checkIndex(Family family, std::int16_t index, std::int16_t count) {
    if (index <= count) return;
    const auto row = std::ranges::find(outputErrors, family, &OutputError::family);
    throw Error(row->error, applicationTitle, description::verifyingProfile);
}

}  // namespace

std::span<const FamilyName> familyNames() { return names; }

CollectionPtr ProfileQuery::answer(TextView display) {
    const TextView prefix = request_.read(key::strKeyPrefix);
    display_ = withoutHostLine(terminal_, display, ShortDisplay::Fails);
    if (prefix.empty()) throw Error(number::emptyPrefix, applicationTitle, description::verifyingProfile);
    for (const DispatchRow& row : dispatchTable) {
        if (!matches(row, prefix)) continue;
        (this->*row.answer)(row.family.value_or(Family{}));  // Not covered: no answer is virtual
        // Meant: an answered prefix gives no object, an unknown one gives the collection back.
        return {};
    }
    return collection_;
}

void ProfileQuery::addName(Family /*family*/) {
    Display display(terminal_, display_);
    Results(*collection_).add(key::strKeyElement, readName(display));
}

void ProfileQuery::addRecordLocator(Family /*family*/) {
    Display display(terminal_, display_);
    Results(*collection_).add(key::strKeyElement, readRecordLocator(display));
}

void ProfileQuery::addOfficeIdentifier(Family /*family*/) {
    Display display(terminal_, display_);
    Results(*collection_).add(key::strKeyElement, readOfficeIdentifier(display));
}

void ProfileQuery::addCompanyName(Family /*family*/) {
    Display display(terminal_, display_);
    const CompanyNameLine line = readCompanyName(display);
    Results results(*collection_);
    results.add(key::strKeyElement, line.name);
    if (line.number) results.add(key::strKeyElementNr, *line.number);
}

void ProfileQuery::addPin(Family /*family*/) {
    Display display(terminal_, display_);
    const NumberedText pin = readPin(display);
    Results results(*collection_);
    results.add(key::strKeyElement, pin.text);
    results.add(key::strKeyElementNr, pin.number);
}

void ProfileQuery::addPsl(Family /*family*/) {
    Display display(terminal_, display_);
    const std::optional<NumberedText> psl = readPsl(display);
    if (!psl) return;
    Results results(*collection_);
    results.add(key::strKeyElement, psl->text);
    results.add(key::strKeyElementNr, psl->number);
}

void ProfileQuery::addTransferableNumbers(Family /*family*/) {
    Display display(terminal_, display_);
    Results(*collection_).add(key::strKeyElNbrsArray, scanTransferable(display, selection_));
}

void ProfileQuery::addWholeLists(Family family) {
    const ElementLists& lists = profile_.lists(family);
    Results results(*collection_);
    results.add(key::strKeyElement_list, lists.text);
    results.add(key::strKeyElementNr_list, lists.number);
}

void ProfileQuery::addLists(Family family) {
    profile_.count(family, display_);
    addWholeLists(family);
}

void ProfileQuery::addIndexedWithLists(Family family) {
    const TextView given = request_.readAsText(key::intKeyIndex);
    const std::int16_t count = profile_.count(family, display_);
    // The index is converted only now: a display that cannot be read fails before an index that cannot.
    const std::int16_t index = given.empty() ? std::int16_t{0} : toInt16(given);
    checkIndex(family, index, count);
    if (index > 0) {
        const ElementLists& lists = profile_.lists(family);
        const auto place = static_cast<std::size_t>(index);
        Results results(*collection_);
        results.add(key::strKeyElement, lists.text[place]);
        results.add(key::strKeyElementNr, lists.number[place]);
    }
    addWholeLists(family);
}

void ProfileQuery::addIndexed(Family family) {
    const std::int16_t index = request_.read(key::intKeyIndex);
    const std::int16_t count = profile_.count(family, display_);
    checkIndex(family, index, count);
    const std::int16_t place = toInt16(index - 1LL);
    if (place < 0) fail(Failure::SubscriptOutOfRange);
    const ElementLists& lists = profile_.lists(family);
    const auto entry = static_cast<std::size_t>(place);
    Results results(*collection_);
    results.add(key::strKeyElement, lists.text[entry]);
    results.add(key::strKeyElementNr, lists.number[entry]);
    addFurtherKeys(family, entry);
}

void ProfileQuery::addFurtherKeys(Family family, std::size_t entry) {
    const ElementLists& lists = profile_.lists(family);
    Results results(*collection_);
    switch (transferableFamilies[indexOf(family) - firstTransferable].split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer:
            results.add(key::strKeyAirline, lists.carrier[entry]);
            results.add(key::strKeyFFNbr, lists.account[entry]);
            break;
        case Split::ServiceRequest:
            results.add(key::strKeyCode, lists.code[entry]);
            results.add(key::strKeyAirline, lists.carrier[entry]);
            results.add(key::strKeyFFNbr, lists.account[entry]);
            results.add(key::strKeyFreeText, lists.freeText[entry]);
            results.add(key::blnKeyAsterix, bool{lists.flag[entry]});
            break;
        case Split::RemarkDetail: results.add(key::strKeyFreeText, lists.freeText[entry]); break;
    }
}

}  // namespace vantro
