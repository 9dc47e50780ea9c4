// The foreign terminal's record of its calls, and the call that is to fail. One for the whole process.
#pragma once

#include "server/com/system.h"
#include "tests/com/foreign/fault.h"

#include <mutex>
#include <string>
#include <vector>

namespace foreign {

using vantro::test::Fault;

/// An error as it was reported.
struct Report {
    LONG number;
    std::wstring description;
};

class Watch {
public:
    static Watch& only();

    /// Records a call and returns its fault, which is none except for the chosen call.
    Fault enter(std::wstring call);

    /// Restarts the count of calls: the call with this number, from 1 (0 for none), has this fault and this error
    /// number.
    void failAt(LONG call, Fault fault, LONG number);

    /// Every report has this fault.
    void failReports(Fault fault);

    /// The creation of the functions and of the reporter has this fault.
    void failHelpers(Fault fault);

    void addReport(Report report);
    void addLive(LONG change);

    Fault reportFault() const;
    Fault helperFault() const;
    LONG failingNumber() const;
    LONG live() const;
    std::vector<std::wstring> calls() const;
    std::vector<Report> reports() const;

private:
    mutable std::mutex mutex_;
    LONG failingCall_ = 0;
    Fault fault_ = Fault::None;
    Fault reportFault_ = Fault::None;
    Fault helperFault_ = Fault::None;
    LONG number_ = vantro::test::ownNumber;
    LONG live_ = 0;
    std::vector<std::wstring> calls_;
    std::vector<Report> reports_;
};

}  // namespace foreign
