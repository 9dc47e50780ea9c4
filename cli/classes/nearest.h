// The name that a misspelt one was meant to be.
#pragma once

#include "vantro/text.h"

#include <cstddef>
#include <optional>
#include <span>

namespace vantro {

/// How many characters have to be put in, taken out or replaced, or swapped with the next one, to turn one text into
/// the other. Letters that differ in case alone are the same here.
std::size_t editDistance(TextView left, TextView right);

/// The name that is nearest to `misspelt`, the first of several; none when a third of a name's characters or more would
/// have to change. One character of a name may change however short it is.
std::optional<TextView> nearestName(TextView misspelt, std::span<const TextView> names);

}  // namespace vantro
