// The control of the registered terminal library, called by name.
#pragma once

#include "server/com/late_call.h"
#include "tests/com/foreign/fault.h"

#include <string>
#include <vector>

namespace vantro::test {

class TerminalControl {
public:
    TerminalControl();

    /// The objects of the terminal that are alive.
    long liveObjects();

    // Only the foreign terminal has these:

    /// Restarts the count of the terminal's calls: the one with this number, from 1, fails; 0 for none.
    void failAt(long call, Fault fault);

    /// Every report fails, until the next `failAt`.
    void failReports(Fault fault);

    /// The terminal's helper objects cannot be created, until the next `failAt`.
    void failHelpers(Fault fault);

    /// The calls since then, as "Item strKeyName", "ScreenLine 3" and so on.
    std::vector<std::string> calls();

    /// The numbers reported since then.
    std::vector<int> reported();

private:
    int number(com::Member& member, std::initializer_list<VARIANT> arguments = {});

    com::Ptr<IDispatch> object_;
    com::Member liveObjects_{u"LiveObjects"};
    com::Member failAs_{u"FailAs"};
    com::Member failReports_{u"FailReports"};
    com::Member failHelpers_{u"FailHelpers"};
    com::Member callCount_{u"CallCount"};
    com::Member call_{u"Call"};
    com::Member reportedCount_{u"ReportedCount"};
    com::Member reported_{u"Reported"};
};

}  // namespace vantro::test
