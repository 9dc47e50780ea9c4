#include "cli/commands/display_warnings.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vantro {

namespace {

std::string lineName(std::size_t line, std::size_t linesAbove) { return "line " + std::to_string(linesAbove + line); }

/// "line 3", "lines 3 and 5", "lines 3, 5, 6 and 12 more".
std::string lineNames(const std::vector<std::size_t>& lines, std::size_t linesAbove) {
    constexpr std::size_t most = 3;
    if (lines.size() == 1) return lineName(lines.front(), linesAbove);
    const std::size_t named = std::min(lines.size(), most);
    std::string list = "lines ";
    for (std::size_t at = 0; at < named; ++at) {
        const bool isLast = at + 1 == lines.size();
        list += (at == 0 ? "" : isLast ? " and " : ", ") + std::to_string(linesAbove + lines[at]);
    }
    return named == lines.size() ? list : list + " and " + std::to_string(lines.size() - named) + " more";
}

constexpr auto unreadRemarks = "; confidential remarks (RC) are read above or in the first section only";

}  // namespace

std::string DisplayWarnings::refusal(const DisplayDoubts& doubts, std::size_t linesAbove) const {
    if (doubts.isProfile || isPage(doubts)) return {};
    return "this is no profile display; from " + lineName(doubts.line, linesAbove) +
           " on there is no mark *T* or *C*, no section and no element";
}

void DisplayWarnings::add(const DisplayDoubts& doubts, const std::string& where, std::size_t linesAbove) {
    const std::string refused = refusal(doubts, linesAbove);
    const bool isPageOfDisplay = isPage(doubts);
    if (!doubts.cutLines.empty()) {
        warn(CutLines, where + lineNames(doubts.cutLines, linesAbove) + " cut after 80 characters");
    }
    if (!doubts.mendedLines.empty()) {
        warn(MendedLines, where + "bytes that are not UTF-8 replaced in " + lineNames(doubts.mendedLines, linesAbove));
    }
    pageMayFollow_ = doubts.end == DisplayEnd::Prompt && refused.empty();
    if (!refused.empty()) return warn(NoProfile, where + refused);
    if (isPageOfDisplay || doubts.moveDown != 0) {
        const std::string line = lineName(isPageOfDisplay ? doubts.line : doubts.moveDown, linesAbove);
        return warn(Pages, where + line + " seems to begin a further page of the display above; --pages joins pages");
    }
    if (!doubts.controlLines.empty()) {
        warn(ControlCharacters, where + "tabs or other control characters in " +
                                    lineNames(doubts.controlLines, linesAbove) +
                                    "; each counts as one column, so text may be read from wrong columns");
    }
    if (doubts.secondHead != 0) {
        warn(SecondHead, where + lineName(doubts.secondHead, linesAbove) +
                             " seems to begin another display, without an end of the one above; see --separator");
    }
    if (doubts.end == DisplayEnd::None) {
        warn(NoEnd, where + "the display from " + lineName(doubts.line, linesAbove) +
                        " on has no end, neither END OF DISPLAY nor a prompt");
    }
    if (!doubts.unread.empty()) {
        warn(UnreadLines, where + "nothing was read from " + lineNames(doubts.unread, linesAbove) +
                              (doubts.areUnreadRemarks ? unreadRemarks : ""));
    }
}

void DisplayWarnings::addRecord(const std::vector<std::string>& controls, const std::string& where) {
    if (controls.empty() || ++counts_[ControlCharacters] > mostOfAKind) return;
    for (const std::string& what : controls) say_(where + what);
}

void DisplayWarnings::endFile(const std::string& name) {
    static constexpr std::array<const char*, kinds> withWhat{
        "like further pages",
        "without a mark, a section or an element",
        "with tabs or other control characters",
        "with lines cut after 80 characters",
        "with bytes replaced that are not UTF-8",
        "with a second mark",
        "without an end",
        "with lines that nothing was read from",
    };
    for (std::size_t kind = 0; kind < kinds; ++kind) {
        if (counts_[kind] <= mostOfAKind) continue;
        const std::size_t more = counts_[kind] - mostOfAKind;
        say_(name + ": " + std::to_string(more) + (more == 1 ? " more display " : " more displays ") + withWhat[kind]);
    }
    counts_ = {};
    pageMayFollow_ = false;
}

void DisplayWarnings::warn(Kind kind, const std::string& what) {
    if (++counts_[kind] <= mostOfAKind) say_(what);
}

}  // namespace vantro
