#include "cli/io/csv.h"

#include <string_view>

namespace vantro {

namespace {

bool needsQuotes(std::string_view cell) {
    return cell.find_first_of(",\"\r\n") != std::string_view::npos || cell.starts_with(' ') || cell.ends_with(' ');
}

void appendCell(std::string_view cell, std::string& out) {
    if (!needsQuotes(cell)) {
        out += cell;
        return;
    }
    out += '"';
    for (const char byte : cell) {
        if (byte == '"') out += '"';
        out += byte;
    }
    out += '"';
}

}  // namespace

void appendCsvRow(std::span<const std::string> cells, std::string& out) {
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) out += ',';
        appendCell(cell, out);
    }
    out += '\n';
}

}  // namespace vantro
