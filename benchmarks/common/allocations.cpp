#include "common/allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace vantro::bench {

std::size_t allocationCount() { return count; }

}  // namespace vantro::bench
