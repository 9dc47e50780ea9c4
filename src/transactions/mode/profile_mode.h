// Profile mode: "PM", "PME", "PE", "PEE", "PI" and "PIE".
#pragma once

#include "framework/transaction.h"

namespace vantro {

/// Enters profile mode, keeps or ignores the changes, and leaves it; four flags select the step. `VerifyResponse` adds
/// its results to the passed collection and returns it.
class CProfileMode final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
