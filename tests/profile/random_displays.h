// Displays that no person would think of, the same ones in every run.
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

    /// Sections with elements, wrapped lines and stray lines, and an end; lines of at most 76 characters, filled up
    /// to 80.
    Text sections();

    /// Marks, prefixes, blanks, digits and slashes in any order, over the borders of lines, of any length; an end.
    Text soup();

    /// Some text that a search or a selection could ask for.
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
