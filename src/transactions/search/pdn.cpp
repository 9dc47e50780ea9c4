//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PDN/KES
// 1 SIMILAR COMPANY NAME LIST
// 2      COMPANY                         RECLOC     OFFICE
// 3    1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101
// 4    2 KESTERSON MARINE INSURANCE AND  R5T6Y7     NCEVN3101
// 5      SURVEY
// 6 END OF BLOCK - USE PDMD
#include "transactions/search/pdn.h"

#include "framework/joined_text.h"
#include "transactions/search/list_reader.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, TravellerList, CompanyList, CompanyProfile, TravellerProfile };

// Meant: line 0 is the echo of the command and is never tested, even when it begins with a mark.
constexpr LineRange titleLines{1, 9};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {mark::similarTravellers, Match::LineStart, Shown::TravellerList},
    {mark::similarCompanies,  Match::LineStart, Shown::CompanyList},
    {mark::companyProfile,    Match::LineStart, Shown::CompanyProfile},
    {mark::travellerProfile,  Match::LineStart, Shown::TravellerProfile},
};
// clang-format on

/// What the screen shows. If reading fails, it keeps what was read before.
struct Answer {
    bool endOfBlock = false;
    LocatorColumn locator;
    Shown shown = Shown::Nothing;
    bool merged = false;
};

void readNames(LocatorList list, JoinedText& names) {
    constexpr std::size_t usualLength = 512;
    names.reserve(usualLength);
    list.read([&names](const LocatorEntry& entry, std::int16_t /*lineNumber*/) {
        if (!entry.isRest && !names.empty()) {
            names.trim();
            names.insert(u",");
        }
        names.append(entry.name());
    });
    names.trim();
}

void readScreen(Screen& screen, Answer& answer, JoinedText& companyNames) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    answer.shown = seen.shown;
    answer.merged = seen.shown == Shown::TravellerProfile && screen.contains(mark::merged);
    if (!answer.endOfBlock && seen.shown != Shown::CompanyList) return;
    readNames(LocatorList(ListWalk(screen, 1, seen.line), mark::companyColumn, answer.endOfBlock, answer.locator),
              companyNames);
}

// A column that this call found is added as a number; otherwise the text of the state is passed on.
void addLocatorColumn(Results& results, const LocatorColumn& locator) {
    if (locator.found) {
        results.addNumber(key::strKeyRecLocPos, *locator.found);
    } else {
        results.add(key::strKeyRecLocPos, locator.fromState);
    }
}

}  // namespace

Text CPDNTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView name = input.read(key::strKeyName);
    const TextView company = input.read(key::strKeyCompany);
    const bool exactMatch = input.read(key::blnKeyExactMatch);
    const TextView office = input.read(key::strKeyOfficeID);
    if (name.empty() && company.empty()) return nothingToSend(rule::commandNeedsAnyName);
    return concat({code::PDN, u"/", office, onlyIf(!office.empty(), u"/"), company, onlyIf(!name.empty(), u"-"), name,
                   onlyIf(exactMatch, u"/")});
}

CollectionPtr CPDNTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters state = parameters(collection);
    Answer answer;
    if (collection) {
        answer.endOfBlock = state.read(key::blnKeyEndOfBlock);
        answer.locator.fromState = state.read(key::strKeyRecLocPos);
    }
    Screen screen(terminal(), response);
    JoinedText companyNames(screen.watch());
    reportErrors(terminal(), [&] { readScreen(screen, answer, companyNames); });

    CollectionPtr added = terminal().createCollection();
    Results results(*added, screen.watch());
    results.add(key::blnKeyTrList, answer.shown == Shown::TravellerList);
    results.add(key::blnKeyTrProfile, answer.shown == Shown::TravellerProfile);
    results.add(key::blnKeyCompanyList, answer.shown == Shown::CompanyList);
    results.add(key::blnKeyCoProfile, answer.shown == Shown::CompanyProfile);
    results.add(key::blnKeyMerge, answer.merged);
    results.add(key::strKeyCoNames, std::move(companyNames).take());
    results.add(key::blnKeyEndOfBlock, answer.endOfBlock);
    addLocatorColumn(results, answer.locator);
    return added;
}

void CPDNTrans::readRows(Screen& screen, Parameters& state, ListRows& found) {
    bool endOfBlock = state.read(key::blnKeyEndOfBlock);
    LocatorColumn locatorColumn{state.read(key::strKeyRecLocPos), {}};
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    found.isList = seen.shown == Shown::CompanyList;
    if (endOfBlock || found.isList) {
        // A short continuation is read too, so any usable line may be above it.
        const ListWalk above(screen, 1, endOfBlock ? blankLine : seen.line);
        addRows(LocatorList(above, mark::companyColumn, endOfBlock, locatorColumn), ProfileKind::Company, found);
    } else if (seen.shown == Shown::TravellerList) {
        addTravellers(ListWalk(screen, 1, seen.line), found);
    } else if (seen.shown == Shown::Nothing) {
        addListBelowHeader(screen, found);
    }
}

}  // namespace vantro
