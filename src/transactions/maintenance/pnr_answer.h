// Reads the host's answer to a transfer into a PNR, for three transactions.
#pragma once

#include "framework/transaction.h"

#include <array>

namespace vantro {

/// A mark and the result that it sets.
struct PnrTest {
    TextView mark;
    Key<bool> result;
};

/// Asks the terminal for every mark, then adds the results, both in the table's order.
template <std::size_t N>
void readPnrAnswer(Screen& screen, Results& results, std::int16_t lineArgument, const PnrTest (&tests)[N]) {
    std::array<bool, N> shown{};
    for (std::size_t test = 0; test < N; ++test) shown[test] = screen.findMarker(tests[test].mark, lineArgument);
    for (std::size_t test = 0; test < N; ++test) results.add(tests[test].result, bool{shown[test]});
}

}  // namespace vantro
