//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PD3
// 1 *T*  SMITH/ANNA MS                    KQ4R7T     *MRG*
//
// or, in place of line 1, a list's title or one of the host's refusals.
#include "transactions/search/pd.h"

#include "transactions/search/profile_marks.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, List, EndOfList, Refused, Traveller, Company };

// Meant: "PD" and "PDT" take their lines from the response by position, never from the terminal.
constexpr LineRange answerLines{0, 9, LineSource::ByPosition};
// clang-format off
constexpr ScreenTest<Shown> answers[] = {
    {u"TRAVELLER NAME NOT FOUND", Place::StartsLine, Shown::Nothing},  // ends the search as every other row does
    {mark::similarTravellers,     Place::StartsLine, Shown::List},
    {mark::noSuchElement,         Place::StartsLine, Shown::EndOfList},
    {u"UNABLE TO PROCESS",        Place::StartsLine, Shown::Refused},
    {mark::travellerProfile,      Place::StartsLine, Shown::Traveller},
    {mark::companyProfile,        Place::StartsLine, Shown::Company},
};
// clang-format on

constexpr ScreenTest<bool> travellerMark[] = {
    {mark::travellerProfile, Place::StartsLine, true},
};

constexpr LineRange indexLines{0, 5};

}  // namespace

// Meant: the number follows the code directly, but a passenger's number follows a slash; and only the passenger's
// form refuses to go out without a number.
Text CPDTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const TextView itemNr = given.read(key::strKeyItemNr);
    const bool fromPnr = given.read(key::blnKeyFromPNR);
    if (fromPnr && itemNr.empty()) return {};
    return concat({code::PD, onlyIf(fromPnr, u"/"), itemNr});
}

CollectionPtr CPDTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const Shown shown = findShown(screen, answerLines, answers, Shown::Nothing).shown;
        const bool merged = shown == Shown::Traveller && contains(screen.text(), mark::merged);
        results.add(key::blnKeyList, shown == Shown::List);
        results.add(key::blnKeyProfile, shown == Shown::Traveller);
        results.add(key::blnKeyMerge, merged);
        results.add(key::blnKeyEndOfList, shown == Shown::EndOfList);
        results.add(key::blnKeyError, shown == Shown::Refused);
        results.add(key::blnKeyCoProfile, shown == Shown::Company);
    });
}

Text CPDITrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const TextView index = given.read(key::strKeyIndex);
    if (index.empty()) return {};
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

// Meant: nothing is reported here; a failure is the operation's own.
CollectionPtr CPDTTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    if (response.empty()) return {};
    Screen screen(terminal(), response);
    const bool shown = findShown(screen, answerLines, travellerMark, false).shown;

    CollectionPtr added = terminal().createCollection();
    Results(*added).add(key::blnKeyProfile, bool{shown});
    return added;
}

}  // namespace vantro
