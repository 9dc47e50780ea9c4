// Counts the blocks of the task allocator: BSTRs, arrays and task memory of the whole process. BSTRs are counted
// exactly only with OANOCACHE=1 in the environment.
#pragma once

#include "server/com/system.h"

#include <cstddef>

namespace vantro::test {

class MemorySpy {
public:
    static void install();

    /// Blocks allocated since the spy was installed and not freed yet.
    static std::size_t outstanding();
};

}  // namespace vantro::test
