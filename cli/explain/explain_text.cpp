#include "cli/explain/explain_text.h"

#include "cli/explain/screen_view.h"
#include "cli/io/failure.h"
#include "cli/io/terminal.h"
#include "cli/io/utf.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace vantro {

namespace {

constexpr std::size_t gap = 3;
constexpr std::size_t narrowestBeside = 56;

/// Appends a line in as many as it needs; what follows the first one is indented by four more blanks.
void wrap(std::string_view line, std::size_t width, std::vector<std::string>& lines) {
    const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    std::size_t room = width;
    std::string head;
    while (width != 0 && toUtf16(line).size() > room) {
        std::size_t cut = line.rfind(' ', room);
        if (cut == std::string_view::npos || cut <= indent) cut = std::min(line.find(' ', room), line.size());
        lines.push_back(head + std::string(line.substr(0, cut)));
        line.remove_prefix(std::min(line.find_first_not_of(' ', cut), line.size()));
        head.assign(indent + 4, ' ');
        room = std::max<std::size_t>(width - std::min(width, head.size()), 20);
    }
    if (!line.empty() || head.empty()) lines.push_back(head + std::string(line));
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        wrap(text.substr(0, end), width, lines);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string beside(const std::vector<ShownLine>& left, const std::vector<std::string>& right, std::size_t width) {
    std::string text;
    for (std::size_t row = 0; row < std::max(left.size(), right.size()); ++row) {
        const std::size_t used = row < left.size() ? left[row].width : 0;
        if (row < left.size()) text += left[row].text;
        if (row < right.size() && !right[row].empty()) text.append(width + gap - used, ' ').append(right[row]);
        text += '\n';
    }
    return text;
}

std::string below(const std::vector<ShownLine>& screen, const std::vector<std::string>& decisions) {
    std::string text;
    for (const ShownLine& line : screen) text += line.text + '\n';
    text += '\n';
    for (const std::string& line : decisions) text += line + '\n';
    return text;
}

}  // namespace

std::string explainText(const Explained& explained, const ExplainLook& look) {
    const Explanation& explanation = explained.explanation;
    const std::size_t needed = neededColumns(explanation.screen().size() / screenWidth);
    const bool isBeside = look.width >= needed + gap + narrowestBeside;
    const std::size_t room = isBeside ? look.width - needed - gap : look.width;
    const auto screen = screenView(explanation, explained.row, {isBeside ? needed : look.width, look.hasColor});
    const auto decisions = wrapped(toUtf8(textOf(explanation, explained.row)), room);

    std::string text;
    for (const std::string& line : wrapped(explained.title, look.width)) {
        text += (look.hasColor ? inBold(line) : line) + '\n';
    }
    text += '\n';
    text += isBeside ? beside(screen, decisions, needed) : below(screen, decisions);
    text += '\n';
    const std::string end = explained.error ? "Failed: " + asSentence(describe(*explained.error)) : explained.outcome;
    for (const std::string& line : wrapped(end, look.width)) text += line + '\n';
    return text;
}

}  // namespace vantro
