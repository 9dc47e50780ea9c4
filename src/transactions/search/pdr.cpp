//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PDRT/KQ4R7T
// 1 *T*  SMITH/ANNA MS                    KQ4R7T     *MRG*
//
// or a refusal anywhere on the screen.
#include "transactions/search/pdr.h"

#include "transactions/rules.h"
#include "transactions/search/profile_marks.h"

namespace vantro {

namespace {

constexpr LineRange profileLines{0, 3};

enum class Refusal : std::uint8_t { None, NoSuchLocator, Deactivated, BadInput };

struct RefusalTest {
    TextView mark;
    Refusal refusal;
};

// clang-format off
constexpr RefusalTest refusals[] = {
    {u"RECORD LOCATOR NOT FOUND",      Refusal::NoSuchLocator},
    {u"DEACTIVATED TRAVELLER PROFILE", Refusal::Deactivated},
    {u"CHECK INPUT",                   Refusal::BadInput},
};
// clang-format on

// The order of the table decides, not the order on the screen.
Refusal refusalIn(const Screen& screen) {
    for (const RefusalTest& test : refusals) {
        if (screen.contains(test.mark)) return test.refusal;
    }
    return Refusal::None;
}

constexpr std::int16_t lineArgument = 4;  // Meant: the terminal is asked with 4 here, with 6 or 10 for a PNR

}  // namespace

// Any other indicator, also "t" or "c", adds nothing.
Text CPDRTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView locator = input.read(key::strKeyRecLoc);
    const TextView indicator = input.read(key::strKeyIndicator);
    if (locator.empty()) return nothingToSend(rule::commandNeedsLocator);
    return concat({code::PDR, onlyIf(indicator == u"T" || indicator == u"C", indicator), u"/", locator});
}

CollectionPtr CPDRTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const auto seen = findShown(screen, profileLines, profileMarks, ProfileShown::None);
        // Meant: the merge mark counts only in the line with the profile's mark.
        const bool merged = seen.shown == ProfileShown::Traveller && isMergedIn(screen, seen);
        const Refusal refusal = seen.shown == ProfileShown::None ? refusalIn(screen) : Refusal::None;
        results.add(key::blnKeyCoProfile, seen.shown == ProfileShown::Company);
        results.add(key::blnKeyTrProfile, seen.shown == ProfileShown::Traveller);
        results.add(key::blnKeyErrNoRecLoc, refusal == Refusal::NoSuchLocator);
        results.add(key::blnKeyErrCheckInput, refusal == Refusal::BadInput);
        results.add(key::blnKeyMerged, merged);
        results.add(key::blnKeyDeactivatedTProfile, refusal == Refusal::Deactivated);
    });
}

// Meant: the command is built even without a company.
Text CPCNTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView company = input.read(key::strKeyCompany);
    return concat({code::PCN, u"/", company});
}

CollectionPtr CPCNTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    if (response.empty()) return {};
    Screen screen(terminal(), response);
    const bool traveller = screen.findMarker(mark::travellerProfile, lineArgument);
    const bool company = !traveller && screen.findMarker(mark::companyProfile, lineArgument);

    CollectionPtr added = terminal().createCollection();
    Results results(*added, screen.watch());
    results.add(key::blnKeyTrProfile, traveller);
    results.add(key::blnKeyCoProfile, company);
    return added;
}

}  // namespace vantro
