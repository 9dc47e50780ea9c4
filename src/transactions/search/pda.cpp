//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PDA/KES
// 1 SIMILAR COMPANY NAME LIST
// 2      COMPANY                                     OFFICE
// 3    1 KESTRELLO TOOLS
// 4    2 KESTERSON MARINE
// 5 END OF BLOCK - USE PDMD
//
// There is no column of record locators: the rest of an entry's line is the company's name.
#include "transactions/search/pda.h"

#include "transactions/search/list_walk.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, CompanyProfile, TravellerProfile, CompanyList, TravellerList };

// Meant: a profile's mark must start its line, a list's title may be anywhere in its line, and line 0 counts.
constexpr LineRange titleLines{0, 5};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {mark::companyProfile,    Match::LineStart, Shown::CompanyProfile},
    {mark::travellerProfile,  Match::LineStart, Shown::TravellerProfile},
    {mark::similarCompanies,  Match::Anywhere,  Shown::CompanyList},
    {mark::similarTravellers, Match::Anywhere,  Shown::TravellerList},
};
// clang-format on

/// Collects the names of a company list, or of the continuation of one.
class CompanyNames {
public:
    CompanyNames(ListWalk lines, bool& endOfBlock)
        : lines_(lines), isContinuation_(endOfBlock), endOfBlock_(endOfBlock) {}

    Text read() {
        if (!header()) return {};
        if (isContinuation_) lines_.stepBack();  // Meant: a continuation's entries begin on line 1, not 2
        do {
            while (entry(lines_.next())) {}
        } while (hasListNumber(lines_.line()) && header());
        return std::move(names_);
    }

private:
    bool header() {
        if (!lines_.findHeader(isContinuation_ ? anyLine : mark::companyColumn)) return false;
        if (isContinuation_) lines_.stepBack();  // the line found is the first entry
        return true;
    }

    // Adds an entry; false for the line that ends the block.
    bool entry(TextView line) {
        endOfBlock_ = lines_.isEndOfBlock();
        if (endOfBlock_ || !lines_.isUsable() || !hasListNumber(line)) return false;
        if (!names_.empty()) names_.push_back(u',');
        names_.append(trimmed(mid(line, entryTextColumn)));
        return true;
    }

    ListWalk lines_;
    bool isContinuation_;
    bool& endOfBlock_;
    Text names_;
};

void readScreen(Screen& screen, bool& endOfBlock, Results& results) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    Text names;
    if (endOfBlock || seen.shown == Shown::CompanyList) {
        names = CompanyNames(ListWalk(screen, 1, seen.line), endOfBlock).read();
    }
    results.add(key::blnKeyCoProfile, seen.shown == Shown::CompanyProfile);
    results.add(key::blnKeyTrProfile, seen.shown == Shown::TravellerProfile);
    results.add(key::blnKeyCoList, seen.shown == Shown::CompanyList);
    results.add(key::strKeyCoNames, std::move(names));
    results.add(key::blnKeyTrList, seen.shown == Shown::TravellerList);
    results.add(key::blnKeyEndOfBlock, endOfBlock);
}

}  // namespace

Text CPDATrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView name = input.read(key::strKeyName);
    const TextView company = input.read(key::strKeyCompany);
    if (name.empty() && company.empty()) return {};
    // Meant: with both names the command is only the code and the slash.
    if (!name.empty() && !company.empty()) return concat({code::PDA, u"/"});
    return concat({code::PDA, u"/", company, onlyIf(!name.empty(), u"-"), name});
}

// Meant: the state is read before the response is tested for being empty.
CollectionPtr CPDATrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    CollectionPtr added = terminal().createCollection();
    bool endOfBlock = false;
    if (collection) endOfBlock = parameters(collection).read(key::blnKeyEndOfBlock);
    if (response.empty()) return {};
    Screen screen(terminal(), response);
    Results results(*added);
    reportErrors(terminal(), [&] { readScreen(screen, endOfBlock, results); });
    return added;
}

Text CPDMDTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return Text(code::PDMD); }

}  // namespace vantro
