// Memory that one operation needs only while it runs.
#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>

namespace vantro {

/// Returns all its memory at its end. A display of 400 lines needs no allocation.
class ScratchMemory {
public:
    ScratchMemory() : resource_(first_.data(), first_.size()) {}
    ScratchMemory(const ScratchMemory&) = delete;
    ScratchMemory& operator=(const ScratchMemory&) = delete;

    std::pmr::memory_resource* resource() { return &resource_; }

private:
    static constexpr std::size_t firstSize = 40 * 1024;

    alignas(std::max_align_t) std::array<std::byte, firstSize> first_;  // not initialised
    std::pmr::monotonic_buffer_resource resource_;
};

}  // namespace vantro
