// Sources of bytes for the tests of input.
#pragma once

#include "cli/io/input_files.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace vantro::test {

/// A source that returns at most `atMost` bytes per read.
inline ByteSource bytesOf(std::string text, std::size_t atMost = 1'000'000) {
    return [text = std::move(text), atMost, at = std::size_t{0}](std::span<char> bytes) mutable {
        const std::size_t count = std::min({bytes.size(), atMost, text.size() - at});
        std::memcpy(bytes.data(), text.data() + at, count);
        at += count;
        return count;
    };
}

/// All that a source returns, read `step` bytes at a time.
inline std::string allOf(const ByteSource& source, std::size_t step = 1000) {
    std::string all;
    std::string block(step, '\0');
    while (const std::size_t count = source(block)) all += block.substr(0, count);
    return all;
}

}  // namespace vantro::test
