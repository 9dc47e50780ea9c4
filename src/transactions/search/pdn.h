// "PDN": searches for a traveller or company profile by name.
#pragma once

#include "framework/transaction.h"
#include "vantro/list_rows.h"

namespace vantro {

class CPDNTrans final : public Transaction {
public:
    using Transaction::Transaction;

    /// Adds the rows of the list on a screen; see vantro/list_rows.h.
    static void readRows(Screen& screen, Parameters& state, ListRows& found);

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
