// The stand-in's counters, and the call that is to fail.
#pragma once

#include "vantro/error.h"

#include <mutex>
#include <vector>

namespace vantro::com::standin {

/// An error as it was reported.
struct ReportedError {
    int number;
    Text description;
};

/// The state of the whole process. Calls are counted from 1 across all objects and threads.
class State {
public:
    static State& only();

    /// Every operation of the terminal's interfaces begins with this: it counts the call, and raises the requested
    /// error when this is the call that is to fail.
    void enterCall();

    /// The next calls are counted from 1; call `call` (none for 0) fails with the number.
    void failAt(long call, int number);

    void addReport(ReportedError error);
    void addLineFetch();

    long calls() const;
    long lineFetches() const;
    std::vector<ReportedError> reported() const;

private:
    mutable std::mutex mutex_;
    long calls_ = 0;
    long lineFetches_ = 0;
    long failingCall_ = 0;
    int failingNumber_ = 0;
    std::vector<ReportedError> reported_;
};

}  // namespace vantro::com::standin
