// What the foreign terminal notes of its calls, and where it is to fail. One for the whole process.
#pragma once

#include "server/com/system.h"
#include "tests/com/foreign/fault.h"

#include <mutex>
#include <string>
#include <vector>

namespace foreign {

using vantro::test::Fault;

/// An error as the reporter was told of it.
struct Report {
    LONG number;
    std::wstring description;
};

class Watch {
public:
    static Watch& only();

    /// Notes a call and gives what it is to do: anything but its work at the call that was chosen.
    Fault enter(std::wstring call);

    /// Calls are counted from 1 anew; the call with this number (none for 0) fails so, with this number of its own.
    void failAt(LONG call, Fault fault, LONG number);

    /// Every report fails so.
    void failReports(Fault fault);

    /// The functions and the reporter cannot be created so.
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
