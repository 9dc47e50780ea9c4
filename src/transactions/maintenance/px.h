// "PX": deactivates a profile.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPXTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
