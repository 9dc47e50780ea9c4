//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PDN/KES
// 1 SIMILAR COMPANY NAME LIST
// 2      COMPANY                         RECLOC     OFFICE
// 3    1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101
// 4    2 KESTERSON MARINE INSURANCE AND  R5T6Y7     NCEVN3101
// 5      SURVEY
// 6 END OF BLOCK - USE PDMD
#include "transactions/search/pdn.h"

#include "transactions/search/list_walk.h"

#include <optional>

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

/// The column of the record locators: from the state, or as this call found it.
struct LocatorColumn {
    TextView fromState;
    std::optional<std::int16_t> found;

    bool isKnown() const { return found.has_value() || !fromState.empty(); }
    int position() const { return found ? *found : toInt16(fromState); }
};

/// What the screen shows. If reading fails, it keeps what was read before.
struct Answer {
    bool endOfBlock = false;
    LocatorColumn locator;
    Shown shown = Shown::Nothing;
    bool merged = false;
    Text companyNames;
};

constexpr Width locatorWidth{6};

// Without the title "RECLOC" in the header the column is 5, left of every name.
std::int16_t locatorColumnIn(TextView header) {
    constexpr int blanksBeforeTitle = 5;
    return toInt16((find(header, u"     RECLOC     ") + blanksBeforeTitle).value);
}

// Meant: the copied part of a name ends one character before the part that is tested for a wrapped name, which ends
// directly before the locator.
TextView nameForTest(TextView line, int locator) { return mid(line, entryTextColumn, Width{locator - 6}); }
TextView nameToCopy(TextView line, int locator) { return mid(line, entryTextColumn, Width{locator - 7}); }

void trimInPlace(Text& text) {
    text.resize(withoutPadding(text).size());
    if (text.starts_with(u' ')) text.erase(0, text.find_first_not_of(u' '));
}

/// Collects the names of a company list, or of the continuation of one.
class CompanyNames {
public:
    CompanyNames(ListWalk lines, Answer& answer) : lines_(lines), isContinuation_(answer.endOfBlock), answer_(answer) {}

    void read() {
        constexpr std::size_t usualLength = 512;
        answer_.companyNames.reserve(usualLength);
        while (header()) {
            while (entry(lines_.next())) {}
            if (!hasListNumber(lines_.line())) break;
        }
        trimInPlace(answer_.companyNames);
    }

private:
    bool header() {
        if (!lines_.findHeader(isContinuation_ ? anyLine : mark::companyColumn)) return false;
        if (!answer_.locator.isKnown()) answer_.locator.found = locatorColumnIn(lines_.line());
        if (isContinuation_) lines_.stepBack();  // the line found is the first entry
        return true;
    }

    // Adds an entry or the rest of a wrapped name; false for the line that ends the block.
    bool entry(TextView line) {
        answer_.endOfBlock = lines_.isEndOfBlock();
        if (answer_.endOfBlock || !lines_.isUsable()) return false;
        const TextView number = listNumber(line);
        const int locator = answer_.locator.position();
        const TextView locatorText = mid(line, Column{locator}, locatorWidth);
        if (isNumeric(number)) {
            company(line, locator);
            return true;
        }
        if (!number.empty() || !isBlank(locatorText) || isBlank(nameForTest(line, locator))) return false;
        answer_.companyNames.append(nameToCopy(line, locator));  // the rest of a wrapped name
        return true;
    }

    void company(TextView line, int locator) {
        Text& names = answer_.companyNames;
        if (!names.empty()) {
            trimInPlace(names);
            names.push_back(u',');
        }
        names.append(locator > 5 ? nameToCopy(line, locator) : mid(line, entryTextColumn));
    }

    ListWalk lines_;
    bool isContinuation_;
    Answer& answer_;
};

void readScreen(Screen& screen, Answer& answer) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    answer.shown = seen.shown;
    answer.merged = seen.shown == Shown::TravellerProfile && contains(screen.text(), mark::merged);
    if (!answer.endOfBlock && seen.shown != Shown::CompanyList) return;
    CompanyNames(ListWalk(screen, 1, seen.line), answer).read();
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
    if (name.empty() && company.empty()) return {};
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
    reportErrors(terminal(), [&] { readScreen(screen, answer); });

    CollectionPtr added = terminal().createCollection();
    Results results(*added);
    results.add(key::blnKeyTrList, answer.shown == Shown::TravellerList);
    results.add(key::blnKeyTrProfile, answer.shown == Shown::TravellerProfile);
    results.add(key::blnKeyCompanyList, answer.shown == Shown::CompanyList);
    results.add(key::blnKeyCoProfile, answer.shown == Shown::CompanyProfile);
    results.add(key::blnKeyMerge, answer.merged);
    results.add(key::strKeyCoNames, std::move(answer.companyNames));
    results.add(key::blnKeyEndOfBlock, answer.endOfBlock);
    addLocatorColumn(results, answer.locator);
    return added;
}

}  // namespace vantro
