// "PT": transfers lines of the displayed profile into the PNR.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPTTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
