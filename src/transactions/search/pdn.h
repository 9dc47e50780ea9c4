// "PDN": searches for a traveller or company profile by name.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPDNTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
