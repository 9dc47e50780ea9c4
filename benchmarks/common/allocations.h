// When linked into a program, counts its allocations with `new`.
#pragma once

#include <cstddef>

namespace vantro::bench {

std::size_t allocationCount();

}  // namespace vantro::bench
