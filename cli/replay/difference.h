// Where what came differs from what was expected.
#pragma once

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
};

inline constexpr const char* nothing = "nothing";

/// The lines of a screen, from 0, that contain the text. Empty for a text of less than three characters, which many
/// lines contain.
std::vector<std::size_t> linesWith(TextView screen, TextView text);

/// The same for either of two texts, in the order of the lines.
std::vector<std::size_t> linesWithEither(TextView screen, TextView one, TextView other);

/// The differences between a step and its outcome, in the order of the step's sections. Empty when it passes.
std::vector<Difference> differencesOf(const ExchangeStep& step, const StepOutcome& outcome);

}  // namespace vantro
