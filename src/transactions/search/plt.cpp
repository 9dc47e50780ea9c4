// A list of travellers. The text from column 35 on is the traveller's company:
//
//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PLT/NCEVN3101
// 1 TRAVELLER LIST FOR NCEVN3101
// 2
// 3      NAME                   RECLOC  COMPANY
// 4    1 ABELMANN/IDA MS        H1J2K3
// 5    2 BOROVIK/JURI MR        H4J5K6  KESTRELLO TOOLS
// 6 END OF BLOCK - USE PDMD
//
// A list of companies with similar names:
//
//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PLT//KES
// 1 SIMILAR COMPANY NAME LIST
// 2
// 3      COMPANY                                     OFFICE
// 4    1 KESTRELLO TOOLS
#include "transactions/search/plt.h"

#include "transactions/search/list_reader.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, NoCompany, TravellerList, CompanyList, NoTraveller, Profile };

constexpr LineRange titleLines{1, 9};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {u"NO COMPANY PROFILE FOUND",   Match::Anywhere, Shown::NoCompany},
    {u"TRAVELLER LIST FOR",         Match::Anywhere, Shown::TravellerList},
    {u"TRAVELLER NAME LIST",        Match::Anywhere, Shown::TravellerList},
    {mark::similarCompanies,        Match::Anywhere, Shown::CompanyList},
    {u"NO TRAVELLER PROFILE FOUND", Match::Anywhere, Shown::NoTraveller},
    {mark::travellerProfile,        Match::Anywhere, Shown::Profile},  // Meant: anywhere in the line
};
// clang-format on

// Meant: the lists are read from line 3 on, wherever their title is; line 2 is never read.
constexpr std::int16_t lineAboveLists = 2;

/// Calls `onEntry` with every line of a company list's blocks and its number.
template <class OnEntry>
void readCompanies(ListWalk lines, const OnEntry& onEntry) {
    while (lines.findHeader(mark::companyColumn)) {
        do {
            while (hasListNumber(lines.next()) && lines.isUsable()) onEntry(lines.line(), lines.number());
        } while (lines.isUsable() && contains(lines.line(), mark::companyColumn));
    }
}

Text companyNames(ListWalk lines) {
    Text names;
    Counter count;
    readCompanies(lines, [&](TextView line, std::int16_t /*lineNumber*/) {
        // Meant: names are counted, so even a blank first name is followed by a comma.
        if (count > Counter()) names.push_back(u',');
        ++count;
        names.append(trimmed(mid(line, entryTextColumn)));
    });
    return names;
}

constexpr TextView travellerHeader = u"RECLOC ";

/// Calls `onLine` with every line of a traveller list's blocks and its number.
template <class OnLine>
void readTravellers(ListWalk lines, const OnLine& onLine) {
    while (lines.findHeader(travellerHeader)) {
        for (lines.next(); lines.isUsable() && !lines.isEndOfBlock(); lines.next()) {
            onLine(lines.line(), lines.number());
        }
    }
}

constexpr Column locatorColumn{29};
constexpr Width locatorWidth{6};
constexpr Column companyColumn{35};

// Collects the record locators of the travellers without a company. If a line cannot be read, the ones collected before
// it stay.
void collectNoCompanyRecLocs(ListWalk lines, TextList& locators) {
    constexpr std::size_t linesOfScreen = 24;
    locators.reserve(linesOfScreen);
    readTravellers(lines, [&locators](TextView line, std::int16_t /*lineNumber*/) {
        if (isBlank(mid(line, companyColumn))) locators.emplace_back(mid(line, locatorColumn, locatorWidth));
    });
}

// A line with neither a number nor a locator is no entry, and neither is a header that is repeated inside a block.
void addOfficeTravellers(ListWalk lines, ListRows& found) {
    readTravellers(lines, [&found](TextView line, std::int16_t lineNumber) {
        constexpr Width nameWidth{locatorColumn.value - entryTextColumn.value};
        const TextView locator = trimmed(mid(line, locatorColumn, locatorWidth));
        const bool hasNumber = hasListNumber(line);
        if (!hasNumber && (locator.empty() || contains(line, travellerHeader))) return;
        ListRow& row = found.rows.emplace_back();
        row.line = lineNumber;
        row.kind = ProfileKind::Traveller;
        row.number = onlyIf(hasNumber, listNumber(line));
        row.name = trimmed(mid(line, entryTextColumn, nameWidth));
        row.recordLocator = locator;
        row.company = trimmed(mid(line, companyColumn));
    });
}

void addSimilarCompanies(ListWalk lines, ListRows& found) {
    readCompanies(lines, nameAdder(ProfileKind::Company, found));
}

}  // namespace

Text CPLTTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView office = input.read(key::strKeyOfficeID);
    const TextView company = input.read(key::strKeyCompany);
    const bool exactMatch = input.read(key::blnKeyExactMatch);
    const bool forCompany = !company.empty();
    // The slash of an empty office stays if there is a company; an exact match needs a company.
    return concat({code::PLT, onlyIf(!office.empty() || forCompany, u"/"), office, onlyIf(forCompany, u"/"), company,
                   onlyIf(forCompany && exactMatch, u"/")});
}

CollectionPtr CPLTTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [this](Screen& screen, Results& results) {
        const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
        Text names;
        if (seen.shown == Shown::CompanyList) {
            names = companyNames(ListWalk(screen, lineAboveLists, seen.line));
        }
        TextList locators(1);  // entry 0 stays empty
        if (seen.shown == Shown::TravellerList) {
            reportErrors(terminal(), [&] {
                const ListWalk aboveList(screen, lineAboveLists, screen.line(std::int16_t{1}));
                collectNoCompanyRecLocs(aboveList, locators);
            });
        }
        results.add(key::blnKeyTravellerList, seen.shown == Shown::TravellerList);
        results.add(key::blnKeyCompanyList, seen.shown == Shown::CompanyList);
        results.add(key::blnKeyProfile, seen.shown == Shown::Profile);
        // Meant: the merge mark counts only in the line with the profile's mark.
        results.add(key::blnKeyMerge, seen.shown == Shown::Profile && contains(seen.line, mark::merged));
        results.add(key::strKeyCoNames, std::move(names));
        results.add(key::blnKeyNoCoFoundString, seen.shown == Shown::NoCompany);
        results.add(key::blnKeyNoTrPrFoundString, seen.shown == Shown::NoTraveller);
        results.add(key::strKeyNoCoAssoArray, std::move(locators));
    });
}

void CPLTTrans::readRows(Screen& screen, Parameters& /*state*/, ListRows& found) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    const auto header = findColumnHeader(screen);
    found.isList = true;
    if (seen.shown == Shown::TravellerList) {
        addOfficeTravellers(ListWalk(screen, lineAboveLists, screen.line(std::int16_t{1})), found);
    } else if (seen.shown == Shown::CompanyList) {
        addSimilarCompanies(ListWalk(screen, lineAboveLists, seen.line), found);
    } else if (seen.shown == Shown::Nothing && header.shown == ListBelow::Travellers) {
        addOfficeTravellers(directlyAbove(screen, header), found);
    } else if (seen.shown == Shown::Nothing && header.shown == ListBelow::Companies) {
        addSimilarCompanies(directlyAbove(screen, header), found);
    } else {
        found.isList = false;
    }
}

}  // namespace vantro
