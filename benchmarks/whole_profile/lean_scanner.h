// The hand-written contender: one pass over the lines, written for speed. A line is trimmed with vector compares, its
// first characters say what it can be, and it is not looked at again.
#pragma once

#include "common/host_format.h"
#include "whole_profile/scanned.h"

namespace vantro::bench {

/// The result must be new or prepared for this display.
template <Depth depth, class String>
void scanLean(std::u16string_view display, Scanned<String>& result);

}  // namespace vantro::bench
