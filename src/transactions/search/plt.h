// "PLT": lists the traveller profiles of an office, all or those of one company.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPLTTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
