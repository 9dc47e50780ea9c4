//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PLC/NCEVN3101
// 1 COMPANY NAME LIST FOR NCEVN3101
// 2      COMPANY                         RECLOC     OFFICE
// 3    1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101
#include "transactions/search/plc.h"

#include "transactions/search/list_reader.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, CompanyList, Profile };

constexpr LineRange titleLines{1, 9};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {u"COMPANY NAME LIST",  Match::Anywhere, Shown::CompanyList},
    {mark::companyProfile,  Match::Anywhere, Shown::Profile},  // Meant: anywhere in the line
};
// clang-format on

}  // namespace

Text CPLCTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView office = input.read(key::strKeyOfficeID);
    return concat({code::PLC, onlyIf(!office.empty(), u"/"), office});
}

CollectionPtr CPLCTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const Shown shown = findShown(screen, titleLines, titles, Shown::Nothing).shown;
        results.add(key::blnKeyCompanyList, shown == Shown::CompanyList);
        results.add(key::blnKeyProfile, shown == Shown::Profile);
    });
}

void CPLCTrans::readRows(Screen& screen, Parameters& /*state*/, ListRows& found) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    if (seen.shown == Shown::CompanyList) addCompanies(ListWalk(screen, seen.number, seen.line), found);
    if (seen.shown == Shown::Nothing) addListBelowHeader(screen, found);
}

}  // namespace vantro
