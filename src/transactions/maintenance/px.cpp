//   ....+....1....+....2....+....3
// 0 PX3
// 1 PROFILE WILL BE DEACTIVATED
#include "transactions/maintenance/px.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, Accepted };

// Meant: the confirmation counts only on the first five lines.
constexpr LineRange confirmationLines{0, 4};
constexpr ScreenTest<Shown> confirmation[] = {
    {u"WILL BE DEACTIVATED", Match::Anywhere, Shown::Accepted},
};

}  // namespace

Text CPXTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView itemNr = input.read(key::strKeyItemNr);
    return concat({code::PX, itemNr});
}

CollectionPtr CPXTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const auto seen = findShown(screen, confirmationLines, confirmation, Shown::Nothing);
        results.add(key::blnKeyResponseOK, seen.shown == Shown::Accepted);
    });
}

}  // namespace vantro
