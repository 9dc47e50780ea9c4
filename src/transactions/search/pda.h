// "PDA": displays the names similar to a traveller's or a company's name. "PDMD": shows the next block of a long list.
#pragma once

#include "framework/transaction.h"
#include "vantro/list_rows.h"

namespace vantro {

class CPDATrans final : public Transaction {
public:
    using Transaction::Transaction;

    /// Adds the rows of the list on a screen; see vantro/list_rows.h.
    static void readRows(Screen& screen, Parameters& state, ListRows& found);

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// "PDMD". The transaction that started the list reads the continuation screen, so `VerifyResponse` is the default,
/// which returns null.
class CPDMDTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
};

}  // namespace vantro
