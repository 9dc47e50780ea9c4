//   ....+....1....+....2....+....3....+....4
// 0 PBN/-SMITH
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 KQ4R7T - PNR UPDATED
#include "transactions/maintenance/pb.h"

#include "transactions/maintenance/pnr_answer.h"

namespace vantro {

namespace {

constexpr TextView companyKind = u"Company";
constexpr TextView travellerKind = u"Traveller";

constexpr std::int16_t answerLine = 6;  // Meant: the transfer into a PNR asks with 10
// Meant: a PNR that was created has no result of its own here.
// clang-format off
constexpr PnrTest answer[] = {
    {mark::pnr,        key::blnKeyPNR},
    {mark::pnrUpdated, key::blnKeyPNRUpdated},
};
// clang-format on

void readAnswer(Screen& screen, Results& results) { readPnrAnswer(screen, results, answerLine, answer); }

}  // namespace

Text CPBNTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const TextView kind = given.read(key::strKeyIndicator);
    const TextView company = given.read(key::strKeyCompany);
    const TextView traveller = given.read(key::strKeyName);
    const bool allPassengers = given.read(key::blnKeyAllPNR);
    const bool exactMatch = given.read(key::blnKeyExactMatch);
    const bool forCompany = kind == companyKind;
    const bool forTraveller = kind == travellerKind;
    if (kind.empty() || (forCompany && company.empty()) || (forTraveller && traveller.empty())) return {};
    // Meant: a kind that is neither is not rejected; the entry then goes out without a name.
    return concat({code::PBN, u"/", onlyIf(forCompany, company), onlyIf(forTraveller, u"-"),
                   onlyIf(forTraveller, traveller), onlyIf(exactMatch, u"/"), onlyIf(allPassengers, u"*")});
}

CollectionPtr CPBNTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, readAnswer);
}

Text CPBITrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const TextView index = given.read(key::strKeyIndex);
    if (index.empty()) return {};  // Meant: the other parameter is not even read then
    const bool allPassengers = given.read(key::blnKeyAllPNR);
    return concat({code::PBI, u"/", index, onlyIf(allPassengers, u"*")});
}

CollectionPtr CPBITrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, readAnswer);
}

}  // namespace vantro
