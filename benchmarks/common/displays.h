// Synthetic profile displays, the same in every run and on every machine.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantro::bench {

inline constexpr std::size_t lineWidth = 80;

/// One display in both encodings. The host prints only upper-case ASCII, so a character is one unit in both and lines
/// are 80 units wide.
struct Display {
    std::u16string utf16;
    std::string utf8;
};

/// The 1,000 displays of every task: 24 to 400 lines, all families, wrapped and colon continuation lines, notes, one
/// host line in ten, one end marker each.
const std::vector<Display>& displays();

/// A display with this many lines, for measuring growth.
Display displayOfLines(std::size_t lines, unsigned seed);

/// What the displays contain in total, for the head of a report.
struct Totals {
    std::size_t displays = 0;
    std::size_t characters = 0;
    std::size_t lines = 0;
};
Totals totals();

}  // namespace vantro::bench
