// Comma-separated values.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vantro {

/// Appends one record and a line feed. A cell (UTF-8) that contains a comma, a quotation mark or a line end, or that
/// begins or ends with a blank, is put in quotation marks; those inside it are doubled.
void appendCsvRow(std::span<const std::string> cells, std::string& out);
void appendCsvRow(std::span<const std::string_view> cells, std::string& out);

}  // namespace vantro
