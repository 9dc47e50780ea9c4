// Screens for tests, laid out as the host lays them out.
#pragma once

#include "vantro/text.h"

#include <initializer_list>
#include <utility>

namespace vantro::test {

/// The lines from line 0 on, each filled up to 80 characters. A line longer than that raises std::length_error.
Text screen(std::initializer_list<TextView> lines);

/// Lines at given numbers (from 0, in rising order), everything between them blank.
Text screenAt(std::initializer_list<std::pair<int, TextView>> lines);

}  // namespace vantro::test
