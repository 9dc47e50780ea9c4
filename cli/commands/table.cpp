#include "cli/commands/table.h"

#include <algorithm>
#include <cstddef>

namespace vantro {

namespace {

constexpr std::size_t gap = 2;

// Counts characters, not bytes: UTF-8 continuation bytes have no width.
std::size_t shownWidth(const std::string& cell) {
    return static_cast<std::size_t>(
        std::ranges::count_if(cell, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

char shown(char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7F' ? '?' : byte; }

void appendRow(const Table::Row& row, const std::vector<std::size_t>& widths, std::string& text) {
    const std::size_t start = text.size();
    for (std::size_t column = 0; column < row.size(); ++column) {
        std::ranges::transform(row[column], std::back_inserter(text), shown);
        text.append(widths[column] - shownWidth(row[column]) + gap, ' ');
    }
    text.resize(std::max(start, text.find_last_not_of(' ') + 1));
    text += '\n';
}

}  // namespace

std::string Table::text() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const Row& row : rows_) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], shownWidth(row[column]));
        }
    }
    Row rule;
    for (const std::size_t width : widths) rule.emplace_back(width, '-');

    std::string text;
    for (const Row& row : rows_) {
        appendRow(row, widths, text);
        if (&row == &rows_.front()) appendRow(rule, widths, text);
    }
    return text;
}

}  // namespace vantro
