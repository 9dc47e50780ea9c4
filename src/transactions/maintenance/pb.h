// "PBN" and "PBI": make a PNR from a stored profile.
#pragma once

#include "framework/transaction.h"

namespace vantro {

/// "PBN": by the name of a company or a traveller.
class CPBNTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// "PBI": by the number of a line in the list that the host has just shown.
class CPBITrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
