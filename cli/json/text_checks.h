// Checks of a JSON text as a whole, before it is read.
#pragma once

#include <span>

namespace vantro {

/// True when a control character other than tab and line ends stands in the text, which no JSON allows.
bool containsStrayControl(std::span<const char> text);

/// Puts \uFFFD in the place of every escaped surrogate that has no partner. True when there was none.
bool mendUnpairedSurrogates(std::span<char> text);

}  // namespace vantro
