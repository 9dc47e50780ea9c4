// "RLP": lists the profiles that are linked to the displayed PNR.
#pragma once

#include "framework/transaction.h"
#include "vantro/list_rows.h"

#include <vector>

namespace vantro {

/// The only transaction that keeps data between calls: the linked profiles of the last count. `VerifyResponse` counts
/// again and returns the profile at the index "strKeyIndex" (from 0).
class CRLPTrans final : public Transaction {
public:
    CRLPTrans(Terminal& terminal, const TransErrors& errors)
        : Transaction(terminal, errors),
          reported_(errors.verifyResponse, applicationTitle, description::verifyingProfile) {}

    /// Reads the linked profiles of a screen, which replace those read before, and returns the index (from 0) of the
    /// last entry. That entry is empty if a further line was read after the last profile; the index is then the number
    /// of profiles. Returns 0 after a failure, which is reported.
    std::int16_t RecLocCount(TextView response);

    /// The same as an operation of its own, which can be observed.
    std::int16_t countObserved(TextView response);

    /// Adds the rows of the list on a screen; see vantro/list_rows.h.
    static void readRows(Screen& screen, Parameters& state, ListRows& found);

private:
    struct LinkedProfile {
        std::int16_t line = 0;
        bool isTraveller = false;
        bool isCompany = false;
        Text recordLocator;
        Text passenger;
    };

    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;

    void readLinkedProfile(TextView response, std::int16_t index, Results& results);
    static void readProfiles(Screen& screen, std::vector<LinkedProfile>& profiles);
    static void readEntry(const Watch& watch, TextView line, LinkedProfile& entry);

    // Meant: this class always reports its own number, not that of the failing step.
    template <class Body>
    void reportOwnError(Body&& body) {
        try {
            std::forward<Body>(body)();
        } catch (...) {
            Watch(terminal()).reported(reported_);
            terminal().errorReporter().ReportError(currentError(), &reported_);
        }
    }

    Error reported_;
    std::vector<LinkedProfile> profiles_;
};

}  // namespace vantro
