#include "cli/commands/table.h"

#include "cli/io/terminal.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace vantro {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t narrowest = 8;

using Widths = std::vector<std::size_t>;

// UTF-8 continuation bytes have no width.
bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

std::size_t shownWidth(std::string_view cell) {
    return static_cast<std::size_t>(std::ranges::count_if(cell, beginsCharacter));
}

char shown(char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7F' ? '?' : byte; }

/// The bytes of the first `width` characters.
std::size_t bytesOf(std::string_view cell, std::size_t width) {
    std::size_t bytes = 0;
    while (bytes < cell.size() && (width > 0 || !beginsCharacter(cell[bytes]))) {
        if (beginsCharacter(cell[bytes])) --width;
        ++bytes;
    }
    return bytes;
}

bool isSmall(char byte) { return byte >= 'a' && byte <= 'z'; }
bool isCapital(char byte) { return byte >= 'A' && byte <= 'Z'; }

/// Where a text that has to end after `most` bytes is cut best: after a blank, or else between the parts of a list or
/// of a name ("strKeyOffice", "ID"), if that leaves half of it.
std::size_t bestCut(std::string_view cell, std::size_t most) {
    if (cell[most] == ' ') return most;
    const std::size_t text = cell.find_first_not_of(' ');
    if (const std::size_t blank = cell.rfind(' ', most - 1); blank != std::string_view::npos && blank > text) {
        return blank + 1;
    }
    for (std::size_t cut = most; cut > most / 2; --cut) {
        const char before = cell[cut - 1];
        if (before == ',' || before == '/' || before == '-' || (isSmall(before) && isCapital(cell[cut]))) return cut;
    }
    return most;
}

/// The lines of a cell in its column. Blanks at the end of a line are not shown.
std::vector<std::string_view> linesOf(std::string_view cell, std::size_t width) {
    std::vector<std::string_view> lines;
    while (shownWidth(cell) > width) {
        const std::size_t cut = bestCut(cell, bytesOf(cell, width));
        lines.push_back(cell.substr(0, cut));
        cell.remove_prefix(std::min(cell.find_first_not_of(' ', cut), cell.size()));
    }
    if (lines.empty() || !cell.empty()) lines.push_back(cell);
    return lines;
}

std::size_t sumOf(const Widths& widths, std::size_t widest) {
    return std::accumulate(widths.begin(), widths.end(), std::size_t{0},
                           [widest](std::size_t sum, std::size_t width) { return sum + std::min(width, widest); });
}

/// Only the widest columns are made narrower, all to the same width.
Widths fitted(Widths widths, std::size_t lineWidth) {
    const std::size_t gaps = (widths.size() - 1) * gap;
    std::size_t widest = std::ranges::max(widths);
    while (widest > narrowest && sumOf(widths, widest) + gaps > lineWidth) --widest;
    // What dividing left over is for the last column that was made narrower.
    std::size_t left = lineWidth > sumOf(widths, widest) + gaps ? lineWidth - sumOf(widths, widest) - gaps : 0;
    for (std::size_t column = widths.size(); column > 0; --column) {
        std::size_t& width = widths[column - 1];
        if (width <= widest) continue;
        width = std::min(width, widest + left);
        left = 0;
    }
    return widths;
}

void appendLine(const std::vector<std::string_view>& cells, const Widths& widths, std::string& text) {
    const std::size_t start = text.size();
    for (std::size_t column = 0; column < cells.size(); ++column) {
        std::ranges::transform(cells[column], std::back_inserter(text), shown);
        const std::size_t used = std::min(shownWidth(cells[column]), widths[column]);
        text.append(widths[column] - used + gap, ' ');
    }
    text.resize(std::max(start, text.find_last_not_of(' ') + 1));
}

void appendRow(const Table::Row& row, const Widths& widths, bool isBold, std::string& text) {
    std::vector<std::vector<std::string_view>> wrapped;
    std::size_t height = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
        wrapped.push_back(linesOf(row[column], widths[column]));
        height = std::max(height, wrapped.back().size());
    }
    for (std::size_t line = 0; line < height; ++line) {
        std::vector<std::string_view> cells;
        cells.reserve(row.size());
        for (const auto& lines : wrapped) cells.push_back(line < lines.size() ? lines[line] : "");
        std::string shownLine;
        appendLine(cells, widths, shownLine);
        text += (isBold ? inBold(shownLine) : shownLine) + '\n';
    }
}

}  // namespace

TableLook outputLook() { return {outputColumns(), outputShowsColor()}; }

Widths Table::widths() const {
    Widths widths(rows_.front().size());
    for (const Row& row : rows_) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], shownWidth(row[column]));
        }
    }
    return widths;
}

std::string Table::text(const TableLook& look) const {
    const Widths columns = look.width == 0 ? widths() : fitted(widths(), look.width);
    Row rule;
    for (const std::size_t width : columns) rule.emplace_back(width, '-');

    std::string text;
    for (const Row& row : rows_) {
        const bool isHeader = &row == &rows_.front();
        appendRow(row, columns, isHeader && look.hasColor, text);
        if (isHeader) appendRow(rule, columns, false, text);
    }
    return text;
}

}  // namespace vantro
