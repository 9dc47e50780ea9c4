// Checks of a JSON text as a whole, before it is read.
#pragma once

#include <span>

namespace vantro {

/// True when the text contains a control character other than tab and line ends, which JSON never allows.
bool containsStrayControl(std::span<const char> text);

/// Replaces every escaped surrogate without its other half by \uFFFD. True when there was none.
bool mendUnpairedSurrogates(std::span<char> text);

}  // namespace vantro
