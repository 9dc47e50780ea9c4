// Joins the pages of displays that were captured screen by screen.
#pragma once

#include <string>
#include <string_view>

namespace vantro {

/// Replaces a line between two pages. No valid line equals it, as it is not UTF-8.
inline constexpr std::string_view pageBreakMark = "\xFF(page break)";

/// The text with `pageBreakMark` instead of every line between two pages of a display: page breaks (`isPageBreak`) and
/// the blank lines around them. The number of lines stays the same. Only "END OF DISPLAY", a line that begins with
/// `separator` (unless empty) and the end of the text end a display; the prompts after its last page remain.
std::string joinPages(std::string_view text, std::string_view separator);

}  // namespace vantro
