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

#include "framework/joined_text.h"
#include "transactions/search/list_reader.h"
#include "transactions/search/profile_marks.h"

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

void sayCompaniesEnd(const ListWalk& lines) {
    if (hasListNumber(lines.line())) {
        lines.sayBlockEnd(lines.endOfUnusable());
    } else if (lines.isUsable() && contains(lines.line(), mark::companyColumn)) {
        lines.sayBlockEnd(rule::listHeaderAgain);
    } else {
        lines.sayBlockEnd(rule::listNoNumber);
    }
}

/// Calls `onEntry` with every line of a company list's blocks and its number.
template <class OnEntry>
void readCompanies(ListWalk lines, const OnEntry& onEntry) {
    while (lines.findHeader(mark::companyColumn)) {
        do {
            while (hasListNumber(lines.next()) && lines.isUsable()) {
                lines.decided(rule::listEntry);
                onEntry(lines.line(), lines.number());
            }
            if (lines.watch()) sayCompaniesEnd(lines);
        } while (lines.isUsable() && contains(lines.line(), mark::companyColumn));
    }
}

void readCompanyNames(const ListWalk& lines, JoinedText& names) {
    Counter count;
    readCompanies(lines, [&](TextView line, std::int16_t /*lineNumber*/) {
        // Meant: names are counted, so even a blank first name is followed by a comma.
        if (count > Counter()) names.insert(u",");
        ++count;
        names.append(trimmed(mid(line, entryTextColumn)));
    });
}

constexpr TextView travellerHeader = u"RECLOC ";

/// Calls `onLine` with every line of a traveller list's blocks and its number.
template <class OnLine>
void readTravellers(ListWalk lines, const OnLine& onLine) {
    while (lines.findHeader(travellerHeader)) {
        const Counter first = lines.nextNumber();
        for (lines.next(); lines.isUsable() && !lines.isEndOfBlock(); lines.next()) {
            onLine(lines.line(), lines.number());
        }
        if (lines.watch()) lines.sayBlockEnd(lines.isUsable() ? rule::listEndOfBlock : lines.endOfUnusable(), first);
    }
}

constexpr Column locatorColumn{29};
constexpr Width locatorWidth{6};
constexpr Column companyColumn{35};

/// Record locators that are copied from the screen.
struct Locators {
    TextList texts = TextList(1);     // entry 0 stays empty
    std::vector<TextView> originals;  // empty unless the call is observed

    /// The list as a result. Its places stay known.
    TextList&& take(const Watch& watch) && {
        for (std::size_t k = 0; k < originals.size(); ++k) watch.copied(texts[k + 1], originals[k]);
        return std::move(texts);
    }
};

void sayTraveller(const Watch& watch, bool hasCompany, Counter number, TextView locator, Locators& locators) {
    watch.decided(hasCompany ? rule::travellerWithCompany : rule::travellerWithoutCompany, number);
    if (!hasCompany) locators.originals.push_back(locator);
}

// Collects the record locators of the travellers without a company. If a line cannot be read, the ones collected before
// it stay.
void collectNoCompanyRecLocs(const ListWalk& lines, Locators& locators) {
    constexpr std::size_t linesOfScreen = 24;
    locators.texts.reserve(linesOfScreen);
    readTravellers(lines, [&](TextView line, std::int16_t lineNumber) {
        const bool hasCompany = !isBlank(mid(line, companyColumn));
        const TextView locator = mid(line, locatorColumn, locatorWidth);
        if (!hasCompany) locators.texts.emplace_back(locator);
        if (lines.watch()) sayTraveller(lines.watch(), hasCompany, Counter(lineNumber), locator, locators);
    });
}

// A line with neither a number nor a locator is no entry, and neither is a header that is repeated inside a block.
const ReadingRule& ruleOfOfficeLine(TextView line) {
    if (hasListNumber(line)) return rule::officeTraveller;
    if (isBlank(mid(line, locatorColumn, locatorWidth))) return rule::officeLineWithoutEntry;
    return contains(line, travellerHeader) ? rule::officeHeaderAgain : rule::officeTraveller;
}

void addOfficeTravellers(const ListWalk& lines, ListRows& found) {
    RowWriter rows(lines.watch(), found);
    readTravellers(lines, [&](TextView line, std::int16_t lineNumber) {
        constexpr Width nameWidth{locatorColumn.value - entryTextColumn.value};
        const ReadingRule& decision = ruleOfOfficeLine(line);
        lines.watch().decided(decision, Counter(lineNumber));
        if (&decision != &rule::officeTraveller) return;
        rows.begin(ProfileKind::Traveller, lineNumber);
        rows.set(cell::number, onlyIf(hasListNumber(line), listNumber(line)));
        rows.set(cell::name, trimmed(mid(line, entryTextColumn, nameWidth)));
        rows.set(cell::recordLocator, trimmed(mid(line, locatorColumn, locatorWidth)));
        rows.set(cell::company, trimmed(mid(line, companyColumn)));
    });
}

void addSimilarCompanies(const ListWalk& lines, ListRows& found) {
    readCompanies(lines, nameAdder(lines.watch(), ProfileKind::Company, found));
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
        JoinedText names(screen.watch());
        if (seen.shown == Shown::CompanyList) {
            readCompanyNames(ListWalk(screen, lineAboveLists, seen.line), names);
        }
        Locators locators;
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
        results.add(key::blnKeyMerge, seen.shown == Shown::Profile && isMergedIn(screen, seen));
        results.add(key::strKeyCoNames, std::move(names).take());
        results.add(key::blnKeyNoCoFoundString, seen.shown == Shown::NoCompany);
        results.add(key::blnKeyNoTrPrFoundString, seen.shown == Shown::NoTraveller);
        results.add(key::strKeyNoCoAssoArray, std::move(locators).take(screen.watch()));
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
