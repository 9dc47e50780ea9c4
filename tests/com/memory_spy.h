// Counts what the task allocator has given out: BSTRs, arrays and task memory of the whole process. BSTRs are only
// counted exactly when the environment says OANOCACHE=1.
#pragma once

#include "server/com/system.h"

#include <cstddef>

namespace vantro::test {

class MemorySpy {
public:
    static void install();

    /// Blocks given out since the spy was installed and not freed yet.
    static std::size_t outstanding();
};

}  // namespace vantro::test
