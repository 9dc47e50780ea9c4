// What a screen should not contain: characters that hosts never send and that hide marks.
#pragma once

#include "vantro/text.h"

#include <string>
#include <vector>

namespace vantro {

/// Line ends, tabs and other control characters in a screen: a clause for each of the three kinds that it contains,
/// with their number and the position of the first ("line 2, column 5", both from 1). Empty for a good screen.
std::vector<std::string> screenWarnings(TextView screen);

}  // namespace vantro
