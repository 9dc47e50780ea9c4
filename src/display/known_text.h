// The text of a display that was read before.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vantro {

/// The characters of a display's lines, narrowed to bytes: what a line contains depends on nothing else. Lines count
/// from 0.
class KnownText {
public:
    /// Allocates memory for this display; nothing else does. No line is known yet.
    explicit KnownText(TextView display);

    /// The number of lines, from 0 on, that are known.
    std::size_t size() const { return size_; }

    /// The first known line at or after `first`, before `last`, that the display does not contain any more; `last` if
    /// there is none.
    std::size_t firstChanged(TextView display, std::size_t first, std::size_t last) const;

    /// Adds the display's lines from the first one that is not known on, before line `last`.
    void add(TextView display, std::size_t last);

    void cutTo(std::size_t size) { size_ = size; }

private:
    std::unique_ptr<std::uint8_t[]> bytes_;
    std::size_t size_ = 0;
};

}  // namespace vantro
