// Queries and profiles with an observer, for the tests of the steps.
#pragma once

#include "tests/profile/parser.h"
#include "vantro/observer.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

/// Passes every call to a terminal of its own, and what the readers say to an observer.
class ObservedOwnTerminal final : public Terminal {
public:
    ObservedOwnTerminal(std::unique_ptr<Terminal> terminal, ReadingObserver& observer)
        : terminal_(std::move(terminal)), observed_(*terminal_, &observer) {
        setObservation(observed_.observation());
    }

    TerminalFunctions& functions() override { return observed_.functions(); }
    ErrorReporter& errorReporter() override { return observed_.errorReporter(); }
    CollectionPtr createCollection() override { return observed_.createCollection(); }

private:
    std::unique_ptr<Terminal> terminal_;
    ObservedTerminal observed_;
};

/// A parser whose readers are observed.
inline Parser observedParser(TextView className, std::unique_ptr<Terminal> terminal, ReadingObserver& observer) {
    return Parser(className, std::make_unique<ObservedOwnTerminal>(std::move(terminal), observer));
}

/// The words of all queries of `CProfile`.
inline const std::vector<std::string> queryWords{
    "NM",  "SR",  "RM",  "AP",  "OS",  "FFN", "ST",  "RECLOC", "OFFID", "PCN", "PHI", "PPH",
    "PCI", "PPC", "PIN", "PSL", "ALL", "RC",  "PPR", "PPS",    "PGL",   "PPA", "PPK", "PPI",
    "PXC", "PXA", "PXK", "PSH", "PSC", "PPT", "PXT", "PAS",    "PIV",   "PCE", "PID", "PFO",
};

}  // namespace vantro
