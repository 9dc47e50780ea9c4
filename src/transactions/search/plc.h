// "PLC": lists the company profiles of an office.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPLCTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
