// Displays that nobody would write by hand, the same ones in every run.
#pragma once

#include "tests/profile/displays.h"

#include <cstdint>
#include <random>

namespace vantro {

class RandomDisplays {
public:
    explicit RandomDisplays(std::uint32_t seed) : random_(seed) {}

    /// A number below `bound`.
    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    /// Sections with elements, wrapped lines and stray lines, and an end; lines of at most 76 characters, padded to 80.
    Text sections();

    /// Marks, prefixes, blanks, digits and slashes in any order, of any length and across line ends, followed by an
    /// end.
    Text soup();

    /// A text that a search or a selection could use.
    Text word();

private:
    Text piece();
    Text wrapped();
    Text elementLine(TextView prefix);
    Text transferableLine();
    Text strayLine();
    Text lineOfSection(TextView header);
    Text soupLine();

    std::mt19937 random_;
};

}  // namespace vantro
