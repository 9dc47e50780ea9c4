// The screen of an explanation's page.
#pragma once

#include "cli/explain/html_out.h"
#include "cli/explain/screen_segments.h"

#include <span>

namespace vantro {

/// Writes the section with the screen: a legend, a ruler, and the lines with their numbers and values.
void writeScreen(std::span<const ScreenLine> lines, HtmlOut& html);

}  // namespace vantro
