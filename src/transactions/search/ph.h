// "PH": shows the history of the displayed profile, or of one of its elements.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPHTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
