#include "cli/io/csv.h"

#include <algorithm>

namespace vantro {

namespace {

bool needsQuotes(std::string_view cell) {
    const auto isSpecial = [](char byte) { return byte == ',' || byte == '"' || byte == '\r' || byte == '\n'; };
    return cell.starts_with(' ') || cell.ends_with(' ') || std::ranges::any_of(cell, isSpecial);
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

template <class Cell>
void appendRow(std::span<const Cell> cells, std::string& out) {
    for (const Cell& cell : cells) {
        if (&cell != &cells.front()) out += ',';
        appendCell(cell, out);
    }
    out += '\n';
}

}  // namespace

void appendCsvRow(std::span<const std::string> cells, std::string& out) { appendRow(cells, out); }

void appendCsvRow(std::span<const std::string_view> cells, std::string& out) { appendRow(cells, out); }

}  // namespace vantro
