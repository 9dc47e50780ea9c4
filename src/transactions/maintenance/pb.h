// "PBN" and "PBI": build a PNR from a profile.
#pragma once

#include "framework/transaction.h"

namespace vantro {

/// "PBN": by the name of the company or the traveller.
class CPBNTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// "PBI": by the number of the profile's entry in the last list.
class CPBITrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
