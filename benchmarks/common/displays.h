// Synthetic profile displays, the same in every run. Compilers differ in a few words, because they evaluate operands in
// different orders.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

inline constexpr std::size_t lineWidth = 80;

/// One display in both encodings. The host prints only upper-case ASCII, so a character is one unit in both and lines
/// are 80 units wide.
struct Display {
    std::u16string utf16;
    std::string utf8;
};

enum class Corpus : std::uint8_t {
    Mixed,    ///< many wrapped lines, some with a colon, a host line above one display in ten
    Archive,  ///< many elements, few wrapped lines
};

inline constexpr Corpus corpora[] = {Corpus::Mixed, Corpus::Archive};

/// "mixed", "archive".
std::string_view nameOf(Corpus corpus);

/// 1,000 displays of 24 to 400 lines with all families, notes, and an end each.
const std::vector<Display>& displays(Corpus corpus);

/// A display of the mixed kind with this many lines, for measuring growth.
Display displayOfLines(std::size_t lines, unsigned seed);

/// The same display with tags and codes in the free text below its head, as an agent may type them: the exact
/// contenders must read it as the library does.
Display withOddText(Display display);

/// Prints what a corpus contains: lines, characters, and the elements that the library finds. Ends the program when the
/// archive is not as described: 1,000 displays of 24 to 400 lines, 205 on average, with 158 elements each and 16.4
/// million characters in all.
void printFigures(Corpus corpus);

}  // namespace vantro::bench
