// This program's own operator new: it counts the allocations of a thread and can let one of them fail.
#pragma once

namespace vantro::test {

/// Allocations of the calling thread that are not freed yet.
long liveAllocations();

/// While one lives, allocations of this thread are counted, and those to fail throw std::bad_alloc.
class FailingAllocation {
public:
    /// Which ones fail: the one with the chosen number, or that and all behind it.
    enum class Extent { One, AllFrom };

    /// The allocation with this number, from 1, fails; 0 lets none fail.
    explicit FailingAllocation(long number, Extent extent = Extent::One);
    ~FailingAllocation();

    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Allocations asked for since it was made.
    static long asked();
};

}  // namespace vantro::test
