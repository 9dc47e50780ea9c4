// Linked into a program, counts its allocations through `new`.
#pragma once

#include <cstddef>

namespace vantro::bench {

std::size_t allocationCount();

}  // namespace vantro::bench
