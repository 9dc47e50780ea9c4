// The rows of a list against the results of the class that reads it.
#pragma once

#include "tests/support/driven_class.h"

#include <string>

namespace vantro::test {

/// What the rows of a screen and the class's results say differently; empty when they agree. A screen that the class
/// fails to read, and a continuation of which it reads nothing, have nothing to compare.
std::string disagreement(DrivenClass& driven, TextView className, const Text& response, const CollectionPtr& state);

}  // namespace vantro::test
