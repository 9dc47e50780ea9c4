#include "cli/commands/display_doubts.h"

#include "cli/commands/unread_lines.h"
#include "cli/io/screen_input.h"
#include "vantro/families.h"

#include <algorithm>

namespace vantro {

namespace {

// The readers of screens and displays search for a profile's mark down to this line.
constexpr std::size_t lastMarkRow = 6;

constexpr TextView headRule = u"-----";
constexpr TextView sectionStart = u"------- ";
constexpr TextView notesHeader = u"------- PROFILE NOTES";
constexpr TextView moveDown = u"PDMD";

TextView rowOf(TextView text, std::size_t row) {
    const std::size_t start = row * screenWidth;
    return start < text.size() ? text.substr(start, screenWidth) : TextView();
}

std::size_t rowsOf(TextView text) { return (text.size() + screenWidth - 1) / screenWidth; }

bool isMark(TextView row) { return row.starts_with(u"*T*") || row.starts_with(u"*C*"); }

// The head of a display is its mark with a rule below. The rule of a section has seven hyphens and a blank, that of the
// head any other number from five on.
bool isHead(TextView row, TextView below) {
    return isMark(row) && below.starts_with(headRule) && !below.starts_with(sectionStart);
}

// A transferable element with the code RC in column 14.
bool isConfidentialRemark(TextView row) {
    constexpr std::size_t codeStart = 12;
    return row.size() > codeStart && row.substr(codeStart).starts_with(u" RC ");
}

TextView withoutPrompt(TextView row) {
    const std::size_t first = row.find_first_not_of(u"> ");
    return first == TextView::npos ? TextView() : row.substr(first, row.find_last_not_of(u' ') + 1 - first);
}

bool isCommandEcho(TextView row) {
    const TextView text = withoutPrompt(row);
    const auto isCapital = [](char16_t unit) { return unit >= u'A' && unit <= u'Z'; };
    const auto length = static_cast<std::size_t>(std::ranges::find_if_not(text, isCapital) - text.begin());
    const TextView word = text.substr(0, length);
    if (word == moveDown || (!word.starts_with(u'P') && word != u"RLP") || length < 2 || length > 4) return false;
    return length == text.size() || TextView(u"/*-0123456789").find(text[length]) != TextView::npos;
}

bool isSectionHeader(TextView row) {
    if (!row.starts_with(sectionStart)) return false;
    const auto isOf = [row](const FamilyFacts& family) { return row.starts_with(family.section); };
    return row.starts_with(notesHeader) || std::ranges::any_of(families(), isOf);
}

bool containsSection(TextView text) {
    for (std::size_t row = 0; row < rowsOf(text); ++row) {
        if (isSectionHeader(rowOf(text, row))) return true;
    }
    return false;
}

bool containsElement(const Profile& profile) {
    const auto isShown = [](std::span<const Element> elements) { return !elements.empty(); };
    return !profile.notes.empty() || std::ranges::any_of(profile.families, isShown);
}

/// Walks over the rows that begin with a mark or a prompt.
class RowNotes {
public:
    RowNotes(const FoundDisplay& display, TextView text, DisplayDoubts& doubts)
        : display_(display), text_(text), doubts_(doubts) {}

    bool hasMark() const { return marks_ > 0; }

    void add(std::size_t row) {
        const TextView line = rowOf(text_, row);
        if (isMark(line)) ++marks_;
        if (isHead(line, rowOf(text_, row + 1)) && ++heads_ == 2) {
            const bool isBelowEcho = row > 0 && isCommandEcho(rowOf(text_, row - 1));
            doubts_.secondHead = display_.lineOf(isBelowEcho ? row - 1 : row);
        }
        const bool movesDown = row > 0 && line.starts_with(u'>') && withoutPrompt(line) == moveDown;
        if (movesDown && doubts_.moveDown == 0) doubts_.moveDown = display_.lineOf(row);
    }

private:
    const FoundDisplay& display_;
    TextView text_;
    DisplayDoubts& doubts_;
    int marks_ = 0;
    int heads_ = 0;
};

}  // namespace

bool beginsLikeDisplay(TextView display) {
    for (std::size_t row = 0; row <= lastMarkRow; ++row) {
        if (isMark(rowOf(display, row))) return true;
    }
    const std::size_t first = std::min(display.find_first_not_of(u' '), display.size()) / screenWidth;
    return isCommandEcho(rowOf(display, first));
}

DisplayDoubts doubtsOf(const FoundDisplay& display, TextView text) {
    DisplayDoubts doubts{
        .line = display.line,
        .beginsLikeDisplay = beginsLikeDisplay(text),
        .end = display.end,
        .controlLines = display.controlLines,
        .cutLines = display.cutLines,
        .mendedLines = display.mendedLines,
        .unread = {},
        .areUnreadRemarks = false,
    };
    RowNotes notes(display, text, doubts);
    for (const std::size_t row : display.markRows) notes.add(row);
    doubts.isProfile = notes.hasMark() || containsSection(text);
    return doubts;
}

void addElements(const Profile& profile, DisplayDoubts& doubts) {
    doubts.isProfile = doubts.isProfile || containsElement(profile);
}

void addUnread(const Profile& profile, const FoundDisplay& display, TextView text, DisplayDoubts& doubts) {
    if (display.end == DisplayEnd::None) return;
    const std::vector<std::size_t> rows = unreadRows(profile, text);
    for (const std::size_t row : rows) doubts.unread.push_back(display.lineOf(row));
    const auto isRemark = [text](std::size_t row) { return isConfidentialRemark(rowOf(text, row)); };
    doubts.areUnreadRemarks = !rows.empty() && std::ranges::all_of(rows, isRemark);
}

}  // namespace vantro
