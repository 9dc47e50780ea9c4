// Keeps many short texts with few allocations.
#pragma once

#include "vantro/text.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace vantro {

class TextArena {
public:
    /// A copy of the text that lives as long as the arena, moves of the arena included.
    TextView keep(TextView text) {
        if (text.size() > left_) open(std::max(text.size(), blockSize));
        char16_t* const copy = next_;
        std::ranges::copy(text, copy);
        next_ += text.size();
        left_ -= text.size();
        return {copy, text.size()};
    }

private:
    static constexpr std::size_t blockSize = 2048;

    void open(std::size_t size) {
        blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(size));
        next_ = blocks_.back().get();
        left_ = size;
    }

    std::vector<std::unique_ptr<char16_t[]>> blocks_;
    char16_t* next_ = nullptr;
    std::size_t left_ = 0;
};

}  // namespace vantro
