//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PD3
// 1 *T*  SMITH/ANNA MS                    KQ4R7T     *MRG*
//
// or, instead of line 1, a list's title or a refusal.
#include "transactions/search/pd.h"

#include "transactions/search/list_reader.h"
#include "transactions/search/profile_marks.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, List, EndOfList, Refused, Traveller, Company };

// Meant: the lines of "PD" and "PDT" come from the response by position, never from the terminal.
constexpr LineRange answerLines{0, 9, LineSource::ByPosition};
// clang-format off
constexpr ScreenTest<Shown> answers[] = {
    {u"TRAVELLER NAME NOT FOUND", Match::LineStart, Shown::Nothing},  // ends the search like every other row
    {mark::similarTravellers,     Match::LineStart, Shown::List},
    {mark::noSuchElement,         Match::LineStart, Shown::EndOfList},
    {u"UNABLE TO PROCESS",        Match::LineStart, Shown::Refused},
    {mark::travellerProfile,      Match::LineStart, Shown::Traveller},
    {mark::companyProfile,        Match::LineStart, Shown::Company},
};
// clang-format on

constexpr ScreenTest<bool> travellerMark[] = {
    {mark::travellerProfile, Match::LineStart, true},
};

constexpr LineRange indexLines{0, 5};

}  // namespace

// Meant: a list number follows the code directly, a passenger number follows a slash; only the passenger form needs a
// number.
Text CPDTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView itemNr = input.read(key::strKeyItemNr);
    const bool fromPnr = input.read(key::blnKeyFromPNR);
    if (fromPnr && itemNr.empty()) return nothingToSend(rule::commandNeedsItem);
    return concat({code::PD, onlyIf(fromPnr, u"/"), itemNr});
}

CollectionPtr CPDTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const Shown shown = findShown(screen, answerLines, answers, Shown::Nothing).shown;
        const bool merged = shown == Shown::Traveller && screen.contains(mark::merged);
        results.add(key::blnKeyList, shown == Shown::List);
        results.add(key::blnKeyProfile, shown == Shown::Traveller);
        results.add(key::blnKeyMerge, merged);
        results.add(key::blnKeyEndOfList, shown == Shown::EndOfList);
        results.add(key::blnKeyError, shown == Shown::Refused);
        results.add(key::blnKeyCoProfile, shown == Shown::Company);
    });
}

void CPDTrans::readRows(Screen& screen, Parameters& /*state*/, ListRows& found) {
    const auto seen = findShown(screen, answerLines, answers, Shown::Nothing);
    if (seen.shown == Shown::List) addTravellers(ListWalk(screen, seen.number, seen.line), found);
    if (seen.shown == Shown::Nothing) addListBelowHeader(screen, found);
}

Text CPDITrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView index = input.read(key::strKeyIndex);
    if (index.empty()) return nothingToSend(rule::commandNeedsIndex);
    return concat({code::PDI, u"/", index});
}

CollectionPtr CPDITrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const ProfileShown shown = findShown(screen, indexLines, profileMarks, ProfileShown::None).shown;
        results.add(key::blnKeyCoProfile, shown == ProfileShown::Company);
        results.add(key::blnKeyTrProfile, shown == ProfileShown::Traveller);
    });
}

Text CPDTTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return Text(code::PDT); }

// Meant: nothing is reported here; the operation raises every failure.
CollectionPtr CPDTTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    if (response.empty()) return {};
    Screen screen(terminal(), response);
    const bool shown = findShown(screen, answerLines, travellerMark, false).shown;

    CollectionPtr added = terminal().createCollection();
    Results(*added, screen.watch()).add(key::blnKeyProfile, bool{shown});
    return added;
}

}  // namespace vantro
