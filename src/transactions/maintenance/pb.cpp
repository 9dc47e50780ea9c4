//   ....+....1....+....2....+....3....+....4
// 0 PBN/-SMITH
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 KQ4R7T - PNR UPDATED
#include "transactions/maintenance/pb.h"

#include "transactions/maintenance/pnr_answer.h"
#include "transactions/rules.h"

namespace vantro {

namespace {

constexpr TextView companyKind = u"Company";
constexpr TextView travellerKind = u"Traveller";

constexpr std::int16_t lineArgument = 6;  // Meant: "PT" asks with 10
// Meant: there is no result for a PNR that was created.
// clang-format off
constexpr PnrTest answer[] = {
    {mark::pnr,        key::blnKeyPNR},
    {mark::pnrUpdated, key::blnKeyPNRUpdated},
};
// clang-format on

void readAnswer(Screen& screen, Results& results) { readPnrAnswer(screen, results, lineArgument, answer); }

}  // namespace

Text CPBNTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView kind = input.read(key::strKeyIndicator);
    const TextView company = input.read(key::strKeyCompany);
    const TextView traveller = input.read(key::strKeyName);
    const bool allPassengers = input.read(key::blnKeyAllPNR);
    const bool exactMatch = input.read(key::blnKeyExactMatch);
    const bool forCompany = kind == companyKind;
    const bool forTraveller = kind == travellerKind;
    if (kind.empty()) return nothingToSend(rule::commandNeedsIndicator);
    if (forCompany && company.empty()) return nothingToSend(rule::commandNeedsCompany);
    if (forTraveller && traveller.empty()) return nothingToSend(rule::commandNeedsTraveller);
    // Meant: any other kind is not rejected; the command is then built without a name.
    return concat({code::PBN, u"/", onlyIf(forCompany, company), onlyIf(forTraveller, u"-"),
                   onlyIf(forTraveller, traveller), onlyIf(exactMatch, u"/"), onlyIf(allPassengers, u"*")});
}

CollectionPtr CPBNTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, readAnswer);
}

Text CPBITrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView index = input.read(key::strKeyIndex);
    if (index.empty()) return nothingToSend(rule::commandNeedsIndex);  // Meant: the other parameter is not even read
    const bool allPassengers = input.read(key::blnKeyAllPNR);
    return concat({code::PBI, u"/", index, onlyIf(allPassengers, u"*")});
}

CollectionPtr CPBITrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, readAnswer);
}

}  // namespace vantro
