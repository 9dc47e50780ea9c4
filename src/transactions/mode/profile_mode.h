// The cycle of profile mode: "PM", "PME", "PE", "PEE", "PI" and "PIE".
#pragma once

#include "framework/transaction.h"

namespace vantro {

/// Enters profile mode, ends or ignores the changes, and leaves it; four flags choose the step.
/// `VerifyResponse` adds to the collection that it is given and gives that one back.
class CProfileMode final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
