#include "tests/failures/allocations.h"

#include <cstdlib>
#include <new>

namespace vantro::test {

namespace {

struct Count {
    long live = 0;
    long asked = 0;
    long failFrom = 0;
    long failTo = 0;
    bool armed = false;
};

thread_local Count counted;

bool hasToFail() {
    if (!counted.armed) return false;
    ++counted.asked;
    return counted.asked >= counted.failFrom && counted.asked <= counted.failTo;
}

void* allocate(std::size_t size) {
    void* const memory = hasToFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++counted.live;
    return memory;
}

void release(void* memory) noexcept {
    if (memory != nullptr) --counted.live;
    std::free(memory);
}

}  // namespace

long liveAllocations() { return counted.live; }

FailingAllocation::FailingAllocation(long number, Extent extent) {
    constexpr long never = 0;
    constexpr long endless = 1'000'000'000;
    counted.asked = 0;
    counted.failFrom = number == never ? endless : number;
    counted.failTo = extent == Extent::One ? number : endless;
    counted.armed = true;
}

FailingAllocation::~FailingAllocation() { counted.armed = false; }

long FailingAllocation::asked() { return counted.asked; }

}  // namespace vantro::test

// The aligned forms stay the standard library's: nothing here needs more than the default alignment.
void* operator new(std::size_t size) { return vantro::test::allocate(size); }
void* operator new[](std::size_t size) { return vantro::test::allocate(size); }
void operator delete(void* memory) noexcept { vantro::test::release(memory); }
void operator delete[](void* memory) noexcept { vantro::test::release(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { vantro::test::release(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { vantro::test::release(memory); }
