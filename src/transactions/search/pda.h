// "PDA": the similar-name display of a traveller or company, and "PDMD", which moves any long list down a block.
#pragma once

#include "framework/transaction.h"

namespace vantro {

class CPDATrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// The continuation screen belongs to the transaction that started the list and is read by it: here
/// `VerifyResponse` stays the interface's own, which does nothing and gives no collection.
class CPDMDTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
};

}  // namespace vantro
