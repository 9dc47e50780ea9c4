// Profile notes: "PN" and "PNE".
#pragma once

#include "framework/transaction.h"

namespace vantro {

/// Asks for the notes of a profile. `VerifyResponse` adds to the collection that it is given and gives that one
/// back.
class CProfileNotes final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
