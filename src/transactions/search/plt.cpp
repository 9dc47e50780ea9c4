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

#include "transactions/search/list_walk.h"

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

/// Collects the names of the blocks of a company list.
class CompanyNames {
public:
    explicit CompanyNames(ListWalk lines) : lines_(lines) {}

    Text read() {
        while (lines_.findHeader(mark::companyColumn)) {
            do {
                block();
            } while (lines_.isUsable() && contains(lines_.line(), mark::companyColumn));
        }
        return std::move(names_);
    }

private:
    void block() {
        while (hasListNumber(lines_.next()) && lines_.isUsable()) name(lines_.line());
    }

    // Meant: names are counted, so even a blank first name is followed by a comma.
    void name(TextView line) {
        if (count_ > Counter()) names_.push_back(u',');
        ++count_;
        names_.append(trimmed(mid(line, entryTextColumn)));
    }

    ListWalk lines_;
    Counter count_;
    Text names_;
};

void addTraveller(TextView line, TextList& locators) {
    constexpr Column locatorColumn{29};
    constexpr Width locatorWidth{6};
    constexpr Column companyColumn{35};
    if (isBlank(mid(line, companyColumn))) locators.emplace_back(mid(line, locatorColumn, locatorWidth));
}

// Collects the record locators of the travellers without a company. If a line cannot be read, the ones collected before
// it stay.
void collectNoCompanyRecLocs(Screen& screen, TextList& locators) {
    constexpr std::size_t linesOfScreen = 24;
    locators.reserve(linesOfScreen);
    ListWalk lines(screen, lineAboveLists, screen.line(std::int16_t{1}));
    while (lines.findHeader(u"RECLOC ")) {
        for (lines.next(); lines.isUsable() && !lines.isEndOfBlock(); lines.next()) {
            addTraveller(lines.line(), locators);
        }
    }
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
            names = CompanyNames(ListWalk(screen, lineAboveLists, seen.line)).read();
        }
        TextList locators(1);  // entry 0 stays empty
        if (seen.shown == Shown::TravellerList) {
            reportErrors(terminal(), [&] { collectNoCompanyRecLocs(screen, locators); });
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

}  // namespace vantro
