// "RLP": lists the profiles that are linked to the PNR on display.
#pragma once

#include "framework/transaction.h"

#include <vector>

namespace vantro {

/// The one transaction that keeps data between calls: the linked profiles that the last count found.
/// `VerifyResponse` counts anew and gives the one profile that "strKeyIndex" (from 0) names.
class CRLPTrans final : public Transaction {
public:
    CRLPTrans(Terminal& terminal, const TransErrors& errors)
        : Transaction(terminal, errors),
          reported_(errors.verifyResponse, applicationTitle, description::verifyingProfile) {}

    /// Reads the linked profiles of a screen, in place of those read before, and gives the index (from 0) of the
    /// last entry. That entry is an empty one when a further line was read after the last profile, so that the
    /// index is the number of profiles then. A failure is reported and gives 0.
    std::int16_t RecLocCount(TextView response);

private:
    struct LinkedProfile {
        bool isTraveller = false;
        bool isCompany = false;
        Text recordLocator;
        Text passenger;
    };

    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;

    void readLinkedProfile(TextView response, std::int16_t index, Results& results);
    void readProfiles(Screen& screen);
    static void readEntry(TextView line, LinkedProfile& entry);

    // Meant: what this class reports is always its own number, not the failing step's.
    template <class Body>
    void reportOwnError(Body&& body) {
        try {
            std::forward<Body>(body)();
        } catch (...) {
            terminal().errorReporter().ReportError(currentError(), &reported_);
        }
    }

    Error reported_;
    std::vector<LinkedProfile> profiles_;
};

}  // namespace vantro
