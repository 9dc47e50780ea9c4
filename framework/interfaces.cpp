#include "vantro/interfaces.h"

#include "framework/constants.h"
#include "framework/error_frame.h"

namespace vantro {

Text IProfileTrans::CreateCommand(const CollectionPtr& params) {
    return raiseAs(errors_.createCommand, description::creatingCommand,
                   [&] { return IProfileTrans_CreateCommand(params); });
}

CollectionPtr IProfileTrans::VerifyResponse(TextView response, const CollectionPtr& collection) {
    return raiseAs(errors_.verifyResponse, description::verifyingProfile,
                   [&] { return IProfileTrans_VerifyResponse(response, collection); });
}

// An interface's own operations do nothing. `CPDMDTrans` leaves the reading at that: the screen after a move down is
// read by the transaction that started the list.
Text IProfileTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return {}; }

CollectionPtr IProfileTrans::IProfileTrans_VerifyResponse(TextView /*response*/, const CollectionPtr& /*collection*/) {
    return {};
}

CollectionPtr IProfileGet::ProfileElements(TextView display, const CollectionPtr& collection, TextList* selection,
                                           TextView qualifier) {
    return IProfileGet_ProfileElements(display, collection, selection, qualifier);
}

CollectionPtr IProfileGet::IProfileGet_ProfileElements(TextView /*display*/, const CollectionPtr& /*collection*/,
                                                       TextList* /*selection*/, TextView /*qualifier*/) {
    return {};
}

}  // namespace vantro
