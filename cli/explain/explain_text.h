// An explanation for people: the screen, the decisions and the outcome.
#pragma once

#include "cli/explain/explained.h"

#include <cstddef>
#include <string>

namespace vantro {

/// How it is shown.
struct ExplainLook {
    std::size_t width = 0;  ///< the columns of the terminal; 0 for as many as it needs
    bool hasColor = false;
};

/// The title, the screen with the values that were read from it, the decisions in the order in which they happened, and
/// the outcome. In a wide terminal the decisions are beside the screen, otherwise below it.
std::string explainText(const Explained& explained, const ExplainLook& look);

}  // namespace vantro
