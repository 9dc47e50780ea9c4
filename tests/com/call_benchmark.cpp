// Calls per second: through the interface's own operations, by a cached id, and by name with a look-up each time. It
// asserts nothing.
#include "tests/com/client.h"

#include <chrono>
#include <cstdio>

namespace {

using namespace vantro;
using namespace vantro::test;
using Clock = std::chrono::steady_clock;

template <class Call>
void measure(const char* name, Call&& call) {
    constexpr auto atLeast = std::chrono::milliseconds(300);
    long calls = 0;
    const auto start = Clock::now();
    auto elapsed = Clock::duration::zero();
    while (elapsed < atLeast) {
        for (int round = 0; round < 500; ++round) call();
        calls += 500;
        elapsed = Clock::now() - start;
    }
    const double seconds = std::chrono::duration<double>(elapsed).count();
    std::printf("%-36s %12.0f calls a second\n", name, static_cast<double>(calls) / seconds);
}

void run() {
    // The move down builds its command without the terminal, so that only the call is measured.
    const auto trans = newTrans(u"CPDMDTrans");
    const auto object = trans.as<IDispatch>(IID_IDispatch);
    const VARIANT none = noArgument();
    measure("vtable: CreateCommand", [&] {
        Bstr command;
        trans->CreateCommand(none, command.receive());
    });
    com::Member kept(u"CreateCommand");
    measure("late bound, id kept: CreateCommand", [&] { kept.call(object.get(), {none}); });
    measure("late bound, by name: CreateCommand", [&] {
        com::Member fresh(u"CreateCommand");
        fresh.call(object.get(), {none});
    });
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    run();
    CoUninitialize();
}
