// An explanation as a page for a browser.
#pragma once

#include "vantro/explanation.h"
#include "vantro/registry.h"

#include <string>
#include <string_view>

namespace vantro {

/// One HTML page in UTF-8 that needs no other file and no network: the screen with every value marked where it was
/// read, the values, and the decisions in the order in which they were made. The row gives the keys their meanings; it
/// may be null. The title is UTF-8 too.
std::string htmlPage(const Explanation& explanation, const ClassRow* row, std::string_view title);

}  // namespace vantro
