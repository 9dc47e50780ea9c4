// "PD", "PDI" and "PDT": display a profile that belongs to what the screen shows.
#pragma once

#include "framework/transaction.h"
#include "vantro/list_rows.h"

namespace vantro {

/// "PD": the profile of an entry of the last similar-name list, or of a passenger of the PNR.
class CPDTrans final : public Transaction {
public:
    using Transaction::Transaction;

    /// Adds the rows of the list on a screen; see vantro/list_rows.h.
    static void readRows(Screen& screen, Parameters& state, ListRows& found);

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// "PDI": a profile by its index.
class CPDITrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

/// "PDT": the traveller profile that belongs to the company profile on the screen.
class CPDTTrans final : public Transaction {
public:
    using Transaction::Transaction;

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
};

}  // namespace vantro
