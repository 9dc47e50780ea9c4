// This program's own operator new: it counts a thread's allocations and can make one of them fail.
#pragma once

namespace vantro::test {

/// Allocations of the calling thread that are not freed yet.
long liveAllocations();

/// While an object of this class exists, allocations of this thread are counted, and the chosen ones throw
/// std::bad_alloc.
class FailingAllocation {
public:
    /// Which ones fail: only the one with the chosen number, or that one and all later ones.
    enum class Extent { One, AllFrom };

    /// The allocation with this number, from 1, fails; 0 makes none fail.
    explicit FailingAllocation(long number, Extent extent = Extent::One);
    ~FailingAllocation();

    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Allocations attempted since construction.
    static long asked();
};

}  // namespace vantro::test
