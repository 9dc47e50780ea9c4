// Where what came differs from what was expected.
#pragma once

#include "cli/json/positions.h"
#include "cli/replay/player.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

struct Difference {
    int line = 0;          ///< of the file with the expectation, from 1
    std::string where;     ///< the class and what of it: "CPDRTrans, strKeyRecLoc"; a path: "elements.RM[0].text"
    std::string expected;  ///< as the file spells it; "nothing" for none
    std::string actual;    ///< in the same way
    std::vector<std::size_t> screenLines;  ///< the lines that it concerns, from 0; empty where they are not known
    Text screen;                           ///< the screen that they are lines of
    KeptPieces read = {};                  ///< where what came was read; empty where it is not known
    std::vector<std::size_t> expectedLines = {};  ///< the lines, from 0, that contain the expected text
};

inline constexpr const char* nothing = "nothing";

/// The lines of a screen, from 0, that contain the text. Empty for a text of less than three characters, which many
/// lines contain.
std::vector<std::size_t> linesWith(TextView screen, TextView text);

/// Adds the lines to others, which stay in their order; a line that is there already is not added again.
void addLines(const std::vector<std::size_t>& further, std::vector<std::size_t>& lines);

/// The lines, from 0 and in their order, in which the pieces are. Inserted text is in none.
std::vector<std::size_t> linesOf(const KeptPieces& pieces);

/// The differences between a step and its outcome, in the order of the step's sections. Empty when it passes.
std::vector<Difference> differencesOf(const ExchangeStep& step, const StepOutcome& outcome);

}  // namespace vantro
