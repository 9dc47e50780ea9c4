#include "fuzz/common/line_mutator.h"

#include <algorithm>
#include <array>

namespace vantro::fuzz {

namespace {

std::vector<std::string> linesOf(Bytes input) {
    std::vector<std::string> lines(1);
    for (const std::uint8_t byte : input) {
        if (byte == '\n') {
            lines.emplace_back();
        } else {
            lines.back().push_back(static_cast<char>(byte));
        }
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (&line != lines.data()) text.push_back('\n');
        text += line;
    }
    return text;
}

// The columns that readers use, and those at which a line, a machine word or two of them end.
constexpr std::array<std::size_t, 22> columns{0,  1,  2,  3,  4,  5,  6,  7,  8,  11, 12,
                                              13, 14, 16, 17, 20, 28, 34, 63, 64, 76, 79};
constexpr std::array<std::size_t, 6> farColumns{80, 96, 120, 126, 127, 128};

}  // namespace

std::string LineMutator::mutated(Bytes input) {
    Lines lines = linesOf(input);
    for (std::size_t changes = 1 + below(4); changes > 0; --changes) change(lines);
    return joined(lines);
}

std::string LineMutator::crossed(Bytes input, Bytes other) {
    Lines lines = linesOf(input);
    const Lines others = linesOf(other);
    if (others.size() < 2) return joined(lines);
    const std::size_t first = 1 + below(others.size() - 1);
    const std::size_t count = 1 + below(others.size() - first);
    const auto from = others.begin() + static_cast<std::ptrdiff_t>(first);
    const auto position = lines.begin() + static_cast<std::ptrdiff_t>(1 + below(lines.size()));
    lines.insert(std::min(position, lines.end()), from, from + static_cast<std::ptrdiff_t>(count));
    return joined(lines);
}

void LineMutator::change(Lines& lines) {
    if (lines.size() == 1 || oneIn(8)) {
        if (oneIn(2)) return changeHead(lines.front());
        lines.push_back(newLine());
        return;
    }
    const std::size_t position = 1 + below(lines.size() - 1);
    if (oneIn(2)) {
        changeOrder(lines, position);
    } else {
        changeLine(lines[position]);
    }
}

void LineMutator::changeHead(std::string& head) {
    const std::size_t letters = std::min(head.find(';'), head.size());
    switch (below(4)) {
        case 0:
        case 1:
            if (letters == 0) {
                head.insert(head.begin(), static_cast<char>('A' + below(26)));
            } else {
                head[below(letters)] = static_cast<char>('A' + below(62));
            }
            return;
        case 2: {
            constexpr std::string_view kinds = "tttbil";
            head += {';', static_cast<char>('A' + below(16)), kinds[below(kinds.size())]};
            if (!oneIn(4)) head += oneIn(2) ? std::to_string(below(40)) : mark();
            return;
        }
        default:
            if (letters < head.size()) changeLine(head);
            return;
    }
}

void LineMutator::changeOrder(Lines& lines, std::size_t position) {
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(position);
    switch (below(5)) {
        case 0: lines.erase(at); return;
        case 1: {
            const std::string copy = *at;
            lines.insert(at, copy);
            return;
        }
        case 2: std::swap(*at, lines[1 + below(lines.size() - 1)]); return;
        case 3: std::rotate(lines.begin() + 1, at, lines.end()); return;
        default: lines.insert(at, newLine()); return;
    }
}

void LineMutator::changeLine(std::string& line) {
    switch (below(9)) {
        case 0: line.resize(below(line.size() + 1)); return;
        case 1:
        case 2:
            // This removes the last character of a mark at the end of a line.
            line.resize(line.size() - std::min<std::size_t>(line.size(), 1));
            return;
        case 3: shiftColumns(line); return;
        case 4: setMark(line); return;
        case 5: line.insert(below(line.size() + 1), mark()); return;
        case 6: line.insert(line.end(), below(140), ' '); return;
        default: changeCharacter(line); return;
    }
}

void LineMutator::changeCharacter(std::string& line) {
    if (line.empty()) {
        line.push_back(character());
        return;
    }
    // Blanks are changed less often than the text between them.
    std::size_t position = below(line.size());
    if (line[position] == ' ') position = std::min(line.find_first_not_of(' ', position), line.size() - 1);
    switch (below(4)) {
        case 0: line.erase(position, 1); return;
        case 1: line.insert(position, 1, character()); return;
        case 2:
            if (position + 1 < line.size()) std::swap(line[position], line[position + 1]);
            return;
        default: line[position] = character(); return;
    }
}

void LineMutator::shiftColumns(std::string& line) {
    const std::size_t from = oneIn(2) ? 0 : below(line.size() + 1);
    if (oneIn(2)) {
        line.insert(from, 1 + below(6), ' ');
    } else {
        line.erase(from, 1 + below(3));
    }
}

void LineMutator::setMark(std::string& line) {
    const std::size_t column = oneIn(6) ? farColumns[below(farColumns.size())] : columns[below(columns.size())];
    const std::string text = mark();
    if (line.size() < column + text.size()) line.resize(column + text.size(), ' ');
    line.replace(column, text.size(), text);
}

std::string LineMutator::newLine() {
    if (oneIn(8)) return oneIn(4) ? "\f" : "";
    std::string line;
    if (oneIn(2)) line.append(columns[below(columns.size())], ' ');
    for (std::size_t parts = 1 + below(3); parts > 0; --parts) line += (oneIn(3) ? " " : "") + mark();
    return line;
}

std::string LineMutator::mark() {
    if (marks_.empty() || oneIn(6)) return std::string(1 + below(3), character());
    if (oneIn(12)) return std::to_string(below(130));
    std::string chosen(marks_[below(marks_.size())]);
    if (oneIn(4)) changeCharacter(chosen);
    return chosen;
}

char LineMutator::character() {
    constexpr std::string_view common = "  >/-*:;1290ASTRPX,+";
    if (oneIn(2)) return common[below(common.size())];
    return oneIn(6) ? static_cast<char>(0x80 + below(0x80)) : static_cast<char>(0x20 + below(0x5F));
}

}  // namespace vantro::fuzz
