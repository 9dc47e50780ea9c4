// Screens for tests, laid out as the host does.
#pragma once

#include "vantro/text.h"

#include <initializer_list>
#include <utility>

namespace vantro::test {

/// The lines from line 0 on, each padded to 80 characters. Throws std::length_error for a longer line.
Text screen(std::initializer_list<TextView> lines);

/// Lines at the given numbers (from 0, in rising order), all others blank.
Text screenAt(std::initializer_list<std::pair<int, TextView>> lines);

}  // namespace vantro::test
